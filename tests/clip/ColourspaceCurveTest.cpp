// The tables against the same curves found another way: in long double and in another form, by going there and back,
// and by OpenColorIO.

#include "clip/ColourspaceParameters.h"

#include <OpenColorIO/OpenColorIO.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <ostream>

namespace {

using VX::ColourspaceParameters;

struct Film {
    float gamma, white, black, offset;
};

std::ostream & operator<<(std::ostream & out, Film const & film) {
    return out << "gamma " << film.gamma << " white " << film.white << " black " << film.black << " offset "
               << film.offset;
}

ColourspaceParameters parametersOf(Film const & film) {
    ColourspaceParameters p;
    p.colourspace = VX_COLORSPACE_FILM_LOG;
    p.gamma = film.gamma;
    p.referenceWhite = film.white;
    p.referenceBlack = film.black;
    p.offset = film.offset;
    p.generateLUTs();
    return p;
}

ColourspaceParameters parametersOf(VX_COLORSPACE colourspace, float gamma) {
    ColourspaceParameters p;
    p.colourspace = colourspace;
    p.gamma = gamma;
    p.generateLUTs();
    return p;
}

/// Transmitted light between that of black and that of white.
long double filmLinear(Film const & film, long double code) {
    auto const transmission = [&](long double c) { return expl(c * 0.002L * logl(10.0L) / film.gamma); };
    return (transmission(code) - transmission(film.black)) / (transmission(film.white) - transmission(film.black));
}

/// Which entry of the two-segment tables answers for a value, to the nearest.
int entryOf8(ColourspaceParameters const & p, float x) {
    float const entry = x <= p.fSplit8 ? (x - p.fLow8Offset) * p.fLow8Scale : (x - p.fHigh8Offset) * p.fHigh8Scale;
    return static_cast<int>(std::lround(entry));
}

int entryOf16(ColourspaceParameters const & p, float x) {
    float const entry = x <= p.fSplit16 ? (x - p.fLow16Offset) * p.fLow16Scale : (x - p.fHigh16Offset) * p.fHigh16Scale;
    return static_cast<int>(std::lround(entry));
}

/// Goes from each of the first codes to linear and back. That of 16 bits comes back within the entries between two
/// samples; says the first one that the runs do not reach.
int expectCodesFound(ColourspaceParameters const & p, int codes8, int codes16, int within) {
    for (int code = 0; code < codes8; ++code) {
        int const entry = entryOf8(p, p.pfClip8ToLinear[code]);
        EXPECT_TRUE(entry >= 0 && entry < 65536) << code;
        EXPECT_NEAR(p.pucLinearToClip8[entry & 0xFFFF], code, 1);
    }
    for (int code = 0; code < codes16; ++code) {
        int const entry = entryOf16(p, p.pfClip16ToLinear[code]);
        if (entry < 0 || entry >= 65536)
            return code;
        if (std::abs(p.pusLinearToClip16[entry] - code) > within)
            ADD_FAILURE() << code << " comes back as " << p.pusLinearToClip16[entry];
    }
    return codes16;
}

class FilmLog : public testing::TestWithParam<Film> {};

INSTANTIATE_TEST_SUITE_P(Settings, FilmLog,
                         testing::Values(Film{1.0f, 685, 95, 0}, Film{0.6f, 685, 95, 0}, Film{1.7f, 940, 64, 0},
                                         Film{1.0f, 445, 95, 0}, Film{0.8f, 685.5f, 95.25f, 0},
                                         Film{1.0f, 685, 95, 16}));

TEST_P(FilmLog, code_to_linear_is_transmission_between_black_and_white) {
    ColourspaceParameters const p = parametersOf(GetParam());
    for (int i = 0; i < 65536; ++i) {
        long double const code = i / 64.0L + GetParam().offset;
        long double const light = filmLinear(GetParam(), code);
        long double const clamped = light < 0 ? 0 : light > 1 ? 1 : light;
        // Half a unit of rounding, and what the single-precision gain adds.
        ASSERT_NEAR(static_cast<double>(p.clip16ToLinear16LUT()[i]), static_cast<double>(clamped * 65535), 0.55) << i;
        if (code <= 1024) {
            double const size = std::fmax(1.0, std::fabs(static_cast<double>(light)));
            ASSERT_NEAR(static_cast<double>(p.pfClip16ToLinear[i]), static_cast<double>(light), 3e-6 * size) << i;
        }
    }
}

TEST_P(FilmLog, linear_to_code_is_undone_by_the_curve) {
    ColourspaceParameters const p = parametersOf(GetParam());
    for (int x = 0; x < 65536; ++x) {
        // The code's rounding interval holds the value, but for a hundredth of a code of single precision.
        long double const code = p.linear16ToClip16LUT()[x];
        ASSERT_LE(filmLinear(GetParam(), (code - 0.51L) / 64 + GetParam().offset) * 65535, x + 0.01L) << x;
        ASSERT_GE(filmLinear(GetParam(), (code + 0.51L) / 64 + GetParam().offset) * 65535, x - 0.01L) << x;
    }
}

TEST_P(FilmLog, codes_of_8_bits_come_back_between_black_and_white) {
    ColourspaceParameters const p = parametersOf(GetParam());
    int const first = static_cast<int>((GetParam().black - GetParam().offset) / 4) + 1;
    int const last = static_cast<int>((GetParam().white - GetParam().offset) / 4);
    for (int code = first; code <= last; ++code)
        EXPECT_EQ(p.linear16ToClip8LUT()[p.clip8ToLinear16LUT()[code]], code);
}

TEST_P(FilmLog, two_segment_lookup_finds_the_code_of_every_value) {
    // Beyond code 1024 the forward table leaves the curve. The samples lie 64 entries apart.
    int const codes = static_cast<int>(1024 - GetParam().offset);
    EXPECT_EQ(expectCodesFound(parametersOf(GetParam()), codes / 4, codes * 64, 34), codes * 64);
}

TEST(FixedLog, is_the_inverse_of_its_inverse) {
    ColourspaceParameters const p = parametersOf(VX_COLORSPACE_FIXED_LOG, 1.0f);
    for (int code = 16; code < 255; ++code)
        EXPECT_EQ(p.linear16ToClip8LUT()[p.clip8ToLinear16LUT()[code]], code);
    // log10(1 + linear (10^2.15 - 1) / 6) counts the decades from black.
    for (int i = 65 * 64; i <= 1019 * 64; ++i) {
        long double const linear = p.clip16ToLinear16LUT()[i] / 10922.5L;
        long double const slope = (powl(10.0L, 2.15L) - 1) / 6;
        long double const code = 64 + 955 / 2.15L * log10l(1 + linear * slope);
        long double const halfAUnit = 0.5L / 10922.5L * slope * 955 / 2.15L / logl(10.0L) / (1 + linear * slope);
        ASSERT_NEAR(static_cast<double>(code), i / 64.0, static_cast<double>(halfAUnit * 1.01L)) << i;
    }
}

class PowerLaw : public testing::TestWithParam<float> {};

INSTANTIATE_TEST_SUITE_P(Gammas, PowerLaw, testing::Values(1.0f, 1.8f, 2.2f, 2.6f, 0.4545f));

TEST_P(PowerLaw, entries_lie_on_the_curve) {
    ColourspaceParameters const p = parametersOf(VX_COLORSPACE_POWER_LAW, GetParam());
    long double const gamma = GetParam();
    for (int i = 1; i < 65536; ++i) {
        long double const x = i / 65535.0L;
        ASSERT_NEAR(static_cast<double>(p.clip16ToLinear16LUT()[i]), static_cast<double>(powl(x, 1 / gamma) * 65535),
                    0.52);
        ASSERT_NEAR(static_cast<double>(p.linear16ToClip16LUT()[i]), static_cast<double>(powl(x, gamma) * 65535), 0.52);
    }
}

// Where the curve starts flat, the runs of 16 bits end long before full light.
TEST_P(PowerLaw, two_segment_lookup_finds_the_code_of_every_value_that_its_runs_reach) {
    ColourspaceParameters p = parametersOf(VX_COLORSPACE_POWER_LAW, GetParam());
    p.floatFormat = VX_TRUE;
    p.generateLUTs();
    int const reached = expectCodesFound(p, 256, 65536, 9); // The samples lie 8 entries apart.
    EXPECT_EQ(reached == 65536, GetParam() >= 1.0f) << reached;
    EXPECT_GT(reached, 9000);
}

namespace OCIO = OCIO_NAMESPACE;

/// OpenColorIO's log curve of film scans, on codes over 1023.
class OtherFilmLog {
public:
    explicit OtherFilmLog(Film const & film) {
        QString const path = folder_.filePath("film.ctf");
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<ProcessList id=\"film\" version=\"1.3\">\n"
                           "<Log inBitDepth=\"32f\" outBitDepth=\"32f\" style=\"logToLin\">\n"
                           "<LogParams gamma=\"%1\" refWhite=\"%2\" refBlack=\"%3\" highlight=\"1\" shadow=\"0\" />\n"
                           "</Log>\n"
                           "</ProcessList>\n")
                       .arg(static_cast<double>(film.gamma))
                       .arg(static_cast<double>(film.white))
                       .arg(static_cast<double>(film.black))
                       .toUtf8());
        file.close();
        auto const transform = OCIO::FileTransform::Create();
        transform->setSrc(path.toUtf8().constData());
        auto const config = OCIO::Config::CreateRaw();
        toLinear_ = config->getProcessor(transform, OCIO::TRANSFORM_DIR_FORWARD)->getDefaultCPUProcessor();
        toCode_ = config->getProcessor(transform, OCIO::TRANSFORM_DIR_INVERSE)->getDefaultCPUProcessor();
    }

    double linear(double code) const { return applied(*toLinear_, code / 1023.0); }
    double code(double linear) const { return applied(*toCode_, linear) * 1023.0; }

