#include "geometry/marlin/Homography.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

constexpr double pi = 3.14159265358979323846;

Gan_Matrix33 reconstructed(HomographyDecomposition const & record) {
    Gan_Matrix33 matrix{};
    EXPECT_NE(bReconstructHomography(&record, 0.0, &matrix), 0);
    return matrix;
}

HomographyDecomposition decomposed(Gan_Matrix33 const & matrix) {
    HomographyDecomposition record{};
    EXPECT_NE(bDecomposeHomography(&matrix, 0.0, &record), 0);
    return record;
}

// The factors multiplied out one by one, as the header states them.
Gan_Matrix33 productOfFactors(HomographyDecomposition const & r) {
    double const c = std::cos(r.dRotation);
    double const s = std::sin(r.dRotation);
    Gan_Matrix33 const translation{1, 0, r.dTranslationX, 0, 1, r.dTranslationY, 0, 0, 1};
    Gan_Matrix33 const rotation{c, -s, 0, s, c, 0, 0, 0, 1};
    Gan_Matrix33 const scale{r.dScale, 0, 0, 0, r.dScale, 0, 0, 0, 1};
    Gan_Matrix33 const shear{1, r.dShearX, 0, 0, r.dShearY, 0, 0, 0, 1};
    Gan_Matrix33 const perspective{1, 0, 0, 0, 1, 0, r.dPerspectiveX, r.dPerspectiveY, 1};
    return translation * rotation * scale * shear * perspective;
}

void expectNear(Gan_Matrix33 const & actual, Gan_Matrix33 const & expected, double relative) {
    double const a[] = {actual.xx, actual.xy, actual.xz, actual.yx, actual.yy,
                        actual.yz, actual.zx, actual.zy, actual.zz};
    double const e[] = {expected.xx, expected.xy, expected.xz, expected.yx, expected.yy,
                        expected.yz, expected.zx, expected.zy, expected.zz};
    double largest = 0;
    for (double const element : e)
        largest = std::max(largest, std::fabs(element));
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(a[i], e[i], relative * largest) << "element " << i;
}

void expectNeutral(HomographyDecomposition const & r) {
    EXPECT_EQ(r.dRotation, 0.0);
    EXPECT_EQ(r.dTranslationX, 0.0);
    EXPECT_EQ(r.dTranslationY, 0.0);
    EXPECT_EQ(r.dScale, 1.0);
    EXPECT_EQ(r.dShearX, 0.0);
    EXPECT_EQ(r.dShearY, 1.0);
    EXPECT_EQ(r.dPerspectiveX, 0.0);
    EXPECT_EQ(r.dPerspectiveY, 0.0);
}

constexpr HomographyDecomposition neutral{0, 0, 0, 1, 0, 1, 0, 0};

TEST(Homography, neutral_record_is_the_identity_exactly) {
    Gan_Matrix33 const matrix = reconstructed(neutral);
    expectNear(matrix, gan_mat33_ident_s(), 0.0);
    expectNeutral(decomposed(matrix));
}

TEST(Homography, each_value_moves_points_as_its_name_says) {
    auto const image = [](HomographyDecomposition record) {
        Gan_Vector3 const p = reconstructed(record) * Gan_Vector3{0.5, 0.25, 1.0};
        return Gan_Vector3{p.x / p.z, p.y / p.z, p.z};
    };
    auto const expectAt = [](Gan_Vector3 const & p, double x, double y) {
        EXPECT_NEAR(p.x, x, 1e-15);
        EXPECT_NEAR(p.y, y, 1e-15);
    };
    expectAt(image({pi / 2, 0, 0, 1, 0, 1, 0, 0}), -0.25, 0.5);
    expectAt(image({0, 2, -3, 1, 0, 1, 0, 0}), 2.5, -2.75);
    expectAt(image({0, 0, 0, 4, 0, 1, 0, 0}), 2.0, 1.0);
    expectAt(image({0, 0, 0, 1, 2, 1, 0, 0}), 1.0, 0.25);
    expectAt(image({0, 0, 0, 1, 0, 2, 0, 0}), 0.5, 0.5);
    expectAt(image({0, 0, 0, 1, 0, 1, 2, 0}), 0.25, 0.125);
    expectAt(image({0, 0, 0, 1, 0, 1, 0, 4}), 0.25, 0.125);
}

