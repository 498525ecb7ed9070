#include "RasterSuite.h"

#include "Failure.h"
#include "Pixels.h"

#include "foundation/Rectangle.h"
#include "geometry/gandalf/Matrix33.h"
#include "host/VertexGeometry.h"

#include <cmath>

namespace {

constexpr unsigned int LARGEST_SIDE = 32767; // beyond that the raster painter loses precision

qreal unit(float component) {
    return component > 0.0f ? std::min(static_cast<qreal>(component), 1.0) : 0.0;
}

QRectF rectangleOf(VX::Rectangle const & edges) {
    return QRectF(QPointF(edges.left, edges.top), QPointF(edges.right, edges.bottom));
}

/// Qt multiplies row vectors from the left, homographies here column vectors from the right.
QTransform transposed(Gan_Matrix33 const & m) {
    return QTransform(m.xx, m.yx, m.zx, m.xy, m.yy, m.zy, m.xz, m.yz, m.zz);
}

/// Where a homography takes a point; nothing behind the horizon.
std::optional<QPointF> mapped(QTransform const & transform, VX::Vector2 const & point) {
    qreal const x = static_cast<qreal>(point.x());
    qreal const y = static_cast<qreal>(point.y());
    qreal const depth = transform.m13() * x + transform.m23() * y + transform.m33();
    if (!(depth > 0.0))
        return std::nullopt;
    QPointF const place = transform.map(QPointF(x, y));
    if (!std::isfinite(place.x()) || !std::isfinite(place.y()))
        return std::nullopt;
    return place;
}

/// Keeps vertices, and has the suite draw them.
class Geometry : public VX::VertexGeometry {
public:
    Geometry(VX::RenderSuite & suite, VX::RenderSuite::Primitive primitive) : suite_(suite), primitive_(primitive) {}

    using VX::VertexGeometry::addVertex;
    void addVertex(QPointF const & point) override { vertices_.append(VX::VertexInfo(point)); }
    void clear() override { vertices_.clear(); }

    void render() const override {
        switch (primitive_) {
        case VX::RenderSuite::POINTS:
            return suite_.vDrawPoints(vertices_);
        case VX::RenderSuite::LINES:
            return suite_.vDrawLines(vertices_);
        case VX::RenderSuite::LINE_STRIP:
            return suite_.vDrawLineStrip(vertices_);
        case VX::RenderSuite::LINE_LOOP:
            return suite_.vDrawLineLoop(vertices_);
        case VX::RenderSuite::POLYGON:
            return suite_.vDrawPolygon(vertices_);
        }
    }

private:
    VX::RenderSuite & suite_;
    VX::RenderSuite::Primitive primitive_;
    QList<VX::VertexInfo> vertices_;
};

} // namespace

bool RasterSuite::bBeginFrame(unsigned int width, unsigned int height) {
    if (painter_.isActive() || width == 0 || height == 0 || width > LARGEST_SIDE || height > LARGEST_SIDE)
        return false;
    frame_ = QImage(static_cast<int>(width), static_cast<int>(height), QImage::Format_ARGB32_Premultiplied);
    if (frame_.isNull())
        return false;
    frame_.fill(Qt::transparent);
    painter_.begin(&frame_);
    viewport_ = window_ = frame_.rect();
    painter_.setClipRect(viewport_);
    transform_ = QTransform();
    pushed_.clear();
    colour_ = Qt::white;
    lineWidth_ = pointSize_ = 1.0f;
    isBlending_ = isStippled_ = false;
    blend_ = QPainter::CompositionMode_SourceOver;
    applyBlend();
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    vSetTextHeight(12.0f);
    return true;
}

void RasterSuite::vEndFrame() {
    painter().end();
    pushed_.clear();
}

void RasterSuite::vClear(_VX_BUFFER buffers) {
    if (!(buffers & _VX_BUFFER_COLOUR))
        return; // an image has no other buffers
    painter().setCompositionMode(QPainter::CompositionMode_Source);
    painter().fillRect(viewport_, colour_);
    applyBlend();
}

bool RasterSuite::bReadPixels(Gan_Image & image) const {
    return copyInto(image, frame_);
}

