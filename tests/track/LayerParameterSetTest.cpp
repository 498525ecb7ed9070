#include "track/LayerParameterSet.h"
#include "parameter/support/At.h"

#include <gtest/gtest.h>

namespace {

using Test::at;

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

} // namespace
