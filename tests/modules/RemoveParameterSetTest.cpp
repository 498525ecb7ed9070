#include "modules/RemoveParameterSet.h"
#include "parameter/support/At.h"
#include "parameter/support/ScriptLines.h"

#include <gtest/gtest.h>

namespace {

using Test::at;
using Test::PRESENT;
using Test::scriptOf;

int firstFrame = 0;
int offset() {
    return firstFrame;
}

TEST(RemoveParameterSet, range_is_shown_in_the_numbers_that_the_clip_has_at_the_moment) {
    VX_RemoveParameterSet set(nullptr, offset);
    firstFrame = 100;
    EXPECT_EQ(set.inputRangeMin.toDisplay(0, at(0)), 100u);
    EXPECT_EQ(set.inputRangeMin.fromDisplay(90, at(0)), 4294967286u);
    firstFrame = -5;
    EXPECT_EQ(set.inputRangeMin.toDisplay(7, at(0)), 2u);
    // The open end is a stored number as any other: it wraps when it is shown.
    EXPECT_EQ(set.inputRangeMax.value(at(0)), 4294967295u);
    EXPECT_EQ(set.inputRangeMax.toDisplay(set.inputRangeMax.value(at(0)), at(0)), 4294967290u);
}

TEST(RemoveParameterSet, copies_take_the_frame_numbers_along) {
    VX_RemoveParameterSet const set(nullptr, offset);
    VX_RemoveParameterSet const copy(set);
    VX_RemoveParameterSet assigned(nullptr, [] { return 5; });
    assigned = set;
    VX_RemoveParameterSet const copyOfAssigned(assigned);
    firstFrame = 12;
    EXPECT_EQ(copy.inputRangeMax.toDisplay(1, at(0)), 13u);
    EXPECT_EQ(assigned.inputRangeMax.toDisplay(1, at(0)), 13u);
    EXPECT_EQ(copyOfAssigned.inputRangeMax.toDisplay(1, at(0)), 13u);
}

TEST(RemoveParameterSet, not_set_stands_outside_script_and_walks_and_is_copied) {
    VX_RemoveParameterSet set(nullptr, offset);
    std::string const before = scriptOf(set);
    set.notSet.setValue(true, at(0));
    set.notSet.hide(true);
    EXPECT_EQ(scriptOf(set), before);
    EXPECT_EQ(set.notSet.displayName(), "Not Set");
    EXPECT_TRUE(set.notSet.scriptName().isEmpty());
    set.forEachParameter([&](Kyn::ParameterWithoutType * parameter) { EXPECT_NE(parameter, &set.notSet); }, true);
    EXPECT_FALSE(set.bStreamIn("Not Set.value=1", PRESENT));
    EXPECT_FALSE(set.bStreamIn(".value=1", PRESENT));

    VX_RemoveParameterSet const copy(set);
    EXPECT_TRUE(copy.notSet.value(at(0)));
    VX_RemoveParameterSet assigned(nullptr, offset);
    assigned = set;
    EXPECT_TRUE(assigned.notSet.value(at(0)));
    EXPECT_TRUE(assigned.notSet.scriptName().isEmpty());
}

} // namespace