class HomographyRoundTrip : public testing::TestWithParam<double> {
protected:
    HomographyDecomposition next() {
        double const shearY = std::exp2(unit(m_generator));
        return {pi * unit(m_generator),  unit(m_generator),
                unit(m_generator),       GetParam() * std::exp2(unit(m_generator)),
                unit(m_generator),       unit(m_generator) < 0 ? -shearY : shearY,
                0.6 * unit(m_generator), 0.6 * unit(m_generator)};
    }

    std::uniform_real_distribution<double> unit{-1, 1};
    std::mt19937_64 m_generator{3};
};

TEST_P(HomographyRoundTrip, reconstruction_is_the_product_of_the_factors) {
    for (int i = 0; i < 500; ++i) {
        HomographyDecomposition const record = next();
        expectNear(reconstructed(record), productOfFactors(record), 1e-14);
    }
}

TEST_P(HomographyRoundTrip, record_comes_back_from_its_matrix_times_any_factor) {
    for (int i = 0; i < 500; ++i) {
        HomographyDecomposition const record = next();
        Gan_Matrix33 matrix = reconstructed(record);
        double const factor = -3.7e5 * unit(m_generator);
        for (double * element : {&matrix.xx, &matrix.xy, &matrix.xz, &matrix.yx, &matrix.yy, &matrix.yz, &matrix.zx,
                                 &matrix.zy, &matrix.zz})
            *element *= factor;
        HomographyDecomposition const back = decomposed(matrix);
        // A small scale hides in elements of the size of translation times perspective, which are rounded.
        double const tolerance = 1e-13 + 1e-15 / record.dScale;
        EXPECT_NEAR(std::remainder(back.dRotation - record.dRotation, 2 * pi), 0, tolerance);
        EXPECT_NEAR(back.dTranslationX, record.dTranslationX, 1e-15);
        EXPECT_NEAR(back.dTranslationY, record.dTranslationY, 1e-15);
        EXPECT_NEAR(back.dScale / record.dScale, 1, tolerance);
        EXPECT_NEAR(back.dShearX, record.dShearX, 4 * tolerance);
        EXPECT_NEAR(back.dShearY, record.dShearY, 4 * tolerance);
        EXPECT_NEAR(back.dPerspectiveX, record.dPerspectiveX, 1e-15);
        EXPECT_NEAR(back.dPerspectiveY, record.dPerspectiveY, 1e-15);
    }
}

