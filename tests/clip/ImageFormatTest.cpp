#include "clip/ImageFormat.h"
#include "clip/BaseClipInfo.h"
#include "clip/InterlaceMode.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <tuple>

namespace {

using VX::FilmType;
using VX::ImageFormat;

VX_INTERLACE_MODE mode(int number) {
    return static_cast<VX_INTERLACE_MODE>(number);
}

/// The mode's answers, which a clip of that mode gives too.
std::string answersFor(int number) {
    VX_INTERLACE_MODE const m = mode(number);
    VX_BaseClipInfo clip;
    clip.interlaceMode = m;
    std::string answers;
    for (auto const & [letter, answer, ofClip] : {std::tuple('i', VX::bIsInterlaced(m), clip.bIsInterlaced()),
                                                  std::tuple('p', VX::bIs32Pulldown(m), clip.bIs32Pulldown()),
                                                  std::tuple('u', VX::bIsUpperFieldFirst(m), clip.bIsUpperFieldFirst()),
                                                  std::tuple('l', VX::bIsLowerFieldFirst(m), clip.bIsLowerFieldFirst()),
                                                  std::tuple('f', VX::bHasFields(m), clip.bHasFields())}) {
        answers += answer ? letter : '-';
        EXPECT_EQ(ofClip, answer) << letter;
    }
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
    // Fields without an order, and numbers that are no mode.
    for (int const number : {13, 14, -1, std::numeric_limits<int>::max()})
        EXPECT_EQ(answersFor(number), "----f") << number;
}

TEST(ImageFormat, both_sides_must_be_at_least_one) {
    EXPECT_EQ(ImageFormat().size, QSize(-1, -1));
    EXPECT_FALSE(ImageFormat().isValid());
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
