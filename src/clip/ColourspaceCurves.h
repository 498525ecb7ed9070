#pragma once

#include <cmath>

/// The curves between code values and linear light, as pure functions of plain numbers. Codes are on the scale of 1024
/// (10 bits), whatever the depth of a file.
///
/// Each curve comes in two halves around the one expensive step, a power or a logarithm, so that a table can bound that
/// step and still go through the very same arithmetic. What is float here is single precision by law: tables made
/// elsewhere agree to the bit only if each rounding is where it stands.
namespace VX {

/// 10 to the power of `decades`, by the C library's pow. A compiler that sees the base puts another function in its
/// place (exp10), which rounds differently.
double powerOfTen(double decades);

/// How film codes stand for light.
struct FilmLogSettings {
    float offset = 0.0f;           ///< Codes; added to the codes that a table is made for.
    float referenceWhite = 685.0f; ///< The code of full light; held to 0 through 1024.
    float referenceBlack = 95.0f;  ///< The code of no light; held to 1 below white, then to 0 through 1024.
    float gamma = 1.0f;            ///< Of the film. 0 gives infinities and is not refused.
    float softClip = 0.0f;         ///< Codes below white from which highlights roll off; negative counts as 0.
};

/// The film log curve of some settings, with linear values on a scale where `top` is full light.
///
/// Below the knee, linear = 10^((code - white) 0.002 / gamma) gain - lift, which is 0 at black and top at white.
/// Above it, linear = (code - kneeCode)^softPower softScale + kneeLinear, which reaches top five times the soft clip
/// above the knee.
struct FilmLogCurve {
    /// Where the knee lies while the soft clip is 0.
    enum class WithoutSoftClip {
        KneeAtWhite, ///< All codes above white are full light.
        NoKnee,      ///< The logarithm goes on; above code 1024 the curve leaves every range.
    };

    FilmLogCurve(FilmLogSettings const & settings, float top, WithoutSoftClip withoutSoftClip);

    double distanceFromWhite(double code) const { return code - static_cast<double>(white); }
    /// The powers of ten that a distance in codes spans.
    double decades(double distance) const { return distance * DECADES_OF_A_CODE / static_cast<double>(gamma); }
    double linearFromPower(double power) const { return power * static_cast<double>(gain) - static_cast<double>(lift); }
    double distanceFromKnee(double code) const { return code - static_cast<double>(kneeCode); }
    double linearFromKneePower(double power) const { return power * softScale + kneeLinear; }

    bool isLogarithmicAt(double linear) const { return soft == 0.0f || kneeLinear >= linear; }
    /// What the code's logarithm is taken of; 1 at white.
    double relativeToWhite(double linear) const { return fromRelative(linear + static_cast<double>(lift)); }
    double fromRelative(double lifted) const { return lifted / static_cast<double>(gain); }
    float codeFromLogarithm(double logarithm) const { return static_cast<float>(logarithm * slope) + white; }
    double relativeToKnee(double linear) const { return (linear - kneeLinear) / softScale; }
    double kneeExponent() const { return 100.0 / static_cast<double>(soft); }
    float codeFromKneePower(double power) const { return static_cast<float>(power + static_cast<double>(kneeCode)); }

    /// Density of a film negative: 0.002 for each code, the single-precision number widened.
    static constexpr double DECADES_OF_A_CODE = static_cast<double>(0.002f);

    float white;
    float black;
    float gamma;
    float soft;
    float gain;
    float lift;
    float kneeCode;
    double kneeLinear;
    double softPower;
    double softScale;
    double slope; ///< Codes for each natural logarithm.
};

/// The log curve without settings: code 64 is black, code 1019 is 6.0 in linear, 955 codes span 2.15 decades.
struct FixedLogCurve {
    static constexpr double BLACK_CODE = 64.0;
    static constexpr double TOP_CODE = 1019.0;
    static constexpr double TOP_LINEAR = 6.0;
    static constexpr double CODES = 955.0;
    static constexpr double DECADES = 2.15;

    FixedLogCurve();

    double distanceFromBlack(double code) const { return code - BLACK_CODE; }
    double decades(double distance) const { return distance / CODES * DECADES; }
    double linearFromPower(double power) const { return power / range * (lift + TOP_LINEAR) - lift; }
    /// Goes on below black, where it is negative, and above the top.
    double linear(double code) const { return linearFromPower(powerOfTen(decades(distanceFromBlack(code)))); }
    /// 0 up to black, 6 above the top.
    double clampedLinear(double code) const {
        return code <= BLACK_CODE ? 0.0 : code > TOP_CODE ? TOP_LINEAR : linear(code);
    }

    /// What the code's logarithm to base 10 is taken of; 1 at black.
    double relativeToBlack(double lifted) const { return lifted / (lift + TOP_LINEAR) * range; }
    double codeFromLogarithm(double logarithm) const { return logarithm / DECADES * CODES + BLACK_CODE; }
    static double clampedCode(double code) {
        return code < BLACK_CODE ? BLACK_CODE : code > TOP_CODE ? TOP_CODE : code;
    }

    double range; ///< 10^2.15
    double lift;  ///< 6 / (10^2.15 - 1)
};

} // namespace VX
