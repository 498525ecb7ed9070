#include "parameter/NumericParameter.h"
#include "parameter/support/At.h"
#include "parameter/support/ChangeRecorder.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace Kyn;
using Test::at;
using Test::ChangeRecorder;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

NumericParameter<double> limited(double minimum, double maximum, bool bAnimatable = true) {
    return NumericParameter<double>(bAnimatable, "Number", 0.0, minimum, maximum, INTERPOLATION_LINEAR,
                                    EXTRAPOLATION_CONSTANT);
}

// Limits

TEST(Limits, writes_are_limited_keyed_or_not) {
    for (bool const bAnimatable : {false, true}) {
        NumericParameter<double> parameter = limited(0, 10, bAnimatable);
        parameter.setValue(12, at(1));
        EXPECT_EQ(parameter.keyframeValue(0, View(0)), 10);
        parameter.setValue(-1, at(1));
        EXPECT_EQ(parameter.keyframeValue(0, View(0)), 0);
    }
}

TEST(Limits, tightened_limit_is_seen_at_once_and_loosening_brings_the_value_back) {
    for (bool const bAnimatable : {false, true}) {
        NumericParameter<double> parameter = limited(0, 10, bAnimatable);
        parameter.setValue(8, at(1));
        ChangeRecorder recorder(parameter);
        parameter.setMaximum(5);
        EXPECT_EQ(parameter.value(at(1)), 5);
        EXPECT_EQ(parameter.value(at(7)), 5);
        parameter.setMinimum(9);
        parameter.setMaximum(10);
        EXPECT_EQ(parameter.value(at(1)), 9);
        parameter.setMinimum(0);
        EXPECT_EQ(parameter.value(at(1)), 8);
        EXPECT_TRUE(recorder.take().empty());
    }
}

TEST(Limits, of_crossed_limits_the_minimum_wins) {
    NumericParameter<double> parameter = limited(5, 2);
    for (double const value : {-10.0, 2.0, 3.0, 5.0, 100.0, NOT_A_NUMBER}) {
        parameter.setValue(value, at(1));
        EXPECT_EQ(parameter.keyframeValue(0, View(0)), 5) << value;
        EXPECT_EQ(parameter.value(at(1)), 5) << value;
    }
}

TEST(Limits, what_is_no_number_is_stored_as_the_minimum) {
    NumericParameter<double> parameter = limited(1, 2);
    parameter.setValue(NOT_A_NUMBER, at(0));
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 1);
}

TEST(Limits, comparisons_follow_the_type) {
    NumericParameter<unsigned int> large(true, "Large");
    EXPECT_EQ(large.maximum(), 4294967295u);
    large.setValue(4294967295u, at(0));
    EXPECT_EQ(large.value(at(0)), 4294967295u);
    NumericParameter<int> below(true, "Below", 0, -5, -2, INTERPOLATION_LINEAR, EXTRAPOLATION_CONSTANT);
    below.setValue(3, at(0));
    EXPECT_EQ(below.value(at(0)), -2);
    NumericParameter<bool> never(true, "Never", false, false, false, INTERPOLATION_CONSTANT, EXTRAPOLATION_CONSTANT);
    never.setValue(true, at(0));
    EXPECT_FALSE(never.value(at(0)));
}

TEST(Limits, keys_read_by_index_and_mementos_are_not_limited) {
    NumericParameter<double> parameter = limited(0, 100);
    parameter.setValue(20, at(1));
    parameter.setMaximum(10);
    EXPECT_EQ(parameter.value(at(1)), 10);
    EXPECT_EQ(parameter.dKeyframeValue({&parameter, View(0), 0}), 20);
    parameter.importState(parameter.exportState());
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 20);
}

TEST(Limits, restoring_a_memento_leaves_them_and_assigning_copies_them) {
    NumericParameter<double> parameter = limited(0, 100);
    auto const memento = parameter.exportState();
    parameter.setMaximum(10);
    parameter.importState(memento);
    EXPECT_EQ(parameter.maximum(), 10);
    NumericParameter<double> other = limited(-1, 1);
    other = parameter;
    EXPECT_EQ(other.minimum(), 0);
    EXPECT_EQ(other.maximum(), 10);
    EXPECT_EQ(NumericParameter<double>(other).maximum(), 10);
}

