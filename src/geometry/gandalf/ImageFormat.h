#pragma once

/// Which channels a pixel of an image has.
///
/// 13 values, 0 to 12, numbered by the image library that fills them in; this library carries and compares them, and
/// names those that it reads itself. Any 32 bits may be stored.
enum Gan_ImageFormat : unsigned int {
    GAN_IMAGE_FORMAT_VECTOR_2 = 8, ///< two channels, x and y: a distortion map
    GAN_IMAGE_FORMAT_NONE = 13,    ///< one above the largest format: not known, or no image
};
