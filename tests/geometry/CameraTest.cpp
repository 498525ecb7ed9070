#include "geometry/RandomLenses.h"
#include "geometry/gandalf/Vector2.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace Lenses;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

class Camera : public testing::TestWithParam<Kind> {
protected:
    // The distortion's Jacobian at a ray, over that on the axis; 0 where there is none.
    static double jacobianAt(Gan_Camera const & camera, Gan_Vector3 const & ray) {
        auto const here = project(camera, ray);
        auto const axis = project(camera, {0.0, 0.0, 1.0});
        return here && axis ? here->jacobian() / axis->jacobian() : 0.0;
    }

    // Whether the law of the round trip holds there: neither direction squeezes the picture by more than 20.
    static bool isTame(double jacobian) { return jacobian >= 0.05 && jacobian <= 20.0; }

    Random random{7};
};

TEST_P(Camera, project_undoes_backproject_on_the_frame_and_around_it) {
    int carried = 0;
    for (int n = 0; n < 300; ++n) {
        Lens const lens = random.lens(GetParam());
        for (int m = 0; m < 30; ++m) {
            Gan_Vector3 const p = random.imagePoint();
            auto const ray = backproject(lens.camera, p);
            if (!ray || !isTame(jacobianAt(lens.camera, ray->point)))
                continue;
            ++carried;
            EXPECT_EQ(ray->point.z, 1.0);
            auto const back = project(lens.camera, ray->point);
            ASSERT_NEAR(back->point.x, p.x, 1e-10);
            ASSERT_NEAR(back->point.y, p.y, 1e-10);
            ASSERT_EQ(back->point.z, lens.camera.zh);
        }
    }
    EXPECT_GT(carried, 300 * 30 * 6 / 10);
}

TEST_P(Camera, backproject_undoes_project_wherever_the_jacobian_is_a_twentieth) {
    int carried = 0;
    for (int n = 0; n < 300; ++n) {
        Lens const lens = random.lens(GetParam());
        Gan_Camera const & camera = lens.camera;
        for (int m = 0; m < 30; ++m) {
            double const depth = random.between(-3.0, 3.0);
            double const x = random.between(-1.0, 1.0);
            double const y = random.between(-0.8, 0.8);
            if (!isTame(jacobianAt(camera, {x, y, 1.0})))
                continue;
            ++carried;
            auto const p = project(camera, {depth * x, depth * y, depth});
            ASSERT_TRUE(p);
            auto const back = backproject(camera, p->point);
            ASSERT_TRUE(back) << x << " " << y;
            ASSERT_NEAR(camera.fx * (back->point.x - x), 0.0, 1e-10);
            ASSERT_NEAR(camera.fy * (back->point.y - y), 0.0, 1e-10);
        }
    }
    EXPECT_GT(carried, 300 * 30 / 3);
}

TEST_P(Camera, derivatives_are_those_of_differences) {
    constexpr double step = 1e-7;
    for (int n = 0; n < 100; ++n) {
        Lens const lens = random.lens(GetParam());
        Gan_Camera const & camera = lens.camera;
        Gan_Vector3 const p = random.imagePoint();
        auto const ray = backproject(camera, p);
        if (!ray || !isTame(jacobianAt(camera, ray->point)))
            continue;
        Gan_Vector3 const & r = ray->point;
        auto const across = [&](double x, double y) {
            Gan_Vector3 const to = project(camera, {r.x + x, r.y + y, 1.0})->point;
            Gan_Vector3 const from = project(camera, {r.x - x, r.y - y, 1.0})->point;
            return Gan_Vector2{(to.x - from.x) / (2.0 * step), (to.y - from.y) / (2.0 * step)};
        };
        Gan_Matrix22 const d = project(camera, r)->derivative;
        double const tolerance = 2e-4 * camera.fx;
        EXPECT_NEAR(across(step, 0.0).x, d.xx, tolerance);
        EXPECT_NEAR(across(step, 0.0).y, d.yx, tolerance);
        EXPECT_NEAR(across(0.0, step).x, d.xy, tolerance);
        EXPECT_NEAR(across(0.0, step).y, d.yy, tolerance);
        // The other direction's derivative is the inverse.
        Gan_Matrix22 const & b = ray->derivative;
        EXPECT_NEAR(d.xx * b.xx + d.xy * b.yx, 1.0, 1e-9);
        EXPECT_NEAR(d.xx * b.xy + d.xy * b.yy, 0.0, 1e-9);
        EXPECT_NEAR(d.yx * b.xx + d.yy * b.yx, 0.0, 1e-9);
        EXPECT_NEAR(d.yx * b.xy + d.yy * b.yy, 1.0, 1e-9);
    }
}

