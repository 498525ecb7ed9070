#include "modules/LuminanceEffectsParameterSet.h"

#include <gtest/gtest.h>

namespace {

TEST(LuminanceEffectsParameterSet, highlights_alone_have_a_strength_for_alpha) {
    VX_LuminanceEffectsParameterSet const set;
    EXPECT_TRUE(set.findParameter("HighlightIntensityAlpha"));
    EXPECT_FALSE(set.findParameter("ShadowIntensityAlpha"));
}

TEST(LuminanceEffectsParameterSet, selected_colour_and_sample_are_no_clips) {
    VX_LuminanceEffectsParameterSet set;
    set.selectedColour.setStaticValue(3, Kyn::View(0));
    set.selectedSample.setStaticValue(3, Kyn::View(0));
    set.removeReferencesToClip(3, 4);
    set.removeReferencesToClip(0, 0);
    EXPECT_EQ(set.selectedColour.staticValue(Kyn::View(0)), 3u);
    EXPECT_EQ(set.selectedSample.staticValue(Kyn::View(0)), 3u);
}

} // namespace
