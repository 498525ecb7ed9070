#pragma once

/// Which number type the channels of a pixel have.
///
/// 17 values, 0 to 16, numbered by the image library that fills them in; this library carries and compares them and
/// interprets none. Any 32 bits may be stored.
enum Gan_Type : unsigned int {
    GAN_TYPE_NONE = 17, ///< one above the largest type: not known, or no image
};
