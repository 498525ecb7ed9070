#include "parameter/kyn/CubeRoots.h"

#include "foundation/ExactArithmetic.h"

#include <boost/multiprecision/cpp_bin_float.hpp>

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

// The method. The discriminant tells how many roots are real. Each real root is then shut in between two neighbouring
// doubles by the sign of the polynomial, with Newton's method to get there fast and halving of the remaining doubles to
// get there at all. Both decisions rest on signs alone, and a sign is never wrong: a sum of products is computed in
// twice the precision first, and where that leaves a doubt, exactly. So nothing is lost to cancellation, and as each
// number keeps its exponent apart, nothing to overflow or underflow.
//
// Textbook formulas alone (Cardano, Viete) give the first guess and nothing more: near a multiple root they lose half
// of the digits or two thirds, with roots of unlike size all digits of the small ones.

namespace Kyn {
namespace {
using VX::detail::DoubleDouble;
using VX::detail::exactProduct;
using VX::detail::exactSum;

// Holds a product of four doubles without rounding, and any sum of five such products, largest first, well enough for
// the sign: where bits fall off the end, the rest is too small to turn it.
using Exact =
    boost::multiprecision::number<boost::multiprecision::cpp_bin_float<512, boost::multiprecision::digit_base_2>,
                                  boost::multiprecision::et_off>;

// A small whole number times up to four doubles.
struct Product {
    int multiplier = 0;
    std::array<double, 4> factors{1.0, 1.0, 1.0, 1.0};
};

// mantissa 2^exponent, right to an eighth of itself, its sign exactly.
struct Scaled {
    double mantissa = 0.0;
    int exponent = 0;
};

int sign(Scaled const & value) {
    return (value.mantissa > 0.0) - (value.mantissa < 0.0);
}

// The quotient as a double: infinite where it is too large, not a number for 0 / 0.
double quotient(Scaled const & numerator, Scaled const & denominator) {
    return std::ldexp(numerator.mantissa / denominator.mantissa, numerator.exponent - denominator.exponent);
}

bool isSmaller(Scaled const & left, Scaled const & right) {
    return std::fabs(quotient(left, right)) < 1.0;
}

struct ScaledDoubleDouble {
    DoubleDouble mantissa;
    int exponent = 0;
};

ScaledDoubleDouble evaluate(Product const & product) {
    ScaledDoubleDouble result{{static_cast<double>(product.multiplier), 0.0}, 0};
    for (double const factor : product.factors) {
        int exponent = 0;
        double const mantissa = std::frexp(factor, &exponent);
        DoubleDouble const high = exactProduct(result.mantissa.high, mantissa);
        result.mantissa = exactSum(high.high, std::fma(result.mantissa.low, mantissa, high.low));
        result.exponent += exponent;
    }
    return result;
}

DoubleDouble sum(DoubleDouble const & left, DoubleDouble const & right) {
    DoubleDouble const high = exactSum(left.high, right.high);
    DoubleDouble const low = exactSum(left.low, right.low);
    DoubleDouble const middle = exactSum(high.high, high.low + low.high);
    return exactSum(middle.high, middle.low + low.low);
}

template <std::size_t count>
Scaled exactSumOf(std::array<Product, count> const & products) {
    std::array<Exact, count> values;
    for (std::size_t i = 0; i < count; ++i) {
        values[i] = products[i].multiplier;
        for (double const factor : products[i].factors)
            values[i] *= factor;
    }
    std::sort(values.begin(), values.end(), [](Exact const & l, Exact const & r) { return abs(l) > abs(r); });
    Exact total = 0;
    for (Exact const & value : values)
        total += value;
    Scaled result;
    result.mantissa = static_cast<double>(frexp(total, &result.exponent));
    return result;
}

// The sum, with the sign that it has without any rounding.
template <std::size_t count>
Scaled sumOf(std::array<Product, count> const & products) {
    std::array<ScaledDoubleDouble, count> values;
    int largest = INT_MIN;
    for (std::size_t i = 0; i < count; ++i) {
        values[i] = evaluate(products[i]);
        if (values[i].mantissa.high != 0.0)
            largest = std::max(largest, values[i].exponent);
    }
    if (largest == INT_MIN)
        return {};
    DoubleDouble total;
    for (ScaledDoubleDouble const & value : values) {
        int const shift = std::max(value.exponent - largest, -300);
        double const factor = std::ldexp(1.0, shift);
        total = sum(total, {value.mantissa.high * factor, value.mantissa.low * factor});
    }
    // Mantissas stay below 27, so all rounding errors together stay below 2^-93.
    constexpr double trusted = 0x1p-90;
    if (std::fabs(total.high) > trusted)
        return {total.high, largest};
    return exactSumOf(products);
}

DoubleDouble product(DoubleDouble const & left, DoubleDouble const & right) {
    DoubleDouble const high = exactProduct(left.high, right.high);
    return exactSum(high.high, high.low + (left.high * right.low + left.low * right.high));
}

// Four of these multiplied neither overflow nor underflow.
bool isModest(double x) {
    return x == 0.0 || (std::fabs(x) > 0x1p-200 && std::fabs(x) < 0x1p200);
}

// multiplier[k] coefficient[k] x^k, summed over k from 0 to 3.
class Polynomial {
public:
    Polynomial(std::array<int, 4> const & multipliers, std::array<double, 4> const & coefficients)
        : m_multipliers(multipliers),
          m_coefficients(coefficients),
          m_bModest(std::all_of(coefficients.begin(), coefficients.end(), isModest)) {
        for (std::size_t k = 0; k < 4; ++k)
            m_products[k] = exactProduct(multipliers[k], coefficients[k]);
    }

