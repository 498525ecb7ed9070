#pragma once

/// Which number type the channels of a pixel have.
///
/// 17 values, 0 to 16, numbered by the image library that fills them in; this library carries and compares them, and
/// names those that it sets itself. Any 32 bits may be stored.
enum Gan_Type : unsigned int {
    GAN_TYPE_UNSIGNED_CHAR = 1,
    GAN_TYPE_UNSIGNED_SHORT = 3,
    GAN_TYPE_FLOAT = 8,
    GAN_TYPE_NONE = 17, ///< one above the largest type: not known, or no image
};
