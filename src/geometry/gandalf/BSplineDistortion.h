#pragma once

#include "geometry/gandalf/CubicBSplineWeights.h"
#include "geometry/gandalf/PlaneDistortion.h"

namespace VX::detail {
/// Adds to (x, y) the offset of a uniform cubic B-spline over the 17 by 17 weights.
///
/// (x, y) lies at column 8 + 7 x `scale` and row 8 + 7 y `scale` of the grid, so that with `scale` = fx / zh the grid's
/// rows and columns 1 to 15 span a square as wide as the frame, about the axis. The offset there is the sum of the
/// weights of the sixteen grid points around, each times b(column - j) b(row - i), with b the cubic B-spline of unit
/// knots (de Boor, A Practical Guide to Splines): it has continuous second derivatives. Grid points that the grid does
/// not have count as 0, so the offset fades to nothing within three steps of the square's edge.
struct BSplineDistortion {
    Gan_CubicBSplineWeights const * weights;
    double scale;

    /// One-to-one is taken to be where the derivative's determinant is positive.
    DistortedPoint operator()(double x, double y) const;
};
} // namespace VX::detail
