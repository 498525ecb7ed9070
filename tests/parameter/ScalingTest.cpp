#include "parameter/Scaling.h"
#include "parameter/support/ParameterTest.h"

namespace {

using namespace Kyn;
using namespace Test;

template <class T>
NumericParameter<T> amount(T maximum = std::numeric_limits<T>::max()) {
    NumericParameter<T> parameter(true, "Amount", T(0), std::numeric_limits<T>::lowest(), maximum, INTERPOLATION_LINEAR,
                                  EXTRAPOLATION_CONSTANT);
    parameter.setSplittable(true);
    return parameter;
}

template <class T>
T scaled(T value, double factor) {
    NumericParameter<T> parameter = amount<T>();
    parameter.setStaticValue(value, View(0));
    rescale(parameter, factor, View(0));
    return parameter.staticValue(View(0));
}

TEST(Scaling, integers_are_cut_towards_zero_and_saturate) {
    EXPECT_EQ(scaled<unsigned int>(101, 0.5), 50u);
    EXPECT_EQ(scaled<unsigned int>(1, 0.999), 0u);
    EXPECT_EQ(scaled<unsigned int>(4000000000u, 2.0), 4294967295u);
    EXPECT_EQ(scaled<unsigned int>(7, -1.0), 0u);
    EXPECT_EQ(scaled<unsigned int>(7, NOT_A_NUMBER), 0u);
    EXPECT_EQ(scaled<int>(-101, 0.5), -50);
    EXPECT_EQ(scaled<double>(101, 0.5), 50.5);
}

TEST(Scaling, goes_from_limited_values_to_limited_keys_and_leaves_the_static_value_as_it_comes) {
    NumericParameter<unsigned int> parameter = amount<unsigned int>(1000);
    parameter.setStaticValue(700, View(0));
    parameter.setValue(300, at(1));
    parameter.setValue(700, at(2.5));
    rescale(parameter, 2.0, View(0));
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 600u);
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 1000u);
    EXPECT_EQ(parameter.staticValue(View(0)), 1400u);
    parameter.setMaximum(100);
    rescale(parameter, 0.5, View(0));
    EXPECT_EQ(timesOf(parameter), (Times{1, 2.5}));
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 50u);
    EXPECT_EQ(parameter.staticValue(View(0)), 700u);
}

TEST(Scaling, sends_what_changed_and_nothing_for_factor_one) {
    NumericParameter<unsigned int> parameter = amount<unsigned int>();
    parameter.setStaticValue(10, View(0));
    parameter.setValue(0, at(1));
    parameter.setValue(30, at(2));
    ChangeRecorder recorder(parameter);
    rescale(parameter, 1.0, View(0));
    EXPECT_TRUE(recorder.take().empty());
    rescale(parameter, 2.0, View(0));
    EXPECT_EQ(recorder.take(),
              (Changes{{ParameterChange::KeyframeChangedValue, 0, 1}, {ParameterChange::ValueChanged, 0}}));
}

TEST(Scaling, of_all_views_scales_each_and_of_one_the_others_not) {
    NumericParameter<unsigned int> parameter = amount<unsigned int>();
    for (int const view : {0, 3, 8})
        parameter.setStaticValue(10 + static_cast<unsigned int>(view), View(view));
    rescale(parameter, 3.0, View(3));
    EXPECT_EQ(parameter.staticValue(View(0)), 10u);
    EXPECT_EQ(parameter.staticValue(View(3)), 39u);
    ChangeRecorder recorder(parameter);
    rescale(parameter, 2.0);
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ValueChanged, 0},
                                        {ParameterChange::ValueChanged, 3},
                                        {ParameterChange::ValueChanged, 8}}));
    EXPECT_EQ(parameter.staticValue(View(8)), 36u);
}

TEST(Scaling, of_a_parameter_that_cannot_split_names_the_view_that_was_asked) {
    NumericParameter<unsigned int> parameter = amount<unsigned int>();
    parameter.setSplittable(false);
    parameter.setStaticValue(10, View(0));
    ChangeRecorder recorder(parameter);
    rescale(parameter, 2.0, View(5));
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ValueChanged, 5}}));
    EXPECT_EQ(parameter.staticValue(View(0)), 20u);
    EXPECT_EQ(parameter.numViews(), 1u);
}

} // namespace
