#pragma once

#include <QStringView>

namespace VX::detail {

/// The arguments of a discrete frame's line, each a part of it.
struct DiscreteFrameLine {
    bool found = false;
    QStringView fileName;
    QStringView frame;
    QStringView view; ///< Empty where there are two arguments only.
};

/// Finds what the pattern
///
///     DiscreteFrame\(\s*(\S.*),\s*([0-9]+)\s*,\s*([0-9]+)\s*\)
///
/// finds in a line, or else that pattern without its last argument: same captures, in time proportional to the line.
DiscreteFrameLine parseDiscreteFrame(QStringView line);

} // namespace VX::detail
