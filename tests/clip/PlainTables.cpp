#include "clip/PlainTables.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace Test {

namespace {

double const volatile TEN = 10.0;
float const volatile TEN_IN_SINGLE = 10.0f;
double const PER_CODE = 0.0020000000949949026;

template <class Element>
Element wrapped(double value) {
    if (!(value > -9.2e18 && value < 9.2e18))
        return 0;
    return static_cast<Element>(static_cast<std::int64_t>(value));
}

/// A half by its definition: 1 bit of sign, 5 of exponent, 10 of fraction.
float floatOfHalf(unsigned int bits) {
    int const exponent = static_cast<int>((bits >> 10) & 31u);
    unsigned int const fraction = bits & 1023u;
    if (exponent == 31) {
        std::uint32_t const wide = ((bits & 0x8000u) << 16) | 0x7F800000u | (fraction << 13);
        float value;
        std::memcpy(&value, &wide, sizeof value);
        return value;
    }
    double const size = exponent == 0 ? std::ldexp(fraction, -24) : std::ldexp(1024 + fraction, exponent - 25);
    return static_cast<float>(bits & 0x8000u ? -size : size);
}

std::vector<float> halfTable(float gamma) {
    std::vector<float> table(65536);
    for (unsigned int h = 0; h < 65536; ++h) {
        float const value = floatOfHalf(h);
        table[h] = value > 0.0f && std::isfinite(value) ? ::powf(value, 1.0f / gamma) : value;
    }
    return table;
}

template <class Element>
std::vector<Element> powerTable(int last, double top, float argument) {
    double const e = static_cast<double>(1.0f / argument);
    std::vector<Element> table(static_cast<std::size_t>(last) + 1);
    double const s = top / std::pow(static_cast<double>(last), e);
    for (int i = last; i > 0; --i)
        table[static_cast<std::size_t>(i)] = wrapped<Element>(std::pow(static_cast<double>(i), e) * s + 0.5);
    return table;
}

std::vector<float> powerFloats(int last, float argument) {
    double const e = static_cast<double>(1.0f / argument);
    std::vector<float> table(static_cast<std::size_t>(last) + 1);
    for (int i = 1; i <= last; ++i)
        table[static_cast<std::size_t>(i)] =
            static_cast<float>(std::pow(static_cast<double>(i), e) / std::pow(static_cast<double>(last), e));
    return table;
}

struct FilmLog {
    float white, black, gamma, soft, floor, gain, lift, kneeCode, offset;
    double kneeLinear, softPower, softScale, slope;

    FilmLog(VX::ColourspaceParameters const & p, float max, bool withoutKnee) : gamma(p.gamma), offset(p.offset) {
        white = p.referenceWhite;
        black = p.referenceBlack;
        if (static_cast<double>(black) + 1.0 > static_cast<double>(white))
            black = white - 1.0f;
        for (float * code : {&white, &black}) {
            if (*code < 0.0f)
                *code = 0.0f;
            if (*code > 1024.0f)
                *code = 1024.0f;
        }
        soft = p.softClip;
        if (soft < 0.0f)
            soft = 0.0f;
        floor = ::powf(TEN_IN_SINGLE, (black - white) * 0.002f / gamma);
        gain = max / (1.0f - floor);
        lift = gain - max;
        softPower = static_cast<double>(soft) / 100.0;
        slope = static_cast<double>(gamma) / (std::log(TEN) * PER_CODE);
        if (withoutKnee && soft == 0.0f) {
            kneeCode = 1024.0f;
            kneeLinear = softScale = 1e9;
        } else {
            kneeCode = white - soft;
            kneeLinear = logarithmic(static_cast<double>(kneeCode));
            softScale = (static_cast<double>(max) - kneeLinear) / std::pow(static_cast<double>(soft) * 5.0, softPower);
        }
    }

