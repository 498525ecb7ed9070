// The tables to the bit, at settings of every kind: what is computed fast is never another number.

#include "clip/PlainTables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <ostream>
#include <random>

namespace {

using VX::ColourspaceParameters;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float ENDLESS = std::numeric_limits<float>::infinity();
constexpr float LARGEST = std::numeric_limits<float>::max();
constexpr float TINY = std::numeric_limits<float>::denorm_min();

struct Settings {
    VX_COLORSPACE colourspace;
    float gamma = 1.0f;
    float offset = 0.0f;
    float white = 685.0f;
    float black = 95.0f;
    float softClip = 0.0f;
};

std::ostream & operator<<(std::ostream & out, Settings const & s) {
    return out << "colourspace " << s.colourspace << " gamma " << s.gamma << " offset " << s.offset << " white "
               << s.white << " black " << s.black << " soft clip " << s.softClip;
}

void apply(Settings const & s, ColourspaceParameters & p) {
    p.colourspace = s.colourspace;
    p.gamma = s.gamma;
    p.offset = s.offset;
    p.referenceWhite = s.white;
    p.referenceBlack = s.black;
    p.softClip = s.softClip;
    p.floatFormat = VX_TRUE; // a conversion, whatever the gamma
}

/// The first entry that differs, or -1. Zeros differ by their sign; any NaN is as good as another.
template <class Element, class Table>
int firstDifference(std::vector<Element> const & expected, Table const & table) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
        Element const entry = table[static_cast<int>(i)];
        bool const bothNone = expected[i] != expected[i] && entry != entry;
        bool const same = expected[i] == entry &&
                          std::signbit(static_cast<double>(expected[i])) == std::signbit(static_cast<double>(entry));
        if (!same && !bothNone)
            return static_cast<int>(i);
    }
    return -1;
}

void expectExact(Settings const & settings) {
    SCOPED_TRACE(testing::PrintToString(settings));
    ColourspaceParameters p;
    apply(settings, p);
    p.generateLUTs();
    Test::PlainTables const plain(p);
    EXPECT_EQ(firstDifference(plain.halfToLinear32, p.halfToLinear32LUT()), -1);
    EXPECT_EQ(firstDifference(plain.clip16ToLinear16, p.clip16ToLinear16LUT()), -1);
    EXPECT_EQ(firstDifference(plain.linear16ToClip16, p.linear16ToClip16LUT()), -1);
    EXPECT_EQ(firstDifference(plain.clip8ToLinear16, p.clip8ToLinear16LUT()), -1);
    EXPECT_EQ(firstDifference(plain.linear16ToClip8, p.linear16ToClip8LUT()), -1);
    EXPECT_EQ(firstDifference(plain.clip16ToLinear, p.pfClip16ToLinear), -1);
    EXPECT_EQ(firstDifference(plain.clip8ToLinear, p.pfClip8ToLinear), -1);
    EXPECT_EQ(firstDifference(plain.linearToClip16, p.pusLinearToClip16), -1);
    EXPECT_EQ(firstDifference(plain.linearToClip8, p.pucLinearToClip8), -1);
    float const lookup16[] = {p.fLow16Scale, p.fLow16Offset, p.fSplit16, p.fHigh16Scale, p.fHigh16Offset};
    float const lookup8[] = {p.fLow8Scale, p.fLow8Offset, p.fSplit8, p.fHigh8Scale, p.fHigh8Offset};
    EXPECT_EQ(firstDifference(plain.lookup16, lookup16), -1);
    EXPECT_EQ(firstDifference(plain.lookup8, lookup8), -1);
}

class ColourspaceTables : public testing::TestWithParam<Settings> {};

TEST_P(ColourspaceTables, are_the_plain_loops_to_the_bit) {
    expectExact(GetParam());
}

constexpr VX_COLORSPACE POWER = VX_COLORSPACE_POWER_LAW;
constexpr VX_COLORSPACE FILM = VX_COLORSPACE_FILM_LOG;

