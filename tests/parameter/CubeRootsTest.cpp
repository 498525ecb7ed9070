#include "parameter/kyn/CubeRoots.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <complex>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using Rational = boost::multiprecision::cpp_rational;

constexpr double infinity = std::numeric_limits<double>::infinity();

struct Cubic {
    double a, b, c; // x^3 + a x^2 + b x + c
};

std::ostream & operator<<(std::ostream & stream, Cubic const & cubic) {
    return stream << std::hexfloat << "x^3 + " << cubic.a << " x^2 + " << cubic.b << " x + " << cubic.c;
}

struct Roots {
    int count;
    double values[3][2];
};

Roots solve(Cubic const & cubic) {
    Roots roots{-1, {{7, 7}, {7, 7}, {7, 7}}};
    double const coefficients[] = {cubic.c, cubic.b, cubic.a};
    roots.count = Kyn::cuberoots(coefficients, roots.values);
    return roots;
}

// Both computed in fractions, without any rounding.
int signAt(Cubic const & cubic, double x) {
    if (std::isinf(x))
        return x < 0 ? -1 : 1;
    Rational const X(x);
    return Rational(((X + Rational(cubic.a)) * X + Rational(cubic.b)) * X + Rational(cubic.c)).sign();
}

int signOfDiscriminant(Cubic const & cubic) {
    Rational const a(cubic.a), b(cubic.b), c(cubic.c);
    return Rational(18 * a * b * c - 4 * a * a * a * c + a * a * b * b - 4 * b * b * b - 27 * c * c).sign();
}

double moved(double x, int units) {
    for (int i = 0; i < std::abs(units); ++i)
        x = std::nextafter(x, units > 0 ? infinity : -infinity);
    return x;
}

// The sign of the cubic just below the real root of this index (from 0), or just above the one before it.
int signBefore(std::size_t index) {
    return index % 2 == 0 ? -1 : 1;
}

// Two units around each real root, or around a group of roots that lie closer, the cubic changes its sign as the roots
// in there demand; and as many roots are real as the discriminant says.
void expectRoots(Cubic const & cubic) {
    constexpr int units = 2;
    Roots const roots = solve(cubic);
    ASSERT_EQ(roots.count, 3) << cubic;
    bool const bAllReal = roots.values[1][1] == 0.0;
    ASSERT_EQ(bAllReal, signOfDiscriminant(cubic) >= 0) << cubic;
    std::size_t const realCount = bAllReal ? 3 : 1;
    for (std::size_t begin = 0, end = 0; begin < realCount; begin = end) {
        double const lower = moved(roots.values[begin][0], -units);
        double upper = moved(roots.values[begin][0], units);
        for (end = begin + 1; end < realCount && moved(roots.values[end][0], -units) <= upper; ++end)
            upper = moved(roots.values[end][0], units);
        EXPECT_EQ(roots.values[begin][1], 0.0) << cubic;
        EXPECT_NE(signAt(cubic, lower), -signBefore(begin)) << cubic << " at " << roots.values[begin][0];
        EXPECT_NE(signAt(cubic, upper), -signBefore(end)) << cubic << " at " << roots.values[begin][0];
        if (end < realCount) {
            EXPECT_LE(upper, roots.values[end][0]) << cubic;
        }
    }
}

// The roots multiplied out; the sums are exact for short numbers of like size, and rounded for all others.
Cubic withRoots(double p, double q, double r) {
    return {-(p + q + r), p * q + q * r + r * p, -p * q * r};
}

struct Exact {
    Cubic cubic;
    double roots[3];
};

TEST(CubeRoots, exact_ones_come_out_ascending_and_to_the_last_digit) {
    for (auto const & [cubic, expected] : {Exact{withRoots(-4, 0.5, 8), {-4, 0.5, 8}},
                                           {withRoots(1, 1, 3), {1, 1, 3}},
                                           {withRoots(-5, 7, 7), {-5, 7, 7}},
                                           {withRoots(1.5, 1.5, 1.5), {1.5, 1.5, 1.5}},
                                           {{0, 0, 0}, {0, 0, 0}},
                                           {{-3, 0, 0}, {0, 0, 3}},
                                           {{0, -4, 0}, {-2, 0, 2}},
                                           {{-2, 1, 0}, {0, 1, 1}},
                                           {{-0x1p1000, 0x1p0, 0}, {0, 0x1p-1000, 0x1p1000}}}) {
        Roots const roots = solve(cubic);
        ASSERT_EQ(roots.count, 3) << cubic;
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(roots.values[i][0], expected[i]) << cubic << ", root " << i;
            EXPECT_EQ(roots.values[i][1], 0.0) << cubic << ", root " << i;
        }
    }
}

