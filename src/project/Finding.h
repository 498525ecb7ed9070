#pragma once

#include <QString>

namespace vxproject {

/// Something in a file that is not as it should be. Reading goes on behind it.
struct Finding {
    qsizetype line; ///< The first line is 1; 0 where the whole file is meant.
    QString what;

    /// "path:line: what", or "path: what" for the whole file.
    QString toString(QString const & path) const;
};

/// A piece of a line for a message: long ones are cut, and what would tear the message apart is taken out.
QString quoted(QStringView text);

} // namespace vxproject
