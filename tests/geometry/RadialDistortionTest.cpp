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
    Terms terms;
    double squaredRadius;
};

TEST(RadialBranchEnd, is_the_first_root_of_the_slope) {
    // Slopes written as products of (1 - s / root): the terms are their coefficients over 3, 5 and 7.
    for (auto const & [k, end] : {BranchEnd{{-1.0 / 3, 0, 0}, 1.0},
                                  {{-1.5 / 3, 0.5 / 5, 0}, 1.0},
                                  {{-0.5 / 3, -0.5 / 5, 0}, 1.0},
                                  {{-1.75 / 3, 0.875 / 5, -0.125 / 7}, 1.0},
                                  {{1.25 / 3, 0.125 / 5, -0.125 / 7}, 4.0},
                                  {{0, 0, -8.0 / 7}, 0.5},
                                  {{-1.0 / 3, 1e-18, 0}, 1.0},
                                  {{-1.0 / 3, 0, 1e-18}, 1.0},
                                  {{0.5, 0.5, -0.5}, 1.243632650709324},
                                  {{1.0 / 3, -1e-18 / 5, 0}, 1e18},
                                  {{-1e200 / 3, 0, 0}, 1e-200},
                                  {{0, 0, -1e300 / 7}, 1e-100}})
        EXPECT_NEAR(VX::detail::radialBranchEnd(k[0], k[1], k[2]) / end, 1.0, 1e-12)
            << k[0] << ' ' << k[1] << ' ' << k[2];
    for (Terms const & k : {Terms{0, 0, 0}, Terms{0.3, 0.2, 0.1}, Terms{0, 0, 8.0 / 7}})
        EXPECT_TRUE(std::isinf(VX::detail::radialBranchEnd(k[0], k[1], k[2])));
}

} // namespace