TEST(Limits, new_key_of_the_value_in_force_is_limited) {
    NumericParameter<double> parameter = limited(0, 100);
    parameter.setValue(50, at(0));
    parameter.setMaximum(30);
    parameter.addKeyframe(at(4));
    parameter.setMaximum(100);
    EXPECT_EQ(parameter.value(at(4)), 30);
}

TEST(Limits, move_limits_the_value_first) {
    NumericParameter<double> parameter = limited(0, 10);
    parameter.setValue(5, at(1));
    EXPECT_EQ(parameter.moveChangeKeyframe(99, at(1), Time(2)), 0u);
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 10);
}

TEST(Limits, unsigned_differences_of_handles_wrap) {
    NumericParameter<unsigned int> parameter(true, "Pixels");
    parameter.setDefaultInterpolation(INTERPOLATION_BEZIER);
    parameter.setValue(5, at(0));
    parameter.setValue(3, at(10));
    InterpolationData const record = parameter.interpolationData({&parameter, View(0), 0});
    EXPECT_EQ(record, (InterpolationData{INTERPOLATION_BEZIER, 1, 4294967294.0 * 0.1, -1, -4294967294.0 * 0.1}));
    NumericParameter<bool> flag(true, "Flag");
    flag.setDefaultInterpolation(INTERPOLATION_BEZIER);
    flag.setValue(true, at(0));
    flag.setValue(false, at(10));
    EXPECT_EQ(flag.interpolationData({&flag, View(0), 0}).dOutValue, -0.1);
}

// The untyped face

template <class T>
class UntypedFace : public testing::Test {
protected:
    typedef std::numeric_limits<T> Limits;

    NumericParameter<T> typed{true, "Number"};
    NumericParameterWithoutType & face = typed;
};

typedef testing::Types<double, float, int, unsigned int, bool> NumericTypes;
TYPED_TEST_SUITE(UntypedFace, NumericTypes);

TYPED_TEST(UntypedFace, values_widen_and_narrow_without_limits_of_its_own) {
    this->face.vSetValue(1, at(3));
    EXPECT_EQ(this->typed.keyframeValue(0, View(0)), TypeParam(1));
    EXPECT_EQ(this->face.dValue(at(3)), 1);
    EXPECT_EQ(this->face.dMinimum(), static_cast<double>(TestFixture::Limits::lowest()));
    EXPECT_EQ(this->face.dMaximum(), static_cast<double>(TestFixture::Limits::max()));
    EXPECT_EQ(this->face.bIsIntegral(), TestFixture::Limits::is_integer);
    EXPECT_EQ(this->face.dToDisplay(1, at(0)), 1);
    EXPECT_EQ(this->face.dFromDisplay(1, at(0)), 1);
}

TYPED_TEST(UntypedFace, numbers_that_do_not_fit_go_to_the_ends_of_the_type) {
    bool const bIsBool = std::is_same_v<TypeParam, bool>;
    double const top = static_cast<double>(TestFixture::Limits::max());
    double const bottom = bIsBool ? 1.0 : static_cast<double>(TestFixture::Limits::lowest());
    for (double const beyond : {1e300, INFINITE, 4294967296.0}) {
        bool const fits = TestFixture::Limits::max_exponent > 33 && beyond < top;
        this->face.vSetValue(beyond, at(0));
        EXPECT_EQ(this->face.dValue(at(0)), fits ? beyond : top) << beyond;
        this->face.vSetValue(-beyond, at(0));
        EXPECT_EQ(this->face.dValue(at(0)), fits ? -beyond : bottom) << beyond;
    }
}

TYPED_TEST(UntypedFace, what_is_no_number_is_zero_in_integers_true_in_bools_and_else_the_minimum) {
    this->face.vSetValue(NOT_A_NUMBER, at(0));
    double const expected = std::is_same_v<TypeParam, bool>       ? 1
                            : std::is_floating_point_v<TypeParam> ? static_cast<double>(TestFixture::Limits::lowest())
                                                                  : 0;
    EXPECT_EQ(this->face.dValue(at(0)), expected);
}

TYPED_TEST(UntypedFace, keys_are_read_by_index_past_the_end_and_without_any) {
    EXPECT_EQ(this->face.dKeyframeValue({&this->typed, View(0), 5}), 0);
    this->typed.setValue(TypeParam(1), at(1));
    this->typed.setValue(TypeParam(0), at(2));
    EXPECT_EQ(this->face.dKeyframeValue({&this->typed, View(0), 0}), 1);
    EXPECT_EQ(this->face.dKeyframeValue({&this->typed, View(0), 1}), 0);
    EXPECT_EQ(this->face.dKeyframeValue({&this->typed, View(0), 9}), 0);
}