INSTANTIATE_TEST_SUITE_P(Usual, ColourspaceTables,
                         testing::Values(Settings{POWER}, Settings{POWER, 2.2f}, Settings{POWER, 0.4545f},
                                         Settings{POWER, 2.0f}, Settings{POWER, 0.5f}, Settings{FILM},
                                         Settings{FILM, 0.6f}, Settings{FILM, 1.7f, 0, 685, 95, 20},
                                         Settings{FILM, 1.0f, 0, 685, 95, 10}, Settings{FILM, 1.0f, 64},
                                         Settings{FILM, 1.0f, -64, 700.3f, 95.7f, 33.3f},
                                         Settings{FILM, 1.0f, 10.7f, 1023, 0, 0}, Settings{VX_COLORSPACE_FIXED_LOG}));

INSTANTIATE_TEST_SUITE_P(
    WithoutSense, ColourspaceTables,
    testing::Values(Settings{POWER, 0.0f}, Settings{POWER, -0.0f}, Settings{POWER, -2.2f},
                    Settings{POWER, NOT_A_NUMBER}, Settings{POWER, ENDLESS}, Settings{POWER, 1e6f},
                    Settings{POWER, 1e-3f}, Settings{POWER, TINY}, Settings{POWER, 1e-30f}, Settings{POWER, 0.02f},
                    Settings{FILM, 0.0f}, Settings{FILM, NOT_A_NUMBER}, Settings{FILM, -1.0f},
                    Settings{FILM, -0.7f, 3, 685, 95, 25}, Settings{FILM, 0.01f}, Settings{FILM, 1e-5f},
                    Settings{FILM, 1e5f}, Settings{FILM, ENDLESS}, Settings{FILM, 1.0f, 0, 95, 685, 0},
                    Settings{FILM, 1.0f, 0, 0, 0, 0}, Settings{FILM, 1.0f, 0, -50, 95, 0},
                    Settings{FILM, 1.0f, 0, 5000, 4000, 0}, Settings{FILM, 1.0f, 0, NOT_A_NUMBER, 95, 0},
                    Settings{FILM, 1.0f, 0, 685, NOT_A_NUMBER, 0}, Settings{FILM, 1.0f, NOT_A_NUMBER},
                    Settings{FILM, 1.0f, 0, 685, 95, NOT_A_NUMBER}, Settings{FILM, 1.0f, ENDLESS, 685, 95, 10},
                    Settings{FILM, 1.0f, -ENDLESS, 685, 95, 10}, Settings{FILM, 1.0f, LARGEST},
                    Settings{FILM, 1.0f, -LARGEST}, Settings{FILM, 1.0f, 1e12f}, Settings{FILM, 1e12f, 1e18f},
                    Settings{FILM, 1.0f, 0, 685, 95, -5}, Settings{FILM, 1.0f, 0, 685, 95, 800},
                    Settings{FILM, 1.0f, 0, 685, 95, TINY}, Settings{FILM, 1.0f, 0, 685, 95, LARGEST},
                    Settings{FILM, 1.0f, 0, 685, 95, ENDLESS}, Settings{FILM, 1.0f, 700, 685, 95, 3}));

// Set VX_TABLE_SETTINGS for a longer search.
TEST(ColourspaceTables, are_the_plain_loops_to_the_bit_at_settings_drawn_at_random) {
    char const * const asked = std::getenv("VX_TABLE_SETTINGS");
    int const count = asked ? std::atoi(asked) : 40;
    std::mt19937 random(1023);
    auto const between = [&](float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(random);
    };
    for (int i = 0; i < count && !HasFailure(); ++i) {
        Settings settings{i % 3 == 0 ? POWER : FILM, std::exp(between(-2.5f, 2.5f)), between(-200.0f, 200.0f),
                          between(400.0f, 1024.0f),  between(0.0f, 500.0f),          between(-30.0f, 60.0f)};
        if (i % 2 == 0)
            settings.offset = std::trunc(settings.offset);
        expectExact(settings);
    }
}

} // namespace
