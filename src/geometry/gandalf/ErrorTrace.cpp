#include "geometry/gandalf/ErrorTrace.h"

#include <array>
#include <limits>

namespace {
struct Trace {
    std::array<Gan_ErrorTrace, 16> kept;
    unsigned int count;
};

thread_local Trace trace{};
} // namespace

extern "C" {
void gan_err_register(char const * routine, char const * reason) {
    if (trace.count < trace.kept.size())
        trace.kept[trace.count] = {routine, reason};
    if (trace.count < std::numeric_limits<unsigned int>::max())
        ++trace.count;
}

unsigned int gan_err_trace_count() {
    return trace.count;
}

Gan_ErrorTrace const * gan_err_trace_entry(unsigned int index) {
    return index < trace.count && index < trace.kept.size() ? &trace.kept[index] : nullptr;
}

void gan_err_flush_trace() {
    trace.count = 0;
}
}