void RasterSuite::vSetViewport(VX::Rectangle const & pixels) {
    viewport_ = rectangleOf(pixels);
    painter().setClipRect(viewport_);
}

void RasterSuite::vSetWindow(VX::Rectangle const & window) {
    window_ = rectangleOf(window);
}

void RasterSuite::vPushTransform() {
    pushed_.append(transform_);
}

void RasterSuite::vPopTransform() {
    transform_ = pushed_.isEmpty() ? QTransform() : pushed_.takeLast();
}

void RasterSuite::vMultiplyTransform(Gan_Matrix33 const & homography) {
    transform_ = transposed(homography) * transform_;
}

void RasterSuite::vSetColour(VX::Colour4 const & colour) {
    colour_.setRgbF(static_cast<float>(unit(colour.red)), static_cast<float>(unit(colour.green)),
                    static_cast<float>(unit(colour.blue)), static_cast<float>(unit(colour.alpha)));
}

void RasterSuite::vSetLineWidth(float pixels) {
    lineWidth_ = pixels;
}

void RasterSuite::vSetPointSize(float pixels) {
    pointSize_ = pixels;
}

void RasterSuite::vSetBlend(_VX_FACTOR source, _VX_FACTOR destination) {
    struct Row {
        _VX_FACTOR source;
        _VX_FACTOR destination;
        QPainter::CompositionMode mode;
    };
    static constexpr Row rows[] = {
        {_VX_FACTOR_SOURCE_ALPHA, _VX_FACTOR_ONE_MINUS_SOURCE_ALPHA, QPainter::CompositionMode_SourceOver},
        {_VX_FACTOR_SOURCE_ALPHA, _VX_FACTOR_ONE, QPainter::CompositionMode_Plus},
        {_VX_FACTOR_DESTINATION_COLOUR, _VX_FACTOR_ZERO, QPainter::CompositionMode_Multiply},
        {_VX_FACTOR_ONE, _VX_FACTOR_ZERO, QPainter::CompositionMode_Source},
        {_VX_FACTOR_ZERO, _VX_FACTOR_ONE, QPainter::CompositionMode_Destination},
    };
    for (Row const & row : rows)
        if (row.source == source && row.destination == destination) {
            blend_ = row.mode;
            return applyBlend();
        }
    HOST_FAIL(VX_NotImplemented, "blend factors " + std::to_string(source) + " and " + std::to_string(destination),
              "Colours cannot be mixed in that way.");
}

void RasterSuite::vEnable(_VX_RENDER_STYLE style) {
    setStyle(style, true);
}

void RasterSuite::vDisable(_VX_RENDER_STYLE style) {
    setStyle(style, false);
}

void RasterSuite::vDrawPoints(QList<VX::VertexInfo> const & vertices) {
    painter().setPen(pen(pointSize_, Qt::RoundCap));
    for (VX::VertexInfo const & vertex : vertices)
        painter().drawPoints(placesOf({vertex}));
}

void RasterSuite::vDrawLines(QList<VX::VertexInfo> const & vertices) {
    painter().setPen(pen(lineWidth_, Qt::FlatCap));
    for (qsizetype i = 0; i + 1 < vertices.size(); i += 2)
        painter().drawPolyline(placesOf(vertices.mid(i, 2)));
}

void RasterSuite::vDrawLineStrip(QList<VX::VertexInfo> const & vertices) {
    QPolygonF const places = placesOf(vertices);
    painter().setPen(pen(lineWidth_, Qt::FlatCap));
    if (places.size() > 1)
        painter().drawPolyline(places);
}

void RasterSuite::vDrawLineLoop(QList<VX::VertexInfo> const & vertices) {
    QPolygonF const places = placesOf(vertices);
    painter().setPen(pen(lineWidth_, Qt::FlatCap));
    painter().setBrush(Qt::NoBrush);
    if (places.size() > 1)
        painter().drawPolygon(places);
}

void RasterSuite::vDrawPolygon(QList<VX::VertexInfo> const & vertices) {
    QPolygonF const places = placesOf(vertices);
    painter().setPen(Qt::NoPen);
    painter().setBrush(colour_);
    if (places.size() > 2)
        painter().drawPolygon(places, Qt::OddEvenFill);
}

