#pragma once

#include "geometry/gandalf/ImageFormat.h"
#include "geometry/gandalf/Type.h"

#include <cstddef>

/// An image in memory, as the application's image code hands it on. A plain record: the library passes pointers to it
/// and reads the pixels of distortion maps only (Camera.h says of which kind). Whoever made the image owns its pixels
/// and says when they go.
struct Gan_Image {
    Gan_ImageFormat format;
    Gan_Type type;
    unsigned int width;  ///< pixels in a row
    unsigned int height; ///< rows
    std::size_t stride;  ///< bytes from one row to the next
    void * pixels;       ///< the first pixel of the top row, or null for no image
};
