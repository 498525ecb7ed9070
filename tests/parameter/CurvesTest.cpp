#include "parameter/support/At.h"
#include "parameter/support/AwkwardCurves.h"
#include "parameter/support/SlowCurve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

using namespace Kyn;
using namespace Test;

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double LARGEST = std::numeric_limits<double>::max();
constexpr Extrapolation BUILT_IN[] = {EXTRAPOLATION_NONE, EXTRAPOLATION_CONSTANT, EXTRAPOLATION_LINEAR};

template <class T>
void setModes(NumericParameter<T> & parameter, Extrapolation before, Extrapolation after) {
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

TEST(Bezier, default_handles_are_a_tenth_of_the_way_and_pass_the_middle) {
    NumericParameter<double> parameter(true, "Curve");
    parameter.setDefaultInterpolation(INTERPOLATION_BEZIER);
    parameter.setValue(0.0, at(0));
    parameter.setValue(1.0, at(10));
    EXPECT_EQ(parameter.interpolationData({&parameter, View(0), 0}),
              (InterpolationData{INTERPOLATION_BEZIER, 1, 0.1, -1, -0.1}));
    EXPECT_NEAR(parameter.value(at(5)), 0.5, 1e-15);
    for (double time = 0; time < 10; time += 0.125)
        EXPECT_LT(parameter.value(at(time)), parameter.value(at(time + 0.125)));
}

TEST(Bezier, of_several_roots_the_lowest_counts) {
    // Time runs from 0 beyond 10, back below 0 and on to 10, while the value follows the parameter.
    CurveKey const first = bezierKey(0, 0, 40, 1.0 / 3, -40, -1.0 / 3);
    for (double const time : {0.5, 3.0, 5.0, 7.0, 9.5})
        EXPECT_LT(valueOf(oneSegment(first, 10, 1), time), 0.2) << time;
}

TEST(Bezier, without_a_cubic_term_is_zero) {
    EXPECT_EQ(valueOf(oneSegment(bezierKey(0, 5, 1, 0, -1, 0), 3, 5), 1.5), 0.0);
    EXPECT_EQ(valueOf(oneSegment(bezierKey(30, 5, 10, 0, -10, 0), 60, 5), 45), 0.0);
}

TEST(Bezier, with_a_cubic_term_of_rounding_size_is_an_ordinary_curve) {
    double const third = 10.0 / 3;
    ASSERT_NE(10 - 3 * third - (3 * ((10 - third) - third) - 3 * third), 0.0);
    for (double const time : {0.001, 2.5, 5.0, 9.99})
        EXPECT_NEAR(valueOf(oneSegment(bezierKey(0, 0, third, third, -third, -third), 10, 10), time), time, 1e-13);
}

TEST(Bezier, with_a_handle_that_is_not_finite_is_zero) {
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

TEST(Bezier, exactly_on_a_key_is_the_key) {
    for (Curve const & curve : awkwardCurves())
        for (CurveKey const & key : curve.keys)
            EXPECT_EQ(valueOf(curve, key.time), key.value) << curve.name;
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

TEST(Interpolation, none_is_zero_and_constant_the_left_key) {
    EXPECT_EQ(valueOf(oneSegment(key(0, 5, INTERPOLATION_NONE), 10, 6), 4), 0.0);
    EXPECT_EQ(valueOf(oneSegment(key(0, 5, INTERPOLATION_CONSTANT), 10, 6), 9.999), 5.0);
}

TEST(Interpolation, from_the_last_key_is_constant) {
    for (Interpolation const type : {INTERPOLATION_LINEAR, INTERPOLATION_BEZIER, INTERPOLATION_CONSTANT}) {
        NumericParameter<double> parameter(true, "Curve");
        load(parameter, {"", {key(0, 1, type), key(10, 2, type)}});
        KeyframeIndex const last{&parameter, View(0), 1};
        EXPECT_EQ(parameter.interpolate(BoundingKeyframes(last, last), at(12)), 2.0) << type;
    }
}

TEST(Interpolation, of_a_type_that_nobody_registered_is_zero) {
    EXPECT_EQ(valueOf(oneSegment(key(0, 5, INTERPOLATION_CUSTOM), 10, 6), 4), 0.0);
    EXPECT_EQ(valueOf(oneSegment(key(0, 5, static_cast<Interpolation>(4294967295u)), 10, 6), 4), 0.0);
}

TEST(Interpolation, of_a_plain_parameter_holds_the_left_key_whatever_its_type) {
    Parameter<QString> text(true, "Text");
    Parameter<double> number(true, "Number");
    text.setValue("a", at(0));
    text.setValue("b", at(10));
    number.setValue(1, at(0));
    number.setValue(2, at(10));
    for (unsigned int type = 0; type < 6; ++type) {
        text.setInterpolation(static_cast<Interpolation>(type), at(0));
        number.setInterpolation(static_cast<Interpolation>(type), at(0));
        number.setExtrapolationBefore(static_cast<Extrapolation>(type));
        number.setExtrapolationAfter(static_cast<Extrapolation>(type));
        EXPECT_EQ(text.value(at(9.5)), "a");
        EXPECT_EQ(number.value(at(9.5)), 1);
        EXPECT_EQ(number.value(at(-3)), 1);
        EXPECT_EQ(number.value(at(30)), 2);
    }
}

// Extrapolation

struct Beyond {
    char const * name;
    std::vector<CurveKey> keys;
    Extrapolation mode;
    double time;
    double value;
};

std::ostream & operator<<(std::ostream & stream, Beyond const & row) {
    return stream << row.name;
}

class ExtrapolationRule : public testing::TestWithParam<Beyond> {};

TEST_P(ExtrapolationRule, gives_the_value) {
    EXPECT_DOUBLE_EQ(valueOf({"", GetParam().keys}, GetParam().time, GetParam().mode), GetParam().value);
}

constexpr Extrapolation HOLD = EXTRAPOLATION_CONSTANT;
constexpr Extrapolation GO_ON = EXTRAPOLATION_LINEAR;
CurveKey const HANDLED = bezierKey(0, 0, 1, 0.2, -1, -0.1);
CurveKey const NOTHING = key(10, 1, INTERPOLATION_NONE);

INSTANTIATE_TEST_SUITE_P(
    , ExtrapolationRule,
    testing::Values(
        Beyond{"none_before", {HANDLED, NOTHING}, EXTRAPOLATION_NONE, -5, 0},
        Beyond{"none_after", {HANDLED, NOTHING}, EXTRAPOLATION_NONE, 15, 0},
        Beyond{"unregistered", {HANDLED, NOTHING}, EXTRAPOLATION_CUSTOM, 15, 0},
        Beyond{"constant_before", {key(2, 7, INTERPOLATION_NONE), NOTHING}, HOLD, -5, 7},
        Beyond{"constant_after", {HANDLED, NOTHING}, HOLD, 15, 1},
        Beyond{"handle_before", {HANDLED, NOTHING}, GO_ON, -10, -2},
        Beyond{"handle_after", {HANDLED, NOTHING}, GO_ON, 20, 2},
        Beyond{"line_before", {key(0, 1, INTERPOLATION_LINEAR), key(2, 5, INTERPOLATION_LINEAR)}, GO_ON, -1, -1},
        Beyond{"line_after", {key(0, 1, INTERPOLATION_LINEAR), key(2, 5, INTERPOLATION_LINEAR)}, GO_ON, 3, 7},
        Beyond{
            "flat_behind_constant", {key(0, 1, INTERPOLATION_CONSTANT), key(2, 5, INTERPOLATION_LINEAR)}, GO_ON, 9, 5},
        Beyond{
            "flat_before_constant", {key(0, 1, INTERPOLATION_CONSTANT), key(2, 5, INTERPOLATION_LINEAR)}, GO_ON, -9, 1},
        // The line runs from zero, a tenth along the segment, through the end key: slope 4 / -0.2, and 5 / 0.2.
        Beyond{"from_zero_before", {key(0, 4, INTERPOLATION_NONE), key(2, 5, INTERPOLATION_CONSTANT)}, GO_ON, -1, 24},
        Beyond{"from_zero_after", {key(0, 4, INTERPOLATION_NONE), key(2, 5, INTERPOLATION_CONSTANT)}, GO_ON, 3, 30},
        // A tenth along, the first custom type reads as constant: the left key.
        Beyond{"custom_before", {key(0, 4, INTERPOLATION_CUSTOM), key(2, 5, INTERPOLATION_CONSTANT)}, GO_ON, -1, 4},
        Beyond{"custom_after", {key(0, 4, INTERPOLATION_CUSTOM), key(2, 5, INTERPOLATION_CONSTANT)}, GO_ON, 3, 10},
        Beyond{"later_custom_is_zero",
               {key(0, 4, static_cast<Interpolation>(5)), key(2, 5, INTERPOLATION_CONSTANT)},
               GO_ON,
               3,
               30},
        // After the end it is the last but one key that counts; the last key's own type says nothing.
        Beyond{"last_but_one_counts",
               {key(0, 9, INTERPOLATION_CONSTANT), key(1, 1, INTERPOLATION_LINEAR), bezierKey(2, 2, 1, 50, 1, 50)},
               GO_ON,
               4,
               4},
        Beyond{"single_before", {bezierKey(4, 7, 1, 1, 1, 1)}, GO_ON, -100, 7},
        Beyond{"single_after", {bezierKey(4, 7, 1, 1, 1, 1)}, GO_ON, 100, 7}),
    [](auto const & row) { return row.param.name; });

// Member types

TEST(MemberTypes, integers_between_keys_are_cut_towards_zero) {
    NumericParameter<int> parameter(true, "Curve");
    load(parameter, oneSegment(key(0, 1, INTERPOLATION_LINEAR), 10, 2));
    EXPECT_EQ(parameter.value(at(9.999999)), 1);
    load(parameter, oneSegment(key(0, -1, INTERPOLATION_LINEAR), 10, -2));
    EXPECT_EQ(parameter.value(at(9.999999)), -1);
}

/// A computed number in each member type, as a converter of its own sees it.
template <class T>
T cut(double number) {
    if (std::is_same_v<T, bool>)
        return static_cast<T>(number != 0.0);
    if (std::is_floating_point_v<T>)
        return static_cast<T>(std::isnan(number) ? std::numeric_limits<double>::lowest() : number);
    if (std::isnan(number))
        return T(0);
    double const low = static_cast<double>(std::numeric_limits<T>::lowest());
    double const high = static_cast<double>(std::numeric_limits<T>::max());
    return number <= low    ? std::numeric_limits<T>::lowest()
           : number >= high ? std::numeric_limits<T>::max()
                            : static_cast<T>(number);
}

template <class T>
class MemberType : public testing::Test {};
typedef testing::Types<float, int, unsigned int, bool> OtherNumbers;
TYPED_TEST_SUITE(MemberType, OtherNumbers);

TYPED_TEST(MemberType, computes_in_double_and_cuts_the_result) {
    std::mt19937 random(5);
    std::uniform_int_distribution<int> any(0, 1000);
    for (int round = 0; round < 300; ++round) {
        Curve curve;
        for (int i = 0; i < 5; ++i) {
            double const value = std::is_same_v<TypeParam, bool> ? any(random) % 2 : any(random);
            curve.keys.push_back(bezierKey(10.0 * i, value, any(random) * 0.005, any(random) * 0.5 - 250,
                                           any(random) * -0.005, any(random) * 0.5 - 250));
            curve.keys.back().record.eType = static_cast<Interpolation>(any(random) % 4);
        }
        NumericParameter<TypeParam> parameter(true, "Curve");
        NumericParameter<double> reference(true, "Curve");
        load(parameter, curve);
        load(reference, curve);
        setModes(parameter, BUILT_IN[round % 3], BUILT_IN[round / 3 % 3]);
        setModes(reference, BUILT_IN[round % 3], BUILT_IN[round / 3 % 3]);
        for (double time = -20.3; time < 60; time += 0.7)
            ASSERT_EQ(parameter.value(at(time)), cut<TypeParam>(reference.value(at(time)))) << time;
    }
}

TYPED_TEST(MemberType, takes_what_does_not_fit_to_its_ends_and_what_is_no_number_to_zero_or_true) {
    struct Row {
        double outTime, outValue, number;
    };
    // Linear extrapolation to time -1 divides the handle's value by its time, before a key (0, 0).
    for (Row const & row : {Row{0, 0, NOT_A_NUMBER},
                            {1, 1e39, -1e39},
                            {-1, 1e39, 1e39},
                            {0, 1, -INFINITE},
                            {0, -1, INFINITE},
                            {1, 0.5, -0.5},
                            {-1, 0.25, 0.25},
                            {1, 0, 0}}) {
        NumericParameter<TypeParam> parameter(true, "Curve");
        load(parameter, oneSegment(bezierKey(0, 0, row.outTime, row.outValue, 0, 0), 10, 1));
        setModes(parameter, EXTRAPOLATION_LINEAR, EXTRAPOLATION_LINEAR);
        // Limits of a floating type are its finite extremes.
        TypeParam const expected =
            std::is_floating_point_v<TypeParam> && std::fabs(row.number) > 1e38
                ? (row.number > 0 ? std::numeric_limits<TypeParam>::max() : std::numeric_limits<TypeParam>::lowest())
                : cut<TypeParam>(row.number);
        if (std::is_floating_point_v<TypeParam> && std::isnan(row.number))
            EXPECT_EQ(parameter.value(at(-1)), std::numeric_limits<TypeParam>::lowest());
        else
            EXPECT_EQ(parameter.value(at(-1)), expected) << row.number;
    }
}

// Many keys

/// Notes which keys it was asked to run between.
class Recording : public NumericParameter<double> {
public:
    Recording() : NumericParameter<double>(true, "Curve") {}

    double interpolate(BoundingKeyframes const & keys, Context const & context) const override {
        before = static_cast<int>(keys.before.index);
        after = static_cast<int>(keys.after.index);
        return NumericParameter<double>::interpolate(keys, context);
    }
    double extrapolate(BoundingKeyframes const & keys, Context const & context) const override {
        before = keys.before.isNull() ? -1 : static_cast<int>(keys.before.index);
        after = keys.after.isNull() ? -1 : static_cast<int>(keys.after.index);
        return NumericParameter<double>::extrapolate(keys, context);
    }

    mutable int before = -2;
    mutable int after = -2;
};

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
    Recording parameter;
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
        parameter.before = parameter.after = -2;
        double const value = parameter.value(at(asked));
        int before = -1;
        int after = -1;
        bool hit = false;
        for (int i = 0; i < count; ++i) {
            double const keyTime = curve.keys[static_cast<std::size_t>(i)].time;
            hit = hit || keyTime == asked;
            before = keyTime < asked ? i : before;
            after = keyTime > asked && after < 0 ? i : after;
        }
        ASSERT_EQ(parameter.isKeyframe(at(asked)), hit) << asked;
        ASSERT_EQ(std::make_pair(parameter.before, parameter.after),
                  hit ? std::make_pair(-2, -2) : std::make_pair(before, after))
            << asked;
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

TEST(EqualTimes, exact_time_gives_the_first_key_and_both_sides_their_own_segments) {
    NumericParameter<double> parameter(true, "Curve");
    load(parameter, {"",
                     {key(0, 0, INTERPOLATION_LINEAR), key(4, 4, INTERPOLATION_LINEAR), key(6, 9, INTERPOLATION_LINEAR),
                      key(8, 1, INTERPOLATION_LINEAR)}});
    ASSERT_EQ(parameter.moveChangeKeyframe(9, at(6), Time(4)), 2u);
    EXPECT_EQ(parameter.value(at(4)), 4.0);
    EXPECT_EQ(parameter.value(at(2)), 2.0);
    EXPECT_EQ(parameter.value(at(6)), 5.0);
}

TEST(OddTimes, no_time_is_out_of_bounds) {
    NumericParameter<double> parameter(true, "Curve");
    load(parameter, awkwardCurve("every type in turn"));
    setModes(parameter, EXTRAPOLATION_CONSTANT, EXTRAPOLATION_CONSTANT);
    EXPECT_EQ(parameter.value(at(-INFINITE)), 1.0);
    EXPECT_EQ(parameter.value(at(INFINITE)), 12.0);
    EXPECT_EQ(parameter.value(at(-LARGEST)), 1.0);
    parameter.value(at(NOT_A_NUMBER));
    parameter.setValue(3, at(-LARGEST));
    parameter.setValue(4, at(LARGEST));
    EXPECT_EQ(parameter.value(at(LARGEST)), 4.0);
    EXPECT_EQ(parameter.value(at(0)), 5.0);
    parameter.setValue(8, at(NOT_A_NUMBER));
    EXPECT_EQ(parameter.value(at(0)), 5.0);
    EXPECT_EQ(parameter.numKeyframes(View(0)), 10u);
}

} // namespace
