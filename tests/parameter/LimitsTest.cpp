#include "parameter/support/ParameterTest.h"

#include <boost/make_shared.hpp>

namespace {

using namespace Kyn;
using namespace Test;

NumericParameter<double> limited(double minimum, double maximum, bool bAnimatable = true) {
    return NumericParameter<double>(bAnimatable, "Number", 0.0, minimum, maximum, INTERPOLATION_LINEAR,
                                    EXTRAPOLATION_CONSTANT);
}

// Limits

TEST(Limits, tightened_limit_is_seen_at_once_and_loosening_brings_the_value_back) {
    for (bool const bAnimatable : {false, true}) {
        NumericParameter<double> parameter = limited(0, 10, bAnimatable);
        parameter.setValue(8, at(1));
        parameter.setMaximum(5);
        EXPECT_EQ(parameter.value(at(1)), 5);
        EXPECT_EQ(parameter.value(at(7)), 5);
        EXPECT_EQ(parameter.dKeyframeValue({&parameter, View(0), 0}), 8) << "a key read by index is not limited";
        parameter.setMinimum(9);
        parameter.setMaximum(10);
        EXPECT_EQ(parameter.value(at(1)), 9);
        parameter.setMinimum(0);
        EXPECT_EQ(parameter.value(at(1)), 8);
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

TEST(Limits, restoring_a_memento_leaves_them_and_assigning_copies_them) {
    NumericParameter<double> parameter = limited(0, 100);
    parameter.setValue(20, at(1));
    auto const memento = parameter.exportState();
    parameter.setMaximum(10);
    parameter.importState(memento);
    EXPECT_EQ(parameter.maximum(), 10);
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 20);
    NumericParameter<double> other = limited(-1, 1);
    other = parameter;
    EXPECT_EQ(other.minimum(), 0);
    EXPECT_EQ(other.maximum(), 10);
    EXPECT_EQ(NumericParameter<double>(other).maximum(), 10);
}

TEST(Limits, unsigned_differences_of_handles_wrap) {
    NumericParameter<unsigned int> parameter(true, "Pixels");
    parameter.setDefaultInterpolation(INTERPOLATION_BEZIER);
    parameter.setValue(5, at(0));
    parameter.setValue(3, at(10));
    EXPECT_EQ(recordOf(parameter, 0),
              (InterpolationData{INTERPOLATION_BEZIER, 1, 4294967294.0 * 0.1, -1, -4294967294.0 * 0.1}));
    NumericParameter<bool> flag(true, "Flag");
    flag.setDefaultInterpolation(INTERPOLATION_BEZIER);
    flag.setValue(true, at(0));
    flag.setValue(false, at(10));
    EXPECT_EQ(recordOf(flag, 0).dOutValue, -0.1);
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
    auto const stored = [&](double number) {
        this->face.vSetValue(number, at(0));
        return this->face.dValue(at(0));
    };
    for (double const beyond : {1e300, INFINITE, 4294967296.0}) {
        bool const fits = TestFixture::Limits::max_exponent > 33 && beyond < top;
        EXPECT_EQ(stored(beyond), fits ? beyond : top) << beyond;
        EXPECT_EQ(stored(-beyond), fits ? -beyond : bottom) << beyond;
    }
    // What is no number is true as a bool, zero as an integer, and else the minimum.
    EXPECT_EQ(stored(NOT_A_NUMBER), std::is_floating_point_v<TypeParam> ? bottom : bIsBool ? 1.0 : 0.0);
}

TYPED_TEST(UntypedFace, reads_and_moves_keys_or_answers_the_last_value_and_minus_one) {
    EXPECT_EQ(this->face.dKeyframeValue({&this->typed, View(0), 5}), 0);
    this->typed.setValue(TypeParam(1), at(1));
    this->typed.setValue(TypeParam(0), at(5));
    for (auto const & [index, value] : {std::pair(0u, 1), {1u, 0}, {9u, 0}})
        EXPECT_EQ(this->face.dKeyframeValue({&this->typed, View(0), index}), value) << index;
    EXPECT_EQ(this->face.iMoveChangeKeyframe(0, at(2), 3), -1);
    EXPECT_EQ(this->face.iMoveChangeKeyframe(1, at(1), 9), 1);
    EXPECT_EQ(timesOf(this->typed), (Times{5, 9}));
    EXPECT_EQ(this->face.dValue(at(9)), 1);
}

TYPED_TEST(UntypedFace, commands_are_limited_when_they_are_made) {
    this->typed.setMaximum(TypeParam(0));
    this->typed.setValue(TypeParam(0), at(1));
    Tov::CompositeCommand composite;
    EXPECT_EQ(&this->face.valueCommand(77, at(4), composite), &composite);
    EXPECT_EQ(&this->face.moveChangeCommand(77, at(1), 2, composite), &composite);
    this->typed.setMaximum(TestFixture::Limits::max());
    EXPECT_TRUE(composite.redo());
    EXPECT_EQ(timesOf(this->typed), (Times{2, 4}));
    EXPECT_EQ(this->typed.keyframeValue(0, View(0)), TypeParam(0));
    EXPECT_EQ(this->typed.keyframeValue(1, View(0)), TypeParam(0));
    composite.undo();
    EXPECT_EQ(timesOf(this->typed), Times{1});
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
        int const side = keys.isNull() ? 300 : keys.before.isNull() ? 100 : 200;
        return static_cast<T>(side + 1000 * view.id()) + static_cast<T>(time.toDouble());
    }
    bool bValueWithoutKeyframes() const override { return bWithoutKeyframes_; }

private:
    bool bWithoutKeyframes_;
};

TYPED_TEST(UntypedFace, has_no_custom_modes_until_an_application_registers_some) {
    EXPECT_FALSE(this->face.bHasCustomInterpolators() || this->face.bHasCustomExtrapolators());
    EXPECT_TRUE(this->face.customInterpolatorNames().isEmpty() && this->face.customExtrapolatorNames().isEmpty());
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
        setKeys(parameter, {0, 5, 9}, 2);
    }

    NumericParameter<double> parameter = limited(-1e6, 1e6);
};

TEST_F(CustomModes, are_asked_on_their_own_side_with_time_keys_and_view) {
    Interpolation const type = parameter.addCustomInterpolator("Echo", boost::make_shared<Echo<double>>());
    Extrapolation const mode = parameter.addCustomExtrapolator("Beyond", boost::make_shared<Beyond<double>>());
    parameter.setInterpolation(type, at(5, 2));
    parameter.setExtrapolationAfter(mode);
    EXPECT_EQ(parameter.value(at(7, 2)), 2000 + 100 + 20 + 7 + 5);
    EXPECT_EQ(parameter.value(at(2, 2)), 2);
    EXPECT_EQ(parameter.value(at(10, 2)), 2210);
    EXPECT_EQ(parameter.value(at(-1, 2)), 0);
    parameter.setExtrapolationBefore(mode);
    EXPECT_EQ(parameter.value(at(-1, 2)), 2099);
    parameter.setMaximum(50);
    EXPECT_EQ(parameter.value(at(7, 2)), 50);
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
    EXPECT_EQ(parameter.value(at(4, 2)), 0);
    parameter.setExtrapolationAfter(mode);
    EXPECT_TRUE(parameter.bValueWithoutKeyframes());
    EXPECT_EQ(parameter.value(at(4, 2)), 2304);
    // It is the mode after that decides, and the mode before that is asked: a built-in one has no key to go by, not
    // even one of another view.
    parameter.setValue(77, at(0, 0));
    parameter.setExtrapolationBefore(EXTRAPOLATION_CONSTANT);
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
