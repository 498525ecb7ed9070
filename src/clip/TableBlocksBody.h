#pragma once

#include "foundation/InstructionSet.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>

/// How a table of a power or a logarithm is filled without one call of pow or log for each entry, and yet to the bit as
/// if there had been one.
///
/// Each entry is finish(f(argument)), where f is the library function and `finish` a chain of multiplications,
/// additions, limits and roundings, every one of which keeps order. So if f lies between two numbers for which `finish`
/// gives the same entry, then it gives that entry for f as well, wherever between them f lies: no more need be known
/// about its roundings. The two numbers come cheaply for a block of entries at a time: an approximation, less and plus
/// a bound of its error. An entry for which they disagree has a rounding boundary between them and is computed as
/// stated. A `finish` that reverses order, as with a negative gain, serves as well.
///
/// The bounds assume a pow, log and log10 of the library that err by less than 8 units in the last place.
namespace VX::TableBlocks {

constexpr int BLOCK = 128;
constexpr double ROUNDING = 0x1p-53;

/// Cut to the element's width, as a conversion through a 64-bit integer does it: truncation towards zero, then the low
/// bits. NaN, and what no such integer holds, gives 0. A float element takes the nearest float.
template <class Element>
Element cut(double value) {
    if constexpr (std::is_floating_point_v<Element>)
        return static_cast<Element>(value);
    else
        return std::fabs(value) < 0x1p63 ? static_cast<Element>(static_cast<std::int64_t>(value)) : Element(0);
}

/// Two numbers that a value of f lies between.
struct Bounds {
    double low;
    double high;
};

/// Whether two bounds give one entry. Floats that are 0 may differ in their sign.
template <class Element>
bool agree(Element low, Element high) {
    return low == high && (!std::is_floating_point_v<Element> || low != Element(0));
}

/// A block's bounds after `finish`: what is left is to cut them.
struct Finished {
    double low[BLOCK] = {};
    double high[BLOCK] = {};
};

/// Cuts a block and says whether all its entries agree; what it has stored is of no use if not. The numbers must fit an
/// int, which a processor converts several at a time.
template <class Element>
bool cutIfAllAgree(Element * table, int count, Finished const & finished) {
    std::int32_t differing = 0;
    for (int j = 0; j < count; ++j) {
        if constexpr (std::is_floating_point_v<Element>) {
            table[j] = cut<Element>(finished.low[j]);
            differing |= agree(table[j], cut<Element>(finished.high[j])) ? 0 : 1;
        } else {
            std::int32_t const entry = static_cast<std::int32_t>(finished.low[j]);
            table[j] = static_cast<Element>(entry);
            differing |= entry ^ static_cast<std::int32_t>(finished.high[j]);
        }
    }
    return differing == 0;
}

/// Finishes a block's bounds. Says whether the entries are stored: they fit an int and all agree.
template <class Element, class BoundsAt, class Finish>
VX_INLINED bool finishInLoops(Element * table, int count, bool fitsInt, BoundsAt const & boundsAt,
                              Finish const & finish, Finished & finished) {
    for (int j = 0; j < count; ++j) {
        Bounds const bounds = boundsAt(j);
        finished.low[j] = static_cast<double>(finish(bounds.low));
        finished.high[j] = static_cast<double>(finish(bounds.high));
    }
    return fitsInt && cutIfAllAgree(table, count, finished);
}

#ifdef VX_HAS_AVX2
// Flat, since the lambdas are not written to be inlined.
template <class Element, class BoundsAt, class Finish>
[[gnu::target("avx2"), gnu::flatten]] bool finishForAvx2(Element * table, int count, bool fitsInt,
                                                         BoundsAt const & boundsAt, Finish const & finish,
                                                         Finished & finished) {
    return finishInLoops(table, count, fitsInt, boundsAt, finish, finished);
}
#endif

/// The same with the best instruction set that the machine has. All give the same entries.
template <class Element, class BoundsAt, class Finish>
bool finishFast(Element * table, int count, bool fitsInt, BoundsAt const & boundsAt, Finish const & finish,
                Finished & finished) {
#ifdef VX_HAS_AVX2
    if (detail::bHasInstructionSet(detail::InstructionSet::AVX2))
        return finishForAvx2(table, count, fitsInt, boundsAt, finish, finished);
#endif
    return finishInLoops(table, count, fitsInt, boundsAt, finish, finished);
}

/// Stores a block of entries: those on which their bounds agree, and the stated ones where they do not. `all` bounds
/// the whole block; `finished` is room to work in.
template <class Element, class BoundsAt, class Finish, class Stated>
void store(Element * table, int count, Bounds const & all, BoundsAt const & boundsAt, Finish const & finish,
           Stated const & stated, Finished & finished) {
    bool fitsInt = true;
    if constexpr (!std::is_floating_point_v<Element>) {
        double const least = static_cast<double>(finish(all.low));
        double const greatest = static_cast<double>(finish(all.high));
        fitsInt = std::fabs(least) < 0x1p31 && std::fabs(greatest) < 0x1p31;
        if (fitsInt && static_cast<std::int32_t>(least) == static_cast<std::int32_t>(greatest)) {
            std::fill(table, table + count, cut<Element>(least));
            return;
        }
    }
    if (finishFast(table, count, fitsInt, boundsAt, finish, finished))
        return;
    for (int j = 0; j < count; ++j) {
        double const low = finished.low[j];
        double const high = finished.high[j];
        // Equal low bits mean equal numbers only where the bounds lie close together.
        bool const sure = std::fabs(high - low) < 1.0 && agree(cut<Element>(low), cut<Element>(high));
        table[j] = sure ? cut<Element>(low) : stated(j);
    }
}

/// Entries `begin` to `end` are finish(10^decades(distance(i))). The distances are spaced evenly by `step`, and
/// `decades` is a factor, in at most four roundings together.
///
/// 10^(a + b) is split into the product of two small tables. Their exponents and the stated one are off by at most 12
/// roundings of the largest, which shifts the power by ln 10 times that; three powers and the products add their own.
template <class Element, class Distance, class Decades, class Power, class Finish>
void fillPowersOfTen(Element * table, int begin, int end, double step, Distance const & distance,
                     Decades const & decades, Power const & powerOfTen, Finish const & finish) {
    if (begin >= end)
        return;
    auto const stated = [&](int i) { return cut<Element>(finish(powerOfTen(decades(distance(i))))); };
    double const largest = std::fabs(decades(distance(begin))) + std::fabs(decades(distance(end - 1))) +
                           std::fabs(decades(step * static_cast<double>(BLOCK)));
    if (!(largest < 290.0)) { // not a number, or near the ends of the range, where roundings are no longer relative
        for (int i = begin; i < end; ++i)
            table[i] = stated(i);
        return;
    }
    double const error = ROUNDING * (32.0 * largest + 64.0);
    double within[BLOCK];
    for (int j = 0; j < BLOCK; ++j)
        within[j] = powerOfTen(decades(static_cast<double>(j) * step));

    Finished finished;
    auto const [smallest, largestWithin] = std::minmax_element(within, within + BLOCK);
    for (int i = begin; i < end; i += BLOCK) {
        double const start = powerOfTen(decades(distance(i)));
        double const low = start * (1.0 - error);
        double const high = start * (1.0 + error);
        store(
            table + i, std::min(BLOCK, end - i), {low * *smallest, high * *largestWithin},
            [&](int j) {
                return Bounds{low * within[j], high * within[j]};
            },
            finish, [&](int j) { return stated(i + j); }, finished);
    }
}

/// The Taylor polynomial of a function about a centre c, in u = (y - c) / c, and a bound of how far it lies, as
/// computed, from the function as the library computes it. An infinite or undefined error says that it is of no use.
struct Expansion {
    static constexpr int DEGREE = 3;
    double coefficients[DEGREE + 1] = {};
    double error = HUGE_VAL;

