#pragma once

/// The truth value of the geometry layer's C interface. Any 32 bits may be stored; all but 0 count as true.
enum Gan_Bool : int {
    GAN_FALSE = 0,
    GAN_TRUE = 1,
};
