#include "geometry/gandalf/RadialDistortion.h"
#include "geometry/RandomLenses.h"

#include <gtest/gtest.h>

namespace {

using namespace Lenses;

typedef std::array<double, 3> Terms;

long double moved(Terms const & k, long double r) {
    long double const s = r * r;
    return r + k[0] * r * s + k[1] * r * s * s + k[2] * r * s * s * s;
}

// Where the picture first turns back, by walking outwards; 0 where it does not within ten focal lengths.
long double scannedEnd(Terms const & k) {
    constexpr long double step = 1e-4L;
    for (long double r = 0; r < 10; r += step) {
        if (moved(k, r + step) > moved(k, r))
            continue;
        return r;
    }
    return 0;
}

long double solvedByHalving(Terms const & k, long double target, long double end) {
    long double low = 0;
    long double high = end > 0 ? end : 10;
    for (int i = 0; i < 200; ++i) {
        long double const middle = (low + high) / 2;
        (moved(k, middle) < target ? low : high) = middle;
    }
    return low;
}

class RadialModel : public testing::TestWithParam<Kind> {
protected:
    bool isInverse() const {
        return GetParam().type == GAN_CAMERA_RADIAL_1_INVERSE || GetParam().type == GAN_CAMERA_RADIAL_2_INVERSE;
    }

    // A camera whose image points are rays, with random terms.
    Gan_Camera next() {
        Gan_Camera camera{};
        camera.type = GetParam().type;
        camera.zh = camera.fx = camera.fy = 1.0;
        for (int i = 0; i < GetParam().terms; ++i)
            camera.distortion[i] = random.between(-1.5, 1.5);
        EXPECT_EQ(gan_camera_internalize(&camera), 1);
        return camera;
    }

    // The direction that applies the polynomial, and the one that undoes it.
    auto applying(Gan_Camera const & camera) const { return isInverse() ? camera.backproject : camera.project; }
    auto undoing(Gan_Camera const & camera) const { return isInverse() ? camera.project : camera.backproject; }

    static Terms termsOf(Gan_Camera const & camera) {
        return {camera.distortion[0], camera.distortion[1], camera.distortion[2]};
    }

    static Gan_Vector3 at(double radius) { return {0.6 * radius, -0.8 * radius, 1.0}; }

