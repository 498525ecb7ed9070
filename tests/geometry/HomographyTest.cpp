#include "geometry/marlin/Homography.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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

std::array<double, 9> elementsOf(Gan_Matrix33 const & m) {
    return {m.xx, m.xy, m.xz, m.yx, m.yy, m.yz, m.zx, m.zy, m.zz};
}

Gan_Matrix33 times(Gan_Matrix33 const & m, double factor) {
    return {m.xx * factor, m.xy * factor, m.xz * factor, m.yx * factor, m.yy * factor,
            m.yz * factor, m.zx * factor, m.zy * factor, m.zz * factor};
}

void expectNear(Gan_Matrix33 const & actual, Gan_Matrix33 const & expected, double relative) {
    auto const a = elementsOf(actual);
    auto const e = elementsOf(expected);
    double largest = 0;
    for (double const element : e)
        largest = std::max(largest, std::fabs(element));
    for (std::size_t i = 0; i < e.size(); ++i)
        EXPECT_NEAR(a[i], e[i], relative * largest) << "element " << i;
}

void expectNeutral(HomographyDecomposition const & r) {
    EXPECT_TRUE(r.dRotation == 0.0 && r.dTranslationX == 0.0 && r.dTranslationY == 0.0);
    EXPECT_TRUE(r.dScale == 1.0 && r.dShearX == 0.0 && r.dShearY == 1.0);
    EXPECT_TRUE(r.dPerspectiveX == 0.0 && r.dPerspectiveY == 0.0);
}

constexpr HomographyDecomposition neutral{0, 0, 0, 1, 0, 1, 0, 0};

TEST(Homography, neutral_record_is_the_identity_exactly) {
    Gan_Matrix33 const matrix = reconstructed(neutral);
    expectNear(matrix, gan_mat33_ident_s(), 0.0);
    expectNeutral(decomposed(matrix));
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
        HomographyDecomposition const back = decomposed(times(reconstructed(record), -3.7e5 * unit(m_generator)));
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

INSTANTIATE_TEST_SUITE_P(Scales, HomographyRoundTrip, testing::Values(1e-3, 1e-2, 1.0, 30.0, 1e3));

TEST(Homography, negative_scale_is_read_back_as_half_a_turn) {
    HomographyDecomposition const back = decomposed(reconstructed({0.5, 0, 0, -2, 0.25, 1, 0, 0}));
    EXPECT_NEAR(back.dScale, 2, 1e-15);
    EXPECT_NEAR(back.dRotation, 0.5 - pi, 1e-15);
    EXPECT_NEAR(back.dShearX, 0.25, 1e-15);
}

TEST(Homography, small_scale_survives_cancellation_against_the_perspective_part) {
    // axx = hxx - tx px = 2^-40 while tx px = 1: exact in the matrix, lost by rounded products.
    HomographyDecomposition const back = decomposed(reconstructed({0, 4, 0, 0x1p-40, 0, 1, 0.25, 0}));
    EXPECT_EQ(back.dScale, 0x1p-40);
    EXPECT_EQ(back.dShearY, 1.0);
}

TEST(Homography, extreme_factors_change_nothing) {
    Gan_Matrix33 const matrix = reconstructed({1, 2, 3, 4, 0.5, 0.75, 0.01, 0.02});
    HomographyDecomposition const expected = decomposed(matrix);
    for (int const exponent : {-900, -500, 500, 900}) {
        HomographyDecomposition const back = decomposed(times(matrix, std::ldexp(1.0, exponent)));
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
                                         Undecomposable{"scale_of_zero", {0.5, 0.5, 1, 1, 1, 2, 0.5, 0.5, 1}},
                                         Undecomposable{"origin_at_infinity", {0, 0, 1, 0, 1, 0, 1, 0, 0}},
                                         Undecomposable{"values_too_large", {1, 0, 1, 0, 1, 0, 1, 0, 1e-200}},
                                         Undecomposable{"infinite", {1, 0, infinity, 0, 1, 0, 0, 0, 1}},
                                         Undecomposable{"not_a_number", {1, 0, 0, 0, 1, 0, 0, 0, notANumber}}),
                         [](auto const & test) { return std::string(test.param.name); });

void expectNotReconstructed(HomographyDecomposition const & record) {
    Gan_Matrix33 matrix{9, 9, 9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(bReconstructHomography(&record, 0.0, &matrix), 0);
    for (double const element : elementsOf(matrix))
        EXPECT_EQ(element, 9);
}

TEST(Homography, reconstruction_refuses_what_is_not_finite_and_leaves_the_result_alone) {
    typedef HomographyDecomposition H;
    for (double H::*const field : {&H::dRotation, &H::dTranslationX, &H::dTranslationY, &H::dScale, &H::dShearX,
                                   &H::dShearY, &H::dPerspectiveX, &H::dPerspectiveY}) {
        for (double const value : {infinity, -infinity, notANumber}) {
            H record = neutral;
            record.*field = value;
            expectNotReconstructed(record);
        }
    }
    expectNotReconstructed({0, 1e200, 0, 1, 0, 1, 1e200, 0});
}

} // namespace
