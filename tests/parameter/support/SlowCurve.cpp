#include "parameter/support/SlowCurve.h"

#include "parameter/kyn/CubeRoots.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace Test {

namespace {

using Kyn::InterpolationData;

constexpr double LARGEST = std::numeric_limits<double>::max();
constexpr long double EPSILON = std::numeric_limits<double>::epsilon();

typedef std::array<long double, 4> Points;

long double onCurve(Points p, long double s) {
    for (int left = 3; left > 0; --left)
        for (int i = 0; i < left; ++i) {
            std::size_t const at = static_cast<std::size_t>(i);
            p[at] += s * (p[at + 1] - p[at]);
        }
    return p[0];
}

/// How far rounding may move a curve of these points.
long double roundingOf(Points const & p) {
    long double sum = 0;
    for (long double const point : p)
        sum += std::fabs(point);
    return 64 * EPSILON * sum;
}

/// The ends of the stretches on which the curve rises or falls throughout.
std::vector<long double> stretches(Points const & p) {
    long double const a = p[1] - p[0], b = p[2] - p[1], c = p[3] - p[2];
    long double const square = a - 2 * b + c, linear = 2 * (b - a);
    long double const discriminant = linear * linear - 4 * square * a;
    std::vector<long double> ends{0, 1};
    if (discriminant > 0) {
        long double const q = -(linear + std::copysign(std::sqrt(discriminant), linear)) / 2;
        for (long double const turn : {square != 0 ? q / square : -1, q != 0 ? a / q : -1})
            if (turn > 0 && turn < 1)
                ends.push_back(turn);
    }
    std::sort(ends.begin(), ends.end());
    return ends;
}

/// The parameter at which a rising or falling stretch passes a level, or its end nearest to it.
long double passage(Points const & p, long double from, long double to, long double level) {
    bool const rises = onCurve(p, to) > onCurve(p, from);
    for (int halving = 0; halving < 200; ++halving) {
        long double const middle = (from + to) / 2;
        ((onCurve(p, middle) < level) == rises ? from : to) = middle;
    }
    return (from + to) / 2;
}

Range bezier(CurveKey const & key, CurveKey const & next, double time) {
    InterpolationData const & h = key.record;
    Points const x{key.time, static_cast<long double>(key.time) + h.dOutTime,
                   static_cast<long double>(next.time) + h.dInTime, next.time};
    Points const y{key.value, static_cast<long double>(key.value) + h.dOutValue,
                   static_cast<long double>(next.value) + h.dInValue, next.value};
    std::vector<long double> const ends = stretches(x);
    std::size_t stretch = 1;
    while (stretch + 1 < ends.size() && (onCurve(x, ends[stretch - 1]) < time) == (onCurve(x, ends[stretch]) < time))
        ++stretch;
    long double const slack = roundingOf(x);
    long double from = passage(x, ends[stretch - 1], ends[stretch], time - slack);
    long double to = passage(x, ends[stretch - 1], ends[stretch], time + slack);
    if (from > to)
        std::swap(from, to);
    constexpr int SAMPLES = 64;
    long double low = onCurve(y, from);
    long double high = low;
    for (int i = 1; i <= SAMPLES; ++i) {
        long double const value = onCurve(y, from + (to - from) * i / SAMPLES);
        low = std::min(low, value);
        high = std::max(high, value);
    }
    long double const between = (high - low) / SAMPLES; // A turn between two samples.
    return {static_cast<double>(low - between - roundingOf(y)), static_cast<double>(high + between + roundingOf(y))};
}

Range exactly(double value) {
    if (std::isnan(value))
        value = -LARGEST; // What is not a number becomes the lower limit.
    value = std::min(std::max(value, -LARGEST), LARGEST);
    return {value, value};
}

Range between(CurveKey const & key, CurveKey const & next, double time) {
    switch (key.record.eType) {
    case Kyn::INTERPOLATION_CONSTANT:
        return exactly(key.value);
    case Kyn::INTERPOLATION_LINEAR:
        return exactly((time - key.time) * ((next.value - key.value) / (next.time - key.time)) + key.value);
    case Kyn::INTERPOLATION_BEZIER:
        return bezier(key, next, time);
    case Kyn::INTERPOLATION_NONE:
    case Kyn::INTERPOLATION_CUSTOM:
        break;
    }
    return exactly(0.0);
}

Range beyond(CurveKey const & end, CurveKey const * neighbour, CurveKey const & segment, bool atStart, double time,
             Kyn::Extrapolation mode) {
    if (mode == Kyn::EXTRAPOLATION_NONE)
        return exactly(0.0);
    InterpolationData const & record = segment.record;
    if (mode == Kyn::EXTRAPOLATION_CONSTANT || !neighbour || record.eType == Kyn::INTERPOLATION_CONSTANT)
        return exactly(end.value);
    double x = neighbour->time;
    double y = neighbour->value;
    if (record.eType == Kyn::INTERPOLATION_BEZIER) {
        x = end.time + (atStart ? record.dOutTime : record.dInTime);
        y = end.value + (atStart ? record.dOutValue : record.dInValue);
    } else if (record.eType == Kyn::INTERPOLATION_NONE) {
        x = end.time + 0.1 * (neighbour->time - end.time);
        y = 0.0;
    }
    return exactly((y - end.value) / (x - end.time) * (time - end.time) + end.value);
}

} // namespace