TEST_P(Camera, image_points_are_homogeneous_and_may_be_carried_in_place_by_a_copy_too) {
    Lens lens = random.lens(GetParam());
    Gan_Vector3 const p{1000.0, 500.0, lens.camera.zh};
    Gan_Vector3 const expected = backproject(lens.camera, p)->point;
    Gan_Camera const copy = lens.camera;
    lens.camera = Gan_Camera{};
    Gan_Vector3 v{-3.0 * p.x, -3.0 * p.y, -3.0 * p.z};
    ASSERT_EQ(copy.backproject(&copy, &v, &v, nullptr, nullptr), 1);
    EXPECT_NEAR(v.x, expected.x, 1e-15);
    EXPECT_NEAR(v.y, expected.y, 1e-15);
    ASSERT_EQ(copy.project(&copy, &v, &v, nullptr, nullptr), 1);
    EXPECT_NEAR(v.x, p.x, 1e-9);
    EXPECT_EQ(v.z, p.z);
}

TEST_P(Camera, points_that_cannot_be_carried_are_left_alone_with_a_reason) {
    Lens const lens = random.lens(GetParam());
    double const zh = lens.camera.zh;
    auto const expectRefused = [](Gan_CameraPointFunction * function, Gan_Camera const & camera, Gan_Vector3 from,
                                  Gan_CameraFailure reason) {
        Gan_Vector3 to{1.0, 2.0, 3.0};
        Gan_Matrix22 derivative{4.0, 5.0, 6.0, 7.0};
        Gan_CameraFailure failure = GAN_CAMERA_NO_FAILURE;
        EXPECT_EQ(function(&camera, &from, &to, &derivative, &failure), 0) << from.x << " " << from.y << " " << from.z;
        EXPECT_EQ(failure, reason) << from.x << " " << from.y << " " << from.z;
        EXPECT_EQ(to.x, 1.0);
        EXPECT_EQ(to.z, 3.0);
        EXPECT_EQ(derivative.xx, 4.0);
    };
    auto const expectBothRefused = [&](Gan_Camera const & camera, Gan_Vector3 from, Gan_CameraFailure reason) {
        expectRefused(camera.project, camera, from, reason);
        expectRefused(camera.backproject, camera, from, reason);
    };
    expectBothRefused(lens.camera, {1.0, 1.0, 0.0}, GAN_CAMERA_ZERO_DEPTH);
    expectBothRefused(lens.camera, {1.0, 1.0, -0.0}, GAN_CAMERA_ZERO_DEPTH);
    auto const expectUnusable = [&](auto const & spoil) {
        Gan_Camera camera = lens.camera;
        spoil(camera);
        gan_camera_internalize(&camera);
        expectBothRefused(camera, {0.5, 0.5, 0.7}, GAN_CAMERA_NOT_FINITE);
    };
    for (double const bad : {infinity, -infinity, notANumber}) {
        expectBothRefused(lens.camera, {bad, 1.0, zh}, GAN_CAMERA_NOT_FINITE);
        expectBothRefused(lens.camera, {1.0, bad, zh}, GAN_CAMERA_NOT_FINITE);
        for (int i = 0; i < GetParam().terms; ++i)
            expectUnusable([=](Gan_Camera & camera) { camera.distortion[i] = bad; });
    }
    expectBothRefused(lens.camera, {1.0, 1.0, notANumber}, GAN_CAMERA_NOT_FINITE);
    for (double Gan_Camera::*const member : {&Gan_Camera::fx, &Gan_Camera::fy, &Gan_Camera::zh})
        for (double const bad : {0.0, infinity, notANumber})
            expectUnusable([=](Gan_Camera & camera) { camera.*member = bad; });
}

