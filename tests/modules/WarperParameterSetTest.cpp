#include "modules/WarperParameterSet.h"
#include "parameter/support/ScriptLines.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Test::PRESENT;

TEST(WarperParameterSet, weight_is_found_by_line_and_column_in_a_copy_too) {
    auto first = std::make_unique<VX_WarperParameterSet>();
    EXPECT_EQ(first->findParameter("Weight-12-3Y"), &first->weight(12, 3).y);
    VX_WarperParameterSet copy(*first);
    first.reset();
    EXPECT_EQ(copy.findParameter("Weight-16-0X"), &copy.weight(16, 0).x);
}

TEST(WarperParameterSet, point_outside_the_grid_is_refused) {
    VX_WarperParameterSet set;
    EXPECT_THROW(set.weight(17, 0), std::out_of_range);
    EXPECT_THROW(set.weight(0, 17), std::out_of_range);
    EXPECT_THROW(set.weight(0xFFFFFFFFu, 16), std::out_of_range);
    EXPECT_FALSE(set.bStreamIn("Weight-17-0X.value=1", PRESENT));
    EXPECT_FALSE(set.bStreamIn("Weight-01-2X.value=1", PRESENT));
}

} // namespace
