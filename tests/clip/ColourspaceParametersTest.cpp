#include "clip/ColourspaceParameters.h"

#include "clip/LookupTableHelperMethods.h"
#include "geometry/gandalf/ErrorTrace.h"

#include <gtest/gtest.h>

#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <functional>
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

bool bRequired(float gamma, VX_COLORSPACE colourspace, VX_BOOL floatFormat, VX_BOOL eightBitFormat) {
    ColourspaceParameters p = parametersOf(colourspace, gamma);
    p.floatFormat = floatFormat;
    p.eightBitFormat = eightBitFormat;
    return p.bConversionRequired();
}

TEST(ColourspaceParameters, conversion_is_required_by_gamma_colourspace_or_float_format) {
    for (float const gamma : {1.0f, 1.0000005f, 0.9999995f, std::nanf("")})
        EXPECT_FALSE(bRequired(gamma, VX_COLORSPACE_POWER_LAW, VX_FALSE, VX_TRUE)) << gamma;
    EXPECT_TRUE(bRequired(1.00001f, VX_COLORSPACE_POWER_LAW, VX_FALSE, VX_FALSE));
    EXPECT_TRUE(bRequired(1.0f, VX_COLORSPACE_FILM_LOG, VX_FALSE, VX_FALSE));
    EXPECT_TRUE(bRequired(1.0f, VX_COLORSPACE_FIXED_LOG, VX_FALSE, VX_FALSE));
    EXPECT_FALSE(bRequired(1.0f, VX_COLORSPACE(3), VX_FALSE, VX_FALSE));
    EXPECT_TRUE(bRequired(1.0f, VX_COLORSPACE_POWER_LAW, VX_TRUE, VX_FALSE));
    EXPECT_FALSE(bRequired(1.0f, VX_COLORSPACE_POWER_LAW, VX_BOOL(2), VX_FALSE)) << "neither yes nor no";
}

TEST(ColourspaceParameters, unknown_colourspace_gives_zeros_at_full_size) {
    ColourspaceParameters p = parametersOf(VX_COLORSPACE(3), 2.0f);
    EXPECT_EQ(p.clip16ToLinear16LUT(), QVector<unsigned short>(65536, 0));
    EXPECT_EQ(p.linear16ToClip16LUT(), QVector<unsigned short>(65536, 0));
    EXPECT_EQ(p.clip8ToLinear16LUT(), QVector<unsigned short>(256, 0));
    EXPECT_EQ(p.linear16ToClip8LUT(), QVector<unsigned char>(65536, 0));
    p.fSplit16 = 7.0f;
    p.generateLUTs();
    ASSERT_TRUE(p.pfClip16ToLinear);
    EXPECT_EQ(p.pfClip16ToLinear[65535], 0.0f);
    EXPECT_EQ(p.fSplit16, 7.0f);
}

// A lookup in two segments needs a table that rises everywhere.
TEST(ColourspaceParameters, film_log_is_flat_beyond_black_and_white_as_integers_and_rises_as_floats) {
    ColourspaceParameters p = parametersOf(VX_COLORSPACE_FILM_LOG);
    p.generateLUTs();
    QVector<unsigned short> const & integers = p.clip16ToLinear16LUT();
    EXPECT_LT(p.pfClip16ToLinear[0], 0.0f);
    for (int i = 1; i < 65536; ++i) {
        ASSERT_GT(p.pfClip16ToLinear[i], p.pfClip16ToLinear[i - 1]) << i;
        if (i <= 95 * ENTRIES_OF_A_CODE || i >= 685 * ENTRIES_OF_A_CODE) {
            ASSERT_EQ(integers[i], i < 65536 / 2 ? 0 : 65535) << i;
        }
    }
    EXPECT_GT(integers[96 * ENTRIES_OF_A_CODE], 0);
    EXPECT_LT(integers[684 * ENTRIES_OF_A_CODE], 65535);
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
    typedef ColourspaceParameters C;
    std::vector<std::function<void(C &)>> changes = {
        [](C & p) { p.colourspace = VX_COLORSPACE_FILM_LOG; },
        [](C & p) { p.floatFormat = VX_TRUE; },
        [](C & p) { p.eightBitFormat = VX_TRUE; },
        [](C & p) { p.nativePixelType = GAN_TYPE_FLOAT; },
    };
    for (auto const number : {&C::gamma, &C::offset, &C::referenceWhite, &C::referenceBlack, &C::softClip,
                              &C::fLow16Scale, &C::fLow16Offset, &C::fSplit16, &C::fHigh16Scale, &C::fHigh16Offset,
                              &C::fLow8Scale, &C::fLow8Offset, &C::fSplit8, &C::fHigh8Scale, &C::fHigh8Offset})
        changes.push_back([number](C & p) { p.*number += 1.0f; });
    for (std::size_t i = 0; i < changes.size(); ++i) {
        C p;
        changes[i](p);
        EXPECT_FALSE(p.equals(C())) << i;
        EXPECT_FALSE(C().equals(p)) << i;
        EXPECT_TRUE(p.equals(C(p))) << i;
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

} // namespace
