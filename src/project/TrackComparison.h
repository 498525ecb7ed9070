#pragma once

#include "camera/HomographyParams.h"
#include "project/PixelCoordinates.h"
#include "project/TrackTable.h"

#include <optional>
#include <vector>

namespace vxproject {

/// How far a track takes a point from where a table takes it.
struct PointDistance {
    double frame = 0.0;
    std::size_t point = 0; ///< Its place in the list of points.
    double distance = 0.0; ///< In pixels, or in frame widths without a size.
};

/// How well a track agrees with a table of homographies.
struct TrackComparison {
    std::size_t frames = 0; ///< Those that were compared.
    PointDistance largest;
    double mean = 0.0; ///< Of all distances.
    double rootMeanSquare = 0.0;
    std::vector<double> largestOfFrame; ///< By row of the table; not a number where a point goes to infinity.
};

/// Compares at every frame of the table where both take the points. With a size, the table's homographies and the
/// points are in pixels; without one, in project coordinates. A frame at which the track, or either image of a point,
/// is not finite is not compared: then `frames` is less than the number of rows.
TrackComparison compareTrack(VX::HomographyParams const & track, Kyn::View const & view, TrackTable const & table,
                             std::vector<Gan_Vector2> const & points, std::optional<FrameSize> const & size);

/// The track's homography at a context, with h33 = 1: in pixels with a size, otherwise in project coordinates. Nothing
/// where the values make none.
std::optional<Gan_Matrix33> homographyAt(VX::HomographyParams const & track, Kyn::Context const & context,
                                         std::optional<FrameSize> const & size);

} // namespace vxproject
