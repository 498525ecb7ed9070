#pragma once

#include "foundation/Colour.h"
#include "foundation/Rectangle.h"
#include "geometry/gandalf/Camera.h"
#include "geometry/gandalf/Vector2.h"
#include "host/RenderSuite.h"
#include "host/Renderable.h"
#include "project/PixelCoordinates.h"

#include <QString>

#include <vector>

// What is drawn over a picture. Places are pixels as the project counts them, whole numbers at pixel centres; drawing
// begins at 0 and adds the half.

/// A picture over the whole frame.
class Plate : public VX::Renderable {
public:
    /// The image must outlive it.
    Plate(VX::RenderSuite & suite, Gan_Image const & image, VX::Rectangle const & place)
        : suite_(suite), image_(image), place_(place) {}
    /// VX_BadFile if the suite cannot show such pixels.
    void render() const override;

private:
    VX::RenderSuite & suite_;
    Gan_Image const & image_;
    VX::Rectangle place_;
};

/// A quad: tinted, outlined, with dots at its corners.
class Quad : public VX::Renderable {
public:
    Quad(VX::RenderSuite & suite, std::vector<Gan_Vector2> const & corners);
    void render() const override;

private:
    VX::RenderSuite & suite_;
    boost::shared_ptr<VX::VertexGeometry> area_;
    boost::shared_ptr<VX::VertexGeometry> outline_;
    boost::shared_ptr<VX::VertexGeometry> dots_;
};

/// Where a lens shows the lines of a regular grid.
class LensGrid : public VX::Renderable {
public:
    LensGrid(VX::RenderSuite & suite, Gan_Camera const & camera, vxproject::FrameSize const & size);
    void render() const override;

private:
    VX::RenderSuite & suite_;
    std::vector<boost::shared_ptr<VX::VertexGeometry>> lines_;
};

/// A line of text in the top left corner, legible on any picture.
class Caption : public VX::Renderable {
public:
    /// The height is in pixels of the project.
    Caption(VX::RenderSuite & suite, QString const & text, float height)
        : suite_(suite), text_(text), height_(height) {}
    void render() const override;

private:
    VX::RenderSuite & suite_;
    QString text_;
    float height_;
};