bool Range::holds(double value) const {
    return low <= value && value <= high;
}

std::ostream & operator<<(std::ostream & stream, Range const & range) {
    return stream << '[' << range.low << ", " << range.high << ']';
}

Range slowSegment(Curve const & curve, std::size_t index, double time) {
    CurveKey const & key = curve.keys[index];
    if (index + 1 < curve.keys.size())
        return between(key, curve.keys[index + 1], time);
    return exactly(key.record.eType == Kyn::INTERPOLATION_NONE ? 0.0 : key.value);
}

Range slowValue(Curve const & curve, double time, Kyn::Extrapolation before, Kyn::Extrapolation after) {
    std::vector<CurveKey> const & keys = curve.keys;
    for (CurveKey const & key : keys)
        if (key.time == time)
            return exactly(key.value);
    CurveKey const * const second = keys.size() > 1 ? &keys[1] : nullptr;
    if (time < keys.front().time)
        return beyond(keys.front(), second, keys.front(), true, time, before);
    if (time > keys.back().time) {
        CurveKey const * const lastButOne = second ? &keys[keys.size() - 2] : nullptr;
        return beyond(keys.back(), lastButOne, second ? *lastButOne : keys.back(), false, time, after);
    }
    std::size_t i = 0;
    while (keys[i + 1].time < time)
        ++i;
    return slowSegment(curve, i, time);
}

double statedBezier(CurveKey const & key, CurveKey const & next, double t) {
    double const t0 = key.time, y0 = key.value, t1 = next.time, y1 = next.value;
    double const a = key.record.dOutTime, b = key.record.dOutValue, c = key.record.dInTime, d = key.record.dInValue;
    double const cx = 3 * a;
    double const bx = 3 * ((t1 + c) - (a + t0)) - cx;
    double const ax = t1 - t0 - cx - bx;
    double const cy = 3 * b;
    double const by = 3 * ((y1 + d) - (b + y0)) - cy;
    double const ay = y1 - y0 - cy - by;
    double const coefficients[] = {(t0 - t) / ax, cx / ax, bx / ax};
    double roots[3][2];
    int const count = Kyn::cuberoots(coefficients, roots);
    for (int i = 0; i < count; ++i) {
        double const s = roots[i][0];
        if (0 < s && s < 1)
            return s * ay * s * s + s * by * s + s * cy + y0;
    }
    return 0.0;
}

} // namespace Test
