#include "Overlay.h"

#include "Failure.h"

#include "host/VertexGeometry.h"
#include "project/LensGrid.h"

namespace {

constexpr double PIXEL_CENTRE = 0.5;

QPointF onFrame(Gan_Vector2 const & pixel) {
    return QPointF(pixel.x + PIXEL_CENTRE, pixel.y + PIXEL_CENTRE);
}

boost::shared_ptr<VX::VertexGeometry> geometry(VX::RenderSuite & suite, VX::RenderSuite::Primitive primitive,
                                               std::vector<Gan_Vector2> const & points) {
    boost::shared_ptr<VX::VertexGeometry> made = suite.createGeometry(primitive);
    for (Gan_Vector2 const & point : points)
        made->addVertex(onFrame(point));
    return made;
}

} // namespace

void Plate::render() const {
    unsigned int const texture = suite_.uiCreateTexture(image_);
    if (texture == 0)
        HOST_FAIL(VX_BadFile, "pixels of format " + std::to_string(image_.format), "The picture cannot be shown.");
    suite_.vSetColour(VX::Colour4(1.0f, 1.0f));
    suite_.vDisable(_VX_RENDER_STYLE_BLEND);
    suite_.vDrawTexture(texture, place_);
    suite_.vEnable(_VX_RENDER_STYLE_BLEND);
    suite_.vDestroyTexture(texture);
}

Quad::Quad(VX::RenderSuite & suite, std::vector<Gan_Vector2> const & corners)
    : suite_(suite),
      area_(geometry(suite, VX::RenderSuite::POLYGON, corners)),
      outline_(geometry(suite, VX::RenderSuite::LINE_LOOP, corners)),
      dots_(geometry(suite, VX::RenderSuite::POINTS, corners)) {}

void Quad::render() const {
    suite_.vSetColour(VX::Colour4(0.1f, 0.9f, 0.3f, 0.25f));
    area_->render();
    suite_.vSetColour(VX::Colour4(0.1f, 1.0f, 0.3f, 1.0f));
    suite_.vSetLineWidth(2.0f);
    outline_->render();
    suite_.vSetPointSize(7.0f);
    dots_->render();
}

LensGrid::LensGrid(VX::RenderSuite & suite, Gan_Camera const & camera, vxproject::FrameSize const & size)
    : suite_(suite) {
    for (std::vector<Gan_Vector2> const & line : vxproject::lensGridLines(camera, size))
        lines_.push_back(geometry(suite, VX::RenderSuite::LINE_STRIP, line));
}

void LensGrid::render() const {
    suite_.vSetColour(VX::Colour4(0.45f, 0.75f, 1.0f, 0.6f));
    suite_.vSetLineWidth(1.0f);
    for (boost::shared_ptr<VX::VertexGeometry> const & line : lines_)
        line->render();
}

void Caption::render() const {
    QPointF const place(static_cast<double>(height_) * 0.6, static_cast<double>(height_) * 1.3);
    suite_.vSetColour(VX::Colour4(0.0f, 0.7f));
    suite_.vDrawText(place + QPointF(1.0, 1.0), text_);
    suite_.vSetColour(VX::Colour4(1.0f, 1.0f));
    suite_.vDrawText(place, text_);
}
