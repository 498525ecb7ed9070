#pragma once

namespace Kyn::detail {

/// Reads a number in the plain form that every reader of Qt and of the language reads alike: an optional minus, digits,
/// optionally a point with digits and an exponent. Moves `at` behind it. False, `at` anywhere, for another form and for
/// a number beyond the range of a double.
bool scanPlainReal(char16_t const *& at, char16_t const * end, double & number);

} // namespace Kyn::detail
