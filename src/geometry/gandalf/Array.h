#pragma once

#include <cstddef>

extern "C" {
/// Copies `count` doubles, each `sourceStride` and `destinationStride` doubles after the one before. The two ranges do
/// not overlap, unless they are the same with the same stride.
void gan_copy_array_d(double const * source, std::size_t sourceStride, std::size_t count, double * destination,
                      std::size_t destinationStride);

/// The square, cut to 32 bits.
unsigned int gan_sqr_ui(unsigned int number);
}
