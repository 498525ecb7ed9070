#include "parameter/support/ParameterTest.h"
#include "parameter/support/SlowCurve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

using namespace Kyn;
using namespace Test;

constexpr double LARGEST = std::numeric_limits<double>::max();
constexpr Extrapolation BUILT_IN[] = {EXTRAPOLATION_NONE, EXTRAPOLATION_CONSTANT, EXTRAPOLATION_LINEAR};

void setModes(NumericParameter<double> & parameter, Extrapolation before, Extrapolation after) {
    parameter.setExtrapolationBefore(before);
    parameter.setExtrapolationAfter(after);
}

double valueOf(Curve const & curve, double time, Extrapolation mode = EXTRAPOLATION_CONSTANT) {
    NumericParameter<double> parameter(true, "Curve");
    load(parameter, curve);
    setModes(parameter, mode, mode);
    return parameter.value(at(time));
}

Curve oneSegment(CurveKey const & first, double time, double value) {
    return {"segment", {first, key(time, value, INTERPOLATION_CONSTANT)}};
}

// The named curves

class AwkwardCurve : public testing::TestWithParam<Curve> {};

/// Next to a key a root may round to the end of its segment, and is then none.
bool isBesideKey(Curve const & curve, double time) {
    return std::any_of(curve.keys.begin(), curve.keys.end(), [time](CurveKey const & key) {
        return time == std::nextafter(key.time, INFINITE) || time == std::nextafter(key.time, -INFINITE);
    });
}

TEST_P(AwkwardCurve, is_what_a_slow_evaluator_makes_of_it) {
    NumericParameter<double> parameter(true, "Curve");
    load(parameter, GetParam());
    for (Extrapolation const before : BUILT_IN) {
        for (Extrapolation const after : BUILT_IN) {
            setModes(parameter, before, after);
            for (double const time : awkwardTimes(GetParam())) {
                if (isBesideKey(GetParam(), time))
                    continue;
                Range const range = slowValue(GetParam(), time, before, after);
                double const value = parameter.value(at(time));
                EXPECT_TRUE(range.holds(value)) << value << " outside " << range << " at " << time;
            }
        }
    }
}

