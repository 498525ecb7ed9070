#pragma once

namespace Kyn {
/// The roots of the monic cubic x^3 + c[2] x^2 + c[1] x + c[0], each as a real and an imaginary part.
///
/// Returns 3, multiple roots counted as often as they occur; 0, with `roots` untouched, when a coefficient is not
/// finite. The real roots come first, ascending; then a complex pair, positive imaginary part first.
///
/// What holds for every triple of finite coefficients, whatever their scales:
/// - each real root is off by at most two units in its last place from the exact root of the polynomial that the
///   doubles spell, nearly multiple roots included; a root too small for a double comes out as 0 or the smallest one;
/// - how many roots are real is decided exactly: real roots have an imaginary part of 0;
/// - with c[0] = 0, one real root is an exact 0;
/// - a complex pair is right to a few rounding errors of its absolute value;
/// - the number of steps is bounded, and nothing is allocated.
int cuberoots(double const * const c, double (*const roots)[2]);
} // namespace Kyn
