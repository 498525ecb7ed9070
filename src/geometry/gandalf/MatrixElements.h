#pragma once

#include "geometry/gandalf/Matrix33.h"

#include <cmath>
#include <initializer_list>

namespace VX::detail {
/// Calls `visit` with a reference to each of the nine elements, in row order.
template <class Matrix, class Visit>
void forEachElement(Matrix & m, Visit visit) {
    for (auto * element : {&m.xx, &m.xy, &m.xz, &m.yx, &m.yy, &m.yz, &m.zx, &m.zy, &m.zz})
        visit(*element);
}

inline bool isFinite(Gan_Matrix33 const & matrix) {
    bool bFinite = true;
    forEachElement(matrix, [&](double element) { bFinite = bFinite && std::isfinite(element); });
    return bFinite;
}

/// Times 2^exponent, which rounds nothing unless it leaves the range.
inline Gan_Matrix33 scaledByPowerOfTwo(Gan_Matrix33 matrix, int exponent) {
    forEachElement(matrix, [=](double & element) { element = std::scalbn(element, exponent); });
    return matrix;
}

/// The exponent that brings the largest element to between 1 and 2; 0 for a matrix of zeros.
inline int balancingExponent(Gan_Matrix33 const & matrix) {
    double largest = 0.0;
    forEachElement(matrix, [&](double element) { largest = std::fmax(largest, std::fabs(element)); });
    return largest > 0.0 ? -std::ilogb(largest) : 0;
}
} // namespace VX::detail