TYPED_TEST(UntypedFace, moves_a_key_or_answers_minus_one) {
    this->typed.setValue(TypeParam(1), at(1));
    this->typed.setValue(TypeParam(1), at(5));
    EXPECT_EQ(this->face.iMoveChangeKeyframe(0, at(2), 3), -1);
    EXPECT_EQ(this->face.iMoveChangeKeyframe(0, at(1), 9), 1);
    EXPECT_EQ(this->typed.keyframeContext(1, View(0)).time(), Time(9));
    EXPECT_EQ(this->face.dValue(at(9)), 0);
}

TYPED_TEST(UntypedFace, commands_are_limited_when_they_are_made) {
    this->typed.setMaximum(TypeParam(0));
    this->typed.setValue(TypeParam(0), at(1));
    Tov::CompositeCommand composite;
    EXPECT_EQ(&this->face.valueCommand(77, at(4), composite), &composite);
    EXPECT_EQ(&this->face.moveChangeCommand(77, at(1), 2, composite), &composite);
    this->typed.setMaximum(TestFixture::Limits::max());
    EXPECT_EQ(composite.size(), 2u);
    EXPECT_TRUE(composite.redo());
    EXPECT_EQ(this->typed.keyframeValue(1, View(0)), TypeParam(0));
    EXPECT_EQ(this->typed.keyframeValue(0, View(0)), TypeParam(0));
    EXPECT_EQ(this->typed.keyframeContext(0, View(0)).time(), Time(2));
    composite.undo();
    EXPECT_EQ(this->typed.numKeyframes(View(0)), 1u);
    EXPECT_TRUE(this->typed.isKeyframe(at(1)));
}

// Custom modes

/// Answers with what it was asked, so that a test sees it.
template <class T>
class Echo : public CustomInterpolator<T> {
public:
    T evaluate(NumericParameter<T> const & parameter, Time time, BoundingKeyframes const & keys,
               View const & view) const override {
        return static_cast<T>(1000 * view.id() + 100 * static_cast<int>(keys.before.index) +
                              10 * static_cast<int>(keys.after.index)) +
               static_cast<T>(time.toDouble()) + parameter.keyframeValue(keys.before.index, keys.before.view);
    }
};

template <class T>
class Beyond : public CustomExtrapolator<T> {
public:
    explicit Beyond(bool bWithoutKeyframes = false) : bWithoutKeyframes_(bWithoutKeyframes) {}

    T evaluate(NumericParameter<T> const &, Time time, BoundingKeyframes const & keys,
               View const & view) const override {
        return static_cast<T>((keys.isNull()          ? 300
                               : keys.before.isNull() ? 100
                                                      : 200) +
                              1000 * view.id()) +
               static_cast<T>(time.toDouble());
    }
    bool bValueWithoutKeyframes() const override { return bWithoutKeyframes_; }

private:
    bool bWithoutKeyframes_;
};

TYPED_TEST(UntypedFace, has_no_custom_modes_until_an_application_registers_some) {
    EXPECT_FALSE(this->face.bHasCustomInterpolators());
    EXPECT_FALSE(this->face.bHasCustomExtrapolators());
    EXPECT_TRUE(this->face.customInterpolatorNames().isEmpty());
    EXPECT_TRUE(this->face.customExtrapolatorNames().isEmpty());
    EXPECT_EQ(this->face.customInterpolator(4), nullptr);
    EXPECT_EQ(this->face.customExtrapolator(3), nullptr);
    EXPECT_EQ(this->face.uiInterpolationFromIndex(2), 6u);
    EXPECT_EQ(this->face.uiExtrapolationFromIndex(2), 5u);

    auto const echo = boost::make_shared<Echo<TypeParam>>();
    auto const beyond = boost::make_shared<Beyond<TypeParam>>(true);
    EXPECT_EQ(this->typed.addCustomInterpolator("Ease", boost::make_shared<Echo<TypeParam>>()), 4u);
    EXPECT_EQ(this->typed.addCustomInterpolator("Echo", echo), 5u);
    EXPECT_EQ(this->typed.addCustomExtrapolator("Beyond", beyond), 3u);
    EXPECT_TRUE(this->face.bHasCustomInterpolators() && this->face.bHasCustomExtrapolators());
    EXPECT_EQ(this->face.customInterpolatorNames(), (QVector<QString>{"Ease", "Echo"}));
    EXPECT_EQ(this->face.customExtrapolatorNames(), QVector<QString>{"Beyond"});
    EXPECT_EQ(this->face.customInterpolator(5), echo.get());
    EXPECT_EQ(this->face.customExtrapolator(3), beyond.get());
    for (unsigned int const mode : {0u, 2u, 6u, 4294967295u}) {
        EXPECT_EQ(this->face.customInterpolator(mode), nullptr) << mode;
        EXPECT_EQ(this->face.customExtrapolator(mode), nullptr) << mode;
    }
}

