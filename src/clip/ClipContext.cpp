#include "clip/ClipContext.h"

#include "parameter/kyn/Context.h"

namespace VX {

Kyn::Frame ClipContext::frame() const {
    return Kyn::Context(time_, Kyn::View(), proxyScale_).toFrame();
}

} // namespace VX