TEST_P(AwkwardCurve, is_what_the_stated_cubic_gives_close_to_keys_and_in_between) {
    NumericParameter<double> parameter(true, "Curve");
    load(parameter, GetParam());
    std::vector<CurveKey> const & keys = GetParam().keys;
    for (double const time : awkwardTimes(GetParam())) {
        for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
            bool const within = keys[i].time < time && time < keys[i + 1].time;
            if (!within || keys[i].record.eType != INTERPOLATION_BEZIER)
                continue;
            double const size = std::fabs(keys[i].value) + std::fabs(keys[i + 1].value) +
                                std::fabs(keys[i].record.dOutValue) + std::fabs(keys[i].record.dInValue);
            EXPECT_NEAR(parameter.value(at(time)), statedBezier(keys[i], keys[i + 1], time), 1e-7 * size) << time;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Named, AwkwardCurve, testing::ValuesIn(awkwardCurves()), [](auto const & row) {
    std::string name = row.param.name;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
});

// Bezier

TEST(Bezier, without_a_cubic_term_or_with_a_handle_that_is_not_finite_is_zero) {
    EXPECT_EQ(valueOf(oneSegment(bezierKey(0, 5, 1, 0, -1, 0), 3, 5), 1.5), 0.0);
    EXPECT_EQ(valueOf(oneSegment(bezierKey(30, 5, 10, 0, -10, 0), 60, 5), 45), 0.0);
    for (double const wrong : {INFINITE, -INFINITE, NOT_A_NUMBER}) {
        EXPECT_EQ(valueOf(oneSegment(bezierKey(0, 5, wrong, 0, -1, 0), 10, 5), 5), 0.0);
        EXPECT_EQ(valueOf(oneSegment(bezierKey(0, 5, 1, 0, wrong, 0), 10, 5), 5), 0.0);
    }
}

TEST(Bezier, is_zero_where_the_only_root_rounds_to_an_end) {
    // 4.9e-324 / 30 is nearer to 0 than to any other double.
    double const tiniest = std::numeric_limits<double>::denorm_min();
    EXPECT_EQ(valueOf(oneSegment(bezierKey(0, 5, 10, 0, 0, 0), 10, 5), tiniest), 0.0);
    // With several roots the next one counts then, here behind the first of two bends.
    Curve const & bends = awkwardCurve("handles as far as they go");
    EXPECT_EQ(valueOf(bends, tiniest), statedBezier(bends.keys[0], bends.keys[1], tiniest));
    EXPECT_NEAR(valueOf(bends, tiniest), 1.25, 1e-4);
    // And where the others are no real numbers, their real part is taken for a root all the same.
    Curve const & overshoot = awkwardCurve("overshooting both ways");
    EXPECT_NEAR(valueOf(overshoot, std::nextafter(10.0, 0.0)), 0.4375, 1e-12);
    // At its end this curve runs a million times faster than its parameter: one unit before the key, s is 1.
    double const last = std::nextafter(10.0, 0.0);
    CurveKey const first = bezierKey(0, 5, 0, 0, -1e6, 0);
    EXPECT_EQ(statedBezier(first, key(10, 5, INTERPOLATION_CONSTANT), last), valueOf(oneSegment(first, 10, 5), last));
    EXPECT_EQ(valueOf(oneSegment(first, 10, 5), 10), 5.0);
}

TEST(Bezier, quick_and_stated_way_agree_on_random_segments_that_run_forward) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    for (int round = 0; round < 20000; ++round) {
        double const length = std::exp2(40 * share(random) - 20);
        double const start = (share(random) - 0.5) * 8 * length;
        // Every third curve stands still at an end; times crowd towards both.
        double const out = round % 3 == 0 ? 0.0 : share(random) * length;
        double const in = round % 3 == 1 ? 0.0 : -share(random) * (length - out);
        double const near = std::pow(share(random), 6.0);
        CurveKey const first = bezierKey(start, share(random), out, share(random) - 0.5, in, share(random) - 0.5);
        CurveKey const last = key(start + length, share(random), INTERPOLATION_CONSTANT);
        Curve const curve{"random", {first, last}};
        double const time = start + (round % 2 ? near : 1 - near) * length;
        if (time <= first.time || time >= last.time || isBesideKey(curve, time))
            continue;
        Range const range = slowValue(curve, time, BUILT_IN[0], BUILT_IN[0]);
        double const stated = statedBezier(first, last, time);
        double const value = valueOf(curve, time);
        ASSERT_TRUE(range.holds(stated)) << stated << " outside " << range;
        ASSERT_TRUE(range.holds(value)) << value << " outside " << range;
        ASSERT_NEAR(value, stated, 1e-7);
    }
}

// Other types

TEST(Interpolation, of_a_type_that_nobody_registered_is_zero) {
    for (unsigned int const type : {4u, 5u, 4294967295u})
        EXPECT_EQ(valueOf(oneSegment(key(0, 5, static_cast<Interpolation>(type)), 10, 6), 4), 0.0) << type;
}

// Extrapolation beyond what the slow evaluator judges

TEST(Extrapolation, of_a_mode_that_nobody_registered_is_zero) {
    for (double const time : {-1.0, 3.0})
        EXPECT_EQ(valueOf(oneSegment(key(0, 4, INTERPOLATION_LINEAR), 2, 5), time, EXTRAPOLATION_CUSTOM), 0.0);
}

TEST(Extrapolation, of_a_custom_type_runs_through_a_tenth_of_the_segment) {
    // There the first custom type reads as constant, the left key's 4, and any later one as zero.
    Curve const first = oneSegment(key(0, 4, INTERPOLATION_CUSTOM), 2, 5);
    EXPECT_DOUBLE_EQ(valueOf(first, -1, EXTRAPOLATION_LINEAR), 4.0);
    EXPECT_DOUBLE_EQ(valueOf(first, 3, EXTRAPOLATION_LINEAR), 10.0);
    Curve const later = oneSegment(key(0, 4, static_cast<Interpolation>(5)), 2, 5);
    EXPECT_DOUBLE_EQ(valueOf(later, 3, EXTRAPOLATION_LINEAR), 30.0);
}

