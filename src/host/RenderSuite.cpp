#include "host/RenderSuite.h"

namespace VX {

RenderSuite::RenderSuite() = default;

RenderSuite::~RenderSuite() = default;

void RenderSuite::destroyResources() {}

} // namespace VX