TEST_P(Camera, numbers_of_any_size_give_a_finite_answer_or_none) {
    auto const anySize = [this] {
        return std::copysign(std::pow(10.0, random.between(-320.0, 308.0)), random.between(-1.0, 1.0));
    };
    for (int n = 0; n < 3000; ++n) {
        Lens lens = random.lens(GetParam());
        Gan_Camera & camera = lens.camera;
        for (double & term : camera.distortion)
            term = random.between(0.0, 1.0) < 0.7 ? anySize() : term;
        if (lens.weights)
            lens.weights->element[n % 578] = anySize();
        if (n % 3 == 0)
            camera.fx = anySize();
        gan_camera_internalize(&camera);
        Gan_Vector3 const from{n % 2 ? anySize() : 0.3, anySize(), n % 5 ? 1.0 : anySize()};
        for (auto * function : {camera.project, camera.backproject}) {
            auto const to = carry(function, camera, from);
            EXPECT_TRUE(!to || (std::isfinite(to->point.x) && std::isfinite(to->point.y)));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, Camera, testing::ValuesIn(KINDS), [](auto const & test) { return nameOf(test.param); });

void expectLinear(Gan_Camera const & camera) {
    auto const p = project(camera, {2.0, -1.0, 4.0});
    ASSERT_TRUE(p);
    EXPECT_EQ(p->point.x, 0.5 * camera.fx + camera.x0);
    EXPECT_EQ(p->point.y, -0.25 * camera.fy + camera.y0);
    auto const ray = backproject(camera, p->point);
    EXPECT_NEAR(ray->point.x, 0.5, 1e-15);
    EXPECT_NEAR(ray->point.y, -0.25, 1e-15);
}

TEST(CameraModel, that_is_unknown_or_lacks_its_weights_or_maps_is_linear_and_keeps_its_number) {
    for (unsigned int const type : {5u, 7u, 8u, 16u, 0xFFFFFFFFu, static_cast<unsigned int>(GAN_CAMERA_BSPLINE),
                                    static_cast<unsigned int>(GAN_CAMERA_BSPLINE_INVERSE),
                                    static_cast<unsigned int>(GAN_CAMERA_DISTORTION_MAP)}) {
        Gan_Camera camera = Random(1).lens(KINDS[1]).camera;
        camera.type = static_cast<Gan_CameraType>(type);
        EXPECT_EQ(gan_camera_internalize(&camera), 0) << type;
        EXPECT_EQ(static_cast<unsigned int>(camera.type), type);
        expectLinear(camera);
    }
}

// A camera of focal length 1 about the origin: image points are rays.
Gan_Camera plain(Gan_CameraType type, std::array<double, 4> const & terms) {
    Gan_Camera camera{};
    camera.type = type;
    camera.zh = camera.fx = camera.fy = 1.0;
    std::copy(terms.begin(), terms.end(), camera.distortion);
    EXPECT_EQ(gan_camera_internalize(&camera), 1);
    return camera;
}

TEST(CameraModel, anamorphic_terms_act_each_on_its_own_product) {
    Gan_Camera const camera = plain(GAN_CAMERA_ANAMORPHIC, {0.25, 0.5, 2.0, 0.125});
    auto const p = project(camera, {0.5, 2.0, 1.0});
    EXPECT_EQ(p->point.x, 0.5 * (1.0 + 0.25 * 0.25 + 0.5 * 4.0));
    EXPECT_EQ(p->point.y, 2.0 * (1.0 + 2.0 * 0.25 + 0.125 * 4.0));
}

TEST(CameraModel, anamorphic_sheet_behind_two_folds_is_refused) {
    Gan_Camera const camera = plain(GAN_CAMERA_ANAMORPHIC, {-1.0, 0.0, 0.0, -1.0});
    // Both slopes are negative there, and the determinant is positive again.
    EXPECT_FALSE(project(camera, {1.0, 1.0, 1.0}));
    EXPECT_FALSE(project(camera, {0.6, 0.1, 1.0}));
    EXPECT_TRUE(project(camera, {0.57, 0.57, 1.0}));
    EXPECT_FALSE(backproject(camera, {0.39, 0.1, 1.0})); // x - x^3 is at most 0.3849
    EXPECT_TRUE(backproject(camera, {0.384, 0.1, 1.0}));
}

TEST(CameraModel, spline_repeats_a_linear_function_of_the_grid_exactly) {
    Lens lens = Random(3).lens(KINDS[7]);
    Gan_Camera & camera = lens.camera;
    for (int i = 0; i < 17; ++i) {
        for (int j = 0; j < 17; ++j) {
            lens.weights->element[2 * (17 * i + j)] = 0.01 * (j - 8) / 7.0;
            lens.weights->element[2 * (17 * i + j) + 1] = 0.02 * (i - 8) / 7.0;
        }
    }
    double const halfFrame = camera.zh / camera.fx;
    for (double const u : {-1.0, -0.3, 0.0, 0.55, 1.0}) {
        for (double const v : {-1.0, 0.25, 1.0}) {
            auto const p = project(camera, {u * halfFrame, v * halfFrame, 1.0});
            EXPECT_NEAR((p->point.x - camera.x0) / camera.fx, u * halfFrame + 0.01 * u, 1e-15);
            EXPECT_NEAR((p->point.y - camera.y0) / camera.fy, v * halfFrame + 0.02 * v, 1e-15);
        }
    }
    auto const beyond = project(camera, {1.5 * halfFrame, 0.0, 1.0});
    EXPECT_NEAR((beyond->point.x - camera.x0) / camera.fx, 1.5 * halfFrame, 1e-15);
}

TEST(CameraModel, spline_reads_its_own_weights_only) {
    std::vector<Gan_CubicBSplineWeights> weights(3);
    for (Gan_CubicBSplineWeights & each : weights) {
        for (double & weight : each.element)
            weight = &each == &weights[1] ? 0.01 : notANumber;
    }
    Lens lens = Random(5).lens(KINDS[7]);
    Gan_Camera & camera = lens.camera;
    camera.weight = &weights[1];
    double const halfFrame = camera.zh / camera.fx;
    for (double u = -2.0; u < 2.0; u += 0.03) {
        for (double v = -2.0; v < 2.0; v += 0.03)
            EXPECT_TRUE(project(camera, {u * halfFrame, v * halfFrame, 1.0})) << u << " " << v;
    }
}

TEST(CameraModel, spline_that_folds_the_picture_is_refused_where_it_does) {
    Lens lens = Random(4).lens(KINDS[7]);
    lens.camera.fx = lens.camera.fy = lens.camera.zh;
    for (double & weight : lens.weights->element)
        weight = 0.0;
    lens.weights->element[2 * (17 * 8 + 8)] = 0.5; // steeper than 1 to its right
    EXPECT_FALSE(project(lens.camera, {0.1, 0.0, 1.0}));
    EXPECT_TRUE(project(lens.camera, {-0.1, 0.0, 1.0}));
}

} // namespace