    Polynomial derivative() const {
        auto const & m = m_multipliers;
        auto const & c = m_coefficients;
        return {{m[1], 2 * m[2], 3 * m[3], 0}, {c[1], c[2], c[3], 0.0}};
    }

    Scaled at(double x) const {
        Scaled value;
        if (m_bModest && isModest(x) && evaluateModest(x, value))
            return value;
        auto const & m = m_multipliers;
        auto const & c = m_coefficients;
        return sumOf(std::array<Product, 4>{{{m[3], {c[3], x, x, x}},
                                             {m[2], {c[2], x, x, 1.0}},
                                             {m[1], {c[1], x, 1.0, 1.0}},
                                             {m[0], {c[0], 1.0, 1.0, 1.0}}}});
    }

    int signAt(double x) const { return sign(at(x)); }

private:
    // The quick way, without exponents kept apart; false where it cannot be sure of the sign.
    bool evaluateModest(double x, Scaled & value) const {
        DoubleDouble const square = exactProduct(x, x);
        DoubleDouble const terms[] = {m_products[0], product(m_products[1], {x, 0.0}), product(m_products[2], square),
                                      product(m_products[3], product(square, {x, 0.0}))};
        DoubleDouble total;
        double size = 0.0;
        for (DoubleDouble const & term : terms) {
            total = sum(total, term);
            size += std::fabs(term.high);
        }
        value.mantissa = total.high;
        return std::fabs(total.high) > size * 0x1p-90;
    }

