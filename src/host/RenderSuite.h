#pragma once

#include "foundation/Translation.h"
#include "foundation/VertexInfo.h"
#include "host/HostEnumerations.h"

#include <QList>
#include <QObject>

#include <boost/shared_ptr.hpp>

class QPointF;
class QString;
struct Gan_Image;
struct Gan_Matrix33;

namespace VX {

class VertexGeometry;
struct Rectangle;

/// What drawing code draws with. An application implements it on its graphics library, or on an image in memory; this
/// library calls none of it.
///
/// Drawing happens between bBeginFrame() and vEndFrame(), into a frame of whole pixels that begins at (0, 0) in its top
/// left corner, so that a pixel's centre has a half in both coordinates; y points down. What is drawn is in window
/// coordinates: the transform takes them to the window, and the window fills the viewport. A frame begins with the
/// window and the viewport that are the frame itself, the identity, opaque white, lines and points one pixel wide, the
/// styles ANTIALIAS and INTERPOLATE, and blending by SOURCE_ALPHA and ONE_MINUS_SOURCE_ALPHA, off.
///
/// Bad input draws nothing: too few vertices, coordinates that are not finite, a texture of no name.
class RenderSuite : public QObject {
    Q_OBJECT

public:
    VX_DECLARE_TRUTF8

    /// How the vertices of a VX::VertexGeometry are drawn.
    enum Primitive {
        POINTS,     ///< a dot at each
        LINES,      ///< a line from the first to the second, from the third to the fourth, ...
        LINE_STRIP, ///< one line along all
        LINE_LOOP,  ///< the same, closed
        POLYGON,    ///< the area within, by the odd-even rule
    };

    /// Has no parent.
    RenderSuite();
    ~RenderSuite() override;

    /// @name The frame
    /// @{
    /// Begins a frame of that size in pixels, transparent black. False if there can be none; nothing may be drawn then.
    virtual bool bBeginFrame(unsigned int width, unsigned int height) = 0;
    /// Completes the frame, so that it can be read back. Transforms that are still pushed are popped.
    virtual void vEndFrame() = 0;
    /// Fills the viewport with the current colour, whatever the styles.
    virtual void vClear(_VX_BUFFER buffers) = 0;
    /// Copies the frame, from its top left corner, into as many pixels as the image has; at any time from bBeginFrame()
    /// to the next one. False, and the image is untouched, for a format, type or size that the suite cannot write.
    virtual bool bReadPixels(Gan_Image & image) const = 0;
    /// @}

    /// @name Where drawing goes
    /// @{
    /// The part of the frame that is drawn to, in pixels. Nothing is drawn outside.
    virtual void vSetViewport(VX::Rectangle const & pixels) = 0;
    /// The window coordinates of the viewport's edges; left and right, or top and bottom, may change places.
    virtual void vSetWindow(VX::Rectangle const & window) = 0;
    virtual void vPushTransform() = 0;
    /// Brings back the transform of the last push that was not popped yet; without one, the identity.
    virtual void vPopTransform() = 0;
    /// What is drawn next goes through this homography of column vectors (x, y, 1) first, then through those before it.
    virtual void vMultiplyTransform(Gan_Matrix33 const & homography) = 0;
    /// @}

    /// @name How it is drawn
    /// @{
    /// Components from 0 to 1, not premultiplied.
    virtual void vSetColour(VX::Colour4 const & colour) = 0;
    /// Pixels of the frame, whatever the transform.
    virtual void vSetLineWidth(float pixels) = 0;
    virtual void vSetPointSize(float pixels) = 0;
    virtual void vSetBlend(_VX_FACTOR source, _VX_FACTOR destination) = 0;
    virtual void vEnable(_VX_RENDER_STYLE style) = 0;
    virtual void vDisable(_VX_RENDER_STYLE style) = 0;
    /// @}

    /// @name Lines and areas
    /// Of the current colour: the vertices' own colours and texture coordinates do not count.
    /// @{
    virtual void vDrawPoints(QList<VX::VertexInfo> const & vertices) = 0;
    /// Each two vertices are a line. The last of an odd number is left out.
    virtual void vDrawLines(QList<VX::VertexInfo> const & vertices) = 0;
    virtual void vDrawLineStrip(QList<VX::VertexInfo> const & vertices) = 0;
    virtual void vDrawLineLoop(QList<VX::VertexInfo> const & vertices) = 0;
    /// The area within, by the odd-even rule.
    virtual void vDrawPolygon(QList<VX::VertexInfo> const & vertices) = 0;
    /// An empty geometry, which draws with this suite's state at the time of its render(). The suite must outlive it.
    virtual boost::shared_ptr<VX::VertexGeometry> createGeometry(Primitive primitive) = 0;
    /// @}

    /// @name Pictures and text
    /// @{
    /// Takes a copy of an image, and names it. 0 if the suite cannot show it.
    virtual unsigned int uiCreateTexture(Gan_Image const & image) = 0;
    virtual void vDestroyTexture(unsigned int texture) = 0;
    /// The whole texture, its corners in those of a rectangle, in its own colours times the current one.
    virtual void vDrawTexture(unsigned int texture, VX::Rectangle const & place) = 0;
    /// The beginning of the text's baseline at a point; upright whatever the transform.
    virtual void vDrawText(QPointF const & place, QString const & text) = 0;
    /// The height of a line of text, in pixels of the frame.
    virtual void vSetTextHeight(float pixels) = 0;
    /// @}

public slots:
    /// Frees what the suite holds on the graphics device; here, nothing. A slot, unlike all else, so that the signal of
    /// a device that goes away can call it in time.
    virtual void destroyResources();
};

} // namespace VX
