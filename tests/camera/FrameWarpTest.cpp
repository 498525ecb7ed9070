#include "camera/FrameWarp.h"
#include "geometry/RandomLenses.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace {

using namespace Lenses;
using VX::FrameWarp;

Gan_Camera linearCamera(double zh = 1.0, double focal = 1.0) {
    Gan_Camera camera{};
    camera.zh = zh;
    camera.fx = camera.fy = focal;
    gan_camera_internalize(&camera);
    return camera;
}

void set(FrameWarp & warp, Gan_Camera const & out, Gan_Matrix33 const & homography, Gan_Camera const & in,
         Gan_CubicBSplineWeights * outWeights = nullptr, Gan_CubicBSplineWeights * inWeights = nullptr) {
    warp.vSetAttributes(11, -12, 1920, 1080, false, out, outWeights, homography, false, in, inWeights);
}

Gan_Matrix33 randomHomography(Random & random) {
    double const s = 0.15;
    return {1.0 + random.between(-s, s), random.between(-s, s),       random.between(-s, s),
            random.between(-s, s),       1.0 + random.between(-s, s), random.between(-s, s),
            random.between(-s, s),       random.between(-s, s),       1.0};
}

constexpr Gan_Matrix33 IDENTITY{1, 0, 0, 0, 1, 0, 0, 0, 1};
constexpr Gan_Matrix33 SINGULAR{1, 2, 3, 2, 4, 6, 7, 8, 9};

bool isSame(Gan_Matrix33 const & a, Gan_Matrix33 const & b) {
    return a.xx == b.xx && a.xy == b.xy && a.xz == b.xz && a.yx == b.yx && a.yy == b.yy && a.yz == b.yz &&
           a.zx == b.zx && a.zy == b.zy && a.zz == b.zz;
}

// Laws

class FrameWarpOfLens : public testing::TestWithParam<Kind> {
protected:
    static bool isTame(Gan_Camera const & camera, Gan_Vector3 const & ray) {
        auto const here = project(camera, ray);
        auto const axis = project(camera, {0.0, 0.0, 1.0});
        double const part = here && axis ? here->jacobian() / axis->jacobian() : 0.0;
        return part >= 0.05 && part <= 20.0;
    }

    Random random{23};
};

TEST_P(FrameWarpOfLens, unwarp_undoes_warp_on_the_frame_and_around_it) {
    int carried = 0;
    for (int n = 0; n < 400; ++n) {
        bool const bFirst = n % 2 == 0;
        Kind const & other = KINDS[static_cast<std::size_t>(n / 2) % KINDS.size()];
        Lens const out = random.lens(bFirst ? GetParam() : other);
        Lens const in = random.lens(bFirst ? other : GetParam());
        Gan_Matrix33 const homography = randomHomography(random);
        FrameWarp warp;
        set(warp, out.camera, homography, in.camera);
        for (int m = 0; m < 20; ++m) {
            Gan_Vector3 const p = random.imagePoint();
            double x = p.x;
            double y = p.y;
            warp.vWarpPoint(x, y);
            auto const ray = backproject(out.camera, p);
            if (!ray) {
                EXPECT_TRUE(x == p.x && y == p.y);
                continue;
            }
            Gan_Vector3 const moved = gan_mat33_multv3_s(&homography, &ray->point);
            auto const image = project(in.camera, moved);
            EXPECT_EQ(x, image ? image->point.x : p.x);
            EXPECT_EQ(y, image ? image->point.y : p.y);
            if (!image || !isTame(out.camera, ray->point) || !isTame(in.camera, moved))
                continue;
            ++carried;
            warp.vUnwarpPoint(x, y);
            EXPECT_NEAR(x, p.x, 1e-9);
            EXPECT_NEAR(y, p.y, 1e-9);
        }
    }
    EXPECT_GT(carried, 400 * 20 / 3);
}

INSTANTIATE_TEST_SUITE_P(Lenses, FrameWarpOfLens, testing::ValuesIn(KINDS),
                         [](auto const & kind) { return nameOf(kind.param); });