TEST(CubeRoots, real_ones_of_awkward_cubics_are_within_two_units_and_as_many_as_there_are) {
    std::vector<Cubic> const rootsFarApart{
        {-1e10, 1, -1e-10}, {-1e200, 1, -1e-250}, {1e300, 1e300, 1e-300}, {1, 1e300, 1e-300}};
    std::vector<Cubic> const extremeSizes{{DBL_MAX, -DBL_MAX, DBL_MAX}, {-DBL_MAX, -DBL_MAX, -DBL_MAX},
                                          {-DBL_MAX, -DBL_MAX, 1},      {DBL_TRUE_MIN, DBL_TRUE_MIN, DBL_TRUE_MIN},
                                          {1, -1, DBL_TRUE_MIN},        {0, 0, DBL_TRUE_MIN}};
    std::vector<Cubic> const nextToMultipleRoots{
        {-3, 3, moved(-1, -1)}, {-3, 3, moved(-1, 1)},  {-3, moved(3, -1), moved(-1, 1)},
        {-5, 7, moved(-3, 1)},  {-5, 7, moved(-3, -1)}, withRoots(1, 1 + 0x1p-26, 1 - 0x1p-26)};
    for (std::vector<Cubic> const & cubics : {rootsFarApart, extremeSizes, nextToMultipleRoots})
        std::for_each(cubics.begin(), cubics.end(), expectRoots);
    expectRoots({3e15, -3e15, 1e15}); // Of a Bezier segment with nearly equal handles.
}

class RandomCubics : public testing::Test {
protected:
    double unit() { return std::uniform_real_distribution<double>(-1, 1)(m_generator); }
    int whole(int limit) { return std::uniform_int_distribution<int>(-limit, limit)(m_generator); }
    double wild(int limit) { return std::ldexp(unit(), whole(limit)); }

    std::mt19937_64 m_generator{7};
};

TEST_F(RandomCubics, of_all_sizes) {
    for (int i = 0; i < 700; ++i) {
        expectRoots({unit(), unit(), unit()});
        for (int const limit : {20, 60, 300, 1000})
            expectRoots({wild(limit), wild(limit), wild(limit)});
        for (int const limit : {10, 60, 300})
            expectRoots(withRoots(wild(limit), wild(limit), wild(limit)));
    }
}

TEST_F(RandomCubics, a_few_units_from_multiple_roots) {
    for (int i = 0; i < 2000; ++i) {
        double const root = whole(1000);
        Cubic const twofold = withRoots(root, root, wild(40));
        expectRoots({twofold.a, twofold.b, moved(twofold.c, whole(2))});
        double const share = unit();
        Cubic const threefold = withRoots(share, share, share);
        expectRoots({threefold.a, moved(threefold.b, whole(2)), moved(threefold.c, whole(2))});
        double const far = std::ldexp(whole(1000), whole(300));
        expectRoots(withRoots(far, far, std::ldexp(whole(1000), whole(300))));
    }
}

TEST_F(RandomCubics, without_a_constant_have_an_exact_zero) {
    for (int i = 0; i < 1000; ++i) {
        Cubic const cubic{wild(500), wild(500), i % 2 == 0 ? 0.0 : -0.0};
        expectRoots(cubic);
        Roots const roots = solve(cubic);
        EXPECT_TRUE(roots.values[0][0] == 0 || (roots.values[1][1] == 0 && roots.values[1][0] == 0) ||
                    roots.values[2][0] == 0)
            << cubic;
    }
}

// The pair is judged by what the three roots must add up and multiply to.
TEST_F(RandomCubics, complex_pair_follows_the_real_root_and_fits_the_coefficients) {
    int pairs = 0;
    for (int i = 0; i < 2000; ++i) {
        double const r = wild(30);
        std::complex<double> const z(wild(30), std::fabs(wild(30)) + 0x1p-40);
        Cubic const cubic{-(r + 2 * z.real()), 2 * r * z.real() + std::norm(z), -r * std::norm(z)};
        Roots const roots = solve(cubic);
        if (roots.values[1][1] == 0.0)
            continue;
        ++pairs;
        EXPECT_EQ(roots.values[2][0], roots.values[1][0]);
        EXPECT_EQ(roots.values[2][1], -roots.values[1][1]);
        EXPECT_GT(roots.values[1][1], 0.0);
        double const x = roots.values[0][0];
        std::complex<double> const pair(roots.values[1][0], roots.values[1][1]);
        double const size = std::abs(pair) + std::fabs(x);
        EXPECT_NEAR(-(x + 2 * pair.real()), cubic.a, 8e-16 * size) << cubic;
        EXPECT_NEAR(2 * x * pair.real() + std::norm(pair), cubic.b, 3e-15 * size * std::abs(pair)) << cubic;
        EXPECT_NEAR(-x * std::norm(pair) / cubic.c, 1, 3e-15) << cubic;
    }
    EXPECT_GT(pairs, 1500);
}

TEST(CubeRoots, nearly_real_pair_keeps_its_small_imaginary_part) {
    // (x - 3) ((x - 1)^2 + 2^-50)
    Roots const roots = solve({-5, 7 + 0x1p-50, -3 - 3 * 0x1p-50});
    ASSERT_EQ(roots.count, 3);
    EXPECT_NEAR(roots.values[1][0], 1, 1e-15);
    EXPECT_NEAR(roots.values[1][1], 0x1p-25, 1e-15);
}

TEST(CubeRoots, coefficient_that_is_not_finite_gives_no_roots_and_writes_nothing) {
    for (double const bad : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
        for (Cubic const & cubic : {Cubic{bad, 1, 1}, Cubic{1, bad, 1}, Cubic{1, 1, bad}, Cubic{bad, bad, 0}}) {
            Roots const roots = solve(cubic);
            EXPECT_EQ(roots.count, 0);
            EXPECT_EQ(roots.values[0][0], 7);
            EXPECT_EQ(roots.values[2][1], 7);
        }
    }
}

} // namespace
