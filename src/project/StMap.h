#pragma once

#include "geometry/gandalf/Camera.h"
#include "project/PixelCoordinates.h"

#include <boost/shared_ptr.hpp>

#include <QByteArray>
#include <QString>

#include <vector>

namespace vxproject {

/// A lens as a picture, as compositing tools exchange it: each pixel says, for its own place in the target picture,
/// which place of the source picture is seen there. s goes from 0 at the left edge to 1 at the right, t from 0 at the
/// bottom to 1 at the top; a pixel is asked at its centre.
struct StMap {
    /// What stands where the lens shows nothing: a place outside the frame.
    static constexpr float NOWHERE = -1.0f;
    /// No map is larger: a file that claims to be has been damaged.
    static constexpr qint64 MOST_PIXELS = qint64(1) << 27;

    FrameSize size;
    std::vector<float> s; ///< By rows, the top one first.
    std::vector<float> t;
    std::size_t nowhere = 0; ///< Pixels at which the lens shows nothing.
};

enum class MapDirection {
    Direct,  ///< Target undistorted, source distorted: what takes the distortion out of a picture.
    Inverse, ///< Target distorted, source undistorted: what puts it in.
};

/// The map of a camera's lens over a frame.
StMap stMapOf(Gan_Camera const & camera, FrameSize const & size, MapDirection direction);

/// An OpenEXR file of 32-bit floats: s in the channel R, t in G, and B 0 for tools that ask for three.
QByteArray exrOf(StMap const & map);

/// Reads such a file, of any depth of channel. FileError for one that is not there, is no OpenEXR file, or has no
/// channels R and G, or more than MOST_PIXELS.
StMap readStMap(QString const & path);

/// The map as the camera model of distortion maps reads it (Camera.h); pixels that show nothing have no number.
boost::shared_ptr<Gan_Image> imageOf(StMap const & map);

} // namespace vxproject