    double at(double u) const {
        double sum = coefficients[DEGREE];
        for (int k = DEGREE; k-- > 0;)
            sum = sum * u + coefficients[k];
        return sum;
    }
    /// Bounds for all |u| up to `reach`, and of the sums as computed.
    Bounds within(double reach) const {
        double spread = 0.0;
        for (int k = DEGREE; k > 0; --k)
            spread = (spread + std::fabs(coefficients[k])) * reach;
        spread = spread * (1.0 + 0x1p-30) + 2.0 * error;
        return {coefficients[0] - spread, coefficients[0] + spread};
    }
};

/// y^exponent = c^exponent (1 + u)^exponent, the binomial series.
///
/// From the term after the last on, each is at most q |u| times the one before it, with q = 1 + |exponent| / (DEGREE +
/// 2): for q |u| up to 1/2 the rest is at most twice the first term left out. Each of the sum's 2 DEGREE steps, the two
/// of u and the coefficients' own err by no more than a rounding of the sum of absolute values.
class PowerSeries {
public:
    explicit PowerSeries(double exponent) : exponent_(exponent) {}

    double function(double y) const { return std::pow(y, exponent_); }

    Expansion around(double centre, double reach) const {
        double const value = function(centre);
        if (!(value > 1e-280 && value < 1e280) ||
            !((1.0 + std::fabs(exponent_) / (Expansion::DEGREE + 2)) * reach <= 0.5))
            return {};
        Expansion result;
        double binomial = 1.0;
        double power = 1.0;
        double sum = 0.0;
        for (int k = 0; k <= Expansion::DEGREE; ++k) {
            result.coefficients[k] = value * binomial;
            sum += std::fabs(binomial) * power;
            binomial *= (exponent_ - static_cast<double>(k)) / static_cast<double>(k + 1);
            power *= reach;
        }
        result.error = value * (2.0 * std::fabs(binomial) * power + ROUNDING * 128.0 * sum);
        return result;
    }

private:
    double exponent_;
};

/// A logarithm of ratio(y), where `ratio` is a positive factor in at most three roundings: log(ratio(c)) + log(1 + u).
///
/// From the term after the last on, each is at most |u| times the one before it: for |u| up to 1/2 the rest is at most
/// twice the first term left out. A rounding of the ratio shifts the logarithm by as much.
template <class Ratio>
class LogarithmSeries {
public:
    typedef double (*Logarithm)(double);

