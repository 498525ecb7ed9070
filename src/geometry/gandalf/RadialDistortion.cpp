#include "geometry/gandalf/RadialDistortion.h"

#include <algorithm>
#include <limits>

namespace {
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

// The largest real root of t^2 + b t + c; below any bound where there is none.
double largestRoot(double b, double c) {
    double const half = -0.5 * b;
    double const discriminant = half * half - c;
    if (discriminant < 0.0)
        return -infinity;
    double const root = std::sqrt(discriminant);
    // For half < 0 the sum cancels, and the product of the two roots, which is c, gives the same without.
    return half >= 0.0 ? half + root : c / (half - root);
}

// The largest real root of t^3 + b t^2 + c t + d: Cardano's formula, or Viete's where there are three, and two steps of
// Newton's method for the digits that the formula loses.
double largestRoot(double b, double c, double d) {
    double const shift = b / 3.0;
    double const third = c / 3.0 - shift * shift;
    double const half = shift * (shift * shift - 0.5 * c) + 0.5 * d;
    double const discriminant = half * half + third * third * third;
    double t;
    if (discriminant > 0.0) {
        double const u = std::cbrt(-half - std::copysign(std::sqrt(discriminant), half));
        t = u - third / u - shift;
    } else {
        double const length = std::sqrt(std::max(-third, 0.0));
        double const cosine = length > 0.0 ? -half / (length * length * length) : 0.0;
        t = 2.0 * length * std::cos(std::acos(std::clamp(cosine, -1.0, 1.0)) / 3.0) - shift;
    }
    for (int i = 0; i < 2; ++i) {
        double const slope = c + t * (2.0 * b + t * 3.0);
        double const step = (d + t * (c + t * (b + t))) / slope;
        if (std::isfinite(step) && std::fabs(step) < 1e-3 * std::fabs(t))
            t -= step;
    }
    return t;
}

// A start for `a` near -4/27. In e = sqrt(1 + 27 a / 4), m has no branch point: m = 3/2 (1 - u) turns the cubic into
// e = u sqrt(3 - u) / (1 - u)^(3/2), and this is the series of u in e / sqrt(3).
double startNearTheEnd(double a) {
    double const e = std::sqrt((1.0 + 6.75 * a) / 3.0);
    return 1.5 * (1.0 - e * (1.0 - e * (4.0 / 3.0 - e * (35.0 / 18.0))));
}
} // namespace

namespace VX::detail {
double radialBranchEnd(double k1, double k2, double k3) {
    double const b = 3.0 * k1;
    double const c = 5.0 * k2;
    double const d = 7.0 * k3;
    // Each root is at most twice this in size (Fujiwara, 1916). Brought to about 1, no power leaves the range.
    double const scale = std::max({std::fabs(b), std::sqrt(std::fabs(c)), std::cbrt(std::fabs(d))});
    if (!std::isfinite(k1 + k2 + k3) || !std::isfinite(scale))
        return notANumber;
    if (scale == 0.0)
        return infinity;
    double const b1 = b / scale;
    double const c1 = c / scale / scale;
    double const d1 = d / scale / scale / scale;
    double const t = scale * (d1 == 0.0 ? largestRoot(b1, c1) : largestRoot(b1, c1, d1));
    return t > 0.0 ? 1.0 / t : infinity;
}

double radialRatioAnywhere(double a) {
    if (!(a > -4.0 / 27.0) || !std::isfinite(a))
        return notANumber;
    if (a > -0.147 && a < 5.0)
        return radialRatioBySteps<4>(a);
    // From the second step on, Newton's method comes near the root from one side and never passes it: m + a m^3 bends
    // one way only where m > 0.
    double m = a > 0.0 ? std::cbrt(1.0 / a) : startNearTheEnd(a);
    for (int i = 0; i < 60; ++i) {
        double const t = a * m * m;
        double const slope = 1.0 + 3.0 * t;
        if (!(slope > 0.0))
            return notANumber;
        double const step = (m * (1.0 + t) - 1.0) / slope;
        m -= step;
        if (std::fabs(step) <= 1e-9 * std::min(slope, 1.0) * m)
            break;
    }
    return m;
}

double radialRatio(double a1, double a2, double a3, double end) {
    auto const excess = [=](double m) { return m * radialFactor(a1, a2, a3, m * m) - 1.0; };
    double low = 0.0;
    double high = end;
    if (!(end < infinity)) {
        high = 1.0;
        for (int i = 0; i < 64 && excess(high) < 0.0; ++i)
            high *= 2.0;
    }
    if (!(excess(high) >= 0.0))
        return notANumber;
    double m = high > 1.0 ? 1.0 : 0.5 * high;
    for (int i = 0; i < 100; ++i) {
        double const f = excess(m);
        (f < 0.0 ? low : high) = m;
        double const t = m * m;
        double const slope = 1.0 + t * (3.0 * a1 + t * (5.0 * a2 + t * 7.0 * a3));
        double const step = f / slope;
        double const newton = m - step;
        // Near the root the next step would be of the size of this one's square, over the slope.
        if (std::fabs(step) <= 1e-10 * std::min(slope, 1.0) * m)
            return newton;
        m = newton > low && newton < high ? newton : 0.5 * (low + high);
        if (high - low <= 4e-16 * high)
            break;
    }
    return m;
}
} // namespace VX::detail