class CustomModes : public testing::Test {
protected:
    CustomModes() {
        parameter.setSplittable(true);
        parameter.setValue(1, at(0, 2));
        parameter.setValue(2, at(5, 2));
        parameter.setValue(3, at(9, 2));
    }

    NumericParameter<double> parameter = limited(-1e6, 1e6);
};

TEST_F(CustomModes, interpolator_is_asked_with_time_keys_and_view) {
    Interpolation const type = parameter.addCustomInterpolator("Echo", boost::make_shared<Echo<double>>());
    parameter.setInterpolation(type, at(5, 2));
    EXPECT_EQ(parameter.value(at(7, 2)), 2000 + 100 + 20 + 7 + 2);
    EXPECT_EQ(parameter.value(at(2, 2)), 1.4);
    parameter.setMaximum(50);
    EXPECT_EQ(parameter.value(at(7, 2)), 50);
}

TEST_F(CustomModes, extrapolator_is_asked_on_its_own_side) {
    Extrapolation const mode = parameter.addCustomExtrapolator("Beyond", boost::make_shared<Beyond<double>>());
    parameter.setExtrapolationAfter(mode);
    EXPECT_EQ(parameter.value(at(10, 2)), 2210);
    EXPECT_EQ(parameter.value(at(-1, 2)), 1);
    parameter.setExtrapolationBefore(mode);
    EXPECT_EQ(parameter.value(at(-1, 2)), 2099);
}

TEST_F(CustomModes, extrapolator_may_give_the_values_of_a_view_without_keys) {
    parameter.deleteAllKeyframes(View(2));
    Extrapolation const held = parameter.addCustomExtrapolator("Held", boost::make_shared<Beyond<double>>(false));
    Extrapolation const mode = parameter.addCustomExtrapolator("Beyond", boost::make_shared<Beyond<double>>(true));
    parameter.setExtrapolationBefore(mode);
    EXPECT_FALSE(parameter.bValueWithoutKeyframes());
    EXPECT_EQ(parameter.value(at(4, 2)), 0);
    parameter.setExtrapolationAfter(held);
    EXPECT_FALSE(parameter.bValueWithoutKeyframes());
    parameter.setExtrapolationAfter(mode);
    EXPECT_TRUE(parameter.bValueWithoutKeyframes());
    EXPECT_EQ(parameter.value(at(4, 2)), 2304);
    // It is the mode after that decides, and the mode before that is asked: a built-in one has no key to go by.
    parameter.setExtrapolationBefore(EXTRAPOLATION_CONSTANT);
    EXPECT_EQ(parameter.value(at(4, 2)), 0);
}

TEST_F(CustomModes, mode_without_a_key_elsewhere_takes_nothing_from_other_views) {
    parameter.setValue(77, at(0, 0));
    Extrapolation const mode = parameter.addCustomExtrapolator("Beyond", boost::make_shared<Beyond<double>>(true));
    parameter.setExtrapolationAfter(mode);
    parameter.deleteAllKeyframes(View(2));
    EXPECT_EQ(parameter.value(at(4, 2)), 0);
}

TEST_F(CustomModes, are_shared_by_copies_and_refuse_null) {
    EXPECT_EQ(parameter.addCustomInterpolator("Nothing", nullptr), INTERPOLATION_NONE);
    EXPECT_EQ(parameter.addCustomExtrapolator("Nothing", nullptr), EXTRAPOLATION_NONE);
    EXPECT_FALSE(parameter.bHasCustomInterpolators());
    parameter.addCustomInterpolator("Echo", boost::make_shared<Echo<double>>());
    NumericParameter<double> const copy(parameter);
    NumericParameter<double> assigned = limited(0, 1);
    assigned = parameter;
    EXPECT_EQ(copy.customInterpolator(4), parameter.customInterpolator(4));
    EXPECT_EQ(assigned.customInterpolatorNames(), parameter.customInterpolatorNames());
}

} // namespace
