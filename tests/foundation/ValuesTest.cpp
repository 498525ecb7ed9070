#include "foundation/Rectangle.h"
#include "foundation/Saturation.h"
#include "foundation/VertexInfo.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <type_traits>
#include <vector>

namespace {

using VX::Colour3;
using VX::Colour4;
using VX::Rectangle;
using VX::Texcoord2;
using VX::Vector2;
using VX::VertexInfo;

template <class T>
std::vector<float> floatsOf(T const & value) {
    static_assert(std::is_trivially_copyable_v<T> && std::is_standard_layout_v<T>);
    std::vector<float> floats(sizeof(T) / sizeof(float));
    std::memcpy(floats.data(), &value, sizeof(T));
    return floats;
}

typedef std::vector<float> Floats;

TEST(Values, components_lie_in_their_stated_order) {
    EXPECT_EQ(floatsOf(Colour4(1, 2, 3, 4)), (Floats{1, 2, 3, 4}));
    EXPECT_EQ(floatsOf(Colour4(Colour3<float>{1, 2, 3}, 4)), (Floats{1, 2, 3, 4}));
    EXPECT_EQ(floatsOf(Colour4(0.5f, 1.0f)), (Floats{0.5f, 0.5f, 0.5f, 1.0f})) << "grey, and not to alpha";
    EXPECT_EQ(floatsOf(Vector2(1, 2)), (Floats{1, 2}));
    EXPECT_EQ(floatsOf(Texcoord2(1, 2)), (Floats{1, 2}));
    EXPECT_EQ(floatsOf(Rectangle{1, 2, 3, 4}), (Floats{1, 2, 3, 4}));
    EXPECT_EQ(sizeof(Colour3<unsigned char>), 3u);
}

TEST(Values, point_is_narrowed_to_single_precision) {
    Vector2 const v = QPointF(0.1, -1e-60);
    EXPECT_EQ(v.x(), 0.1f);
    EXPECT_EQ(v.y(), 0.0f);
    VertexInfo const vertex = QPointF(0.1, 2.5);
    EXPECT_EQ(vertex.position.x(), 0.1f);
    EXPECT_EQ(vertex.position.y(), 2.5f);
}

TEST(VertexInfo, lies_as_position_colour_texture) {
    VertexInfo vertex(1, 2, Colour4(3, 4, 5, 6));
    vertex.textureCoordinate = Texcoord2(7, 8);
    EXPECT_EQ(floatsOf(vertex), (Floats{1, 2, 3, 4, 5, 6, 7, 8}));
    VertexInfo assigned;
    assigned = vertex;
    EXPECT_EQ(floatsOf(assigned), floatsOf(vertex));
}

TEST(VertexInfo, texture_position_is_zero_unless_it_is_given) {
    for (VertexInfo const & vertex : {VertexInfo(), VertexInfo(1, 2), VertexInfo(QPointF(1, 2)),
                                      VertexInfo(1, 2, Colour4(0, 0, 0, 0)), VertexInfo(1, 2, 0, 0)})
        EXPECT_EQ(floatsOf(vertex.textureCoordinate), (Floats{0, 0}));
    EXPECT_EQ(floatsOf(VertexInfo(1, 2, 3, 4).textureCoordinate), (Floats{3, 4}));
    EXPECT_EQ(floatsOf(VertexInfo().position), (Floats{0, 0}));
}

TEST(Rectangle, edges_are_cut_towards_zero_and_saturate_and_the_last_ones_are_inclusive) {
    QRect const cut = Rectangle{1.9f, -0.9f, -1.9f, 1e20f};
    EXPECT_EQ(cut.left(), 1);
    EXPECT_EQ(cut.top(), 0);
    EXPECT_EQ(cut.right(), -1);
    EXPECT_EQ(cut.bottom(), std::numeric_limits<int>::max());
    QRect const frame = Rectangle{0, 0, 1920, 1080};
    EXPECT_EQ(frame.size(), QSize(1921, 1081));
}

TEST(Saturation, whole_range_of_a_type_is_reached_and_not_left) {
    using VX::detail::saturated;
    EXPECT_EQ(saturated<unsigned char>(255.9), 255);
    EXPECT_EQ(saturated<unsigned char>(-0.9), 0);
    EXPECT_EQ(saturated<unsigned int>(4294967294.9), 4294967294u);
    EXPECT_EQ(saturated<unsigned int>(4294967296.0), 4294967295u);
    EXPECT_EQ(saturated<int>(-2147483648.9), std::numeric_limits<int>::min());
    EXPECT_EQ(saturated<int>(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(saturated<long long>(9.3e18), std::numeric_limits<long long>::max());
    EXPECT_EQ(saturated<int>(-std::numeric_limits<double>::infinity()), std::numeric_limits<int>::min());
}

} // namespace
