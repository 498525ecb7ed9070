#pragma once

#include "foundation/Saturation.h"
#include "parameter/Keyframe.h"
#include "parameter/ViewStore.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

/// What lies around a time, and what a curve is worth there: pure functions of keys, records and a time. None
/// allocates.
namespace Kyn::detail {

/// A computed number in the member's own type. Integers cut towards zero, saturate beyond their range and take 0 for
/// what is not a number; a bool is true for anything but 0.0, so also for what is not a number.
template <class T>
T toMember(double number) {
    if constexpr (std::is_same_v<T, bool>) {
        return number != 0.0;
    } else if constexpr (std::is_integral_v<T>) {
        return VX::detail::saturated<T>(number);
    } else {
        return static_cast<T>(number);
    }
}

/// How many of `length` keys from `from` on are before the time, counted without branches. Small lengths.
template <class T>
int countBefore(Keyframe<T> const * keys, int from, int length, double time) {
    int count = 0;
    for (int i = from; i < from + length; ++i)
        count += static_cast<int>(keys[i].time.toDouble() < time);
    return count;
}

/// The place of the first key at or after `time` in keys ascending in time; their number if there is none. A search by
/// halves that the processor has not to guess at.
template <class T>
int searchKeyAtOrAfter(Keyframe<T> const * keys, int count, double time) {
    std::size_t from = 0;
    std::size_t length = static_cast<std::size_t>(count);
    while (length > 1) {
        std::size_t const half = length / 2;
        from = keys[from + half - 1].time.toDouble() < time ? from + half : from;
        length -= half;
    }
    return static_cast<int>(from) + static_cast<int>(keys[from].time.toDouble() < time);
}

/// The same, guessing first. Trackers write one key a frame, so the place follows from the time; where keys stand
/// unevenly, the distance from the guessed key tells a better place, around which a few are counted. Whatever was
/// guessed is checked; what no guess finds is searched. Of keys at one time the first is found. For a time that is not
/// a number the answer is 0.
template <class T>
int firstKeyAtOrAfter(Keyframe<T> const * keys, int count, double time) {
    constexpr int FEW = 8;
    if (count <= 2 * FEW)
        return countBefore(keys, 0, count, time);
    double const first = keys[0].time.toDouble();
    double const last = keys[count - 1].time.toDouble();
    if (time < first)
        return 0;
    if (last < time)
        return count;
    double const keysPerFrame = static_cast<double>(count - 1) / (last - first);
    double const guess = (time - first) * keysPerFrame;
    if (!(guess <= static_cast<double>(count - 1))) // Times so far apart that their difference overflows.
        return searchKeyAtOrAfter(keys, count, time);
    int const i = std::min(static_cast<int>(guess), count - 2);
    if (keys[i].time.toDouble() < time) {
        if (time <= keys[i + 1].time.toDouble())
            return i + 1;
    } else if (i == 0 || keys[i - 1].time.toDouble() < time) {
        return i;
    }
    int const off = static_cast<int>((time - keys[i].time.toDouble()) * keysPerFrame);
    int const from = std::clamp(i + off - FEW / 2 + 1, 1, count - FEW);
    int const isAbove = keys[from - 1].time.toDouble() < time;
    int const isBelow = time <= keys[from + FEW - 1].time.toDouble();
    if ((isAbove & isBelow) != 0) // one branch instead of two
        return from + countBefore(keys, from, FEW, time);
    return searchKeyAtOrAfter(keys, count, time);
}

/// The same for keys that no order holds, or a time that is not a number: what a scan from the front finds.
template <class T>
int scanForKeyAtOrAfter(Keyframe<T> const * keys, int count, double time) {
    int i = 0;
    while (i < count && !(keys[i].time.toDouble() >= time))
        ++i;
    return i;
}

/// The place of the key exactly at a time, the first where keys share one; -1 if there is none. Few keys, as keys that
/// no order holds, are scanned. Inline, since every write of a value asks for it.
template <class T>
inline int keyAt(ViewData<T> const & data, Time time) {
    constexpr int FEW = 8;
    Keyframe<T> const * const keys = data.keys.constData();
    int const count = static_cast<int>(data.keys.size());
    if (data.bUnordered || count <= FEW) {
        for (int i = 0; i < count; ++i)
            if (keys[i].time == time)
                return i;
        return -1;
    }
    int const i = firstKeyAtOrAfter(keys, count, time.toDouble());
    return i < count && keys[i].time == time ? i : -1;
}

/// The place of the first key at or after a time; the number of keys if there is none.
template <class T>
int placeAtOrAfter(ViewData<T> const & data, Time time) {
    Keyframe<T> const * const keys = data.keys.constData();
    int const count = static_cast<int>(data.keys.size());
    if (data.bUnordered || std::isnan(time.toDouble()))
        return scanForKeyAtOrAfter(keys, count, time.toDouble());
    return firstKeyAtOrAfter(keys, count, time.toDouble());
}

/// The place of the first key later than a time; the number of keys if there is none. Appending finds it at once.
template <class T>
int placeAfter(ViewData<T> const & data, Time time) {
    Keyframe<T> const * const keys = data.keys.constData();
    int const count = static_cast<int>(data.keys.size());
    int i = 0;
    if (data.bUnordered || std::isnan(time.toDouble())) {
        while (i < count && !(keys[i].time > time))
            ++i;
        return i;
    }
    if (count == 0 || keys[count - 1].time <= time)
        return count;
    i = firstKeyAtOrAfter(keys, count, time.toDouble());
    while (i < count && keys[i].time == time)
        ++i;
    return i;
}

/// Places of the keys around a time; -1 where there is none.
struct Bounds {
    int before;
    int after;
};

/// The keys around a time, both the same where a search by halves meets a key at that time. At least one key.
template <class T>
Bounds boundsOf(QVector<Keyframe<T>> const & keys, Time time) {
    int const count = static_cast<int>(keys.size());
    if (time < keys[0].time)
        return {-1, 0};
    if (time > keys[count - 1].time)
        return {count - 1, -1};
    if (time == keys[0].time)
        return {0, 0};
    if (count > 1 && time == keys[count - 1].time)
        return {count - 1, count - 1};
    int lo = 0;
    int hi = count - 1;
    while (lo != hi && lo + 1 != hi) {
        int const mid = (lo + hi) / 2;
        if (keys[mid].time == time)
            lo = hi = mid;
        else if (keys[mid].time > time)
            hi = mid;
        else
            lo = mid;
    }
    return {lo, hi};
}

/// The two ends of a segment, in doubles.
struct Segment {
    double t0;
    double y0;
    double t1;
    double y1;
};

/// (t - t0) * slope + y0. Nothing guards against t0 == t1.
inline double linearValue(Segment const & segment, double time) {
    return (time - segment.t0) * ((segment.y1 - segment.y0) / (segment.t1 - segment.t0)) + segment.y0;
}

/// A cubic Bezier through the control points (t0, y0), (t0 + dOutTime, y0 + dOutValue), (t1 + dInTime, y1 + dInValue)
/// and (t1, y1), at the first root of its time cubic strictly between 0 and 1, real roots ascending before the real
/// parts of complex ones. Zero without such a root, and where the cubic has no cubic term.
double bezierValue(Segment const & segment, InterpolationData const & handles, double time);

/// The value between two keys by the built-in evaluator. Zero for type NONE and for the types it does not know; the
/// first custom type reads as constant.
template <class T>
T valueBetween(Keyframe<T> const & key, Keyframe<T> const & next, InterpolationData const & handles, Interpolation type,
               Time time) {
    if (type == INTERPOLATION_CONSTANT || type == INTERPOLATION_CUSTOM)
        return key.value;
    if (type != INTERPOLATION_LINEAR && type != INTERPOLATION_BEZIER)
        return T(0);
    auto const segment = [&] {
        return Segment{key.time.toDouble(), static_cast<double>(key.value), next.time.toDouble(),
                       static_cast<double>(next.value)};
    };
    return toMember<T>(type == INTERPOLATION_LINEAR ? linearValue(segment(), time.toDouble())
                                                    : bezierValue(segment(), handles, time.toDouble()));
}

/// The built-in evaluator of the segment that starts at key `i`, as valueBetween(). The last key's segment, which has
/// no end, is constant where it would need one. Zero without such a key.
template <class T>
T interpolated(ViewData<T> const & data, Interpolation type, Time time, int i) {
    int const count = static_cast<int>(data.keys.size());
    if (i < 0 || i >= count)
        return T(0);
    Keyframe<T> const * const keys = data.keys.constData();
    if (i < count - 1)
        return valueBetween(keys[i], keys[i + 1], data.interpolation.constData()[i], type, time);
    return type == INTERPOLATION_NONE || type > INTERPOLATION_CUSTOM ? T(0) : keys[i].value;
}

enum class Side { Before, After };

/// The built-in evaluator beyond one end. Zero for mode NONE and for the modes it does not know.
///
/// Linear continues the end segment: its straight line, its handle at the end key, or for other types the line through
/// the end key and the curve's point a tenth of the way into the segment. For type NONE that point has the value zero,
/// so the line runs from there. After the end it is the type of the last but one key that counts.
template <class T>
T extrapolated(ViewData<T> const & data, Extrapolation mode, Time time, Side side) {
    int const count = static_cast<int>(data.keys.size());
    if (count == 0)
        return T(0);
    bool const before = side == Side::Before;
    Keyframe<T> const & end = data.keys[before ? 0 : count - 1];
    if (mode == EXTRAPOLATION_LINEAR && count < 2)
        mode = EXTRAPOLATION_CONSTANT;
    if (mode == EXTRAPOLATION_CONSTANT)
        return end.value;
    if (mode != EXTRAPOLATION_LINEAR)
        return T(0);
    int const segment = before ? 0 : count - 2;
    Keyframe<T> const & neighbour = data.keys[before ? 1 : count - 2];
    InterpolationData const & record = data.interpolation[segment];
    double const endTime = end.time.toDouble();
    double const endValue = static_cast<double>(end.value);
    double x = 0.0;
    double y = 0.0;
    if (record.eType == INTERPOLATION_CONSTANT)
        return end.value;
    if (record.eType == INTERPOLATION_LINEAR) {
        x = neighbour.time.toDouble();
        y = static_cast<double>(neighbour.value);
    } else if (record.eType == INTERPOLATION_BEZIER) {
        x = endTime + (before ? record.dOutTime : record.dInTime);
        y = endValue + (before ? record.dOutValue : record.dInValue);
    } else {
        x = endTime + 0.1 * (neighbour.time.toDouble() - endTime);
        y = static_cast<double>(interpolated(data, record.eType, Time(x), segment));
    }
    return toMember<T>((y - endValue) / (x - endTime) * (time.toDouble() - endTime) + endValue);
}

} // namespace Kyn::detail
