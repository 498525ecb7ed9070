#include "foundation/Enumerations.h"

#include <QString>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

template <class Enumeration>
Enumeration fromBits(unsigned int bits) {
    return static_cast<Enumeration>(static_cast<std::underlying_type_t<Enumeration>>(bits));
}

template <class Enumeration>
QString textOf(Enumeration value) {
    QString text;
    QTextStream stream(&text);
    stream << value;
    stream.flush();
    return text;
}

template <class Enumeration>
Enumeration read(QString text) {
    Enumeration value{};
    QTextStream stream(&text);
    stream >> value;
    return value;
}

template <class T>
class EnumerationText : public testing::Test {};

using Enumerations =
    testing::Types<VX_BOOL, VX_BlendMode, VX_CLIP_MODE, VX_COLORSPACE, VX_FILL_ALGORITHM, VX_ILLUMINATION_MODEL,
                   VX_INTERLACE_MODE, VX_LUMINANCE_MODEL, VX_MATTE_SUBTYPE, VX_REMOVESOURCE_MODE, VX_STEREO_MODE,
                   PIXELLATION_FILTER_TYPE, _DISTORTION_ALGORITHM, _VX_CONTOUR_TYPE, _VX_MOTION_INIT, _TrackModel,
                   VX::FrameWarpType, Gan_CameraType, Gan_ImageFormat, Gan_Type>;
TYPED_TEST_SUITE(EnumerationText, Enumerations, );

TYPED_TEST(EnumerationText, any_32_bits_come_back_unchecked_from_a_plain_number) {
    for (unsigned int const bits : {0u, 1u, 13u, 99u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        auto const value = fromBits<TypeParam>(bits);
        EXPECT_EQ(read<TypeParam>(textOf(value)), value) << textOf(value).toStdString();
    }
    EXPECT_EQ(read<TypeParam>("-7"), fromBits<TypeParam>(0xFFFFFFF9u));
    EXPECT_EQ(textOf(fromBits<TypeParam>(99u)), QString("99"));
}

TYPED_TEST(EnumerationText, number_is_written_in_the_format_of_the_stream) {
    QString text;
    QTextStream stream(&text);
    stream.setIntegerBase(16);
    stream.setNumberFlags(QTextStream::ShowBase);
    stream << fromBits<TypeParam>(10u);
    stream.flush();
    EXPECT_EQ(text, QString("0xa"));
}

TYPED_TEST(EnumerationText, text_that_is_no_number_gives_zero_and_a_failed_stream) {
    QString text("Key");
    QTextStream stream(&text);
    auto value = fromBits<TypeParam>(1u);
    stream >> value;
    EXPECT_EQ(value, fromBits<TypeParam>(0u));
    EXPECT_EQ(stream.status(), QTextStream::ReadCorruptData);
}

TEST(Enumerations, top_bit_shows_by_which_integer_type_a_value_is_written) {
    EXPECT_EQ(textOf(fromBits<VX_FILL_ALGORITHM>(0xFFFFFFFFu)), QString("-1"));
    EXPECT_EQ(textOf(fromBits<VX_BlendMode>(0xFFFFFFFFu)), QString("-1"));
    EXPECT_EQ(textOf(fromBits<VX_COLORSPACE>(0xFFFFFFFFu)), QString("4294967295"));
    EXPECT_EQ(textOf(fromBits<Gan_CameraType>(0xFFFFFFFFu)), QString("4294967295"));
}

TEST(Enumerations, interlace_mode_has_a_valid_value_above_its_limit) {
    EXPECT_EQ(std::numeric_limits<VX_INTERLACE_MODE>::max(), VX_INTERLACE_MODE_PULLDOWN_LOWER_5);
    EXPECT_EQ(read<VX_INTERLACE_MODE>("13"), VX_INTERLACE_MODE_FIELDS_WITHOUT_ORDER);
}

TEST(Enumerations, no_format_and_no_type_are_one_above_their_limits) {
    EXPECT_EQ(GAN_IMAGE_FORMAT_NONE, std::numeric_limits<Gan_ImageFormat>::max() + 1u);
    EXPECT_EQ(GAN_TYPE_NONE, std::numeric_limits<Gan_Type>::max() + 1u);
    EXPECT_FALSE(std::numeric_limits<VX::FrameWarpType>::is_specialized) << "has no limit at all";
}

TEST(Enumerations, clip_mode_names_are_utf8_up_to_the_top_value) {
    EXPECT_STREQ(VX_CLIP_MODE_NAME[VX_CLIP_MODE_NO_REPEAT], "\xE4\xB8\x8D\xE9\x87\x8D\xE5\xA4\x8D");
    EXPECT_STREQ(VX_CLIP_MODE_NAME[std::numeric_limits<VX_CLIP_MODE>::max()], "Ping-pong");
}

} // namespace
