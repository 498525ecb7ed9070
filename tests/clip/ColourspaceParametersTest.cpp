#include "clip/ColourspaceParameters.h"

#include "clip/LookupTableHelperMethods.h"
#include "geometry/gandalf/ErrorTrace.h"

#include <gtest/gtest.h>

#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <vector>

namespace {

using VX::ColourspaceParameters;

/// In a table of 16 bits.
constexpr qsizetype ENTRIES_OF_A_CODE = 64;

ColourspaceParameters parametersOf(VX_COLORSPACE colourspace, float gamma = 1.0f) {
    ColourspaceParameters p;
    p.colourspace = colourspace;
    p.gamma = gamma;
    return p;
}

template <class Table>
bool allZero(Table const & table) {
    return std::all_of(table.begin(), table.end(), [](auto entry) { return entry == 0; });
}

TEST(ColourspaceParameters, fresh_record_is_linear_and_needs_no_arrays) {
    ColourspaceParameters p;
    EXPECT_EQ(p.scriptName(), QString("Colorspace"));
    EXPECT_EQ(p.nativePixelType, GAN_TYPE_NONE);
    EXPECT_FALSE(p.bConversionRequired());
    p.fSplit8 = 7.0f;
    p.generateLUTs();
    EXPECT_FALSE(p.pfClip16ToLinear);
    EXPECT_FALSE(p.pusLinearToClip16);
    EXPECT_FALSE(p.pfClip8ToLinear);
    EXPECT_FALSE(p.pucLinearToClip8);
    EXPECT_EQ(p.fSplit8, 7.0f) << "the numbers of the lookups stay";
}

TEST(ColourspaceParameters, set_itself_writes_and_takes_no_line) {
    ColourspaceParameters p;
    QString text;
    QTextStream stream(&text);
    EXPECT_TRUE(p.bStreamOut(stream, "x.", true));
    stream.flush();
    EXPECT_TRUE(text.isEmpty());
    EXPECT_FALSE(p.bStreamIn("Gamma.value=2", Kyn::StreamVersion(Kyn::StreamVersion::anyViewList)));
    EXPECT_EQ(p.gamma, 1.0f);
}

struct Requirement {
    char const * name;
    std::function<void(ColourspaceParameters &)> change;
    bool bRequired;
};

class ConversionRequired : public testing::TestWithParam<Requirement> {};

TEST_P(ConversionRequired, follows_gamma_colourspace_and_float_format) {
    ColourspaceParameters p;
    GetParam().change(p);
    EXPECT_EQ(p.bConversionRequired(), GetParam().bRequired);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, ConversionRequired,
    testing::Values(Requirement{"gamma_within_tolerance", [](auto & p) { p.gamma = 1.0000005f; }, false},
                    Requirement{"gamma_below_within_tolerance", [](auto & p) { p.gamma = 0.9999995f; }, false},
                    Requirement{"gamma_off", [](auto & p) { p.gamma = 1.00001f; }, true},
                    Requirement{"gamma_not_a_number", [](auto & p) { p.gamma = std::nanf(""); }, false},
                    Requirement{"film_log", [](auto & p) { p.colourspace = VX_COLORSPACE_FILM_LOG; }, true},
                    Requirement{"fixed_log", [](auto & p) { p.colourspace = VX_COLORSPACE_FIXED_LOG; }, true},
                    Requirement{"unknown_colourspace", [](auto & p) { p.colourspace = VX_COLORSPACE(3); }, false},
                    Requirement{"float_format", [](auto & p) { p.floatFormat = VX_TRUE; }, true},
                    Requirement{"float_format_neither_yes_nor_no", [](auto & p) { p.floatFormat = VX_BOOL(2); }, false},
                    Requirement{"eight_bit_format", [](auto & p) { p.eightBitFormat = VX_TRUE; }, false}),
    [](auto const & test) { return test.param.name; });

TEST(ColourspaceParameters, unknown_colourspace_gives_zeros_at_full_size) {
    ColourspaceParameters p = parametersOf(VX_COLORSPACE(3), 2.0f);
    EXPECT_EQ(p.clip16ToLinear16LUT().size(), 65536);
    EXPECT_EQ(p.linear16ToClip16LUT().size(), 65536);
    EXPECT_EQ(p.clip8ToLinear16LUT().size(), 256);
    EXPECT_EQ(p.linear16ToClip8LUT().size(), 65536);
    EXPECT_TRUE(allZero(p.clip16ToLinear16LUT()));
    EXPECT_TRUE(allZero(p.linear16ToClip16LUT()));
    EXPECT_TRUE(allZero(p.clip8ToLinear16LUT()));
    EXPECT_TRUE(allZero(p.linear16ToClip8LUT()));
    p.fSplit16 = 7.0f;
    p.generateLUTs();
    ASSERT_TRUE(p.pfClip16ToLinear);
    EXPECT_EQ(p.pfClip16ToLinear[65535], 0.0f);
    EXPECT_EQ(p.fSplit16, 7.0f);
}

TEST(ColourspaceParameters, film_log_is_flat_from_black_down_and_from_white_up) {
    ColourspaceParameters const p = parametersOf(VX_COLORSPACE_FILM_LOG);
    QVector<unsigned short> const & table = p.clip16ToLinear16LUT();
    for (int i = 0; i <= 95 * 64; ++i)
        ASSERT_EQ(table[i], 0) << i;
    EXPECT_GT(table[96 * ENTRIES_OF_A_CODE], 0);
    EXPECT_LT(table[684 * ENTRIES_OF_A_CODE], 65535);
    for (int i = 685 * 64; i < 65536; ++i)
        ASSERT_EQ(table[i], 65535) << i;
}

TEST(ColourspaceParameters, float_film_log_rises_through_black_and_white) {
    ColourspaceParameters p = parametersOf(VX_COLORSPACE_FILM_LOG);
    p.generateLUTs();
    EXPECT_LT(p.pfClip16ToLinear[0], 0.0f);
    EXPECT_NEAR(p.pfClip16ToLinear[95 * ENTRIES_OF_A_CODE], 0.0, 1e-6);
    EXPECT_NEAR(p.pfClip16ToLinear[685 * ENTRIES_OF_A_CODE], 1.0, 1e-6);
    for (int i = 1; i < 65536; ++i)
        ASSERT_GT(p.pfClip16ToLinear[i], p.pfClip16ToLinear[i - 1]) << i;
}

TEST(ColourspaceParameters, black_above_white_is_pulled_below_it) {
    ColourspaceParameters crossed = parametersOf(VX_COLORSPACE_FILM_LOG);
    crossed.referenceBlack = 900.0f;
    ColourspaceParameters beside = parametersOf(VX_COLORSPACE_FILM_LOG);
    beside.referenceBlack = 684.0f;
    EXPECT_EQ(crossed.clip16ToLinear16LUT(), beside.clip16ToLinear16LUT());
    EXPECT_EQ(crossed.linear16ToClip8LUT(), beside.linear16ToClip8LUT());
}

TEST(ColourspaceParameters, soft_clip_rolls_off_below_white_and_stays_in_range) {
    ColourspaceParameters p = parametersOf(VX_COLORSPACE_FILM_LOG);
    QVector<unsigned short> const hard = p.clip16ToLinear16LUT();
    p.softClip = 20.0f;
    p.generateLUTs();
    QVector<unsigned short> const & soft = p.clip16ToLinear16LUT();
    EXPECT_EQ(soft[664 * ENTRIES_OF_A_CODE], hard[664 * ENTRIES_OF_A_CODE]);
    EXPECT_LT(soft[700 * ENTRIES_OF_A_CODE], 65535);
    EXPECT_EQ(soft[(665 + 101) * ENTRIES_OF_A_CODE], 65535) << "five times the soft clip above the knee";
    EXPECT_TRUE(std::is_sorted(soft.begin(), soft.end()));
}

TEST(ColourspaceParameters, fixed_log_is_clamped_at_both_ends) {
    ColourspaceParameters const p = parametersOf(VX_COLORSPACE_FIXED_LOG);
    EXPECT_EQ(p.clip8ToLinear16LUT()[16], 0);
    EXPECT_GT(p.clip8ToLinear16LUT()[17], 0);
    EXPECT_EQ(p.clip8ToLinear16LUT()[255], 65535);
    EXPECT_EQ(p.linear16ToClip16LUT()[0], 64 * 64);
    EXPECT_EQ(p.linear16ToClip16LUT()[65535], 1019 * 64);
}

TEST(ColourspaceParameters, half_table_raises_only_finite_values_above_zero) {
    ColourspaceParameters const p = parametersOf(VX_COLORSPACE_FILM_LOG, 2.0f);
    QVector<float> const & table = p.halfToLinear32LUT();
    ASSERT_EQ(table.size(), 65536);
    EXPECT_EQ(table[0x3C00], 1.0f);
    EXPECT_EQ(table[0x4400], 2.0f) << "the root of 4";
    EXPECT_EQ(table[0xBC00], -1.0f);
    EXPECT_EQ(table[0xC400], -4.0f);
    EXPECT_EQ(table[0x0000], 0.0f);
    EXPECT_TRUE(std::signbit(table[0x8000]));
    EXPECT_EQ(table[0x7C00], std::numeric_limits<float>::infinity());
    EXPECT_EQ(table[0xFC00], -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(table[0x7E00]));
}

TEST(ColourspaceParameters, tables_keep_their_settings_until_generateLUTs) {
    ColourspaceParameters p = parametersOf(VX_COLORSPACE_POWER_LAW);
    unsigned short const before = p.clip16ToLinear16LUT()[1000];
    unsigned short const * const entries = p.clip16ToLinear16LUT().constData();
    p.gamma = 2.0f;
    EXPECT_EQ(p.clip16ToLinear16LUT()[1000], before);
    EXPECT_EQ(p.clip16ToLinear16LUT().constData(), entries);
    p.generateLUTs();
    EXPECT_NE(p.clip16ToLinear16LUT()[1000], before);
}

TEST(ColourspaceParameters, custom_table_stands_until_generateLUTs) {
    ColourspaceParameters p;
    QVector<unsigned char> custom(65536, 42);
    p.setCustomLinear16ToClip8LUT(custom);
    EXPECT_NE(p.linear16ToClip8LUT().constData(), custom.constData()) << "a private copy";
    custom[0] = 1;
    EXPECT_EQ(p.linear16ToClip8LUT(), QVector<unsigned char>(65536, 42));
    p.generateLUTs();
    EXPECT_EQ(p.linear16ToClip8LUT()[65535], 255);

    p.setCustomLinear16ToClip8LUT({});
    EXPECT_EQ(p.linear16ToClip8LUT()[65535], 255) << "an empty table is built";
}

ColourspaceParameters customised() {
    ColourspaceParameters p = parametersOf(VX_COLORSPACE_FILM_LOG, 0.7f);
    p.eightBitFormat = VX_TRUE;
    p.nativePixelType = GAN_TYPE_FLOAT;
    p.offset = 3.0f;
    p.generateLUTs();
    p.setCustomLinear16ToClip8LUT(QVector<unsigned char>(65536, 42));
    p.setDisplayName("Colours");
    return p;
}

TEST(ColourspaceParameters, copy_has_arrays_of_its_own_and_no_custom_table) {
    ColourspaceParameters const source = customised();
    QVector<float> const & half = source.halfToLinear32LUT();
    ColourspaceParameters const copy(source);
    EXPECT_TRUE(copy.equals(source));
    EXPECT_EQ(copy.halfToLinear32LUT().constData(), half.constData()) << "shared until written";
    ASSERT_TRUE(copy.pfClip8ToLinear);
    EXPECT_NE(static_cast<void const *>(copy.pusLinearToClip16), static_cast<void const *>(source.pusLinearToClip16));
    EXPECT_TRUE(std::equal(copy.pfClip16ToLinear + 0, copy.pfClip16ToLinear + 65536, source.pfClip16ToLinear + 0));
    EXPECT_TRUE(std::equal(copy.pusLinearToClip16 + 0, copy.pusLinearToClip16 + 65536, source.pusLinearToClip16 + 0));
    EXPECT_TRUE(std::equal(copy.pfClip8ToLinear + 0, copy.pfClip8ToLinear + 256, source.pfClip8ToLinear + 0));
    EXPECT_TRUE(std::equal(copy.pucLinearToClip8 + 0, copy.pucLinearToClip8 + 65536, source.pucLinearToClip8 + 0));
    EXPECT_NE(copy.linear16ToClip8LUT()[65535], 42);
    EXPECT_EQ(copy.displayName(), QString("Colorspace"));

    ColourspaceParameters const bare(ColourspaceParameters{});
    EXPECT_FALSE(bare.pfClip16ToLinear);
}

TEST(ColourspaceParameters, assignment_takes_everything_and_frees_what_the_source_lacks) {
    ColourspaceParameters source = customised();
    ColourspaceParameters p;
    p = source;
    EXPECT_TRUE(p.equals(source));
    EXPECT_EQ(p.linear16ToClip8LUT()[65535], 42);
    EXPECT_EQ(p.displayName(), QString("Colours"));
    ASSERT_TRUE(p.pucLinearToClip8);
    unsigned char const * const entries = p.pucLinearToClip8;

    source.gamma = 1.3f;
    source.generateLUTs();
    p = source;
    EXPECT_EQ(static_cast<unsigned char const *>(p.pucLinearToClip8), entries) << "memory is used again";
    EXPECT_EQ(p.pucLinearToClip8[65535], source.pucLinearToClip8[65535]);

    ColourspaceParameters & same = p;
    p = same;
    EXPECT_EQ(p.pucLinearToClip8[65535], source.pucLinearToClip8[65535]);

    p = ColourspaceParameters();
    EXPECT_FALSE(p.pfClip16ToLinear);
    EXPECT_FALSE(p.pucLinearToClip8);
    EXPECT_EQ(p.linear16ToClip8LUT()[65535], 255);
}

TEST(ColourspaceParameters, equals_sees_each_setting_and_each_number_of_the_lookups) {
    ColourspaceParameters const fresh;
    std::vector<std::function<void(ColourspaceParameters &)>> const changes = {
        [](auto & p) { p.colourspace = VX_COLORSPACE_FILM_LOG; },
        [](auto & p) { p.floatFormat = VX_TRUE; },
        [](auto & p) { p.eightBitFormat = VX_TRUE; },
        [](auto & p) { p.nativePixelType = GAN_TYPE_FLOAT; },
        [](auto & p) { p.gamma = 2.0f; },
        [](auto & p) { p.offset = 1.0f; },
        [](auto & p) { p.referenceWhite = 1.0f; },
        [](auto & p) { p.referenceBlack = 1.0f; },
        [](auto & p) { p.softClip = 1.0f; },
        [](auto & p) { p.fLow16Scale = 1.0f; },
        [](auto & p) { p.fLow16Offset = 1.0f; },
        [](auto & p) { p.fSplit16 = 1.0f; },
        [](auto & p) { p.fHigh16Scale = 1.0f; },
        [](auto & p) { p.fHigh16Offset = 1.0f; },
        [](auto & p) { p.fLow8Scale = 1.0f; },
        [](auto & p) { p.fLow8Offset = 1.0f; },
        [](auto & p) { p.fSplit8 = 1.0f; },
        [](auto & p) { p.fHigh8Scale = 1.0f; },
        [](auto & p) { p.fHigh8Offset = 1.0f; },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        ColourspaceParameters p;
        changes[i](p);
        EXPECT_FALSE(p.equals(fresh)) << i;
        EXPECT_FALSE(fresh.equals(p)) << i;
        EXPECT_TRUE(p.equals(ColourspaceParameters(p))) << i;
    }
}

TEST(ColourspaceParameters, equals_compares_no_tables_and_finds_no_number_equal_to_itself) {
    ColourspaceParameters p;
    p.setCustomLinear16ToClip8LUT(QVector<unsigned char>(65536, 42));
    EXPECT_TRUE(p.equals(ColourspaceParameters()));

    ColourspaceParameters const film = parametersOf(VX_COLORSPACE_FILM_LOG);
    ColourspaceParameters generated(film);
    generated.generateLUTs();
    EXPECT_FALSE(generated.equals(film));

    p.referenceWhite = std::nanf("");
    EXPECT_FALSE(p.equals(p));
}

TEST(LookupTables, float_power_table_of_other_bits_is_refused_on_the_error_trace) {
    gan_err_flush_trace();
    float table[] = {7.0f, 7.0f};
    EXPECT_FALSE(VX::LookupTable::fillPowerForward(table, 32, 2.2f));
    EXPECT_EQ(table[0], 0.0f);
    EXPECT_EQ(table[1], 7.0f);
    ASSERT_EQ(gan_err_trace_count(), 1u);
    EXPECT_STREQ(gan_err_trace_entry(0)->routine, "CREATE_LINEAR_TO_LOG_LOOKUP");
    gan_err_flush_trace();
}

TEST(LookupTables, fixed_log_in_32_bits_wraps_at_its_top) {
    std::vector<unsigned int> table(256);
    VX::LookupTable::fillFixedLogForward(table.data(), 8);
    EXPECT_EQ(table[16], 0u);
    EXPECT_GT(table[254], 0xF0000000u);
    EXPECT_EQ(table[255], 128u) << "6.0 is 2^32 + 128";
}

TEST(LookupTables, values_beyond_an_element_wrap_and_no_number_gives_zero) {
    // (i / 255)^-1 65535 for each i.
    ColourspaceParameters const falling = parametersOf(VX_COLORSPACE_POWER_LAW, -1.0f);
    EXPECT_EQ(falling.clip8ToLinear16LUT()[255], 65535);
    EXPECT_EQ(falling.clip8ToLinear16LUT()[1], 255 * 65535 % 65536);
    EXPECT_EQ(falling.clip8ToLinear16LUT()[51], 5 * 65535 % 65536);
    EXPECT_TRUE(allZero(parametersOf(VX_COLORSPACE_POWER_LAW, std::nanf("")).clip16ToLinear16LUT()));
}

TEST(LookupTables, power_curve_that_is_flat_at_its_end_takes_the_last_step_below_the_split) {
    ColourspaceParameters p = parametersOf(VX_COLORSPACE_POWER_LAW, 1e8f);
    p.generateLUTs();
    ASSERT_EQ(p.pfClip16ToLinear[65534], 1.0f);
    EXPECT_EQ(p.fSplit16, 1.0f);
    EXPECT_EQ(p.fLow16Offset, 1.0f);
    EXPECT_TRUE(std::isinf(p.fLow16Scale)) << "one over a step of 0";
}

} // namespace
