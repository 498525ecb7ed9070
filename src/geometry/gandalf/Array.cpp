#include "geometry/gandalf/Array.h"

extern "C" {
void gan_copy_array_d(double const * source, std::size_t sourceStride, std::size_t count, double * destination,
                      std::size_t destinationStride) {
    for (std::size_t i = 0; i < count; ++i)
        destination[i * destinationStride] = source[i * sourceStride];
}

unsigned int gan_sqr_ui(unsigned int number) {
    return number * number;
}
}