    std::array<int, 4> m_multipliers;
    std::array<double, 4> m_coefficients;
    std::array<DoubleDouble, 4> m_products; // multiplier times coefficient; only good where all are modest
    bool m_bModest;
};

// The doubles as whole numbers in their order: neighbours differ by 1, both zeros are 0.
std::int64_t placeOf(double x) {
    std::int64_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    return bits >= 0 ? bits : INT64_MIN - bits;
}

double doubleAt(std::int64_t place) {
    std::int64_t const bits = place >= 0 ? place : INT64_MIN - place;
    double x = 0.0;
    std::memcpy(&x, &bits, sizeof x);
    return x;
}

// Two neighbouring doubles with a root between them, or one double twice that is a root.
struct Gap {
    double lower;
    double upper;
    double nearest; // of the two
};

struct Interval {
    double lower;
    double upper;
};

constexpr Interval everywhere{-DBL_MAX, DBL_MAX};

// The place Newton's method proposes from `x`, where the polynomial is `value`; without a proposal, the middle.
std::int64_t proposal(Polynomial const & derivative, double x, Scaled const & value, std::int64_t middle) {
    double const step = quotient(value, derivative.at(x));
    if (std::isnan(step))
        return middle;
    return placeOf(std::min(std::max(x - step, -DBL_MAX), DBL_MAX));
}

// The gap of the one root that lies inside the interval; before it the polynomial has the sign `signBefore`, after it
// the other. Ends: each third step from the seventh on halves the number of doubles left, and there are 2^64.
Gap findRoot(Polynomial const & polynomial, Interval const & interval, int signBefore, double guess) {
    Polynomial const derivative = polynomial.derivative();
    std::int64_t lower = placeOf(interval.lower);
    std::int64_t upper = placeOf(interval.upper);
    auto const middle = [&] { return lower / 2 + upper / 2 + (lower % 2 + upper % 2) / 2; };
    std::int64_t next = std::isnan(guess) ? middle() : placeOf(guess);
    for (int step = 0; lower < upper && upper - 1 > lower; ++step) {
        next = std::min(std::max(next, lower + 1), upper - 1);
        double const x = doubleAt(next);
        Scaled const value = polynomial.at(x);
        if (sign(value) == 0)
            return {x, x, x};
        (sign(value) == signBefore ? lower : upper) = next;
        next = step >= 6 && step % 3 == 0 ? middle() : proposal(derivative, x, value, middle());
    }
    double const below = doubleAt(lower);
    double const above = doubleAt(upper);
    return {below, above, isSmaller(polynomial.at(below), polynomial.at(above)) ? below : above};
}

// Three numbers that are about the roots; all the same one where a single root is real. Viete's and Cardano's formulas
// on x / 2^exponent, whose coefficients are at most 1.
std::array<double, 3> guessRoots(double a, double b, double c, bool bAllReal) {
    auto const exponentOf = [](double x) { return x == 0.0 ? -4000 : std::ilogb(x) + 1; };
    auto const ceilingOfQuotient = [](int n, int d) { return n > 0 ? (n + d - 1) / d : n / d; };
    int const exponent =
        std::max({exponentOf(a), ceilingOfQuotient(exponentOf(b), 2), ceilingOfQuotient(exponentOf(c), 3)});
    double const sa = std::ldexp(a, -exponent);
    double const sb = std::ldexp(b, -2 * exponent);
    double const sc = std::ldexp(c, -3 * exponent);
    double const q = (sa * sa - 3.0 * sb) / 9.0;
    double const r = (sa * (2.0 * sa * sa - 9.0 * sb) + 27.0 * sc) / 54.0;
    if (bAllReal) {
        constexpr double thirdOfTurn = 2.0943951023931957;
        double const root = std::sqrt(std::max(q, 0.0));
        double const cosine = r / (root * root * root);
        double const angle = std::acos(std::min(std::max(cosine, -1.0), 1.0)) / 3.0;
        auto const at = [&](double turn) {
            return std::ldexp(-2.0 * root * std::cos(angle + turn) - sa / 3.0, exponent);
        };
        return {at(0.0), at(-thirdOfTurn), at(thirdOfTurn)};
    }
    double const s = -std::copysign(std::cbrt(std::fabs(r) + std::sqrt(std::max(r * r - q * q * q, 0.0))), r);
    double const x = std::ldexp(s + (s == 0.0 ? 0.0 : q / s) - sa / 3.0, exponent);
    return {x, x, x};
}

// About the two roots of x^2 + 2 h x + b, ascending; both -h where they are not real.
Interval guessQuadraticRoots(double h, double b) {
    int const exponent = std::max(h == 0.0 ? -2000 : std::ilogb(h), b == 0.0 ? -2000 : std::ilogb(b) / 2);
    double const sh = std::ldexp(h, -exponent);
    double const sb = std::ldexp(b, -2 * exponent);
    double const discriminant = VX::detail::differenceOfProducts(sh, sh, sb, 1.0);
    if (!(discriminant > 0.0))
        return {-h, -h};
    double const larger = std::ldexp(-(sh + std::copysign(std::sqrt(discriminant), sh)), exponent);
    double const smaller = b / larger;
    return {std::min(larger, smaller), std::max(larger, smaller)};
}

struct Cubic {
    double a;
    double b;
    double c;

    Polynomial polynomial() const { return {{1, 1, 1, 1}, {c, b, a, 1.0}}; }

