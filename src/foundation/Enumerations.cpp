#include "foundation/Enumerations.h"

#include <iterator>

#define VX_DEFINE_ENUMERATION(Enumeration, top, ReadAs, WrittenAs)                                                     \
    VX_ENUMERATION_TEXT_DEFINITION(Enumeration, ReadAs, WrittenAs)

VX_ENUMERATIONS(VX_DEFINE_ENUMERATION)

namespace VX {
VX_ENUMERATION_TEXT_DEFINITION(FrameWarpType, Int, Int)
} // namespace VX

namespace {
constexpr char const * clipModeNames[] = {
    "不重复",
    "重复",
    "循环",
    "Ping-pong",
};

static_assert(std::size(clipModeNames) == std::numeric_limits<VX_CLIP_MODE>::max() + 1, "one name for each mode");
} // namespace

char const * const * const VX_CLIP_MODE_NAME = clipModeNames;
