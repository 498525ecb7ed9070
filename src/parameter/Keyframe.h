#pragma once

#include "parameter/kyn/Interpolation.h"
#include "parameter/kyn/Time.h"

namespace Kyn {

/// One key of a curve.
template <class T>
struct Keyframe {
    Time time;
    T value = T();
};

/// How the segment from a key to the next one runs. The four offsets are the handles of a Bezier segment, counted from
/// the key that they belong to: the first control point is (time[i] + dOutTime, value[i] + dOutValue), the second
/// (time[i+1] + dInTime, value[i+1] + dInValue). Times in frames, values in the parameter's unit. The record of the
/// last key is kept and written to script, but no segment uses it.
struct InterpolationData {
    Interpolation eType = INTERPOLATION_NONE;
    double dOutTime = 0.0;
    double dOutValue = 0.0;
    double dInTime = 0.0;
    double dInValue = 0.0;

    friend bool operator==(InterpolationData const & a, InterpolationData const & b) {
        return a.eType == b.eType && a.dOutTime == b.dOutTime && a.dOutValue == b.dOutValue && a.dInTime == b.dInTime &&
               a.dInValue == b.dInValue;
    }
};

/// A record of a type, with no handles.
inline InterpolationData withoutHandles(Interpolation type) {
    InterpolationData data;
    data.eType = type;
    return data;
}

} // namespace Kyn
