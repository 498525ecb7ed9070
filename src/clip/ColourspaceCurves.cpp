#include "clip/ColourspaceCurves.h"

namespace VX {

namespace {

// Read at each use, so that no compiler knows the base.
double const volatile TEN = 10.0;
float const volatile TEN_IN_SINGLE = 10.0f;

constexpr float TOP_OF_CODES = 1024.0f;
constexpr double NATURAL_LOGARITHM_OF_TEN = 2.302585092994046;
constexpr double OUT_OF_REACH = 1e9;

/// NaN stays.
float heldToCodes(float code) {
    return code < 0.0f ? 0.0f : code > TOP_OF_CODES ? TOP_OF_CODES : code;
}

float blackBelowWhite(FilmLogSettings const & settings) {
    double const white = static_cast<double>(settings.referenceWhite);
    bool const above = static_cast<double>(settings.referenceBlack) + 1.0 > white;
    return above ? static_cast<float>(white - 1.0) : settings.referenceBlack;
}

float lightOfBlack(float black, float white, float gamma) {
    return ::powf(TEN_IN_SINGLE, (black - white) * 0.002f / gamma);
}

} // namespace

double powerOfTen(double decades) {
    return std::pow(TEN, decades);
}

FilmLogCurve::FilmLogCurve(FilmLogSettings const & settings, float top, WithoutSoftClip withoutSoftClip)
    : white(heldToCodes(settings.referenceWhite)),
      black(heldToCodes(blackBelowWhite(settings))),
      gamma(settings.gamma),
      soft(settings.softClip < 0.0f ? 0.0f : settings.softClip),
      gain(top / (1.0f - lightOfBlack(black, white, gamma))),
      lift(gain - top),
      kneeCode(white - soft),
      softPower(static_cast<double>(soft) / 100.0),
      slope(static_cast<double>(gamma) / (NATURAL_LOGARITHM_OF_TEN * DECADES_OF_A_CODE)) {
    if (soft == 0.0f && withoutSoftClip == WithoutSoftClip::NoKnee) {
        kneeCode = TOP_OF_CODES;
        kneeLinear = OUT_OF_REACH;
        softScale = OUT_OF_REACH;
        return;
    }
    kneeLinear = linearFromPower(powerOfTen(decades(distanceFromWhite(static_cast<double>(kneeCode)))));
    softScale = (static_cast<double>(top) - kneeLinear) / std::pow(static_cast<double>(soft) * 5.0, softPower);
}

FixedLogCurve::FixedLogCurve() : range(powerOfTen(DECADES)), lift(TOP_LINEAR / (range - 1.0)) {}

} // namespace VX
