#include "parameter/PlainNumber.h"

#include "foundation/DecimalDigit.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace Kyn::detail {

namespace {

using VX::detail::isDecimalDigit;

/// The powers of ten that a double holds exactly.
constexpr std::array<double, 23> POWERS = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                           1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// The digits of a number as one integer, and the power of ten that it is to be multiplied with.
struct Decimal {
    std::uint64_t digits = 0;
    int count = 0; ///< Digits behind leading zeros.
    int exponent = 0;

    void take(char16_t c) {
        digits = digits * 10 + static_cast<std::uint64_t>(c - u'0');
        count += digits != 0 ? 1 : 0;
    }
};

/// Any number of the plain form, the slow and exact way.
bool convert(char16_t const * from, char16_t const * to, double & number) {
    constexpr std::ptrdiff_t LONGEST = 400;
    std::array<char, LONGEST> text;
    if (to - from > LONGEST)
        return false;
    char * end = text.data();
    while (from != to)
        *end++ = static_cast<char>(*from++);
    return std::from_chars(text.data(), end, number).ec == std::errc();
}

bool scanExponent(char16_t const *& at, char16_t const * end, int & exponent) {
    bool const negative = at != end && *at == u'-';
    if (at != end && (*at == u'-' || *at == u'+'))
        ++at;
    if (at == end || !isDecimalDigit(*at))
        return false;
    int value = 0;
    for (; at != end && isDecimalDigit(*at); ++at)
        value = value < 10000 ? value * 10 + (*at - u'0') : value;
    exponent += negative ? -value : value;
    return true;
}

} // namespace

bool scanPlainReal(char16_t const *& at, char16_t const * end, double & number) {
    constexpr int EXACT_DIGITS = 15;
    char16_t const * const start = at;
    bool const negative = at != end && *at == u'-';
    if (negative)
        ++at;
    if (at == end || !isDecimalDigit(*at))
        return false;
    Decimal decimal;
    for (; at != end && isDecimalDigit(*at); ++at)
        decimal.take(*at);
    if (at != end && *at == u'.') {
        char16_t const * const point = ++at;
        for (; at != end && isDecimalDigit(*at); ++at)
            decimal.take(*at);
        if (at == point)
            return false;
        decimal.exponent = static_cast<int>(point - at);
    }
    if (at != end && (*at == u'e' || *at == u'E') && !scanExponent(++at, end, decimal.exponent))
        return false;
    // Digits and power are exact, so one division or multiplication rounds as any exact reader does.
    int const power = decimal.exponent < 0 ? -decimal.exponent : decimal.exponent;
    if (decimal.count > EXACT_DIGITS || power >= static_cast<int>(POWERS.size()))
        return convert(start, at, number);
    double const digits = static_cast<double>(decimal.digits);
    double const scale = POWERS[static_cast<std::size_t>(power)];
    double const magnitude = decimal.exponent < 0 ? digits / scale : digits * scale;
    number = negative ? -magnitude : magnitude;
    return true;
}

} // namespace Kyn::detail
