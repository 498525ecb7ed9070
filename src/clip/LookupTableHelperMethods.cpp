#include "clip/LookupTableHelperMethods.h"

#include "clip/TableBlocksBody.h"
#include "geometry/gandalf/ErrorTrace.h"

#include <Imath/half.h>

namespace VX::LookupTable {

using TableBlocks::cut;

namespace {

constexpr float TOP_OF_LINEAR = 65535.0f;
constexpr float NUMBERS_OF_CODES = 1024.0f;
constexpr int RUN = LINEAR_ENTRIES / 2;

/// What codes of 8 or 16 bits make of a code on the scale of 1024.
template <class Code>
constexpr float UNIT = sizeof(Code) == 1 ? 0.25f : 64.0f;

template <class Code>
constexpr double TOP_OF = sizeof(Code) == 1 ? 255.0 : 65535.0;

constexpr int entriesOf(int bits) {
    return 1 << bits;
}

double reciprocalInSingle(float argument) {
    return static_cast<double>(1.0f / argument);
}

/// Which code, on the scale of 1024, stands at which entry. Numbers of any size and none are defined.
class CodeScale {
public:
    CodeScale(int bits, float offset)
        : entries_(entriesOf(bits)),
          step_(static_cast<double>(NUMBERS_OF_CODES) / entries_),
          first_(indexOf(static_cast<double>(offset))) {}

    double step() const { return step_; }
    double code(int entry) const { return (entry + first_) * step_; }
    /// The first entry behind a code, held to the table.
    int entryBehind(float code) const {
        double const entry = indexOf(static_cast<double>(code)) + 1.0 - first_;
        return entry > 0.0 ? static_cast<int>(std::fmin(entry, entries_)) : 0;
    }

private:
    double indexOf(double code) const {
        double const index = std::trunc(code / step_);
        return std::isnan(index) ? 0.0 : index;
    }

    int entries_;
    double step_;
    double first_;
};

/// A run of evenly spaced single-precision numbers.
struct Run {
    float step;
    float base;

