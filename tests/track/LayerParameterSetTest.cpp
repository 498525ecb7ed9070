#include "track/LayerParameterSet.h"
#include "parameter/support/At.h"
#include "parameter/support/ScriptLines.h"

#include <gtest/gtest.h>

namespace {

using Test::at;
using Test::linesOf;
using Test::PRESENT;

TEST(LayerParameterSet, fill_index_is_the_layers_own_and_limited_when_read) {
    EXPECT_EQ(VX_LayerParameterSet(nullptr, 12).regionFillIndex.value(at(0)), 12u);
    VX_LayerParameterSet const beyond(nullptr, 70000);
    EXPECT_EQ(beyond.regionFillIndex.value(at(0)), 65535u);
    EXPECT_EQ(beyond.regionFillIndex.defaultValue(), 70000u);
    VX_LayerParameterSet copy(beyond);
    EXPECT_EQ(copy.regionFillIndex.defaultValue(), 70000u);
    copy = VX_LayerParameterSet(nullptr, 5);
    EXPECT_EQ(copy.regionFillIndex.defaultValue(), 5u);
    EXPECT_EQ(VX_LayerParameterSet(copy).regionFillIndex.defaultValue(), 5u);
}

TEST(LayerParameterSet, has_no_selection_and_no_points_at_first) {
    VX_LayerParameterSet set(nullptr, 0);
    EXPECT_EQ(set.inPoint.value(at(0)), VX_LayerParameterSet::NO_POINT);
    EXPECT_EQ(set.outPoint.value(at(0)), VX_LayerParameterSet::NO_POINT);
    set.selectionLinkedToTrack.setValue(-2, at(0));
    EXPECT_EQ(set.selectionLinkedToTrack.value(at(0)), -1);
    EXPECT_EQ(linesOf(set).filter("In Point.value=").join(' '), "Basic.In Point.value=4294967295");
}

TEST(LayerParameterSet, only_whether_other_views_count_may_differ_between_views) {
    VX_LayerParameterSet set(nullptr, 0);
    QStringList splittable, shown;
    set.forEachParameter(
        [&](Kyn::ParameterWithoutType * parameter) {
            if (parameter->isSplittable())
                splittable << parameter->scriptName();
            if (!parameter->isHidden())
                shown << parameter->scriptName();
        },
        false);
    EXPECT_EQ(splittable, QStringList("AffectedByOtherViewKeyframes"));
    EXPECT_EQ(shown, QStringList({"Active", "AffectedByOtherViewKeyframes", "MotionBlurMatte", "Shutter angle",
                                  "Shutter phase", "Motion blur quality"}));
    set.affectedByOtherViewKeyframes.setValue(true, at(0));
    set.affectedByOtherViewKeyframes.setValue(false, at(0, 2));
    EXPECT_TRUE(set.affectedByOtherViewKeyframes.value(at(0)));
    EXPECT_FALSE(set.affectedByOtherViewKeyframes.value(at(0, 2)));
}

TEST(LayerParameterSet, reads_old_keys_and_keys_with_blanks) {
    VX_LayerParameterSet set(nullptr, 0);
    for (char const * line : {"Hidden.value=1", "Locked.value=0", "Shutter phase.value=-200"})
        EXPECT_TRUE(set.bStreamIn(line, PRESENT)) << line;
    EXPECT_EQ(set.shutterPhase.value(at(0)), VX_LayerParameterSet::SHUTTER_PHASE_MIN);
    EXPECT_TRUE(linesOf(set).filter("Locked").isEmpty());
    EXPECT_TRUE(VX_LayerParameterSet(set).bStreamIn("Hidden.value=1", PRESENT));
}

} // namespace
