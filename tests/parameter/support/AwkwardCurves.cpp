#include "parameter/support/AwkwardCurves.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace Test {

CurveKey key(double time, double value, Kyn::Interpolation type) {
    return {time, value, Kyn::withoutHandles(type)};
}

CurveKey bezierKey(double time, double value, double outTime, double outValue, double inTime, double inValue) {
    return {time, value, {Kyn::INTERPOLATION_BEZIER, outTime, outValue, inTime, inValue}};
}

namespace {

/// One Bezier segment to a last key without a segment of its own.
Curve segment(std::string const & name, CurveKey const & first, double time, double value) {
    return {name, {first, key(time, value, Kyn::INTERPOLATION_CONSTANT)}};
}

std::vector<Curve> makeCurves() {
    using namespace Kyn;
    double const third = 1.0 / 3.0;
    std::vector<Curve> curves{
        segment("default handles", bezierKey(0, 0, 1, 0.1, -1, -0.1), 10, 1),
        segment("no handles", bezierKey(0, 3, 0, 0, 0, 0), 10, -4),
        segment("out-handle alone", bezierKey(0, 0, 9, 5, 0, 0), 10, 1),
        segment("in-handle alone", bezierKey(0, 0, 0, 0, -9, 5), 10, 1),
        segment("handles meeting", bezierKey(0, 0, 5, 7, -5, 7), 10, 1),
        segment("handles at the far ends, flat in the middle", bezierKey(0, 0, 10, 0, -10, 0), 10, 1),
        segment("handles at the own ends in time", bezierKey(0, 0, 0, 8, 0, -8), 10, 1),
        segment("nearly a third", bezierKey(0, 0, third, 1, -third, 1), 1, 1),
        segment("nearly a third, long", bezierKey(100, 2, 100 * third, 1, -100 * third, 1), 200, 1),
        segment("a third and a bit", bezierKey(0, 0, 1 + 1e-9, 1, -1, 1), 3, 1),
        segment("overshooting both ways", bezierKey(0, 0, 25, 1, -25, -1), 10, 1),
        segment("overshooting forward", bezierKey(0, 0, 30, 4, -2, -1), 10, 1),
        segment("starting backwards", bezierKey(0, 0, -4, 3, -2, -1), 10, 1),
        segment("ending backwards", bezierKey(0, 0, 2, 3, 4, -1), 10, 1),
        segment("handles as far as they go", bezierKey(0, 0, 1e6, 1, -1e6, 1), 10, 1),
        segment("negative times", bezierKey(-30, 5, 2, 2, -9, -2), -10, -5),
        segment("tiny times", bezierKey(1e-12, 1, 2e-13, 1, -3e-13, 1), 2e-12, 2),
        segment("very tiny times", bezierKey(0, 1, 2e-301, 1, -3e-301, 1), 1e-300, 2),
        segment("huge duration", bezierKey(-1e14, 0, 3e13, 1, -1e13, -1), 1e15, 1),
        segment("beyond the quick way", bezierKey(0, 0, 3e119, 1, -1e119, -1), 1e120, 1),
        segment("huge times, short", bezierKey(1e9, 0, 2, 3, -3, 1), 1e9 + 8, 1),
        segment("huge values", bezierKey(0, -1e150, 1, 1e149, -1, -1e149), 10, 1e150),
        segment("one unit long", bezierKey(1, 0, 0, 0, 0, 0), std::nextafter(1.0, 2.0), 1),
        {"linear", {key(0, 1, INTERPOLATION_LINEAR), key(3, -7, INTERPOLATION_LINEAR)}},
        {"linear, one unit long",
         {key(5, 1, INTERPOLATION_LINEAR), key(std::nextafter(5.0, 6.0), 2, INTERPOLATION_LINEAR)}},
        {"single key", {key(4, 7, INTERPOLATION_BEZIER)}},
        {"nothing between", {key(0, 5, INTERPOLATION_NONE), key(8, 6, INTERPOLATION_NONE)}},
        {"every type in turn",
         {key(-5, 1, INTERPOLATION_LINEAR), key(0, 5, INTERPOLATION_CONSTANT), bezierKey(2.5, 6, 1, 3, -1, 3),
          key(8, -6, INTERPOLATION_NONE), key(9, 4, INTERPOLATION_LINEAR), bezierKey(10, 1, 0.5, 2, -20, 1),
          key(31, 12, INTERPOLATION_LINEAR)}},
    };
    return curves;
}

} // namespace

std::vector<Curve> const & awkwardCurves() {
    static std::vector<Curve> const curves = makeCurves();
    return curves;
}

Curve const & awkwardCurve(std::string const & name) {
    for (Curve const & curve : awkwardCurves())
        if (curve.name == name)
            return curve;
    throw std::invalid_argument(name);
}

std::vector<double> awkwardTimes(Curve const & curve) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr int STEPS = 97;
    std::vector<double> times;
    for (CurveKey const & key : curve.keys)
        for (double const beside : {-infinity, infinity}) {
            times.push_back(key.time);
            times.push_back(std::nextafter(key.time, beside));
        }
    for (std::size_t i = 0; i + 1 < curve.keys.size(); ++i) {
        double const start = curve.keys[i].time;
        double const length = curve.keys[i + 1].time - start;
        for (int step = 1; step < STEPS; ++step)
            times.push_back(start + length * step / STEPS);
        for (double const share : {1e-14, 1e-10, 1e-6, 1e-3})
            for (double const from : {start, start + length / 2, start + length})
                for (double const time : {from - length * share, from + length * share})
                    times.push_back(time);
    }
    double const length = curve.keys.back().time - curve.keys.front().time;
    for (double const share : {0.01, 1.0, 7.0}) {
        times.push_back(curve.keys.front().time - share * length);
        times.push_back(curve.keys.back().time + share * length);
    }
    return times;
}

} // namespace Test
