#pragma once

#include "geometry/gandalf/Camera.h"
#include "project/PixelCoordinates.h"

#include <QByteArray>

#include <vector>

namespace vxproject {

/// Where a lens shows the lines of a regular grid over the undistorted frame, in pixels: columns from left to right,
/// then rows from the top, each as points along it. A line that the lens shows nothing of in between comes in pieces.
std::vector<std::vector<Gan_Vector2>> lensGridLines(Gan_Camera const & camera, FrameSize const & size);

/// A picture of that grid, as SVG: thin where it would be without distortion, and over that where the lens puts it.
QByteArray lensGridSvg(Gan_Camera const & camera, FrameSize const & size);

} // namespace vxproject