    /// `unit` is what `logarithm` makes of e.
    LogarithmSeries(Logarithm logarithm, double unit, Ratio const & ratio)
        : logarithm_(logarithm), unit_(unit), ratio_(ratio) {}

    double function(double y) const { return logarithm_(ratio_(y)); }

    Expansion around(double centre, double reach) const {
        double const value = function(centre);
        if (!std::isfinite(value) || !(reach <= 0.5))
            return {};
        Expansion result;
        result.coefficients[0] = value;
        double power = reach;
        for (int k = 1; k <= Expansion::DEGREE; ++k) {
            result.coefficients[k] = (k % 2 == 1 ? unit_ : -unit_) / static_cast<double>(k);
            power *= reach;
        }
        result.error = 2.0 * power * unit_ / (Expansion::DEGREE + 1) + ROUNDING * 128.0 * (std::fabs(value) + 1.0);
        return result;
    }

private:
    Logarithm logarithm_;
    double unit_;
    Ratio ratio_;
};

/// Entries `begin` to `end` are finish(series.function(argument(i))). The arguments never change direction.
template <class Element, class Argument, class Series, class Finish>
void fillBySeries(Element * table, int begin, int end, Argument const & argument, Series const & series,
                  Finish const & finish) {
    constexpr double LARGEST_REACH = 0.125;
    Finished finished;
    auto const stated = [&](int i) { return cut<Element>(finish(series.function(argument(i)))); };
    for (int i = begin; i < end; i += BLOCK) {
        int const count = std::min(BLOCK, end - i);
        double const centre = argument(i + count / 2);
        double const reach =
            std::max(std::fabs(argument(i) - centre), std::fabs(argument(i + count - 1) - centre)) / centre;
        Expansion expansion;
        if (centre > 1e-200 && reach <= LARGEST_REACH)
            expansion = series.around(centre, reach);
        if (!(expansion.error < HUGE_VAL)) {
            for (int j = 0; j < count; ++j)
                table[i + j] = stated(i + j);
            continue;
        }
        double const inverse = 1.0 / centre;
        store(
            table + i, count, expansion.within(reach),
            [&](int j) {
                double const value = expansion.at((argument(i + j) - centre) * inverse);
                return Bounds{value - expansion.error, value + expansion.error};
            },
            finish, [&](int j) { return stated(i + j); }, finished);
    }
}

} // namespace VX::TableBlocks
