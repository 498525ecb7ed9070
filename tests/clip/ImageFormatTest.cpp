#include "clip/ImageFormat.h"
#include "clip/FilmTypeFactory.h"
#include "clip/InterlaceMode.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using VX::FilmType;
using VX::ImageFormat;

VX_INTERLACE_MODE mode(int number) {
    return static_cast<VX_INTERLACE_MODE>(number);
}

std::string answersFor(int number) {
    VX_INTERLACE_MODE const m = mode(number);
    std::string answers;
    answers += VX::bIsInterlaced(m) ? 'i' : '-';
    answers += VX::bIs32Pulldown(m) ? 'p' : '-';
    answers += VX::bIsUpperFieldFirst(m) ? 'u' : '-';
    answers += VX::bIsLowerFieldFirst(m) ? 'l' : '-';
    answers += VX::bHasFields(m) ? 'f' : '-';
    return answers;
}

TEST(InterlaceMode, groups_of_modes_are_told_apart) {
    EXPECT_EQ(answersFor(0), "-----");
    EXPECT_EQ(answersFor(1), "i-u-f");
    EXPECT_EQ(answersFor(2), "i--lf");
    for (int number = 3; number <= 7; ++number)
        EXPECT_EQ(answersFor(number), "-pu-f") << number;
    for (int number = 8; number <= 12; ++number)
        EXPECT_EQ(answersFor(number), "-p-lf") << number;
}

TEST(InterlaceMode, fields_without_order_are_fields_and_nothing_else) {
    for (int const number : {13, 14, -1, std::numeric_limits<int>::max()})
        EXPECT_EQ(answersFor(number), "----f") << number;
}

TEST(ImageFormat, default_one_has_no_size_and_is_not_valid) {
    ImageFormat const format;
    EXPECT_EQ(format.size, QSize(-1, -1));
    EXPECT_FALSE(format.isValid());
    EXPECT_FALSE(format.filmType.isValid());
    EXPECT_EQ(format.interlaceMode, VX_INTERLACE_MODE_PROGRESSIVE);
}

TEST(ImageFormat, both_sides_must_be_at_least_one) {
    FilmType const film(4.0, 3.0);
    EXPECT_TRUE(ImageFormat(QSize(1, 1), film, mode(0)).isValid());
    EXPECT_FALSE(ImageFormat(QSize(0, 1), film, mode(0)).isValid());
    EXPECT_FALSE(ImageFormat(QSize(1, 0), film, mode(0)).isValid());
}

TEST(ImageFormat, only_interlaced_modes_double_height_and_pixel_aspect) {
    FilmType const film(4.0, 3.0);
    for (int number = 0; number <= 14; ++number) {
        ImageFormat const format(QSize(720, 288), film, mode(number));
        bool const doubled = number == 1 || number == 2;
        EXPECT_EQ(format.isInterlaced(), doubled) << number;
        EXPECT_EQ(format.displaySize(), QSize(720, doubled ? 576 : 288)) << number;
        EXPECT_DOUBLE_EQ(format.par(), doubled ? 768.0 / 720.0 : 384.0 / 720.0) << number;
    }
}

TEST(ImageFormat, doubled_height_beyond_an_int_saturates) {
    ImageFormat const format(QSize(1, 0x70000000), FilmType(), mode(1));
    EXPECT_EQ(format.displaySize().height(), std::numeric_limits<int>::max());
}

} // namespace
