#include "clip/ColourspaceParameters.h"

#include "clip/LookupTableHelperMethods.h"

#include <cmath>

namespace VX {

namespace {

using LookupTable::ForwardTable;
using LookupTable::TwoSegmentLookup;

constexpr int BITS8 = 8;
constexpr int BITS16 = 16;

/// The numbers among the settings, and those of the two-segment lookups: copied and compared alike.
constexpr float ColourspaceParameters::*NUMBERS[] = {
    &ColourspaceParameters::gamma,          &ColourspaceParameters::offset,      &ColourspaceParameters::referenceWhite,
    &ColourspaceParameters::referenceBlack, &ColourspaceParameters::softClip,    &ColourspaceParameters::fLow16Scale,
    &ColourspaceParameters::fLow16Offset,   &ColourspaceParameters::fSplit16,    &ColourspaceParameters::fHigh16Scale,
    &ColourspaceParameters::fHigh16Offset,  &ColourspaceParameters::fLow8Scale,  &ColourspaceParameters::fLow8Offset,
    &ColourspaceParameters::fSplit8,        &ColourspaceParameters::fHigh8Scale, &ColourspaceParameters::fHigh8Offset,
};

FilmLogSettings filmLogOf(ColourspaceParameters const & parameters) {
    return {parameters.offset, parameters.referenceWhite, parameters.referenceBlack, parameters.gamma,
            parameters.softClip};
}

/// Code to linear, of 2^bits entries.
void fillForward(unsigned short * table, int bits, ColourspaceParameters const & parameters) {
    switch (parameters.colourspace) {
    case VX_COLORSPACE_POWER_LAW:
        return LookupTable::fillPower(table, bits, parameters.gamma);
    case VX_COLORSPACE_FILM_LOG:
        return LookupTable::fillFilmLogForward(table, bits, filmLogOf(parameters));
    case VX_COLORSPACE_FIXED_LOG:
        return LookupTable::fillFixedLogForward(table, bits);
    }
}

void fillForward(float * table, int bits, ColourspaceParameters const & parameters) {
    switch (parameters.colourspace) {
    case VX_COLORSPACE_POWER_LAW:
        LookupTable::fillPowerForward(table, bits, parameters.gamma);
        return;
    case VX_COLORSPACE_FILM_LOG:
        return LookupTable::fillFilmLogForward(table, bits, filmLogOf(parameters));
    case VX_COLORSPACE_FIXED_LOG:
        return LookupTable::fillFixedLogForward(table, bits);
    }
}

/// Linear to code, of 65536 entries.
template <class Code>
void fillInverse(Code * table, ColourspaceParameters const & parameters) {
    switch (parameters.colourspace) {
    case VX_COLORSPACE_POWER_LAW:
        return LookupTable::fillPower(table, BITS16, 1.0f / parameters.gamma);
    case VX_COLORSPACE_FILM_LOG:
        return LookupTable::fillFilmLogInverse(table, filmLogOf(parameters));
    case VX_COLORSPACE_FIXED_LOG:
        return LookupTable::fillFixedLogInverse(table);
    }
}

/// The same for float values; `lookup` stays as it is for a colourspace that has no curve.
template <class Code>
TwoSegmentLookup fillTwoSegment(Code * table, ForwardTable forward, ColourspaceParameters const & parameters,
                                TwoSegmentLookup lookup) {
    switch (parameters.colourspace) {
    case VX_COLORSPACE_POWER_LAW:
        return LookupTable::fillPowerTwoSegment(table, forward, 1.0f / parameters.gamma);
    case VX_COLORSPACE_FILM_LOG:
        return LookupTable::fillFilmLogTwoSegment(table, forward, filmLogOf(parameters));
    case VX_COLORSPACE_FIXED_LOG:
        return LookupTable::fillFixedLogTwoSegment(table, forward);
    }
    return lookup;
}

/// Builds a table at its first use: `fill` finds it at full size and all 0.
template <class Element, class Fill>
QVector<Element> const & onDemand(QVector<Element> & table, std::uint64_t size, Fill const & fill) {
    if (table.isEmpty()) {
        table.fill(Element(0), static_cast<qsizetype>(size));
        fill(table.data());
    }
    return table;
}

} // namespace

ColourspaceParameters::ColourspaceParameters() : Kyn::ParameterSet(QStringLiteral("Colorspace"), nullptr) {
    init();
}

ColourspaceParameters::ColourspaceParameters(ColourspaceParameters const & other)
    : Kyn::ParameterSet(QStringLiteral("Colorspace"), nullptr), halfToLinear32LUT_(other.halfToLinear32LUT_) {
    init();
    takeSettings(other);
}

ColourspaceParameters & ColourspaceParameters::operator=(ColourspaceParameters const & other) {
    if (this == &other)
        return *this;
    assignMembers(other);
    takeSettings(other);
    halfToLinear32LUT_ = other.halfToLinear32LUT_;
    clip16ToLinear16LUT_ = other.clip16ToLinear16LUT_;
    linear16ToClip16LUT_ = other.linear16ToClip16LUT_;
    clip8ToLinear16LUT_ = other.clip8ToLinear16LUT_;
    linear16ToClip8LUT_ = other.linear16ToClip8LUT_;
    return *this;
}

/// There are no parameters to register: a clip's script names the fields itself.
void ColourspaceParameters::init() {}

void ColourspaceParameters::takeSettings(ColourspaceParameters const & other) {
    colourspace = other.colourspace;
    floatFormat = other.floatFormat;
    eightBitFormat = other.eightBitFormat;
    nativePixelType = other.nativePixelType;
    for (float ColourspaceParameters::*const number : NUMBERS)
        this->*number = other.*number;
    pfClip16ToLinear = other.pfClip16ToLinear;
    pusLinearToClip16 = other.pusLinearToClip16;
    pfClip8ToLinear = other.pfClip8ToLinear;
    pucLinearToClip8 = other.pucLinearToClip8;
}

bool ColourspaceParameters::equals(ColourspaceParameters const & other) const {
    for (float ColourspaceParameters::*const number : NUMBERS)
        if (!(this->*number == other.*number))
            return false;
    return colourspace == other.colourspace && floatFormat == other.floatFormat &&
           eightBitFormat == other.eightBitFormat && nativePixelType == other.nativePixelType;
}

bool ColourspaceParameters::bConversionRequired() const {
    return std::fabs(1.0 - static_cast<double>(gamma)) > 1e-6 || colourspace == VX_COLORSPACE_FILM_LOG ||
           colourspace == VX_COLORSPACE_FIXED_LOG || floatFormat == VX_TRUE;
}

void ColourspaceParameters::generateLUTs() {
    halfToLinear32LUT_.clear();
    clip16ToLinear16LUT_.clear();
    linear16ToClip16LUT_.clear();
    clip8ToLinear16LUT_.clear();
    linear16ToClip8LUT_.clear();
    pfClip16ToLinear.clear();
    pusLinearToClip16.clear();
    pfClip8ToLinear.clear();
    pucLinearToClip8.clear();
    if (!bConversionRequired())
        return;

    fillForward(pfClip8ToLinear.allocate(), BITS8, *this);
    TwoSegmentLookup lookup{fLow8Scale, fLow8Offset, fSplit8, fHigh8Scale, fHigh8Offset};
    lookup = fillTwoSegment(pucLinearToClip8.allocate(), {pfClip8ToLinear, BITS8}, *this, lookup);
    fLow8Scale = lookup.lowScale;
    fLow8Offset = lookup.lowOffset;
    fSplit8 = lookup.split;
    fHigh8Scale = lookup.highScale;
    fHigh8Offset = lookup.highOffset;

    fillForward(pfClip16ToLinear.allocate(), BITS16, *this);
    lookup = {fLow16Scale, fLow16Offset, fSplit16, fHigh16Scale, fHigh16Offset};
    lookup = fillTwoSegment(pusLinearToClip16.allocate(), {pfClip16ToLinear, BITS16}, *this, lookup);
    fLow16Scale = lookup.lowScale;
    fLow16Offset = lookup.lowOffset;
    fSplit16 = lookup.split;
    fHigh16Scale = lookup.highScale;
    fHigh16Offset = lookup.highOffset;
}

QVector<float> const & ColourspaceParameters::halfToLinear32LUT() const {
    return onDemand(halfToLinear32LUT_, LUTSIZE16,
                    [this](float * table) { LookupTable::fillHalfToLinear(table, gamma); });
}

QVector<unsigned short> const & ColourspaceParameters::clip16ToLinear16LUT() const {
    return onDemand(clip16ToLinear16LUT_, LUTSIZE16,
                    [this](unsigned short * table) { fillForward(table, BITS16, *this); });
}

QVector<unsigned short> const & ColourspaceParameters::linear16ToClip16LUT() const {
    return onDemand(linear16ToClip16LUT_, LUTSIZE16, [this](unsigned short * table) { fillInverse(table, *this); });
}

QVector<unsigned short> const & ColourspaceParameters::clip8ToLinear16LUT() const {
    return onDemand(clip8ToLinear16LUT_, LUTSIZE8,
                    [this](unsigned short * table) { fillForward(table, BITS8, *this); });
}

QVector<unsigned char> const & ColourspaceParameters::linear16ToClip8LUT() const {
    return onDemand(linear16ToClip8LUT_, LUTSIZE16, [this](unsigned char * table) { fillInverse(table, *this); });
}

void ColourspaceParameters::setCustomLinear16ToClip8LUT(QVector<unsigned char> const & table) {
    linear16ToClip8LUT_ = table;
    linear16ToClip8LUT_.detach();
}

} // namespace VX