TEST(FrameWarp, forms_of_a_point_agree) {
    Random random(3);
    Lens const out = random.lens(KINDS[2]);
    Lens const in = random.lens(KINDS[1]);
    FrameWarp warp;
    set(warp, out.camera, randomHomography(random), in.camera);
    for (int n = 0; n < 100; ++n) {
        Gan_Vector3 p = random.imagePoint();
        p = {std::round(p.x * 8.0) / 8.0, std::round(p.y * 8.0) / 8.0, out.camera.zh}; // A float holds these.
        float pair[2] = {static_cast<float>(p.x), static_cast<float>(p.y)};
        float x = pair[0];
        float y = pair[1];
        Gan_Vector2 plane{p.x, p.y};
        QPointF const whole = warp(QPointF(p.x, p.y));
        warp.vWarpPoint(p);
        warp.vWarpPoint(plane);
        warp.vWarpPoint(x, y);
        warp.vWarpPoint(pair);
        EXPECT_TRUE(plane.x == p.x && plane.y == p.y && p.z == in.camera.zh);
        EXPECT_TRUE(x == static_cast<float>(p.x) && y == static_cast<float>(p.y));
        EXPECT_TRUE(pair[0] == x && pair[1] == y);
        EXPECT_EQ(whole, QPointF(std::trunc(x), std::trunc(y)));
        p = {static_cast<double>(x), static_cast<double>(y), in.camera.zh};
        warp.vUnwarpPoint(p);
        warp.vUnwarpPoint(x, y);
        EXPECT_TRUE(x == static_cast<float>(p.x) && y == static_cast<float>(p.y));
    }
}

TEST(FrameWarp, whole_pixels_are_cut_towards_zero_and_saturate) {
    FrameWarp warp;
    set(warp, linearCamera(), IDENTITY, linearCamera());
    EXPECT_EQ(warp.getPointWarped({10.9, -3.9}), QPointF(10.0, -3.0));
    EXPECT_EQ(warp({5.9999999999, -0.9999999999}), QPointF(6.0, -1.0)); // In single precision first.
    EXPECT_EQ(warp.getPointWarped({1e20, -1e20}), QPointF(2147483647.0, -2147483648.0));
    EXPECT_EQ(warp.getPointWarped({std::numeric_limits<double>::quiet_NaN(), 3.5}), QPointF(0.0, 3.0));
}

// Setting

TEST(FrameWarp, fresh_one_is_zero_and_carries_nothing) {
    FrameWarp warp;
    EXPECT_FALSE(warp.bGetUsingBackprojectionCamera() || warp.bGetUsingProjectionCamera());
    EXPECT_TRUE(isSame(*warp.pcgmat33GetHomography(), {}));
    EXPECT_EQ(warp.pstctGetProjectionWeight(), nullptr);
    double x = 3.0;
    double y = 4.0;
    warp.vWarpPoint(x, y);
    warp.vUnwarpPoint(x, y);
    EXPECT_TRUE(x == 3.0 && y == 4.0);
}

TEST(FrameWarp, singular_homography_counts_as_none_and_is_remembered) {
    FrameWarp warp;
    set(warp, linearCamera(), SINGULAR, linearCamera());
    EXPECT_TRUE(warp.bGetUsingBackprojectionCamera() && warp.bGetUsingProjectionCamera()); // Whatever was passed.
    EXPECT_EQ(warp.eGetReferenceClipID(), 11u);
    EXPECT_EQ(warp.iGetSelectionID(), -12);
    EXPECT_EQ(warp.uiGetReferenceFrameWidth(), 1920u);
    EXPECT_EQ(warp.uiGetReferenceFrameHeight(), 1080u);
    EXPECT_TRUE(isSame(*warp.pcgmat33GetHomography(), IDENTITY));
    EXPECT_TRUE(isSame(*warp.pcgmat33GetInverseHomography(), IDENTITY));
    EXPECT_TRUE(isSame(*warp.pcgmat33GetOriginalHomography(), SINGULAR));
    set(warp, linearCamera(), {1, 0, 5, 0, 1, 6, 0, 0, 1}, linearCamera());
    EXPECT_EQ(warp.pcgmat33GetInverseHomography()->xz, -5.0);
    EXPECT_EQ(warp.pcgmat33GetOriginalHomography()->yz, 6.0);
}

// A stage that is off takes the point for the ray, or the ray for the point.
TEST(FrameWarp, stage_that_is_off_still_lends_its_zh) {
    FrameWarp warp;
    set(warp, linearCamera(8.0, 2.0), {1, 0, 3, 0, 1, 0, 0, 0, 2}, linearCamera(5.0, 10.0));
    warp.vSetUsingBackprojectionCamera(false);
    double x = 4.0;
    double y = 2.0;
    warp.vWarpPoint(x, y); // (4, 2, 8) moves to (28, 2, 16).
    EXPECT_EQ(x, 17.5);
    EXPECT_EQ(y, 1.25);
    Gan_Vector3 back{x, y, 5.0};
    warp.vUnwarpPoint(back); // The ray is (1.75, 0.125, 1), which moves to (0.25, 0.125, 0.5).
    EXPECT_DOUBLE_EQ(back.x, 4.0);
    EXPECT_DOUBLE_EQ(back.y, 2.0);
    EXPECT_EQ(back.z, 8.0);
}

