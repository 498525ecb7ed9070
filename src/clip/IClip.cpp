#include "clip/IClip.h"

namespace VX {

IClip::~IClip() = default;

} // namespace VX
