#pragma once

#include <cmath>

namespace VX::detail {
/// A number as the sum of two doubles, low at most half a unit in the last place of high: some 106 bits.
struct DoubleDouble {
    double high = 0.0;
    double low = 0.0;
};

/// a + b without any error (Knuth), unless it overflows.
inline DoubleDouble exactSum(double a, double b) {
    double const sum = a + b;
    double const partOfB = sum - a;
    return {sum, (a - (sum - partOfB)) + (b - partOfB)};
}

/// a b without any error, unless it overflows or its low part underflows.
inline DoubleDouble exactProduct(double a, double b) {
    double const product = a * b;
    return {product, std::fma(a, b, -product)};
}

/// a b - c d with an error of at most 1.5 units in the last place of the result, cancellation or not (Kahan; bound by
/// Jeannerod, Louvet and Muller, 2013). `a * b - c * d` can lose every digit.
inline double differenceOfProducts(double a, double b, double c, double d) {
    double const cd = c * d;
    double const error = std::fma(-c, d, cd);
    return std::fma(a, b, -cd) + error;
}
} // namespace VX::detail
