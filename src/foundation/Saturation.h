#pragma once

#include <cmath>
#include <limits>
#include <type_traits>

namespace VX::detail {
/// A computed number in an integer type: cut towards zero, the end of the range beyond it, 0 for what is not a number.
/// The plain cast would be undefined in the last two cases.
template <class Integer>
Integer saturated(double number) {
    static_assert(std::is_integral_v<Integer> && !std::is_same_v<Integer, bool>);
    typedef std::numeric_limits<Integer> Limits;
    if (std::isnan(number))
        return 0;
    if (number <= static_cast<double>(Limits::min()))
        return Limits::min();
    if (number >= static_cast<double>(Limits::max()))
        return Limits::max();
    return static_cast<Integer>(number);
}
} // namespace VX::detail