    float sample(int j) const { return static_cast<float>(j) * step + base; }
    float last() const { return sample(RUN - 1); }
};

/// Takes the runs to what a reader needs: scales instead of steps, and entries of the high run that start at RUN.
TwoSegmentLookup lookupOf(Run low, Run high, float split) {
    return {1.0f / low.step, low.base, split, 1.0f / high.step, high.base - high.step * static_cast<float>(RUN)};
}

struct Runs {
    Run low;
    Run high;
    float split;
};

/// The runs of a log curve stand at fixed places of its table.
Runs runsOfLogarithm(ForwardTable forward) {
    float const * const entries = forward.entries;
    int const stride = forward.bits == 8 ? 1 : 64;
    int const middle = entriesOf(forward.bits) / 2;
    Run const low{entries[stride] - entries[0], entries[0]};
    Run const high{entries[middle + stride] - entries[middle], entries[middle]};
    return {low, high, low.last()};
}

Runs runsOfPowerFromBelow(ForwardTable forward, float multiple) {
    float const * const entries = forward.entries;
    Run const low{(entries[1] - entries[0]) * multiple, entries[0]};
    float const split = low.last();
    int k = entriesOf(forward.bits) / 2;
    while (k > 0 && !(entries[k] < split))
        --k;
    return {low, {(entries[k + 1] - entries[k]) * multiple, entries[k]}, split};
}

Runs runsOfPowerFromAbove(ForwardTable forward, float multiple) {
    float const * const entries = forward.entries;
    int const last = entriesOf(forward.bits) - 1;
    float const step = (entries[last] - entries[last - 1]) * multiple;
    Run const high{step, entries[last] - step * static_cast<float>(RUN - 1)};
    // A curve that is flat at its end has nothing above the split: the walk stops at the last entry, in the table.
    int k = entriesOf(forward.bits) / 2;
    while (k < last && !(entries[k] > high.base))
        ++k;
    float const lowStep = (entries[k] - entries[k - 1]) * multiple;
    return {{lowStep, entries[k] - lowStep * static_cast<float>(RUN)}, high, high.base};
}

Runs runsOfPower(ForwardTable forward) {
    float const * const entries = forward.entries;
    int const last = entriesOf(forward.bits) - 1;
    float const multiple = forward.bits == 8 ? 1.0f : 8.0f;
    bool const coarseBelow = entries[1] - entries[0] > entries[last] - entries[last - 1];
    return coarseBelow ? runsOfPowerFromAbove(forward, multiple) : runsOfPowerFromBelow(forward, multiple);
}

/// Fills both runs by `fill(table, begin, end, sampleAt)`.
template <class Code, class Fill>
TwoSegmentLookup fillRuns(Code * table, Runs const & runs, Fill const & fill) {
    for (Run const & run : {runs.low, runs.high}) {
        fill(table, [run](int j) { return static_cast<double>(run.sample(j)); });
        table += RUN;
    }
    return lookupOf(runs.low, runs.high, runs.split);
}

/// Where the knee parts a film log table: entries before it are logarithmic.
template <class Element>
void fillFilmLogForward(Element * table, int begin, int knee, int end, CodeScale const & scale,
                        FilmLogCurve const & curve, double rounding, double limit) {
    knee = std::max(begin, knee);
    TableBlocks::fillPowersOfTen(
        table, begin, knee, scale.step(), [&](int i) { return curve.distanceFromWhite(scale.code(i)); },
        [&](double distance) { return curve.decades(distance); }, powerOfTen,
        [&, rounding](double power) { return curve.linearFromPower(power) + rounding; });
    TableBlocks::fillBySeries(
        table, knee, end, [&](int i) { return curve.distanceFromKnee(scale.code(i)); },
        TableBlocks::PowerSeries(curve.softPower),
        [&, rounding, limit](double power) {
            double const linear = curve.linearFromKneePower(power) + rounding;
            return linear > limit ? limit : linear;
        });
}

/// The first entry behind `begin` that is not on its side of the knee, or `entries`. Linear light never changes
/// direction, so a search by halves finds it; only the first entry of a table may be no number with others behind it.
template <class IsLogarithmicAt>
int endOfSide(int begin, int entries, IsLogarithmicAt const & isLogarithmicAt) {
    bool const logarithmic = isLogarithmicAt(begin);
    int inside = begin;
    int end = entries;
    while (end - inside > 1) {
        int const middle = inside + (end - inside) / 2;
        (isLogarithmicAt(middle) == logarithmic ? inside : end) = middle;
    }
    return end;
}

/// Entries from linear light to film codes; `rounded` turns a code in the table's unit into a number to be cut.
template <class Code, class LinearAt, class Rounded>
void fillFilmLogInverse(Code * table, int entries, LinearAt const & linearAt, FilmLogCurve const & curve, float offset,
                        Rounded const & rounded) {
    float const base = std::trunc(offset * UNIT<Code>);
    auto const finish = [base, rounded](float code) { return rounded(code * UNIT<Code> - base); };

    auto const fillLogarithmic = [&](int begin, int end) {
        TableBlocks::fillBySeries(
            table, begin, end, [&](int i) { return linearAt(i) + static_cast<double>(curve.lift); },
            TableBlocks::LogarithmSeries(std::log, 1.0, [&](double lifted) { return curve.fromRelative(lifted); }),
            [&](double logarithm) { return finish(curve.codeFromLogarithm(logarithm)); });
    };
    auto const fillKnee = [&](int begin, int end) {
        TableBlocks::fillBySeries(
            table, begin, end, [&](int i) { return curve.relativeToKnee(linearAt(i)); },
            TableBlocks::PowerSeries(curve.kneeExponent()),
            [&](double power) { return finish(curve.codeFromKneePower(power)); });
    };
    for (int begin = 0; begin < entries;) {
        bool const logarithmic = curve.isLogarithmicAt(linearAt(begin));
        int const end = endOfSide(begin, entries, [&](int i) { return curve.isLogarithmicAt(linearAt(i)); });
        logarithmic ? fillLogarithmic(begin, end) : fillKnee(begin, end);
        begin = end;
    }
}

/// Entries outside the curve's range are clamped; `valueOf` takes linear light to a number to be cut.
template <class Element, class ValueOf>
void fillClampedFixedLog(Element * table, int bits, ValueOf const & valueOf) {
    FixedLogCurve const curve;
    CodeScale const scale(bits, 0.0f);
    int const begin = scale.entryBehind(static_cast<float>(FixedLogCurve::BLACK_CODE));
    int const end = scale.entryBehind(static_cast<float>(FixedLogCurve::TOP_CODE));
    std::fill(table, table + begin, cut<Element>(valueOf(0.0)));
    TableBlocks::fillPowersOfTen(
        table, begin, end, scale.step(), [&](int i) { return curve.distanceFromBlack(scale.code(i)); },
        [&](double distance) { return curve.decades(distance); }, powerOfTen,
        [&](double power) { return valueOf(curve.linearFromPower(power)); });
    std::fill(table + end, table + entriesOf(bits), cut<Element>(valueOf(FixedLogCurve::TOP_LINEAR)));
}

template <class Code, class LinearAt, class Finish>
void fillFixedLogInverse(Code * table, int entries, LinearAt const & linearAt, FixedLogCurve const & curve,
                         Finish const & finish) {
    constexpr double LOGARITHM_TO_TEN_OF_E = 0.4342944819032518;
    TableBlocks::fillBySeries(
        table, 0, entries, [&](int i) { return linearAt(i) + curve.lift; },
        TableBlocks::LogarithmSeries(std::log10, LOGARITHM_TO_TEN_OF_E,
                                     [&](double lifted) { return curve.relativeToBlack(lifted); }),
        [&](double logarithm) { return finish(curve.codeFromLogarithm(logarithm)); });
}

} // namespace

void fillHalfToLinear(float * table, float gamma) {
    constexpr int SIGN = 0x8000;
    constexpr int EXPONENT = 0x7C00;
    float const exponent = 1.0f / gamma;
    for (int bits = 0; bits < LINEAR_ENTRIES; ++bits) {
        float const value = imath_half_to_float_table[bits].f;
        bool const raised = (bits & SIGN) == 0 && (bits & EXPONENT) != EXPONENT && bits != 0;
        table[bits] = raised ? ::powf(value, exponent) : value;
    }
}

template <class Code>
void fillPower(Code * table, int bits, float argument) {
    TableBlocks::PowerSeries const series(reciprocalInSingle(argument));
    double const scale = TOP_OF<Code> / series.function(entriesOf(bits) - 1);
    table[0] = 0;
    TableBlocks::fillBySeries(
        table, 1, entriesOf(bits), [](int i) { return static_cast<double>(i); }, series,
        [scale](double power) { return power * scale + 0.5; });
}

bool fillPowerForward(float * table, int bits, float argument) {
    table[0] = 0.0f;
    if (bits != 8 && bits != 16) {
        gan_err_register("CREATE_LINEAR_TO_LOG_LOOKUP", "a float table has 8 or 16 bits");
        return false;
    }
    TableBlocks::PowerSeries const series(reciprocalInSingle(argument));
    double const top = series.function(entriesOf(bits) - 1);
    TableBlocks::fillBySeries(
        table, 1, entriesOf(bits), [](int i) { return static_cast<double>(i); }, series,
        [top](double power) { return power / top; });
    return true;
}

template <class Code>
TwoSegmentLookup fillPowerTwoSegment(Code * table, ForwardTable forward, float argument) {
    TableBlocks::PowerSeries const series(reciprocalInSingle(argument));
    return fillRuns(table, runsOfPower(forward), [&](Code * run, auto const & sampleAt) {
        TableBlocks::fillBySeries(run, 0, RUN, sampleAt, series,
                                  [](double power) { return power * TOP_OF<Code> + 0.5; });
    });
}

void fillFilmLogForward(unsigned short * table, int bits, FilmLogSettings const & settings) {
    FilmLogCurve const curve(settings, TOP_OF_LINEAR, FilmLogCurve::WithoutSoftClip::KneeAtWhite);
    CodeScale const scale(bits, settings.offset);
    int const begin = scale.entryBehind(curve.black);
    std::fill(table, table + begin, static_cast<unsigned short>(0));
    fillFilmLogForward(table, begin, scale.entryBehind(curve.kneeCode), entriesOf(bits), scale, curve, 0.5,
                       static_cast<double>(TOP_OF_LINEAR));
}

void fillFilmLogForward(float * table, int bits, FilmLogSettings const & settings) {
    FilmLogCurve const curve(settings, 1.0f, FilmLogCurve::WithoutSoftClip::NoKnee);
    CodeScale const scale(bits, settings.offset);
    fillFilmLogForward(table, 0, scale.entryBehind(curve.kneeCode), entriesOf(bits), scale, curve, 0.0, HUGE_VAL);
}

template <class Code>
void fillFilmLogInverse(Code * table, FilmLogSettings const & settings) {
    FilmLogCurve const curve(settings, TOP_OF_LINEAR, FilmLogCurve::WithoutSoftClip::NoKnee);
    fillFilmLogInverse(
        table, LINEAR_ENTRIES, [](int i) { return static_cast<double>(i); }, curve, settings.offset,
        [](float code) { return static_cast<double>(code) + 0.5; });
}

template <class Code>
TwoSegmentLookup fillFilmLogTwoSegment(Code * table, ForwardTable forward, FilmLogSettings const & settings) {
    FilmLogCurve const curve(settings, 1.0f, FilmLogCurve::WithoutSoftClip::NoKnee);
    // Codes of 8 bits are rounded in single precision here, unlike everywhere else.
    auto const rounded = [](float code) {
        if constexpr (sizeof(Code) == 1)
            return code + 0.5f;
        else
            return static_cast<double>(code) + 0.5;
    };
    return fillRuns(table, runsOfLogarithm(forward), [&](Code * run, auto const & sampleAt) {
        fillFilmLogInverse(run, RUN, sampleAt, curve, settings.offset, rounded);
    });
}

void fillFixedLogForward(unsigned short * table, int bits) {
    fillClampedFixedLog(table, bits, [](double linear) { return linear * 10922.5 + 0.5; });
}

void fillFixedLogForward(unsigned int * table, int bits) {
    fillClampedFixedLog(table, bits, [](double linear) { return linear * 715827904.0 + 0.5; });
}

void fillFixedLogForward(float * table, int bits) {
    constexpr double SIXTH = static_cast<double>(1.0f / 6.0f);
    FixedLogCurve const curve;
    CodeScale const scale(bits, 0.0f);
    TableBlocks::fillPowersOfTen(
        table, 0, entriesOf(bits), scale.step(), [&](int i) { return curve.distanceFromBlack(scale.code(i)); },
        [&](double distance) { return curve.decades(distance); }, powerOfTen,
        [&](double power) { return curve.linearFromPower(power) * SIXTH; });
}

template <class Code>
void fillFixedLogInverse(Code * table) {
    constexpr float STEP = 6.0f / TOP_OF_LINEAR;
    FixedLogCurve const curve;
    fillFixedLogInverse(
        table, LINEAR_ENTRIES, [](int i) { return static_cast<double>(static_cast<float>(i) * STEP); }, curve,
        [](double code) { return FixedLogCurve::clampedCode(code) * static_cast<double>(UNIT<Code>) + 0.5; });
}

template <class Code>
TwoSegmentLookup fillFixedLogTwoSegment(Code * table, ForwardTable forward) {
    FixedLogCurve const curve;
    return fillRuns(table, runsOfLogarithm(forward), [&](Code * run, auto const & sampleAt) {
        fillFixedLogInverse(
            run, RUN, [&](int i) { return static_cast<double>(static_cast<float>(sampleAt(i)) * 6.0f); }, curve,
            [](double code) { return code * static_cast<double>(UNIT<Code>); });
    });
}

#define VX_LOOKUP_TABLES_FOR(Code)                                                                                     \
    template void fillPower(Code *, int, float);                                                                       \
    template TwoSegmentLookup fillPowerTwoSegment(Code *, ForwardTable, float);                                        \
    template void fillFilmLogInverse(Code *, FilmLogSettings const &);                                                 \
    template TwoSegmentLookup fillFilmLogTwoSegment(Code *, ForwardTable, FilmLogSettings const &);                    \
    template void fillFixedLogInverse(Code *);                                                                         \
    template TwoSegmentLookup fillFixedLogTwoSegment(Code *, ForwardTable);

VX_LOOKUP_TABLES_FOR(unsigned char)
VX_LOOKUP_TABLES_FOR(unsigned short)

#undef VX_LOOKUP_TABLES_FOR

} // namespace VX::LookupTable