TEST_P(HomographyRoundTrip, matrix_comes_back_from_its_record) {
    for (int i = 0; i < 500; ++i) {
        Gan_Matrix33 const matrix = productOfFactors(next());
        expectNear(reconstructed(decomposed(matrix)), matrix, 1e-14);
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, HomographyRoundTrip, testing::Values(1e-3, 1e-2, 1.0, 30.0, 1e3));

TEST(Homography, rotations_all_round_come_back_in_half_turns) {
    for (int degrees = -180; degrees <= 180; ++degrees) {
        double const angle = degrees * pi / 180;
        HomographyDecomposition const back = decomposed(reconstructed({angle, 0.1, 0.2, 2, 0, 1, 0.1, 0}));
        EXPECT_NEAR(std::remainder(back.dRotation - angle, 2 * pi), 0, 1e-14) << degrees;
        EXPECT_LE(std::fabs(back.dRotation), pi);
        EXPECT_NEAR(back.dScale, 2, 1e-14) << degrees;
    }
}

TEST(Homography, mirror_has_a_positive_scale_and_a_negative_shear_y) {
    HomographyDecomposition const flop = decomposed({-1, 0, 0, 0, 1, 0, 0, 0, 1});
    EXPECT_EQ(flop.dScale, 1.0);
    EXPECT_EQ(flop.dShearY, -1.0);
    EXPECT_NEAR(std::fabs(flop.dRotation), pi, 1e-15);
    HomographyDecomposition const flip = decomposed({1, 0, 0, 0, -1, 0, 0, 0, 1});
    EXPECT_EQ(flip.dRotation, 0.0);
    EXPECT_EQ(flip.dShearY, -1.0);
}

TEST(Homography, negative_scale_is_read_back_as_half_a_turn) {
    Gan_Matrix33 const matrix = reconstructed({0.5, 0, 0, -2, 0.25, 1, 0, 0});
    HomographyDecomposition const back = decomposed(matrix);
    EXPECT_NEAR(back.dScale, 2, 1e-15);
    EXPECT_NEAR(back.dRotation, 0.5 - pi, 1e-15);
    EXPECT_NEAR(back.dShearX, 0.25, 1e-15);
}

TEST(Homography, small_scale_survives_cancellation_against_the_perspective_part) {
    // axx = hxx - tx px = 2^-40 while tx px = 1: exact in the matrix, lost by rounded products.
    HomographyDecomposition const record{0, 4, 0, 0x1p-40, 0, 1, 0.25, 0};
    HomographyDecomposition const back = decomposed(reconstructed(record));
    EXPECT_EQ(back.dScale, record.dScale);
    EXPECT_EQ(back.dShearY, 1.0);
}

TEST(Homography, extreme_factors_change_nothing) {
    Gan_Matrix33 const matrix = reconstructed({1, 2, 3, 4, 0.5, 0.75, 0.01, 0.02});
    HomographyDecomposition const expected = decomposed(matrix);
    for (int const exponent : {-900, -500, 500, 900}) {
        Gan_Matrix33 scaled = matrix;
        for (double * element : {&scaled.xx, &scaled.xy, &scaled.xz, &scaled.yx, &scaled.yy, &scaled.yz, &scaled.zx,
                                 &scaled.zy, &scaled.zz})
            *element = std::ldexp(*element, exponent);
        HomographyDecomposition const back = decomposed(scaled);
        EXPECT_EQ(back.dScale, expected.dScale) << exponent;
        EXPECT_EQ(back.dShearX, expected.dShearX) << exponent;
    }
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct Undecomposable {
    char const * name;
    Gan_Matrix33 matrix;
};

class HomographyRefusal : public testing::TestWithParam<Undecomposable> {};

TEST_P(HomographyRefusal, decomposition_fails_with_the_neutral_record) {
    HomographyDecomposition record{7, 7, 7, 7, 7, 7, 7, 7};
    EXPECT_EQ(bDecomposeHomography(&GetParam().matrix, 0.0, &record), 0);
    expectNeutral(record);
}

INSTANTIATE_TEST_SUITE_P(, HomographyRefusal,
                         testing::Values(Undecomposable{"zero", {}},
                                         Undecomposable{"singular", {1, 2, 3, 4, 5, 6, 7, 8, 9}},
                                         Undecomposable{"origin_at_infinity", {0, 0, 1, 0, 1, 0, 1, 0, 0}},
                                         Undecomposable{"values_too_large", {1, 0, 1, 0, 1, 0, 1, 0, 1e-200}},
                                         Undecomposable{"infinite", {1, 0, infinity, 0, 1, 0, 0, 0, 1}},
                                         Undecomposable{"not_a_number", {1, 0, 0, 0, 1, 0, 0, 0, notANumber}}),
                         [](auto const & test) { return std::string(test.param.name); });

TEST(Homography, reconstruction_refuses_what_is_not_finite_and_leaves_the_result_alone) {
    double HomographyDecomposition::*const fields[] = {
        &HomographyDecomposition::dRotation,     &HomographyDecomposition::dTranslationX,
        &HomographyDecomposition::dTranslationY, &HomographyDecomposition::dScale,
        &HomographyDecomposition::dShearX,       &HomographyDecomposition::dShearY,
        &HomographyDecomposition::dPerspectiveX, &HomographyDecomposition::dPerspectiveY,
    };
    for (auto const field : fields) {
        for (double const value : {infinity, -infinity, notANumber}) {
            HomographyDecomposition record = neutral;
            record.*field = value;
            Gan_Matrix33 matrix{9, 9, 9, 9, 9, 9, 9, 9, 9};
            EXPECT_EQ(bReconstructHomography(&record, 0.0, &matrix), 0);
            EXPECT_EQ(matrix.xx, 9);
        }
    }
    HomographyDecomposition const tooLarge{0, 1e200, 0, 1, 0, 1, 1e200, 0};
    Gan_Matrix33 matrix{9, 9, 9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(bReconstructHomography(&tooLarge, 0.0, &matrix), 0);
    EXPECT_EQ(matrix.zz, 9);
}

TEST(Homography, scale_of_zero_gives_a_matrix_that_cannot_be_decomposed) {
    Gan_Matrix33 const matrix = reconstructed({0, 1, 2, 0, 0, 1, 0.5, 0.5});
    HomographyDecomposition record{};
    EXPECT_EQ(bDecomposeHomography(&matrix, 0.0, &record), 0);
}

} // namespace
