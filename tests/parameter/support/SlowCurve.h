#pragma once

#include "parameter/support/AwkwardCurves.h"

#include <ostream>

namespace Test {

/// The values that a careful evaluator may give: one number, or what rounding of the time leaves possible.
struct Range {
    double low;
    double high;

    bool holds(double value) const;
};

std::ostream & operator<<(std::ostream & stream, Range const & range);

/// What a curve is worth at a time, computed slowly by other means than the library's: keys found by a scan, a Bezier
/// segment by de Casteljau's construction on its control points in extended precision, its parameter by bisection
/// between the places where the time turns back. Results that are no numbers, or beyond a double, come as a parameter
/// without limits gives them.
Range slowValue(Curve const & curve, double time, Kyn::Extrapolation before, Kyn::Extrapolation after);

/// The same of the segment that starts at one key. The last key's, which has no end, holds its value or, of type NONE,
/// is zero.
Range slowSegment(Curve const & curve, std::size_t index, double time);

/// One Bezier segment by the letter: the cubic's coefficients as they are stated, the library's own cuberoots, the
/// first root between 0 and 1. Says what happens where the roots round to 0 or 1 and where the cubic degenerates.
double statedBezier(CurveKey const & key, CurveKey const & next, double time);

} // namespace Test
