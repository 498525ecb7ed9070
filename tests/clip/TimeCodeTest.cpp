#include "clip/TimeCode.h"

#include "geometry/gandalf/ImageHeaderInfo.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>

namespace {

VX_TimeCode fromWord(std::uint32_t word) {
    Gan_ImageHeaderInfo header{};
    header.timeCode = word;
    return VX_TimeCode(header);
}

constexpr std::uint32_t NO_CODE = 0xFFFFFFFFu;

TEST(TimeCode, default_one_is_no_code_and_no_frame_also_through_a_header) {
    VX_TimeCode const code;
    EXPECT_FALSE(code.isValid());
    EXPECT_EQ(code.toUInt32(), NO_CODE);
    EXPECT_EQ(code.toFrames(24.0).toUInt(), 0xFFFFFFFFu);
    EXPECT_EQ(fromWord(NO_CODE).hours(), 0u);
    EXPECT_EQ(fromWord(NO_CODE).frames(), 0xFFFFFFFFu);
}

TEST(TimeCode, packed_form_reads_in_hexadecimal_as_the_code_itself) {
    for (unsigned int hours : {0u, 1u, 23u, 99u}) {
        for (unsigned int minutes = 0; minutes < 60; ++minutes) {
            unsigned int const seconds = 59 - minutes;
            unsigned int const frames = hours == 99 ? 99 : minutes % 25;
            VX_TimeCode const code(hours, minutes, seconds, frames);
            char digits[16];
            std::snprintf(digits, sizeof digits, "%02u%02u%02u%02u", hours, minutes, seconds, frames);
            ASSERT_EQ(code.toUInt32(), std::stoul(digits, nullptr, 16)) << digits;

            VX_TimeCode const back = fromWord(code.toUInt32());
            EXPECT_EQ(back.hours(), hours);
            EXPECT_EQ(back.minutes(), minutes);
            EXPECT_EQ(back.seconds(), seconds);
            EXPECT_EQ(back.frames(), frames);
        }
    }
}

TEST(TimeCode, each_field_has_its_own_limit) {
    EXPECT_TRUE(VX_TimeCode(99, 59, 59, 99).isValid());
    EXPECT_FALSE(VX_TimeCode(100, 0, 0, 0).isValid());
    EXPECT_FALSE(VX_TimeCode(0, 60, 0, 0).isValid());
    EXPECT_FALSE(VX_TimeCode(0, 0, 60, 0).isValid());
    EXPECT_FALSE(VX_TimeCode(0, 0, 0, 100).isValid());
    EXPECT_EQ(VX_TimeCode(100, 0, 0, 0).toUInt32(), NO_CODE);
    EXPECT_FALSE(VX_TimeCode(100, 0, 0, 0).toFrames(24.0).isValid());
    VX_TimeCode code;
    code.set(1, 2, 3, 400); // Nothing of it is refused or cut.
    EXPECT_FALSE(code.isValid());
    EXPECT_EQ(code.frames(), 400u);
}

TEST(TimeCode, digits_of_a_header_may_exceed_nine_but_not_the_limits) {
    EXPECT_EQ(fromWord(0x0A00000Fu).toUInt32(), 0x10000015u);
    for (std::uint32_t const word : {0x99600000u, 0x00006000u, 0xA0000000u, 0x000000A0u, 0xFFFFFFFEu}) {
        EXPECT_FALSE(fromWord(word).isValid()) << std::hex << word;
        EXPECT_EQ(fromWord(word).hours(), 0u) << std::hex << word;
    }
}

TEST(TimeCode, frame_number_counts_as_a_clock_does) {
    unsigned int frame = 0;
    for (unsigned int hours = 0; hours < 24; ++hours)
        for (unsigned int minutes = 0; minutes < 60; ++minutes)
            for (unsigned int seconds = 0; seconds < 60; ++seconds, frame += 25)
                ASSERT_EQ(VX_TimeCode(hours, minutes, seconds, 24).toFrames(25.0).toUInt(), frame + 24);
}

TEST(TimeCode, rate_is_rounded_and_loses_its_sign) {
    VX_TimeCode const code(1, 2, 3, 4);
    unsigned int const seconds = 3723;
    EXPECT_EQ(code.toFrames(24.0).toUInt(), 89356u);
    EXPECT_EQ(code.toFrames(23.976).toUInt(), 24 * seconds + 4);
    EXPECT_EQ(code.toFrames(29.5).toUInt(), 30 * seconds + 4);
    EXPECT_EQ(code.toFrames(29.49).toUInt(), 29 * seconds + 4);
    EXPECT_EQ(code.toFrames(-25.0).toUInt(), 25 * seconds + 4);
    EXPECT_EQ(code.toFrames(0.0).toUInt(), 4u);
    EXPECT_EQ(code.toFrames(std::numeric_limits<double>::quiet_NaN()).toUInt(), 4u);
    EXPECT_EQ(code.toFrames(1e300).toUInt(), 0xFFFFFFFFu * seconds + 4u);
}

} // namespace
