#include "geometry/gandalf/ImageHeaderInfo.h"

extern "C" {
void gan_initialise_image_header_info(Gan_ImageFormat format, Gan_Type type, Gan_ImageHeaderInfo * header) {
    constexpr std::uint32_t noTimeCode = 0xFFFFFFFFu;
    *header = {noTimeCode, format, type};
}
}
