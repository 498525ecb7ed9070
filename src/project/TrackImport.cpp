#include "project/TrackImport.h"

#include "geometry/marlin/Homography.h"
#include "project/NumberText.h"

#include <cmath>

namespace vxproject {

namespace {

/// The angle that differs from `angle` by full turns and lies within half a turn of `previous`.
double unwrapped(double angle, double previous) {
    constexpr double FULL_TURN = 6.283185307179586476925;
    return previous + std::remainder(angle - previous, FULL_TURN);
}

/// Why a row cannot be taken; empty for one that has been decomposed.
QString decompose(TrackRow const & row, std::optional<FrameSize> const & size, HomographyDecomposition & record) {
    if (!keyLineHoldsTime(row.frame))
        return QStringLiteral("a key at frame %1 would be written at %2")
            .arg(shortestText(row.frame), QString::number(row.frame, 'g', 6));
    Gan_Matrix33 const homography = size ? homographyFromPixels(row.homography, *size) : row.homography;
    if (bDecomposeHomography(&homography, 0.0, &record) == 0)
        return QStringLiteral("the homography of frame %1 cannot be decomposed: it has no inverse, or sends the "
                              "frame's centre to infinity")
            .arg(shortestText(row.frame));
    return QString();
}

} // namespace

TrackImport importTrack(TrackTable const & table, std::optional<FrameSize> const & size, Kyn::View const & view,
                        VX::HomographyParams & track) {
    TrackImport result;
    track.forEachParameter(
        [](Kyn::ParameterWithoutType & parameter, Kyn::View const & cleared) { parameter.deleteAllKeyframes(cleared); },
        view);
    double rotation = 0.0;
    for (TrackRow const & row : table.rows) {
        HomographyDecomposition record = {};
        QString const wrong = decompose(row, size, record);
        if (!wrong.isEmpty()) {
            result.findings.append({row.line, wrong + QStringLiteral("; the row is left out")});
            continue;
        }
        record.dRotation = result.imported > 0 ? unwrapped(record.dRotation, rotation) : record.dRotation;
        rotation = record.dRotation;
        Kyn::Context const context(Kyn::Time(row.frame), view, Kyn::ProxyScale::FULL);
        track.setFromDecomposition(record, context);
        track.forEachParameter(
            [&context](Kyn::ParameterWithoutType & parameter, Kyn::View const &) {
                parameter.setInterpolation(Kyn::INTERPOLATION_LINEAR, context);
            },
            view);
        ++result.imported;
    }
    return result;
}

} // namespace vxproject
