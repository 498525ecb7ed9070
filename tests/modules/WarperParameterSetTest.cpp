#include "modules/WarperParameterSet.h"
#include "parameter/support/At.h"
#include "parameter/support/ScriptLines.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Test::at;
using Test::linesOf;
using Test::PRESENT;

TEST(WarperParameterSet, weights_stand_behind_the_rows_line_by_line_and_x_before_y) {
    VX_WarperParameterSet set;
    QStringList names;
    set.forEachParameter([&](Kyn::ParameterWithoutType * parameter) { names.append(parameter->scriptName()); }, false);
    ASSERT_EQ(names.size(), 589);
    QStringList const grid = names.mid(11);
    EXPECT_EQ(grid.mid(0, 3), QStringList({"Weight-0-0X", "Weight-0-0Y", "Weight-0-1X"}));
    EXPECT_EQ(grid.mid(33, 2), QStringList({"Weight-0-16Y", "Weight-1-0X"}));
    EXPECT_EQ(grid.mid(576), QStringList({"Weight-16-16X", "Weight-16-16Y"}));
    EXPECT_EQ(set.findParameter("Weight-12-3Y"), &set.weight(12, 3).y);
}

TEST(WarperParameterSet, point_outside_the_grid_is_refused) {
    VX_WarperParameterSet set;
    EXPECT_THROW(set.weight(17, 0), std::out_of_range);
    EXPECT_THROW(set.weight(0, 17), std::out_of_range);
    EXPECT_THROW(set.weight(0xFFFFFFFFu, 16), std::out_of_range);
    EXPECT_FALSE(set.bStreamIn("Weight-17-0X.value=1", PRESENT));
    EXPECT_FALSE(set.bStreamIn("Weight-01-2X.value=1", PRESENT));
}

TEST(WarperParameterSet, weight_is_limited_runs_straight_between_keys_and_holds_beyond) {
    VX_WarperParameterSet set;
    Kyn::NumericParameter<float> & weight = set.weight(2, 5).x;
    weight.setValue(150.0f, at(10));
    weight.setValue(-20.0f, at(20));
    EXPECT_EQ(weight.value(at(10)), 100.0f);
    EXPECT_EQ(weight.value(at(15)), 40.0f);
    EXPECT_EQ(weight.value(at(21)), -20.0f);
    EXPECT_EQ(set.weight(2, 5).y.value(at(10)), 0.0f);
}

TEST(WarperParameterSet, level_of_the_grid_is_limited_hidden_and_leaves_the_grid_as_it_is) {
    VX_WarperParameterSet set;
    qsizetype const lines = linesOf(set).size();
    set.cubicBSplineLevel.setValue(9, at(0));
    EXPECT_EQ(set.cubicBSplineLevel.value(at(0)), 4u);
    set.cubicBSplineLevel.setValue(1, at(0));
    EXPECT_EQ(linesOf(set).size(), lines);
    EXPECT_EQ(linesOf(set).filter("hidden"), QStringList("Warper.CubicBSplineLevel.hidden=1"));
}

TEST(WarperParameterSet, copy_has_a_grid_of_its_own_that_outlives_the_first) {
    auto first = std::make_unique<VX_WarperParameterSet>();
    first->weight(16, 16).y.setValue(7.0f, at(1));
    first->weight(0, 0).x.hide(true);
    VX_WarperParameterSet copy(*first);
    first->weight(16, 16).y.setValue(8.0f, at(1));
    first.reset();
    EXPECT_EQ(copy.weight(16, 16).y.value(at(1)), 7.0f);
    EXPECT_TRUE(copy.weight(0, 0).x.isHidden());
    EXPECT_EQ(copy.findParameter("Weight-16-16Y"), &copy.weight(16, 16).y);
}

} // namespace
