#include "project/TrackComparison.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace vxproject {

std::optional<Gan_Matrix33> homographyAt(VX::HomographyParams const & track, Kyn::Context const & context,
                                         std::optional<FrameSize> const & size) {
    try {
        Gan_Matrix33 const homography = track.constructHomography(context);
        return normalised(size ? homographyToPixels(homography, *size) : homography);
    } catch (std::runtime_error const &) {
        return std::nullopt;
    }
}

namespace {

/// The distances of one frame's points; empty if one of them is not finite.
std::vector<double> distances(Gan_Matrix33 const & a, Gan_Matrix33 const & b, std::vector<Gan_Vector2> const & points) {
    std::vector<double> found;
    for (Gan_Vector2 const & point : points) {
        Gan_Vector2 imageA;
        Gan_Vector2 imageB;
        if (!mapPoint(a, point, imageA) || !mapPoint(b, point, imageB))
            return {};
        found.push_back(std::hypot(imageA.x - imageB.x, imageA.y - imageB.y));
    }
    return found;
}

} // namespace

TrackComparison compareTrack(VX::HomographyParams const & track, Kyn::View const & view, TrackTable const & table,
                             std::vector<Gan_Vector2> const & points, std::optional<FrameSize> const & size) {
    TrackComparison result;
    double sum = 0.0;
    double sumOfSquares = 0.0;
    for (TrackRow const & row : table.rows) {
        Kyn::Context const context(Kyn::Time(row.frame), view, Kyn::ProxyScale::FULL);
        std::optional<Gan_Matrix33> const homography = homographyAt(track, context, size);
        std::vector<double> const found =
            homography ? distances(*homography, row.homography, points) : std::vector<double>();
        if (found.empty()) {
            result.largestOfFrame.push_back(std::numeric_limits<double>::quiet_NaN());
            continue;
        }
        ++result.frames;
        for (std::size_t i = 0; i < found.size(); ++i) {
            sum += found[i];
            sumOfSquares += found[i] * found[i];
            if (found[i] > result.largest.distance || (result.frames == 1 && i == 0))
                result.largest = {row.frame, i, found[i]};
        }
        result.largestOfFrame.push_back(*std::max_element(found.begin(), found.end()));
    }
    double const count = static_cast<double>(result.frames * points.size());
    if (count > 0.0) {
        result.mean = sum / count;
        result.rootMeanSquare = std::sqrt(sumOfSquares / count);
    }
    return result;
}

} // namespace vxproject
