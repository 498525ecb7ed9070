#pragma once

#include "parameter/kyn/Frame.h"
#include "parameter/kyn/ProxyScale.h"
#include "parameter/kyn/Time.h"
#include "parameter/kyn/View.h"

namespace Kyn {

/// What a value query asks for: a moment, a view and a proxy resolution. A small value, copied freely.
/// Parameter values never depend on the scale.
class Context {
public:
    /// The same three fields as a plain record, for the image, cache and camera interfaces.
    struct Explicit {
        Time time;
        View view;
        ProxyScale scale;
    };

    /// The context that names no moment: the lowest finite time, the default view, no scale.
    Context() : time_(Time::INVALID_TIME_VALUE) {}
    Context(Frame const & frame, View view, ProxyScale scale)
        : time_(Time::fromUInt(frame.toUInt())), view_(view), scale_(scale) {}
    Context(Time time, View view, ProxyScale scale) : time_(time), view_(view), scale_(scale) {}
    Context(Explicit const & fields) : time_(fields.time), view_(fields.view), scale_(fields.scale) {}

    operator Explicit() const { return {time_, view_, scale_}; }

    Time time() const { return time_; }
    View view() const { return view_; }
    ProxyScale scale() const { return scale_; }

    Context withView(View const & view) const { return Context(time_, view, scale_); }
    Context withTime(Time time) const { return Context(time, view_, scale_); }

    /// The frame of this context: its time cut towards zero to a whole number; 0 for a negative time and for one
    /// that is not a number, the largest frame for a time beyond it.
    Frame toFrame() const;

    friend bool operator==(Context const & a, Context const & b) {
        return a.time_ == b.time_ && a.view_ == b.view_ && a.scale_ == b.scale_;
    }
    friend bool operator!=(Context const & a, Context const & b) { return !(a == b); }

private:
    Time time_;
    View view_;
    ProxyScale scale_;
};

} // namespace Kyn