// Many keys

struct Spacing {
    char const * name;
    double (*gap)(std::mt19937 &);
};

class ManyKeys : public testing::TestWithParam<std::tuple<Spacing, int>> {};

TEST_P(ManyKeys, are_found_and_evaluated_as_a_scan_does) {
    auto const [spacing, count] = GetParam();
    std::mt19937 random(static_cast<unsigned int>(count));
    std::uniform_real_distribution<double> any(0.0, 1.0);
    Curve curve;
    double time = 1001 - 500 * any(random);
    for (int i = 0; i < count; ++i) {
        double const gap = spacing.gap(random);
        curve.keys.push_back(
            bezierKey(time, any(random) * 100, gap * any(random), any(random), -gap * any(random), any(random)));
        curve.keys.back().record.eType = static_cast<Interpolation>(random() % 4);
        time += gap;
    }
    NumericParameter<double> parameter(true, "Curve");
    load(parameter, curve);
    setModes(parameter, EXTRAPOLATION_LINEAR, EXTRAPOLATION_CONSTANT);
    std::vector<double> times;
    for (int i = 0; i < 1500; ++i) {
        CurveKey const & near = curve.keys[random() % curve.keys.size()];
        times.push_back(near.time);
        times.push_back(std::nextafter(near.time, i % 2 ? INFINITE : -INFINITE));
        times.push_back(curve.keys.front().time - 3 + any(random) * (time - curve.keys.front().time + 6));
    }
    for (double const asked : times) {
        bool const hit = std::any_of(curve.keys.begin(), curve.keys.end(),
                                     [asked](CurveKey const & key) { return key.time == asked; });
        ASSERT_EQ(parameter.isKeyframe(at(asked)), hit) << asked;
        double const value = parameter.value(at(asked));
        Range const range = slowValue(curve, asked, EXTRAPOLATION_LINEAR, EXTRAPOLATION_CONSTANT);
        ASSERT_TRUE(range.holds(value)) << value << " outside " << range << " at " << asked;
    }
}

Spacing const SPACINGS[] = {
    {"each_frame", [](std::mt19937 &) { return 1.0; }},
    {"irregular", [](std::mt19937 & random) { return 0.01 + 0.001 * static_cast<double>(random() % 5000); }},
    {"in_clusters", [](std::mt19937 & random) { return random() % 20 ? 1.0 / 1024 : 900.0; }},
    {"over_all_scales", [](std::mt19937 & random) { return std::ldexp(1.0, static_cast<int>(random() % 40) - 20); }},
};

INSTANTIATE_TEST_SUITE_P(, ManyKeys,
                         testing::Combine(testing::ValuesIn(SPACINGS), testing::Values(2, 3, 10, 1000, 10000)),
                         [](auto const & row) {
                             return std::get<0>(row.param).name + std::string("_") +
                                    std::to_string(std::get<1>(row.param));
                         });

TEST(OddTimes, none_is_out_of_bounds) {
    NumericParameter<double> parameter(true, "Curve");
    load(parameter, awkwardCurve("every type in turn"));
    setModes(parameter, EXTRAPOLATION_CONSTANT, EXTRAPOLATION_CONSTANT);
    for (auto const & [time, value] : {std::pair(-INFINITE, 1.0), {-LARGEST, 1.0}, {INFINITE, 12.0}})
        EXPECT_EQ(parameter.value(at(time)), value) << time;
    parameter.value(at(NOT_A_NUMBER));
    parameter.setValue(3, at(-INFINITE));
    parameter.setValue(4, at(INFINITE));
    parameter.setValue(8, at(NOT_A_NUMBER));
    EXPECT_EQ(parameter.value(at(INFINITE)), 4.0);
    EXPECT_EQ(parameter.value(at(0)), 5.0);
    EXPECT_EQ(parameter.numKeyframes(View(0)), 10u);
}

} // namespace
