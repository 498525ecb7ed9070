#pragma once

#include <cmath>

/// The mathematics of the radial lens models, on plain numbers.
///
/// A point at distance r from the axis goes to the distance g(r) = r w(r^2), w(s) = 1 + k1 s + k2 s^2 + k3 s^3, in the
/// same direction. g grows from 0 and is one-to-one until its slope
///
///     g'(r) = d(r^2),   d(s) = 1 + 3 k1 s + 5 k2 s^2 + 7 k3 s^3
///
/// first comes to 0. What lies there and beyond is folded back over the picture and has no way back.
namespace VX::detail {
/// The squared radius at which the branch ends: the smallest positive root of d, infinite where there is none. Not a
/// number if a term is not finite. With t = 1 / s it is the largest root of t^3 + 3 k1 t^2 + 5 k2 t + 7 k3, which has a
/// leading coefficient of 1 whatever terms are 0. A root at which d touches 0 without a change of sign ends the branch
/// or does not, as rounding has it; g is one-to-one in either case.
double radialBranchEnd(double k1, double k2, double k3);

/// w(s).
inline double radialFactor(double k1, double k2, double k3, double s) {
    return 1.0 + s * (k1 + s * (k2 + s * k3));
}

/// r / g for one term, where `a` = k1 g^2: the root m of m + a m^3 = 1 on the branch of m(0) = 1. Not a number unless
/// `a` is finite and above -4/27, where the branch ends with m = 3/2.
double radialRatioAnywhere(double a);

/// One of Halley's steps towards r / g for one term, from `m`: takes the error to about its cube.
inline double radialRatioStep(double a, double m) {
    double const t = a * m * m;
    double const residual = m * (1.0 + t) - 1.0;
    double const slope = 1.0 + 3.0 * t;
    return m - residual * slope / (slope * slope - 3.0 * a * m * residual);
}

/// r / g for one term without a branch, for `a` in a range: above -0.13 and below 1 with two steps, above -0.147 and
/// below 5 with four. Exact there to a few units of rounding, times the slope's inverse near the branch's end.
///
/// That the ratio depends on one number alone makes one closed start serve all lenses: the [2/2] Pade approximant of
/// m = 1 - a + 3 a^2 - 12 a^3 + 55 a^4 - ...
template <int steps>
double radialRatioBySteps(double a) {
    double m = (1.0 + a * (16.0 / 3.0 + a * (11.0 / 3.0))) / (1.0 + a * (19.0 / 3.0 + a * 7.0));
    for (int i = 0; i < steps; ++i)
        m = radialRatioStep(a, m);
    return m;
}

/// The same for `a` above -0.105 and below 0.35, where most points of most lenses lie: one step from the [4/4]
/// approximant, whose sums cost less than a second step's division.
inline double radialRatioByOneStep(double a) {
    double const aa = a * a;
    double const above = (1.0 + a * (205.0 / 17.0)) + aa * ((1533.0 / 34.0 + a * (921.0 / 17.0)) + aa * (23.0 / 2.0));
    double const below =
        (1.0 + a * (222.0 / 17.0)) + aa * ((1875.0 / 34.0 + a * (2793.0 / 34.0)) + aa * (1017.0 / 34.0));
    return radialRatioStep(a, above / below);
}

/// r / g for one term, as radialRatioAnywhere, the common range inline.
inline double radialRatio(double a) {
    return a > -0.105 && a < 0.35 ? radialRatioByOneStep(a) : radialRatioAnywhere(a);
}

/// r / g for up to three terms, where ai = ki g^(2i): the root m of m (1 + a1 m^2 + a2 m^4 + a3 m^6) = 1 between 0 and
/// `end`, the branch's end over g (infinite where there is none). Newton's method held in a bracket: at most some 200
/// evaluations, five as a rule. Not a number where no such root is found.
double radialRatio(double a1, double a2, double a3, double end);
} // namespace VX::detail
