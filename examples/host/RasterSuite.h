#pragma once

#include "host/RenderSuite.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QTransform>

#include <map>
#include <optional>

/// Draws on an image in memory, with Qt's raster painter: no display and no graphics device is needed. Colours are of 8
/// bits.
///
/// Drawing outside of a frame throws VX_BadState, and blend factors that Qt cannot mix by VX_NotImplemented.
class RasterSuite : public VX::RenderSuite {
    Q_OBJECT

public:
    bool bBeginFrame(unsigned int width, unsigned int height) override;
    void vEndFrame() override;
    void vClear(_VX_BUFFER buffers) override;
    bool bReadPixels(Gan_Image & image) const override;

    void vSetViewport(VX::Rectangle const & pixels) override;
    void vSetWindow(VX::Rectangle const & window) override;
    void vPushTransform() override;
    void vPopTransform() override;
    void vMultiplyTransform(Gan_Matrix33 const & homography) override;

    void vSetColour(VX::Colour4 const & colour) override;
    void vSetLineWidth(float pixels) override;
    void vSetPointSize(float pixels) override;
    void vSetBlend(_VX_FACTOR source, _VX_FACTOR destination) override;
    void vEnable(_VX_RENDER_STYLE style) override;
    void vDisable(_VX_RENDER_STYLE style) override;

    void vDrawPoints(QList<VX::VertexInfo> const & vertices) override;
    void vDrawLines(QList<VX::VertexInfo> const & vertices) override;
    void vDrawLineStrip(QList<VX::VertexInfo> const & vertices) override;
    void vDrawLineLoop(QList<VX::VertexInfo> const & vertices) override;
    void vDrawPolygon(QList<VX::VertexInfo> const & vertices) override;
    boost::shared_ptr<VX::VertexGeometry> createGeometry(Primitive primitive) override;

    unsigned int uiCreateTexture(Gan_Image const & image) override;
    void vDestroyTexture(unsigned int texture) override;
    void vDrawTexture(unsigned int texture, VX::Rectangle const & place) override;
    void vDrawText(QPointF const & place, QString const & text) override;
    void vSetTextHeight(float pixels) override;

public slots:
    /// Frees the textures and the frame.
    void destroyResources() override;

private:
    /// The painter, during a frame.
    QPainter & painter();
    void setStyle(_VX_RENDER_STYLE style, bool isOn);
    void applyBlend();
    /// From what is drawn to pixels of the frame.
    QTransform transform() const;
    /// Where vertices lie in the frame; empty if one lies nowhere.
    QPolygonF placesOf(QList<VX::VertexInfo> const & vertices) const;
    QPen pen(float width, Qt::PenCapStyle cap) const;

    QImage frame_;
    QPainter painter_;
    QRectF viewport_;
    QRectF window_;
    QTransform transform_;
    QList<QTransform> pushed_;
    QColor colour_;
    float lineWidth_ = 1.0f;
    float pointSize_ = 1.0f;
    bool isBlending_ = false;
    bool isStippled_ = false;
    QPainter::CompositionMode blend_ = QPainter::CompositionMode_SourceOver;
    QFont font_;
    std::map<unsigned int, QImage> textures_;
};
