#pragma once

/// Which channels a pixel of an image has, in the order in which they lie in memory.
///
/// 13 values, 0 to 12, numbered by the image code that fills them in; this library carries and compares them, and names
/// those that it reads itself or hands to a drawing layer. Any 32 bits may be stored.
enum Gan_ImageFormat : unsigned int {
    GAN_IMAGE_FORMAT_GREY = 0,       ///< one channel
    GAN_IMAGE_FORMAT_GREY_ALPHA = 1, ///< two
    GAN_IMAGE_FORMAT_RGB = 2,        ///< three
    GAN_IMAGE_FORMAT_RGB_ALPHA = 3,  ///< four
    GAN_IMAGE_FORMAT_VECTOR_2 = 8,   ///< two channels, x and y: a distortion map
    GAN_IMAGE_FORMAT_NONE = 13,      ///< one above the largest format: not known, or no image
};
