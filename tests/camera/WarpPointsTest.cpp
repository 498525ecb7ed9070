#include "camera/WarpPoints.h"
#include "camera/FrameWarp.h"
#include "geometry/RandomLenses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace {

using namespace Lenses;
using VX::detail::InstructionSet;
using VX::detail::WarpChain;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr Gan_Matrix33 IDENTITY{1, 0, 0, 0, 1, 0, 0, 0, 1};

struct Points {
    void add(double px, double py) {
        x.push_back(px);
        y.push_back(py);
    }

    std::vector<double> x, y;
};

// What nothing carries is the very same afterwards, and that may be no number.
bool isSame(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool isNear(double a, double b) {
    return isSame(a, b) || std::fabs(a - b) <= std::max(1e-9, 1e-13 * std::fabs(b));
}

/// Both instruction sets, where the machine has them.
class WarpPoints : public testing::TestWithParam<InstructionSet> {
protected:
    void SetUp() override {
        if (!VX::detail::bHasInstructionSet(GetParam()))
            GTEST_SKIP() << "not on this machine";
    }

    // Carries the points in both forms and says how many of them stayed.
    static int expectSameAsOneByOne(WarpChain const & chain, Points const & given) {
        Points all = given;
        VX::detail::carry(chain, all.x.data(), all.y.data(), all.x.size(), GetParam());
        int stayed = 0;
        for (std::size_t i = 0; i < given.x.size(); ++i) {
            double x = given.x[i];
            double y = given.y[i];
            VX::detail::carry(chain, x, y);
            bool const bStayed = isSame(x, given.x[i]) && isSame(y, given.y[i]);
            stayed += bStayed ? 1 : 0;
            bool const bAgrees =
                bStayed ? isSame(all.x[i], x) && isSame(all.y[i], y) : isNear(all.x[i], x) && isNear(all.y[i], y);
            EXPECT_TRUE(bAgrees) << i << ": " << given.x[i] << ' ' << given.y[i] << " to " << all.x[i] << ' '
                                 << all.y[i] << ", one by one to " << x << ' ' << y;
        }
        return stayed;
    }

    Gan_Matrix33 homography(double size) {
        auto const any = [&] { return random.between(-size, size); };
        return {1.0 + any(), any(), any(), any(), 1.0 + any(), any(), any(), any(), 1.0};
    }

    Points points(int count) {
        Points result;
        for (int i = 0; i < count; ++i) {
            Gan_Vector3 const point = random.imagePoint();
            result.add(point.x, point.y);
        }
        return result;
    }

    Random random{77};
};

// A sixth of the lenses each way is off; homographies reach from tame ones to such with the horizon in the picture.
TEST_P(WarpPoints, agree_with_each_point_for_every_pair_of_lenses) {
    int stayed = 0;
    int total = 0;
    for (Kind const & outKind : KINDS) {
        for (Kind const & inKind : KINDS) {
            for (int n = 0; n < 12; ++n) {
                Lens const out = random.lens(outKind);
                Lens const in = random.lens(inKind);
                Gan_Matrix33 const matrix = homography(n % 3 == 0 ? 1.5 : 0.15);
                WarpChain const chain{{n % 6 != 4, out.camera}, matrix, {n % 6 != 5, in.camera}};
                SCOPED_TRACE(std::string(outKind.name) + " to " + inKind.name + ", " + std::to_string(n));
                Points const given = points(90);
                stayed += expectSameAsOneByOne(chain, given);
                total += static_cast<int>(given.x.size());
            }
        }
    }
    EXPECT_GT(stayed, total / 50); // Both happen often.
    EXPECT_LT(stayed, total / 2);
}

TEST_P(WarpPoints, agree_up_to_the_end_of_the_branch_and_beyond) {
    for (Kind const & kind : {KINDS[1], KINDS[2], KINDS[3], KINDS[4], KINDS[5]}) {
        Lens lens;
        Lens const linear = random.lens(KINDS[0]);
        int stayed = 0;
        for (int n = 0; n < 20; ++n) {
            lens = random.lens(kind);
            lens.camera.distortion[0] = -std::fabs(lens.camera.distortion[0]) - 0.02;
            gan_camera_internalize(&lens.camera);
            Points given;
            for (int i = 0; i < 500; ++i)
                given.add(lens.camera.x0 + 0.01 * i * lens.camera.fx, lens.camera.y0);
            SCOPED_TRACE(kind.name);
            stayed += expectSameAsOneByOne({{true, lens.camera}, IDENTITY, {true, linear.camera}}, given);
            stayed += expectSameAsOneByOne({{true, linear.camera}, IDENTITY, {true, lens.camera}}, given);
        }
        EXPECT_GT(stayed, 500) << kind.name;
    }
}

TEST_P(WarpPoints, touch_as_many_as_the_count_says) {
    Lens const out = random.lens(KINDS[1]);
    Lens const in = random.lens(KINDS[4]);
    Gan_Matrix33 const matrix = homography(0.1);
    WarpChain const chain{{true, out.camera}, matrix, {true, in.camera}};
    for (std::size_t count : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 63, 64, 65, 127, 200}) {
        Points const given = points(static_cast<int>(count) + 8);
        Points all = given;
        VX::detail::carry(chain, all.x.data(), all.y.data(), count, GetParam());
        for (std::size_t i = 0; i < given.x.size(); ++i) {
            double x = given.x[i];
            double y = given.y[i];
            if (i < count)
                VX::detail::carry(chain, x, y);
            EXPECT_TRUE(isNear(all.x[i], x) && isNear(all.y[i], y)) << i << " of " << count;
        }
    }
    VX::detail::carry(chain, nullptr, nullptr, 0, GetParam());
}

