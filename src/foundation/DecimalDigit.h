#pragma once

namespace VX::detail {

/// One of the ten digits of every script and key; Unicode knows more, which none of them means.
constexpr bool isDecimalDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

} // namespace VX::detail