    // Positive for three different real roots, 0 for a multiple one, negative for a complex pair.
    Scaled discriminant() const {
        return sumOf(std::array<Product, 5>{{{18, {a, b, c, 1.0}},
                                             {-4, {a, a, a, c}},
                                             {1, {a, a, b, b}},
                                             {-4, {b, b, b, 1.0}},
                                             {-27, {c, c, 1.0, 1.0}}}});
    }
};

using Triple = std::array<double, 3>;

// Discriminant 0 and c not 0. With d the double root and s the simple one, a^2 - 3b = (d - s)^2 and
// 9c - ab = 2d (d - s)^2, and c = -d^2 s.
Triple multipleRoots(Cubic const & cubic) {
    Exact const a = cubic.a;
    Exact const b = cubic.b;
    Exact const c = cubic.c;
    Exact const squareOfDistance = a * a - 3 * b;
    if (squareOfDistance == 0) {
        double const triple = static_cast<double>(Exact(-a / 3));
        return {triple, triple, triple};
    }
    Exact const doubleRoot = (9 * c - a * b) / (2 * squareOfDistance);
    double const d = static_cast<double>(doubleRoot);
    double const s = static_cast<double>(Exact(-c / (doubleRoot * doubleRoot)));
    return s < d ? Triple{s, d, d} : Triple{d, d, s};
}

// What lies between two neighbouring real roots: a double that parts them, or no double at all, only a gap.
struct Separator {
    bool bFound;
    double place;
    Gap gap;
};

// `sign` is the polynomial's between the two roots, and `extremum` the gap of its extremum there.
Separator separate(Polynomial const & polynomial, Gap const & extremum, int sign) {
    if (polynomial.signAt(extremum.lower) == sign)
        return {true, extremum.lower, extremum};
    if (polynomial.signAt(extremum.upper) == sign)
        return {true, extremum.upper, extremum};
    return {false, extremum.nearest, extremum};
}

Triple rootsBetween(Polynomial const & polynomial, Separator const & first, Separator const & second,
                    Triple const & guesses) {
    double const smallest =
        first.bFound ? findRoot(polynomial, {-DBL_MAX, first.place}, -1, guesses[0]).nearest : first.gap.lower;
    double const largest =
        second.bFound ? findRoot(polynomial, {second.place, DBL_MAX}, -1, guesses[2]).nearest : second.gap.upper;
    if (!first.bFound)
        return {smallest, first.gap.upper, largest};
    if (!second.bFound)
        return {smallest, second.gap.lower, largest};
    return {smallest, findRoot(polynomial, {first.place, second.place}, 1, guesses[1]).nearest, largest};
}

// Three different roots, two or all of them so close that no rounded extremum parts them: the extrema themselves are
// shut in between neighbouring doubles first. Roots that lie between the same two doubles come out as those two.
Triple closeRoots(Polynomial const & polynomial, Interval const & extrema, Triple const & guesses) {
    Polynomial const derivative = polynomial.derivative();
    double const middle = 0.5 * extrema.lower + 0.5 * extrema.upper;
    Gap const inflection = findRoot(derivative.derivative(), everywhere, -1, middle);
    Separator const fall = separate(derivative, inflection, -1);
    if (!fall.bFound) {
        // Both extrema between two neighbours, so all three roots within twice that distance.
        Gap const root = findRoot(polynomial, everywhere, -1, inflection.nearest);
        return {root.lower, root.nearest, root.upper};
    }
    Gap const maximum = findRoot(derivative, {-DBL_MAX, fall.place}, 1, extrema.lower);
    Gap const minimum = findRoot(derivative, {fall.place, DBL_MAX}, -1, extrema.upper);
    return rootsBetween(polynomial, separate(polynomial, maximum, 1), separate(polynomial, minimum, -1), guesses);
}

// Discriminant above 0.
Triple differentRoots(Cubic const & cubic) {
    Polynomial const polynomial = cubic.polynomial();
    Interval const extrema = guessQuadraticRoots(cubic.a / 3.0, cubic.b / 3.0);
    Triple const guesses = guessRoots(cubic.a, cubic.b, cubic.c, true);
    if (extrema.lower < extrema.upper && polynomial.signAt(extrema.lower) > 0 && polynomial.signAt(extrema.upper) < 0)
        return rootsBetween(polynomial, {true, extrema.lower, {}}, {true, extrema.upper, {}}, guesses);
    return closeRoots(polynomial, extrema, guesses);
}

struct Pair {
    double real;
    double imaginary; // above 0
};

// The other two roots u +- iv beside the real root r: r (u^2 + v^2) = -c, and 2u is -a - r as well as
// (b - u^2 - v^2) / r, of which the way is taken that cancels less. False where that is not enough in plain doubles,
// because the sizes are extreme or v^2 cancels.
bool pairInDoubles(Cubic const & cubic, double root, Pair & pair) {
    double const square = -cubic.c / root;
    if (!(square > 0x1p-900 && square < 0x1p900))
        return false;
    double const u = root * root > square ? (cubic.b - square) / root * 0.5 : -0.5 * (cubic.a + root);
    double const squareOfV = square - u * u;
    pair = {u, std::sqrt(std::max(squareOfV, 0.0))};
    return squareOfV > square / 64.0;
}

// The same in high precision, from a root that Newton's method has brought there.
Pair complexPair(Cubic const & cubic, double root) {
    Pair pair;
    if (pairInDoubles(cubic, root, pair))
        return pair;
    Exact const a = cubic.a;
    Exact const b = cubic.b;
    Exact const c = cubic.c;
    Exact r = root;
    for (int step = 0; step < 3 && root != 0.0; ++step) {
        Exact const slope = (3 * r + 2 * a) * r + b;
        if (slope != 0)
            r -= (((r + a) * r + b) * r + c) / slope;
    }
    bool const bRootVanished = r == 0;
    Exact const square = bRootVanished ? b : Exact(-c / r);
    bool const bRootIsLarger = !bRootVanished && r * r > square;
    Exact const u = bRootIsLarger ? Exact((b - square) / (2 * r)) : Exact(-(a + r) / 2);
    Exact const squareOfV = square - u * u;
    double const v = squareOfV > 0 ? static_cast<double>(Exact(sqrt(squareOfV))) : 0.0;
    return {static_cast<double>(u), std::max(v, DBL_TRUE_MIN)};
}

int writeReal(Triple const & values, double (*const roots)[2]) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        roots[i][0] = values[i];
        roots[i][1] = 0.0;
    }
    return 3;
}