TEST_P(WarpPoints, leave_what_cannot_be_carried_among_others) {
    Lens lens = random.lens(KINDS[1]);
    lens.camera.distortion[0] = -0.3;
    Gan_Camera const & c = lens.camera;
    Gan_Matrix33 const matrix{1, 0, 0, 0, 1, 0, 1, 0, -0.25}; // The line x = 0.25 of rays goes to infinity.
    Gan_Camera linear = c;
    linear.type = GAN_CAMERA_LINEAR;
    gan_camera_internalize(&linear);
    Points given;
    for (int i = 0; i < 40; ++i) {
        given.add(c.x0 + 0.01 * i * c.fx, c.y0 + 5.0);
        given.add(i % 2 ? NOT_A_NUMBER : INFINITE, 3.0);
        given.add(4.0, i % 2 ? 1e300 : -INFINITE);
        given.add(0.25 * c.zh, 7.0); // On that line where the stage is off.
    }
    EXPECT_GE(expectSameAsOneByOne({{true, c}, matrix, {true, linear}}, given), 80);  // All that are not finite.
    EXPECT_GT(expectSameAsOneByOne({{true, linear}, matrix, {true, c}}, given), 100); // And folded ones.
    EXPECT_GE(expectSameAsOneByOne({{true, linear}, matrix, {true, linear}}, given), 60);
    EXPECT_EQ(expectSameAsOneByOne({{false, linear}, matrix, {false, linear}}, given), 40);
}

// A ray that differs in its last digit differs in the result by that over the depth.
TEST_P(WarpPoints, agree_towards_the_horizon) {
    Lens const out = random.lens({"", GAN_CAMERA_RADIAL_3, 3, 0.05});
    Lens const in = random.lens(KINDS[0]);
    Gan_Camera const & c = out.camera;
    Gan_Matrix33 const matrix{1, 0, 0, 0, 1, 0, 0.7, 0.4, -0.25};
    Points given;
    for (int i = 0; i < 600; ++i) {
        double const depth = std::pow(10.0, -0.01 * i);
        double const y = random.between(-0.2, 0.2);
        auto const image = project(c, {(depth + 0.25 - 0.4 * y) / 0.7, y, 1.0});
        if (image)
            given.add(image->point.x, image->point.y);
    }
    EXPECT_GT(given.x.size(), 300u);
    EXPECT_EQ(expectSameAsOneByOne({{true, c}, matrix, {true, in.camera}}, given), 0);
}

// Nothing of the loops' own may pass where a camera is not what they take it for.
TEST_P(WarpPoints, agree_for_cameras_out_of_order) {
    Points const given = points(20);
    Gan_Matrix33 const matrix = homography(0.1);
    Gan_Camera good = random.lens(KINDS[1]).camera;
    good.distortion[0] = 0.1;
    std::vector<Gan_Camera> odd(7, good);
    odd[0] = {};                       // Never set up.
    odd[1].type = GAN_CAMERA_RADIAL_3; // Another type's name, its own functions still.
    odd[2].fx = 0.0;
    odd[3].fy = INFINITE;
    odd[4].zh = 0.0;
    odd[5].zh = NOT_A_NUMBER;
    odd[6].distortion[0] = NOT_A_NUMBER;
    for (Gan_Camera const & camera : odd) {
        SCOPED_TRACE(&camera - odd.data());
        int const all = &camera == &odd[1] ? 0 : 20;
        EXPECT_EQ(expectSameAsOneByOne({{true, camera}, matrix, {true, good}}, given), all);
        EXPECT_EQ(expectSameAsOneByOne({{true, good}, matrix, {true, camera}}, given), all);
        expectSameAsOneByOne({{false, camera}, matrix, {true, good}}, given);
        expectSameAsOneByOne({{true, good}, matrix, {false, camera}}, given);
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, WarpPoints, testing::Values(InstructionSet::BASELINE, InstructionSet::AVX2),
                         [](auto const & set) { return set.param == InstructionSet::AVX2 ? "avx2" : "baseline"; });

TEST(FrameWarpPoints, go_through_the_warp_and_back) {
    Random random(9);
    Gan_Camera const out = random.lens({"", GAN_CAMERA_RADIAL_1, 1, 0.05}).camera;
    Gan_Camera const in = random.lens({"", GAN_CAMERA_RADIAL_2_INVERSE, 2, 0.05}).camera;
    VX::FrameWarp warp;
    warp.vSetAttributes(1, 1, 1920, 1080, true, out, nullptr, {1.01, 0.02, 0.03, -0.01, 0.99, 0.02, 0.01, -0.02, 1.0},
                        true, in, nullptr);
    Points given;
    for (int i = 0; i < 101; ++i)
        given.add(19.0 * i, 10.0 * i);
    Points moved = given;
    warp.vWarpPoints(moved.x.data(), moved.y.data(), moved.x.size());
    for (std::size_t i = 0; i < given.x.size(); ++i) {
        double x = given.x[i];
        double y = given.y[i];
        warp.vWarpPoint(x, y);
        EXPECT_TRUE(isNear(moved.x[i], x) && isNear(moved.y[i], y)) << i;
        EXPECT_GT(std::hypot(x - given.x[i], y - given.y[i]), 0.1);
    }
    warp.vUnwarpPoints(moved.x.data(), moved.y.data(), moved.x.size());
    for (std::size_t i = 0; i < given.x.size(); ++i) {
        EXPECT_NEAR(moved.x[i], given.x[i], 1e-9);
        EXPECT_NEAR(moved.y[i], given.y[i], 1e-9);
    }
}

} // namespace
