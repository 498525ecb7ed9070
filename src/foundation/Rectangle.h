#pragma once

#include <QRect>

namespace VX {
/// A rectangle by its edges.
///
///     VX::Rectangle const frame{0.0f, 0.0f, 1919.0f, 1079.0f};
struct Rectangle {
    float left;
    float top;
    float right;
    float bottom;

    /// Each edge is cut towards zero and taken as the corner coordinate of the same name. A QRect's right and bottom
    /// are inclusive and nothing is taken off for that: edges 0 and 1920 give a QRect that is 1921 wide. Edges beyond
    /// an int saturate; one that is not a number becomes 0.
    operator QRect() const;
};
} // namespace VX
