#pragma once

#include "camera/FrameWarp.h"
#include "parameter/kyn/Context.h"
#include "project/PixelCoordinates.h"

#include <optional>

class VX_BaseClipInfo;

namespace vxproject {

class Layer;
class Lens;
class Project;

/// Where a layer takes the points of the picture at one context, in pixels: out of the lens of its clip, with the
/// track, and into the lens again. Without a lens, the track alone.
class LayerWarp {
public:
    /// Nothing where the track's values make no homography, or the lens no camera, as on a clip without a film back.
    /// The frame is that of the layer's clip; without a lens, `size` comes before it. Nothing without any size.
    static std::optional<LayerWarp> at(Project const & project, Layer const & layer, Kyn::Context const & context,
                                       std::optional<FrameSize> const & size);

    /// Nothing for a point that the lens or the track take nowhere: beyond where the lens is one-to-one, or to
    /// infinity.
    std::optional<Gan_Vector2> warp(Gan_Vector2 const & pixel) const;
    std::optional<Gan_Vector2> unwarp(Gan_Vector2 const & pixel) const;

private:
    LayerWarp(Gan_Matrix33 const & track, Gan_Camera const & camera, FrameSize const & size, unsigned int clip);

    VX::FrameWarp warp_;
};

/// A camera without distortion that maps rays to the pixels of a frame as project coordinates are mapped.
Gan_Camera undistortedCamera(FrameSize const & size);

/// The lens at a context, for the pictures of a clip.
Gan_Camera cameraAt(Lens const & lens, Kyn::Context const & context, VX_BaseClipInfo const & picture);

/// Whether pixels can be told from rays: not without a film back, a frame or a focal distance.
bool isUsable(Gan_Camera const & camera);

/// Where a lens alone takes a pixel of the picture as it would be without distortion, or from where. Nothing for a
/// point that it takes nowhere.
std::optional<Gan_Vector2> distorted(Gan_Camera const & camera, Gan_Vector2 const & pixel);
std::optional<Gan_Vector2> undistorted(Gan_Camera const & camera, Gan_Vector2 const & pixel);

} // namespace vxproject
