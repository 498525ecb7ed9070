#pragma once

#include "camera/HomographyParams.h"
#include "project/PixelCoordinates.h"
#include "project/TrackTable.h"

#include <QList>

#include <optional>

namespace vxproject {

/// What came of an import.
struct TrackImport {
    std::size_t imported = 0;
    QList<Finding> findings; ///< The rows that were left out, with their lines in the table.
};

/// Puts a table of homographies into the curves of a track, in place of the keys that the view has. At every frame of
/// the table the track then gives the table's homography, up to a factor: each frame gets a key of its own in all eight
/// values, linear ones, whether or not a value has changed. (VX::HomographyParams::setFromHomography would leave out
/// what hardly differs, and interpolation towards a later key would pull it away.) The rotation runs on by less than
/// half a turn from one row to the next, adding full turns where the decomposition jumps.
///
/// With a size, the table's homographies act on pixels; without one, on project coordinates. Left out, each with a
/// finding, are rows whose matrix cannot be decomposed, and frames that no key line can hold (see keyLineHoldsTime()).
TrackImport importTrack(TrackTable const & table, std::optional<FrameSize> const & size, Kyn::View const & view,
                        VX::HomographyParams & track);

} // namespace vxproject
