#include "modules/MatteParameterSet.h"
#include "parameter/support/At.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Test::at;

TEST(MatteParameterSet, levels_are_limited_below_and_only_made_finite_above) {
    VX_MatteParameterSet set;
    for (Kyn::NumericParameter<double> * level :
         {&set.smoothnessHueSat, &set.smoothnessRGB, &set.smoothnessAlpha, &set.thresholdForeground,
          &set.thresholdBackground, &set.edgeMatteGlobalWidth}) {
        level->setValue(-1.0, at(0));
        EXPECT_EQ(level->value(at(0)), 0.0);
        level->setValue(1e300, at(0));
        EXPECT_EQ(level->value(at(0)), 1e300);
        level->setValue(std::numeric_limits<double>::infinity(), at(0));
        EXPECT_EQ(level->value(at(0)), std::numeric_limits<double>::max());
    }
}

TEST(MatteParameterSet, constants_of_the_solver_take_any_number) {
    VX_MatteParameterSet set;
    set.lambdaFactor.setValue(-1.0, at(0));
    set.shrinkExpand.setValue(-2147483647, at(0));
    set.minNumControlPointsInSpline.setValue(50, at(0));
    EXPECT_EQ(set.lambdaFactor.value(at(0)), -1.0);
    EXPECT_EQ(set.shrinkExpand.value(at(0)), -2147483647);
    EXPECT_GT(set.minNumControlPointsInSpline.value(at(0)), set.maxNumControlPointsInSpline.value(at(0)));
}

} // namespace
