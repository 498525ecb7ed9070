#pragma once

#include "geometry/gandalf/ImageFormat.h"
#include "geometry/gandalf/Type.h"

#include <cstdint>

/// What an image file says of itself beyond its pixels. A plain record: the application's readers fill it in, the
/// library copies it whole and reads its time code. All zero is a valid record, with a time code of 00:00:00:00.
struct Gan_ImageHeaderInfo {
    /// Eight decimal digits of four bits each, from the top: hours, minutes, seconds, frames. 0xFFFFFFFF: none.
    std::uint32_t timeCode;
    Gan_ImageFormat format; ///< as the file has it
    Gan_Type type;          ///< as the file has it
};

extern "C" {
/// Makes the header of an image of that format and type of which nothing else is known: no time code.
void gan_initialise_image_header_info(Gan_ImageFormat format, Gan_Type type, Gan_ImageHeaderInfo * header);
}