// Failures

TEST(FrameWarp, point_that_cannot_be_carried_comes_back_as_it_went_in) {
    Gan_Camera folding = linearCamera(960.0, 1000.0);
    folding.type = GAN_CAMERA_RADIAL_1;
    folding.distortion[0] = -1.0; // Folds at a radius of 577 pixels, which it brings to 385.
    gan_camera_internalize(&folding);
    Gan_Camera const plain = linearCamera(960.0, 1000.0);
    struct {
        char const * what;
        Gan_Camera out, in;
        double x;
    } const failures[] = {
        {"outside the first lens", folding, plain, 400.0},
        {"outside the last lens", plain, folding, 600.0},
        {"not a number", plain, plain, std::numeric_limits<double>::quiet_NaN()},
        {"cameras never set up", Gan_Camera{}, Gan_Camera{}, 1.0},
        {"no focal length", plain, linearCamera(960.0, 0.0), 1.0},
    };
    for (auto const & failure : failures) {
        Gan_Vector3 const start{failure.x, 2.0, 960.0};
        Gan_Vector3 warped = start;
        Gan_Vector3 unwarped = start;
        FrameWarp warp;
        set(warp, failure.out, IDENTITY, failure.in);
        warp.vWarpPoint(warped);
        set(warp, failure.in, IDENTITY, failure.out);
        warp.vUnwarpPoint(unwarped);
        for (Gan_Vector3 const & p : {warped, unwarped}) {
            EXPECT_TRUE(p.x == start.x || std::isnan(start.x)) << failure.what;
            EXPECT_TRUE(p.y == start.y && p.z == start.z) << failure.what;
        }
    }
    FrameWarp warp;
    set(warp, plain, {1, 0, 0, 0, 1, 0, 1, 0, -0.5}, plain);
    double x = 500.0; // Goes to infinity.
    double y = 1.0;
    warp.vWarpPoint(x, y);
    EXPECT_TRUE(x == 500.0 && y == 1.0);
}

// Lifetimes

/// A spline camera over weights that shift every ray by the same offset.
struct Spline {
    explicit Spline(double shift, Gan_CameraType eType = GAN_CAMERA_BSPLINE_INVERSE)
        : weights(std::make_unique<Gan_CubicBSplineWeights>()), camera(linearCamera(960.0, 1000.0)) {
        std::fill(std::begin(weights->element), std::end(weights->element), shift);
        camera.type = eType;
        camera.weight = weights.get();
        gan_camera_internalize(&camera);
    }

    std::unique_ptr<Gan_CubicBSplineWeights> weights;
    Gan_Camera camera;
};

/// Where the frame's axis goes: by the sum of the two cameras' shifts, for a homography of identity.
double shiftOf(FrameWarp const & warp) {
    double x = 0.0;
    double y = 0.0;
    warp.vWarpPoint(x, y);
    return x / 1000.0;
}

TEST(FrameWarp, takes_over_the_weights_it_is_given_and_fills_them) {
    Spline const spline(0.01);
    auto * const given = new Gan_CubicBSplineWeights{};
    FrameWarp warp;
    set(warp, spline.camera, IDENTITY, linearCamera(960.0, 1000.0), given);
    EXPECT_EQ(warp.pstctGetBackprojectionWeight(), given);
    EXPECT_EQ(given->element[577], 0.01);
    // Given again, it stays; without, it serves the next spline; a lens without weights lets it go.
    set(warp, warp.cgcGetBackprojectionCamera(), IDENTITY, linearCamera(960.0, 1000.0), given);
    EXPECT_EQ(warp.pstctGetBackprojectionWeight(), given);
    Spline const next(0.02);
    set(warp, next.camera, IDENTITY, linearCamera(960.0, 1000.0));
    EXPECT_EQ(warp.pstctGetBackprojectionWeight(), given);
    EXPECT_NEAR(shiftOf(warp), 0.02, 1e-12);
    Gan_Camera bare = next.camera;
    bare.weight = nullptr;
    set(warp, bare, IDENTITY, linearCamera(960.0, 1000.0)); // Without any of its own, a spline gets zeros.
    EXPECT_EQ(shiftOf(warp), 0.0);
    set(warp, linearCamera(), IDENTITY, linearCamera());
    EXPECT_EQ(warp.pstctGetBackprojectionWeight(), nullptr);
    EXPECT_EQ(warp.cgcGetBackprojectionCamera().weight, nullptr);
}

