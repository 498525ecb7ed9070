#include "geometry/gandalf/Matrix33.h"
#include "geometry/marlin/Homography.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr Gan_Matrix33 untouched{9, 9, 9, 9, 9, 9, 9, 9, 9};

void expectIdentity(Gan_Matrix33 const & m, double tolerance) {
    double const expected[] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    double const actual[] = {m.xx, m.xy, m.xz, m.yx, m.yy, m.yz, m.zx, m.zy, m.zz};
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << i;
}

TEST(Matrix33, elements_stand_in_row_order_and_act_on_columns) {
    Gan_Matrix33 const m{1, 2, 3, 4, 5, 6, 7, 8, 10};
    Gan_Vector3 const v = m * Gan_Vector3{1, 10, 100};
    EXPECT_EQ(v.x, 321);
    EXPECT_EQ(v.y, 654);
    EXPECT_EQ(v.z, 1087);
}

TEST(Matrix33, product_lets_the_right_matrix_act_first) {
    Gan_Matrix33 const shift{1, 0, 5, 0, 1, 0, 0, 0, 1};
    Gan_Matrix33 const twice{2, 0, 0, 0, 2, 0, 0, 0, 1};
    EXPECT_EQ((shift * twice * Gan_Vector3{1, 1, 1}).x, 7);
    EXPECT_EQ((twice * shift * Gan_Vector3{1, 1, 1}).x, 12);
    expectIdentity(gan_mat33_ident_s(), 0);
}

TEST(Matrix33, determinant_of_extreme_sizes_stays_in_range) {
    Gan_Matrix33 const small{0x1p-300, 0, 0, 0, 0, 0x1p-300, 0, 0x1p-300, 0};
    EXPECT_EQ(gan_mat33_determinant_s(&small), -0x1p-900);
    Gan_Matrix33 const large{1e100, 0, 0, 0, 0, 1e100, 0, 1e100, 0};
    EXPECT_NEAR(gan_mat33_determinant_s(&large) / 1e300, -1, 1e-15);
    Gan_Matrix33 const zero{};
    EXPECT_EQ(gan_mat33_determinant_s(&zero), 0);
}

TEST(Matrix33, inverse_undoes_random_matrices_of_any_size) {
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> element(-1, 1);
    std::uniform_int_distribution<int> exponent(-400, 400);
    for (int i = 0; i < 1000; ++i) {
        double const f = std::ldexp(1.0, exponent(generator));
        auto const next = [&] { return f * element(generator); };
        Gan_Matrix33 const m{next(), next(), next(), next(), next(), next(), next(), next(), next() + 3 * f};
        Gan_Matrix33 inverse = untouched;
        int error = 7;
        ASSERT_NE(gan_mat33_invert(&m, &inverse, &error), 0);
        EXPECT_EQ(error, 0);
        expectIdentity(inverse * m, 1e-10);
    }
}

TEST(Matrix33, inverse_may_replace_its_matrix) {
    Gan_Matrix33 m{2, 0, 0, 0, 4, 0, 0, 0, 8};
    ASSERT_NE(gan_mat33_invert(&m, &m, nullptr), 0);
    expectIdentity(m * Gan_Matrix33{2, 0, 0, 0, 4, 0, 0, 0, 8}, 0);
}

TEST(Matrix33, unlike_scales_of_rows_and_columns_do_not_make_a_matrix_singular) {
    Gan_Matrix33 const m{1e-12, 0, 1e6, 0, 1e-12, 1e6, 1e-20, 0, 1};
    Gan_Matrix33 inverse = untouched;
    EXPECT_NE(gan_mat33_invert(&m, &inverse, nullptr), 0);
}

struct Refused {
    char const * name;
    Gan_Matrix33 matrix;
};

class Matrix33Refusal : public testing::TestWithParam<Refused> {};

TEST_P(Matrix33Refusal, inversion_fails_and_leaves_the_result_alone) {
    Gan_Matrix33 inverse = untouched;
    int error = 7;
    EXPECT_EQ(gan_mat33_invert(&GetParam().matrix, &inverse, &error), 0);
    EXPECT_EQ(error, 1);
    EXPECT_EQ(inverse.xx, 9);
    EXPECT_EQ(inverse.zz, 9);
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(, Matrix33Refusal,
                         testing::Values(Refused{"zero", {}}, Refused{"rank_one", {1, 2, 3, 2, 4, 6, 3, 6, 9}},
                                         Refused{"rank_two", {1, 2, 3, 4, 5, 6, 7, 8, 9}},
                                         Refused{"rank_two_in_tenths", {.1, .2, .3, .4, .5, .6, .7, .8, .9}},
                                         Refused{"infinite", {1, 0, 0, 0, infinity, 0, 0, 0, 1}},
                                         Refused{"not_a_number", {1, 0, 0, 0, 1, 0, notANumber, 0, 1}},
                                         Refused{"inverse_too_large", {1e-320, 0, 0, 0, 1e-320, 0, 0, 0, 1e-320}}),
                         [](auto const & test) { return std::string(test.param.name); });

} // namespace
