#include "modules/StabilizeParameterSet.h"
#include "parameter/support/At.h"

#include <gtest/gtest.h>

#include <boost/function.hpp>

namespace {

using Test::at;

TEST(StabilizeParameterSet, without_frame_numbers_only_the_display_fails) {
    VX_StabilizeParameterSet set(nullptr, boost::function<int(void)>());
    set.firstFrameToStabilize.setValue(3, at(0));
    EXPECT_EQ(set.firstFrameToStabilize.value(at(0)), 3u);
    EXPECT_EQ(set.lastFrameToStabilize.value(at(0)), 4294967295u);
    EXPECT_THROW(set.firstFrameToStabilize.toDisplay(3, at(0)), boost::bad_function_call);
    EXPECT_THROW(set.lastFrameToStabilize.fromDisplay(3, at(0)), boost::bad_function_call);
}

TEST(StabilizeParameterSet, both_ends_of_the_range_are_shown_in_frame_numbers) {
    VX_StabilizeParameterSet const set(nullptr, [] { return 1001; });
    EXPECT_EQ(set.firstFrameToStabilize.toDisplay(0, at(0)), 1001u);
    EXPECT_EQ(set.lastFrameToStabilize.fromDisplay(1010, at(0)), 9u);
}

} // namespace