TEST(FrameWarp, its_own_cameras_and_weights_may_be_exchanged) {
    Spline const out(0.01);
    Spline const in(0.002);
    FrameWarp warp;
    set(warp, out.camera, IDENTITY, in.camera);
    Gan_CubicBSplineWeights * const first = warp.pstctGetBackprojectionWeight();
    Gan_CubicBSplineWeights * const second = warp.pstctGetProjectionWeight();
    set(warp, warp.cgcGetProjectionCamera(), *warp.pcgmat33GetHomography(), warp.cgcGetBackprojectionCamera(), second,
        first);
    EXPECT_EQ(warp.pstctGetBackprojectionWeight(), second);
    EXPECT_EQ(warp.pstctGetProjectionWeight(), first);
    EXPECT_EQ(second->element[3], 0.002);
    EXPECT_EQ(first->element[3], 0.01);
    // The weights stay where they are, the cameras change sides.
    set(warp, warp.cgcGetProjectionCamera(), IDENTITY, warp.cgcGetBackprojectionCamera());
    EXPECT_EQ(second->element[3], 0.01);
    EXPECT_EQ(first->element[3], 0.002);
    EXPECT_NEAR(shiftOf(warp), 0.01 - 0.002, 1e-12);
}

TEST(FrameWarp, copy_takes_the_weights_that_a_written_camera_reads) {
    Spline const spline(0.01);
    auto warp = std::make_unique<FrameWarp>();
    set(*warp, linearCamera(960.0, 1000.0), IDENTITY, spline.camera);
    warp->backProjectionCamera() = warp->cgcGetProjectionCamera(); // Reads the other stage's weights now.
    FrameWarp copy;
    {
        FrameWarp const between(*warp);
        copy = between;
    }
    warp.reset();
    EXPECT_NE(copy.pstctGetBackprojectionWeight(), copy.pstctGetProjectionWeight());
    EXPECT_EQ(copy.cgcGetBackprojectionCamera().weight, copy.pstctGetBackprojectionWeight());
    EXPECT_EQ(copy.pstctGetBackprojectionWeight()->element[5], 0.01);
    EXPECT_NEAR(shiftOf(copy), 0.0, 1e-12);
}

TEST(FrameWarp, copies_live_and_die_in_any_order) {
    struct Place {
        std::unique_ptr<FrameWarp> warp;
        double shift;
    };
    Random random(5);
    std::vector<Place> places(8);
    auto const below = [&random](double end) { return static_cast<std::size_t>(random.between(0.0, end)); };
    auto const newWeights = [&] { return below(3.0) ? nullptr : new Gan_CubicBSplineWeights{}; };
    for (int step = 0; step < 5000; ++step) {
        Place & a = places[below(8.0)];
        Place & b = places[below(8.0)];
        std::size_t const action = below(5.0);
        if (action == 0) {
            a = {};
        } else if (action == 1 && b.warp) {
            a = {std::make_unique<FrameWarp>(*b.warp), b.shift};
        } else if (action == 2 && a.warp && b.warp) {
            *a.warp = *b.warp;
            a.shift = b.shift;
        } else if (action > 2) {
            if (!a.warp)
                a.warp = std::make_unique<FrameWarp>();
            double const out = below(3.0) ? random.between(-0.02, 0.02) : 0.0;
            double const in = below(3.0) ? random.between(-0.02, 0.02) : 0.0;
            Gan_Camera const plain = linearCamera(960.0, 1000.0);
            auto * const given = newWeights();
            set(*a.warp, out != 0.0 ? Spline(out).camera : plain, IDENTITY,
                in != 0.0 ? Spline(in, GAN_CAMERA_BSPLINE).camera : plain, given, below(2.0) ? given : newWeights());
            a.shift = out + in;
        }
        std::set<void const *> buffers;
        for (Place const & place : places) {
            if (!place.warp)
                continue;
            ASSERT_NEAR(shiftOf(*place.warp), place.shift, 1e-12) << step;
            for (auto const * weights :
                 {place.warp->pstctGetBackprojectionWeight(), place.warp->pstctGetProjectionWeight()})
                ASSERT_TRUE(!weights || buffers.insert(weights).second) << step;
        }
    }
}

} // namespace
