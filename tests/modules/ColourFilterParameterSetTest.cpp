#include "modules/ColourFilterParameterSet.h"
#include "parameter/support/At.h"

#include <gtest/gtest.h>

namespace {

using Test::at;

TEST(ColourFilterParameterSet, levels_are_single_precision) {
    VX_ColourFilterParameterSet const set;
    EXPECT_EQ(set.blackLuminanceLevel.dValue(at(0)), 0.100000001490116119384765625);
    EXPECT_EQ(set.whiteLuminanceLevel.dValue(at(0)), 0.89999997615814208984375);
}

TEST(ColourFilterParameterSet, the_last_fill_remembers_by_frame_what_the_switch_says_for_all) {
    VX_ColourFilterParameterSet set;
    set.applyFillOnlyInRenderedArea.setValue(true, at(3));
    set.lastApplyFillOnlyInRenderedArea.setValue(true, at(3));
    set.lastApplyFillOnlyInRenderedArea.setValue(false, at(4));
    EXPECT_TRUE(set.applyFillOnlyInRenderedArea.value(at(4)));
    EXPECT_TRUE(set.lastApplyFillOnlyInRenderedArea.value(at(3)));
    EXPECT_FALSE(set.lastApplyFillOnlyInRenderedArea.value(at(4)));
}

} // namespace