boost::shared_ptr<VX::VertexGeometry> RasterSuite::createGeometry(Primitive primitive) {
    return boost::shared_ptr<VX::VertexGeometry>(new Geometry(*this, primitive));
}

unsigned int RasterSuite::uiCreateTexture(Gan_Image const & image) {
    QImage const picture = viewOf(image);
    if (picture.isNull())
        return 0;
    unsigned int const texture = textures_.empty() ? 1 : textures_.rbegin()->first + 1;
    textures_[texture] = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied); // a copy of its own
    return texture;
}

void RasterSuite::vDestroyTexture(unsigned int texture) {
    textures_.erase(texture);
}

void RasterSuite::vDrawTexture(unsigned int texture, VX::Rectangle const & place) {
    auto const found = textures_.find(texture);
    QTransform const toFrame = transform();
    if (found == textures_.end() || !std::isfinite(toFrame.determinant()))
        return;
    QImage tinted = found->second;
    if (colour_.rgb() != QColor(Qt::white).rgb()) {
        QPainter tint(&tinted);
        tint.setCompositionMode(QPainter::CompositionMode_Multiply);
        tint.fillRect(tinted.rect(), QColor(colour_.rgb()));
    }
    painter().setTransform(toFrame);
    painter().setOpacity(colour_.alphaF());
    painter().drawImage(rectangleOf(place), tinted);
    painter().setOpacity(1.0);
    painter().resetTransform();
}

void RasterSuite::vDrawText(QPointF const & place, QString const & text) {
    QPolygonF const places = placesOf({VX::VertexInfo(place)});
    if (places.isEmpty())
        return;
    painter().setPen(colour_);
    painter().setFont(font_);
    painter().drawText(places.first(), text);
}

void RasterSuite::vSetTextHeight(float pixels) {
    font_.setFamily(QStringLiteral("DejaVu Sans"));
    font_.setPixelSize(std::max(1, static_cast<int>(std::lround(static_cast<double>(pixels)))));
}

void RasterSuite::destroyResources() {
    if (painter_.isActive())
        painter_.end();
    textures_.clear();
    frame_ = QImage();
}

QPainter & RasterSuite::painter() {
    if (!painter_.isActive())
        HOST_FAIL(VX_BadState, "drawing outside of bBeginFrame() and vEndFrame()", "The picture cannot be drawn.");
    return painter_;
}

void RasterSuite::setStyle(_VX_RENDER_STYLE style, bool isOn) {
    switch (style) {
    case _VX_RENDER_STYLE_BLEND:
        isBlending_ = isOn;
        return applyBlend();
    case _VX_RENDER_STYLE_ANTIALIAS:
        return painter().setRenderHint(QPainter::Antialiasing, isOn);
    case _VX_RENDER_STYLE_INTERPOLATE:
        return painter().setRenderHint(QPainter::SmoothPixmapTransform, isOn);
    case _VX_RENDER_STYLE_STIPPLE:
        isStippled_ = isOn;
        return;
    }
}

void RasterSuite::applyBlend() {
    painter().setCompositionMode(isBlending_ ? blend_ : QPainter::CompositionMode_Source);
}

QTransform RasterSuite::transform() const {
    QTransform toViewport;
    toViewport.translate(viewport_.left(), viewport_.top());
    toViewport.scale(viewport_.width() / window_.width(), viewport_.height() / window_.height());
    toViewport.translate(-window_.left(), -window_.top());
    return transform_ * toViewport;
}

QPolygonF RasterSuite::placesOf(QList<VX::VertexInfo> const & vertices) const {
    QTransform const toFrame = transform();
    QPolygonF places;
    for (VX::VertexInfo const & vertex : vertices) {
        std::optional<QPointF> const place = mapped(toFrame, vertex.position);
        if (!place)
            return QPolygonF();
        places.append(*place);
    }
    return places;
}

QPen RasterSuite::pen(float width, Qt::PenCapStyle cap) const {
    return QPen(colour_, static_cast<qreal>(width), isStippled_ ? Qt::DashLine : Qt::SolidLine, cap, Qt::MiterJoin);
}