    Random random{11};
};

TEST_P(RadialModel, branch_ends_where_a_scan_sees_the_picture_turn_back) {
    int ends = 0;
    for (int n = 0; n < 300; ++n) {
        Gan_Camera const camera = next();
        double const end = static_cast<double>(scannedEnd(termsOf(camera)));
        if (end == 0.0) {
            EXPECT_TRUE(carry(applying(camera), camera, at(5.0)));
            continue;
        }
        ++ends;
        EXPECT_TRUE(carry(applying(camera), camera, at(end - 3e-4))) << end;
        EXPECT_FALSE(carry(applying(camera), camera, at(end + 3e-4))) << end;
        EXPECT_FALSE(carry(applying(camera), camera, at(end + 5.0))) << end;
        double const reach = static_cast<double>(moved(termsOf(camera), end));
        EXPECT_TRUE(carry(undoing(camera), camera, at(reach * (1.0 - 1e-6)))) << end;
        EXPECT_FALSE(carry(undoing(camera), camera, at(reach * (1.0 + 1e-6)))) << end;
        EXPECT_FALSE(carry(undoing(camera), camera, at(reach + 5.0))) << end;
    }
    EXPECT_GT(ends, 50);
}

TEST_P(RadialModel, inversion_agrees_with_halving_in_long_double) {
    for (int n = 0; n < 300; ++n) {
        Gan_Camera const camera = next();
        Terms const terms = termsOf(camera);
        long double const end = scannedEnd(terms);
        double const reach = static_cast<double>(moved(terms, end > 0 ? end : 2.0L));
        for (double const part : {1e-12, 1e-6, 0.01, 0.2, 0.5, 0.8, 0.95}) {
            double const target = part * reach;
            auto const found = carry(undoing(camera), camera, at(target));
            ASSERT_TRUE(found);
            double const expected = static_cast<double>(solvedByHalving(terms, target, end));
            EXPECT_NEAR(found->point.x, 0.6 * expected, 3e-15 * (1.0 + expected));
            EXPECT_NEAR(found->point.y, -0.8 * expected, 3e-15 * (1.0 + expected));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, RadialModel, testing::Values(KINDS[1], KINDS[2], KINDS[3], KINDS[4], KINDS[5]),
                         [](auto const & test) { return nameOf(test.param); });

TEST(RadialRatio, solves_its_cubic_over_the_whole_range) {
    for (double a = -0.14814; a < 6.0; a += a < -0.13 ? 1e-5 : 1e-3) {
        double const m = VX::detail::radialRatio(a);
        double const slope = 1.0 + 3.0 * a * m * m;
        EXPECT_GT(slope, 0.0) << a;
        EXPECT_NEAR(m + a * m * m * m, 1.0, 1e-15) << a;
    }
    for (double const a : {1e2, 1e5, 1e20, 1e300}) {
        double const m = VX::detail::radialRatio(a);
        EXPECT_NEAR(m + a * m * m * m, 1.0, 1e-15) << a;
    }
}

TEST(RadialRatio, ends_at_minus_four_over_27) {
    EXPECT_NEAR(VX::detail::radialRatio(-4.0 / 27.0 * (1.0 - 1e-12)), 1.5, 1e-5);
    EXPECT_TRUE(std::isnan(VX::detail::radialRatio(-4.0 / 27.0)));
    EXPECT_TRUE(std::isnan(VX::detail::radialRatio(-1e300)));
    EXPECT_EQ(VX::detail::radialRatio(0.0), 1.0);
}

struct BranchEnd {
    char const * name;
    Terms terms;
    double squaredRadius;
};

class RadialBranchEnd : public testing::TestWithParam<BranchEnd> {};

TEST_P(RadialBranchEnd, is_the_first_root_of_the_slope) {
    BranchEnd const & row = GetParam();
    double const end = VX::detail::radialBranchEnd(row.terms[0], row.terms[1], row.terms[2]);
    if (std::isinf(row.squaredRadius))
        EXPECT_EQ(end, row.squaredRadius);
    else
        EXPECT_NEAR(end / row.squaredRadius, 1.0, 1e-12);
}

constexpr double never = std::numeric_limits<double>::infinity();

// Slopes written as products of (1 - s / root): the terms are their coefficients over 3, 5 and 7.
INSTANTIATE_TEST_SUITE_P(
    , RadialBranchEnd,
    testing::Values(BranchEnd{"no_terms", {0, 0, 0}, never}, BranchEnd{"pincushion", {0.3, 0.2, 0.1}, never},
                    BranchEnd{"one_term", {-1.0 / 3, 0, 0}, 1.0},
                    BranchEnd{"roots_1_and_2", {-1.5 / 3, 0.5 / 5, 0}, 1.0},
                    BranchEnd{"roots_1_and_minus_2", {-0.5 / 3, -0.5 / 5, 0}, 1.0},
                    BranchEnd{"roots_1_2_and_4", {-1.75 / 3, 0.875 / 5, -0.125 / 7}, 1.0},
                    BranchEnd{"roots_4_minus_1_and_minus_2", {1.25 / 3, 0.125 / 5, -0.125 / 7}, 4.0},
                    BranchEnd{"third_term_alone", {0, 0, -8.0 / 7}, 0.5},
                    BranchEnd{"third_term_alone_upwards", {0, 0, 8.0 / 7}, never},
                    BranchEnd{"second_term_tiny", {-1.0 / 3, 1e-18, 0}, 1.0},
                    BranchEnd{"third_term_tiny", {-1.0 / 3, 0, 1e-18}, 1.0},
                    BranchEnd{"turned_back_by_the_third", {0.5, 0.5, -0.5}, 1.243632650709324},
                    BranchEnd{"far_out", {1.0 / 3, -1e-18 / 5, 0}, 1e18}, BranchEnd{"huge", {-1e200 / 3, 0, 0}, 1e-200},
                    BranchEnd{"huge_third", {0, 0, -1e300 / 7}, 1e-100}),
    [](auto const & test) { return std::string(test.param.name); });

TEST(RadialDistortion, measured_lens_goes_where_its_formula_says) {
    Gan_Camera camera{};
    camera.type = GAN_CAMERA_RADIAL_3;
    camera.zh = 320.0;
    camera.fx = camera.fy = 535.91573396163199;
    camera.x0 = 342.28315473308373;
    camera.y0 = 235.57082909788173;
    Terms const terms{-0.26637260909660682, -0.038588898922304653, 0.23839153080878486};
    std::copy(terms.begin(), terms.end(), camera.distortion);
    gan_camera_internalize(&camera);
    auto const p = project(camera, {0.3, 0.4, 1.0});
    double const factor = static_cast<double>(moved(terms, 0.5L) / 0.5L);
    EXPECT_NEAR(p->point.x, camera.fx * 0.3 * factor + camera.x0, 1e-12);
    EXPECT_NEAR(p->point.y, camera.fy * 0.4 * factor + camera.y0, 1e-12);
    for (double const x : {-64.0, 0.0, 320.0, 640.0, 704.0}) {
        auto const corner = backproject(camera, {x, -48.0, 320.0});
        ASSERT_TRUE(corner);
        EXPECT_NEAR(project(camera, corner->point)->point.x, x, 1e-10);
    }
}

} // namespace
