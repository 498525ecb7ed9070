#pragma once

#include "geometry/gandalf/Matrix33.h"
#include "project/Finding.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <vector>

namespace vxproject {

/// One row of a table of homographies.
struct TrackRow {
    qsizetype line; ///< In the file.
    double frame;
    Gan_Matrix33 homography; ///< As it stands in the table: in its coordinates, with its factor.
};

/// A measured track as a table: CSV, in UTF-8, whose header line names the columns "frame" and "h11" to "h33" in any
/// order. Other columns are ignored, as are blank lines and lines that begin with '#'.
struct TrackTable {
    std::vector<TrackRow> rows; ///< By frame; each frame once.
    QList<Finding> findings;    ///< Frames that stand there twice: the later row is taken.

    /// FileError, with the line, for a column that is missing or named twice, a row with too few or too many fields,
    /// and a field of these columns that is no finite number.
    static TrackTable read(QString const & path);
    static TrackTable fromText(QByteArray const & text, QString const & path);
};

} // namespace vxproject
