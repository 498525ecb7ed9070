#include "geometry/gandalf/LineFeatureMap.h"
#include "geometry/gandalf/Array.h"
#include "geometry/gandalf/ErrorTrace.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

struct FreeMap {
    void operator()(Gan_LineFeatureMap * map) const { gan_line_feature_map_free(map); }
};

typedef std::unique_ptr<Gan_LineFeatureMap, FreeMap> MapPointer;

constexpr Gan_Vector2 edge[] = {{10, 20}, {30, 40}, {50, 61}};

TEST(LineFeatureMap, copy_shares_nothing_with_the_first) {
    MapPointer map(gan_line_feature_map_alloc());
    ASSERT_EQ(gan_line_feature_map_add(map.get(), edge, 3), 1);
    ASSERT_EQ(gan_line_feature_map_add(map.get(), edge, 2), 1);
    MapPointer const copy(gan_line_feature_map_copy(map.get()));
    EXPECT_EQ(gan_line_feature_map_copy(nullptr), nullptr);
    map->lines[0].points[1].x = 99;
    map.reset();
    ASSERT_EQ(copy->lines.size(), 2u);
    ASSERT_EQ(copy->lines[0].points.size(), 3u);
    EXPECT_EQ(copy->lines[0].points[1].x, 30);
    EXPECT_EQ(copy->lines[0].points[2].y, 61);
    EXPECT_EQ(copy->lines[1].points.size(), 2u);
}

TEST(LineFeatureMap, line_of_one_point_or_of_no_finite_points_is_refused) {
    MapPointer const map(gan_line_feature_map_alloc());
    gan_err_flush_trace();
    EXPECT_EQ(gan_line_feature_map_add(map.get(), edge, 1), 0);
    Gan_Vector2 const endless[] = {{0, 0}, {std::numeric_limits<double>::infinity(), 0}};
    EXPECT_EQ(gan_line_feature_map_add(map.get(), endless, 2), 0);
    EXPECT_TRUE(map->lines.empty());
    EXPECT_EQ(gan_err_trace_count(), 2u);
    gan_err_flush_trace();
}

TEST(Array, copy_takes_each_side_by_its_own_stride) {
    double const source[] = {1, 2, 3, 4, 5, 6};
    double destination[] = {0, 0, 0, 0, 0};
    gan_copy_array_d(source, 2, 3, destination, 1);
    gan_copy_array_d(source + 5, 1, 1, destination + 4, 1);
    double const expected[] = {1, 3, 5, 0, 6};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(destination[i], expected[i]);
    EXPECT_EQ(gan_sqr_ui(17) * 2, 578u);
}

} // namespace
