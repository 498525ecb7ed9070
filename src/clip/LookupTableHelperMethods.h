#pragma once

#include "clip/ColourspaceCurves.h"

/// The builders of a colourspace's tables: loops over the curves of ColourspaceCurves.h.
///
/// An integer entry is its value cut to the element's width: truncated towards zero, of which the low bits stay; so a
/// value beyond the element's range wraps, and one that is no number, or beyond 64 bits, gives 0. Nothing is clamped
/// but where a builder says so. Every entry is to the bit what one pow or log for it gives, at a fraction of the cost.
///
/// `Code` is unsigned char or unsigned short: codes of 8 or 16 bits. Linear light of 16 bits is 0 to 65535. The caller
/// owns the tables and gives them the length that is named: 2^bits entries, with `bits` 8 or 16, or LINEAR_ENTRIES.
namespace VX::LookupTable {

constexpr int LINEAR_ENTRIES = 65536;

/// How float values find their entry in a table of two runs of 32768 entries each: at or below `split` it is
/// (x - lowOffset) lowScale, above it (x - highOffset) highScale.
///
/// Each run samples evenly spaced values, so a fine run can lie where the curve is steep. x is on the scale of the
/// forward float table that the runs were made from.
///
/// The runs need not reach all of that table: with 16 bits and a gamma well below 1, whose curve starts flat, they end
/// long before full light. Who reads holds the entry to the table.
struct TwoSegmentLookup {
    float lowScale = 0.0f;
    float lowOffset = 0.0f;
    float split = 0.0f;
    float highScale = 0.0f;
    float highOffset = 0.0f;
};

/// A forward float table, code to linear, of 2^bits entries.
struct ForwardTable {
    float const * entries;
    int bits;
};

/// The float of each half, by its bits (65536 entries), and of those above zero its power of 1 / gamma. Negative
/// values, zeros, infinities and NaNs are themselves.
void fillHalfToLinear(float * table, float gamma);

/// (i / (2^bits - 1))^(1 / argument) on the scale of Code, rounded; entry 0 is 0. With gamma as the argument, code to
/// linear; with 1 / gamma, linear to code.
template <class Code>
void fillPower(Code * table, int bits, float argument);
/// The same as numbers from 0 to 1, not rounded. Bits other than 8 and 16 put a failure of
/// "CREATE_LINEAR_TO_LOG_LOOKUP" on the error trace and give false, with only entry 0 written.
bool fillPowerForward(float * table, int bits, float argument);
/// Float values to codes, by their power of 1 / argument.
///
/// Of the two ends of `forward`, the finer one sets the step of its run and the split; the other run takes the slope of
/// the curve near the split.
template <class Code>
TwoSegmentLookup fillPowerTwoSegment(Code * table, ForwardTable forward, float argument);

/// Film codes to linear. Black and below is 0, above the knee at most 65535.
void fillFilmLogForward(unsigned short * table, int bits, FilmLogSettings const & settings);
/// The same as numbers, black at 0 and white at 1. Unlike the integer table it goes on falling below black, since a
/// two-segment lookup needs a table that rises everywhere. Without a soft clip there is no knee.
void fillFilmLogForward(float * table, int bits, FilmLogSettings const & settings);
/// Linear of 16 bits to film codes, 65536 entries.
template <class Code>
void fillFilmLogInverse(Code * table, FilmLogSettings const & settings);
template <class Code>
TwoSegmentLookup fillFilmLogTwoSegment(Code * table, ForwardTable forward, FilmLogSettings const & settings);

/// Codes of the fixed log curve to linear, where 65535 is 6.0. Clamped.
void fillFixedLogForward(unsigned short * table, int bits);
/// The same with 6.0 at 1, and not clamped.
void fillFixedLogForward(float * table, int bits);
/// The same in 32 bits, clamped. 6.0 would be 2^32 + 128: the entries at the top wrap to 128.
void fillFixedLogForward(unsigned int * table, int bits);
/// Linear of 16 bits, where 65535 is 6.0, to codes of the fixed log curve, 65536 entries. Clamped.
template <class Code>
void fillFixedLogInverse(Code * table);
/// Neither rounded nor clamped: codes below 0 wrap.
template <class Code>
TwoSegmentLookup fillFixedLogTwoSegment(Code * table, ForwardTable forward);

} // namespace VX::LookupTable
