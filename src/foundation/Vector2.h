#pragma once

#include <QPointF>

namespace VX {
/// A point or direction of a plane, in single precision.
class Vector2 {
public:
    /// Sets nothing: coordinates must be set before they are read.
    Vector2() = default;
    Vector2(float x, float y) : x_(x), y_(y) {}
    /// Narrows to single precision.
    Vector2(QPointF const & point) : x_(static_cast<float>(point.x())), y_(static_cast<float>(point.y())) {}

    float x() const { return x_; }
    float y() const { return y_; }

private:
    float x_;
    float y_;
};
} // namespace VX
