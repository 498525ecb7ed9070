#pragma once

namespace Kyn {

template <class T>
class Parameter;
class Context;

/// A moment in frames, held as one double. Times are compared exactly and never rounded:
/// a key may lie between two frames, and 0.1 + 0.2 is another moment than 0.3.
class Time {
public:
    constexpr Time() = default;
    constexpr explicit Time(double frames) : frames_(frames) {}

    constexpr double toDouble() const { return frames_; }

    friend constexpr bool operator==(Time a, Time b) { return a.frames_ == b.frames_; }
    friend constexpr bool operator!=(Time a, Time b) { return a.frames_ != b.frames_; }
    friend constexpr bool operator<(Time a, Time b) { return a.frames_ < b.frames_; }
    friend constexpr bool operator>(Time a, Time b) { return a.frames_ > b.frames_; }
    friend constexpr bool operator<=(Time a, Time b) { return a.frames_ <= b.frames_; }
    friend constexpr bool operator>=(Time a, Time b) { return a.frames_ >= b.frames_; }

protected:
    /// The time of a context that names no time: the lowest finite double.
    static const double INVALID_TIME_VALUE;

private:
    template <class T>
    friend class Parameter;
    friend class Context;

    static constexpr double fromDouble(double frames) { return frames; }
    static constexpr double fromInt(int frame) { return frame; }
    static constexpr double fromUInt(unsigned int frame) { return frame; }

    double frames_ = 0.0;
};

} // namespace Kyn