int writeRealAndPair(double root, Pair const & pair, double (*const roots)[2]) {
    roots[0][0] = root;
    roots[0][1] = 0.0;
    roots[1][0] = roots[2][0] = pair.real;
    roots[1][1] = pair.imaginary;
    roots[2][1] = -pair.imaginary;
    return 3;
}

// The roots of x (x^2 + a x + b).
int rootsWithZero(double a, double b, double (*const roots)[2]) {
    Scaled const discriminant = sumOf(std::array<Product, 2>{{{1, {a, a, 1.0, 1.0}}, {-4, {b, 1.0, 1.0, 1.0}}}});
    if (sign(discriminant) < 0)
        return writeRealAndPair(0.0, complexPair({a, b, 0.0}, 0.0), roots);
    Polynomial const quadratic({1, 1, 1, 0}, {b, a, 1.0, 0.0});
    double const vertex = 0.0 - 0.5 * a;
    Interval const guesses = guessQuadraticRoots(0.5 * a, b);
    Triple values{0.0, vertex, vertex};
    if (quadratic.signAt(vertex) < 0) {
        values[1] = findRoot(quadratic, {-DBL_MAX, vertex}, 1, guesses.lower).nearest;
        values[2] = findRoot(quadratic, {vertex, DBL_MAX}, -1, guesses.upper).nearest;
    }
    std::sort(values.begin(), values.end());
    return writeReal(values, roots);
}
} // namespace

int cuberoots(double const * const c, double (*const roots)[2]) {
    Cubic const cubic{c[2], c[1], c[0]};
    if (!std::isfinite(cubic.a) || !std::isfinite(cubic.b) || !std::isfinite(cubic.c))
        return 0;
    if (cubic.c == 0.0)
        return rootsWithZero(cubic.a, cubic.b, roots);
    int const kind = sign(cubic.discriminant());
    if (kind > 0)
        return writeReal(differentRoots(cubic), roots);
    if (kind == 0)
        return writeReal(multipleRoots(cubic), roots);
    double const guess = guessRoots(cubic.a, cubic.b, cubic.c, false)[0];
    double const root = findRoot(cubic.polynomial(), everywhere, -1, guess).nearest;
    return writeRealAndPair(root, complexPair(cubic, root), roots);
}
} // namespace Kyn
