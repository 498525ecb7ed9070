#pragma once

#include "parameter/kyn/Context.h"

namespace Test {

/// A context of a time and a view, as parameter code makes them.
inline Kyn::Context at(double time, int view = 0) {
    return Kyn::Context(Kyn::Time(time), Kyn::View(view), Kyn::ProxyScale::NONE);
}

} // namespace Test
