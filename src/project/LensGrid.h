#pragma once

#include "geometry/gandalf/Camera.h"
#include "project/PixelCoordinates.h"

#include <QByteArray>

namespace vxproject {

/// A picture, as SVG, of a regular grid over the undistorted frame as a lens shows it: thin where it would be without
/// distortion, and over that where the lens puts it. Lines break off where the lens shows nothing.
QByteArray lensGridSvg(Gan_Camera const & camera, FrameSize const & size);

} // namespace vxproject