    double logarithmic(double code) const {
        double const exponent = (code - static_cast<double>(white)) * PER_CODE / static_cast<double>(gamma);
        return std::pow(TEN, exponent) * static_cast<double>(gain) - static_cast<double>(lift);
    }
    double beyondKnee(double code) const {
        return std::pow(code - static_cast<double>(kneeCode), softPower) * softScale + kneeLinear;
    }
    float inverse(double x) const {
        if (kneeLinear >= x || soft == 0.0f)
            return static_cast<float>(std::log((x + static_cast<double>(lift)) / static_cast<double>(gain)) * slope) +
                   white;
        return static_cast<float>(std::pow((x - kneeLinear) / softScale, 100.0 / static_cast<double>(soft)) +
                                  static_cast<double>(kneeCode));
    }
    float inverse(double x, float unit) const { return inverse(x) * unit - std::trunc(offset * unit); }
};

double wholeOf(double value) {
    return std::isnan(value) ? 0.0 : std::trunc(value);
}

template <class Element>
std::vector<Element> filmLogForward(VX::ColourspaceParameters const & p, int size) {
    bool const floats = std::is_floating_point_v<Element>;
    FilmLog const curve(p, floats ? 1.0f : 65535.0f, floats);
    double const step = 1024.0 / size;
    double const first = wholeOf(static_cast<double>(p.offset) / step);
    double const afterBlack = wholeOf(static_cast<double>(curve.black) / step) + 1.0 - first;
    double const lastBeforeKnee = wholeOf(static_cast<double>(curve.kneeCode) / step) - first;
    std::vector<Element> table(static_cast<std::size_t>(size));
    for (int i = 0; i < size; ++i) {
        double const code = (i + first) * step;
        Element & entry = table[static_cast<std::size_t>(i)];
        if constexpr (std::is_floating_point_v<Element>) {
            entry = static_cast<float>(i <= lastBeforeKnee ? curve.logarithmic(code) : curve.beyondKnee(code));
        } else if (i < afterBlack) {
            entry = 0;
        } else if (i <= lastBeforeKnee) {
            entry = wrapped<Element>(curve.logarithmic(code) + 0.5);
        } else {
            double const linear = curve.beyondKnee(code) + 0.5;
            entry = linear > 65535.0 ? 65535 : wrapped<Element>(linear);
        }
    }
    return table;
}

template <class Code>
std::vector<Code> filmLogInverse(VX::ColourspaceParameters const & p) {
    FilmLog const curve(p, 65535.0f, true);
    std::vector<Code> table(65536);
    for (int x = 0; x < 65536; ++x)
        table[static_cast<std::size_t>(x)] =
            wrapped<Code>(static_cast<double>(curve.inverse(x, sizeof(Code) == 1 ? 0.25f : 64.0f)) + 0.5);
    return table;
}

double fixedLinear(double code) {
    double const p = std::pow(TEN, 2.15);
    double const q = 6.0 / (p - 1.0);
    return std::pow(TEN, (code - 64.0) / 955.0 * 2.15) / p * (q + 6.0) - q;
}

double fixedCode(double linear) {
    double const p = std::pow(TEN, 2.15);
    double const q = 6.0 / (p - 1.0);
    return std::log10((linear + q) / (q + 6.0) * p) / 2.15 * 955.0 + 64.0;
}

template <class Element>
std::vector<Element> fixedForward(int size) {
    std::vector<Element> table(static_cast<std::size_t>(size));
    for (int i = 0; i < size; ++i) {
        double const code = i * (1024.0 / size);
        Element & entry = table[static_cast<std::size_t>(i)];
        if constexpr (std::is_floating_point_v<Element>)
            entry = static_cast<float>(fixedLinear(code) * 0.1666666716337204);
        else
            entry = wrapped<Element>((code <= 64.0 ? 0.0 : code > 1019.0 ? 6.0 : fixedLinear(code)) * 10922.5 + 0.5);
    }
    return table;
}

template <class Code>
std::vector<Code> fixedInverse() {
    std::vector<Code> table(65536);
    for (int i = 0; i < 65536; ++i) {
        float const input = static_cast<float>(i) * (6.0f / 65535.0f);
        double code = fixedCode(static_cast<double>(input));
        code = code < 64.0 ? 64.0 : code > 1019.0 ? 1019.0 : code;
        table[static_cast<std::size_t>(i)] = wrapped<Code>(code * (sizeof(Code) == 1 ? 0.25 : 64.0) + 0.5);
    }
    return table;
}

struct Samples {
    std::vector<float> x;
    std::vector<float> lookup;
};

void sample(Samples & samples, std::size_t run, float step, float base) {
    for (std::size_t j = 0; j < 32768; ++j)
        samples.x[run * 32768 + j] = static_cast<float>(j) * step + base;
}

Samples samplesOf(std::vector<float> const & t, bool power) {
    std::size_t const n = t.size() - 1;
    std::size_t const c = t.size() / 2;
    Samples samples{std::vector<float>(65536), std::vector<float>(5)};
    float lowStep, lowBase, highStep, highBase, split;
    if (!power) {
        std::size_t const stride = n == 255 ? 1 : 64;
        lowStep = t[stride] - t[0];
        lowBase = t[0];
        highStep = t[c + stride] - t[c];
        highBase = t[c];
        split = 32767.0f * lowStep + lowBase;
    } else if (float const m = n == 255 ? 1.0f : 8.0f; !(t[1] - t[0] > t[n] - t[n - 1])) {
        lowStep = (t[1] - t[0]) * m;
        lowBase = t[0];
        split = 32767.0f * lowStep + lowBase;
        std::size_t k = c;
        while (k > 0 && !(t[k] < split))
            --k;
        highStep = (t[k + 1] - t[k]) * m;
        highBase = t[k];
    } else {
        highStep = (t[n] - t[n - 1]) * m;
        highBase = t[n] - highStep * 32767.0f;
        split = highBase;
        std::size_t k = c;
        while (k <= n && !(t[k] > split))
            ++k;
        if (k > n) // the walk has left the table: the last step stands for the one behind it
            k = n;
        lowStep = (t[k] - t[k - 1]) * m;
        lowBase = t[k] - lowStep * 32768.0f;
    }
    sample(samples, 0, lowStep, lowBase);
    sample(samples, 1, highStep, highBase);
    samples.lookup = {1.0f / lowStep, lowBase, split, 1.0f / highStep, highBase - highStep * 32768.0f};
    return samples;
}

template <class Code>
std::vector<Code> twoSegments(VX::ColourspaceParameters const & p, std::vector<float> const & xs) {
    bool const bytes = sizeof(Code) == 1;
    std::vector<Code> table;
    FilmLog const film(p, 1.0f, true);
    double const e = static_cast<double>(1.0f / (1.0f / p.gamma));
    for (float const x : xs) {
        double const wide = static_cast<double>(x);
        if (p.colourspace == 0) {
            table.push_back(wrapped<Code>(std::pow(wide, e) * (bytes ? 255.0 : 65535.0) + 0.5));
        } else if (p.colourspace == 1) {
            float const code = film.inverse(wide, bytes ? 0.25f : 64.0f);
            table.push_back(wrapped<Code>(bytes ? static_cast<double>(code + 0.5f) : static_cast<double>(code) + 0.5));
        } else {
            table.push_back(wrapped<Code>(fixedCode(static_cast<double>(x * 6.0f)) * (bytes ? 0.25 : 64.0)));
        }
    }
    return table;
}

std::vector<float> forwardFloats(VX::ColourspaceParameters const & p, int size) {
    return p.colourspace == 0   ? powerFloats(size - 1, p.gamma)
           : p.colourspace == 1 ? filmLogForward<float>(p, size)
                                : fixedForward<float>(size);
}

} // namespace

