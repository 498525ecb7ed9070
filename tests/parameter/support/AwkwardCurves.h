#pragma once

#include "parameter/NumericParameter.h"

#include <ostream>
#include <string>
#include <vector>

namespace Test {

struct CurveKey {
    double time = 0.0;
    double value = 0.0;
    Kyn::InterpolationData record;
};

/// A curve in one view, as a test writes it down.
struct Curve {
    std::string name;
    std::vector<CurveKey> keys;
};

inline std::ostream & operator<<(std::ostream & stream, Curve const & curve) {
    return stream << curve.name;
}

CurveKey key(double time, double value, Kyn::Interpolation type);
CurveKey bezierKey(double time, double value, double outTime, double outValue, double inTime, double inValue);

/// The curves that have given evaluators trouble, for every test that evaluates. Times ascend strictly.
std::vector<Curve> const & awkwardCurves();
/// The one of a name.
Curve const & awkwardCurve(std::string const & name);

/// Times worth asking: on the keys and one unit in the last place beside them, spread over each segment, close to its
/// ends and its middle, and beyond both ends.
std::vector<double> awkwardTimes(Curve const & curve);

/// Gives a parameter the keys of a curve in view 0, records as they stand.
template <class T>
void load(Kyn::NumericParameter<T> & parameter, Curve const & curve) {
    parameter.deleteAllKeyframes(Kyn::View(0));
    for (CurveKey const & key : curve.keys)
        parameter.setValue(static_cast<T>(key.value),
                           Kyn::Context(Kyn::Time(key.time), Kyn::View(0), Kyn::ProxyScale::NONE));
    for (std::size_t i = 0; i < curve.keys.size(); ++i)
        parameter.setInterpolationData(curve.keys[i].record, static_cast<unsigned int>(i), Kyn::View(0));
}

} // namespace Test
