#include "parameter/FrameOffset.h"
#include "parameter/support/At.h"
#include "parameter/support/ScriptLines.h"

#include <gtest/gtest.h>

namespace {

using Test::at;
using Test::linesOf;

class FrameOffset : public testing::Test {
protected:
    int firstFrame = 100;

    KynFrameOffset made(KynFrameOffset::OffsetFunction const & offset) const {
        return {true, "Range", 0, 0, 10000, Kyn::INTERPOLATION_LINEAR, Kyn::EXTRAPOLATION_CONSTANT, offset};
    }
    KynFrameOffset made() {
        return made([this] { return firstFrame; });
    }
};

TEST_F(FrameOffset, is_asked_anew_at_each_conversion_and_wraps_in_32_bits) {
    KynFrameOffset const frame = made();
    EXPECT_EQ(frame.toDisplay(0, at(0)), 100u);
    EXPECT_EQ(frame.fromDisplay(120, at(0)), 20u);
    EXPECT_EQ(frame.fromDisplay(90, at(0)), 4294967286u);
    EXPECT_EQ(frame.toDisplay(4294967286u, at(0)), 90u);
    firstFrame = -5;
    EXPECT_EQ(frame.toDisplay(7, at(0)), 2u);
    EXPECT_EQ(frame.fromDisplay(2, at(0)), 7u);
}

TEST_F(FrameOffset, limits_and_script_are_of_the_stored_number) {
    KynFrameOffset frame = made();
    frame.setValue(20000, at(1));
    EXPECT_EQ(frame.value(at(1)), 10000u);
    EXPECT_EQ(frame.toDisplay(frame.value(at(1)), at(1)), 10100u);
    EXPECT_TRUE(linesOf(frame).join('\n').contains("Key( 1, 10000, "));
}

TEST_F(FrameOffset, copies_take_the_function_along) {
    KynFrameOffset const frame = made();
    KynFrameOffset const copy(frame);
    KynFrameOffset assigned = made([] { return 1; });
    KynFrameOffset taken = made([] { return 1; });
    assigned = frame;
    taken.assignFrom(frame);
    firstFrame = 3;
    for (KynFrameOffset const * one :
         {&copy, static_cast<KynFrameOffset const *>(&assigned), static_cast<KynFrameOffset const *>(&taken)}) {
        EXPECT_EQ(one->toDisplay(1, at(0)), 4u);
        EXPECT_EQ(one->scriptName(), "Range");
    }
}

TEST_F(FrameOffset, of_a_plain_number_takes_the_values_and_keeps_the_function) {
    KynFrameOffset frame = made();
    Kyn::NumericParameter<unsigned int> const plain(true, "Plain", 4, 0, 9, Kyn::INTERPOLATION_LINEAR,
                                                    Kyn::EXTRAPOLATION_CONSTANT);
    frame.assignFrom(plain);
    EXPECT_EQ(frame.toDisplay(frame.value(at(0)), at(0)), 104u);
    EXPECT_EQ(frame.maximum(), 9u);
}

TEST_F(FrameOffset, without_a_function_throws_at_the_first_conversion) {
    KynFrameOffset const frame = made(KynFrameOffset::OffsetFunction());
    EXPECT_EQ(frame.value(at(0)), 0u);
    try {
        frame.toDisplay(0, at(0));
        ADD_FAILURE();
    } catch (boost::bad_function_call const & error) {
        EXPECT_STREQ(error.what(), "call to empty boost::function");
    }
}

} // namespace