private:
    static double applied(OCIO::CPUProcessor const & processor, double value) {
        float pixel[3] = {static_cast<float>(value), 0.5f, 0.5f};
        processor.applyRGB(pixel);
        return static_cast<double>(pixel[0]);
    }

    QTemporaryDir folder_;
    OCIO::ConstCPUProcessorRcPtr toLinear_;
    OCIO::ConstCPUProcessorRcPtr toCode_;
};

class FilmLogOfOpenColorIO : public testing::TestWithParam<Film> {};

INSTANTIATE_TEST_SUITE_P(Settings, FilmLogOfOpenColorIO,
                         testing::Values(Film{1.0f, 685, 95, 0}, Film{0.6f, 685, 95, 0}, Film{1.7f, 940, 64, 0}));

TEST_P(FilmLogOfOpenColorIO, is_the_same_curve_both_ways) {
    OtherFilmLog const other(GetParam());
    ColourspaceParameters const p = parametersOf(GetParam());
    for (int code = 0; code < 1024; ++code) {
        double const expected = other.linear(code);
        ASSERT_NEAR(static_cast<double>(p.pfClip16ToLinear[std::ptrdiff_t(64) * code]), expected,
                    3e-5 * std::fmax(1.0, expected))
            << code;
    }
    for (int x = 0; x < 65536; x += 17)
        ASSERT_NEAR(p.linear16ToClip16LUT()[x] / 64.0, other.code(x / 65535.0), 0.02) << x;
}

} // namespace