PlainTables::PlainTables(VX::ColourspaceParameters const & p) : halfToLinear32(halfTable(p.gamma)) {
    float const inverseGamma = 1.0f / p.gamma;
    if (p.colourspace == 0) {
        clip16ToLinear16 = powerTable<unsigned short>(65535, 65535.0, p.gamma);
        linear16ToClip16 = powerTable<unsigned short>(65535, 65535.0, inverseGamma);
        clip8ToLinear16 = powerTable<unsigned short>(255, 65535.0, p.gamma);
        linear16ToClip8 = powerTable<unsigned char>(65535, 255.0, inverseGamma);
    } else if (p.colourspace == 1) {
        clip16ToLinear16 = filmLogForward<unsigned short>(p, 65536);
        linear16ToClip16 = filmLogInverse<unsigned short>(p);
        clip8ToLinear16 = filmLogForward<unsigned short>(p, 256);
        linear16ToClip8 = filmLogInverse<unsigned char>(p);
    } else {
        clip16ToLinear16 = fixedForward<unsigned short>(65536);
        linear16ToClip16 = fixedInverse<unsigned short>();
        clip8ToLinear16 = fixedForward<unsigned short>(256);
        linear16ToClip8 = fixedInverse<unsigned char>();
    }
    clip16ToLinear = forwardFloats(p, 65536);
    clip8ToLinear = forwardFloats(p, 256);
    Samples const samples16 = samplesOf(clip16ToLinear, p.colourspace == 0);
    Samples const samples8 = samplesOf(clip8ToLinear, p.colourspace == 0);
    lookup16 = samples16.lookup;
    lookup8 = samples8.lookup;
    linearToClip16 = twoSegments<unsigned short>(p, samples16.x);
    linearToClip8 = twoSegments<unsigned char>(p, samples8.x);
}

} // namespace Test
