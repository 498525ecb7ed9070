#include "host/ImageSuite.h"

namespace VX {

ImageSuite::~ImageSuite() = default;

} // namespace VX
