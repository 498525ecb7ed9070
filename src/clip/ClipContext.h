#pragma once

#include "parameter/kyn/Frame.h"
#include "parameter/kyn/ProxyScale.h"
#include "parameter/kyn/Time.h"

namespace VX {

/// At which time, and at which fraction of its size, a clip is wanted. The view goes beside it.
class ClipContext {
public:
    ClipContext(Kyn::Time time, Kyn::ProxyScale proxyScale) : time_(time), proxyScale_(proxyScale) {}
    /// The time in frames.
    ClipContext(double time, Kyn::ProxyScale proxyScale) : ClipContext(Kyn::Time(time), proxyScale) {}

    Kyn::Time time() const { return time_; }
    /// The time without its fraction, so that 2.9 is in frame 2. 0 for a time before that and for one that is not a
    /// number, the largest frame for one beyond it.
    Kyn::Frame frame() const;
    Kyn::ProxyScale proxyScale() const { return proxyScale_; }

private:
    Kyn::Time time_;
    Kyn::ProxyScale proxyScale_;
};

} // namespace VX
