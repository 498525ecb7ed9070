#include "parameter/support/ParameterTest.h"

#include <algorithm>

namespace {

using namespace Kyn;
using namespace Test;

/// A numeric parameter of several views that a flag links.
class LinkedValue : public testing::Test {
protected:
    LinkedValue() {
        flag.setValue(true, at(0));
        parameter.setLinkFlag(&flag);
        held.setLinkFlag(&flag);
        parameter.setSplittable(true);
        held.setSplittable(true);
    }

    Parameter<bool> flag{false, "flag"};
    NumericParameter<double> parameter{true, "p"};
    Parameter<double> held{true, "held"};
};

TEST_F(LinkedValue, exactly_on_a_key_of_another_view_is_interpolated_and_so_zero_on_a_bezier_segment) {
    parameter.setDefaultInterpolation(INTERPOLATION_BEZIER);
    parameter.setStaticValue(7.0, View(0));
    parameter.setValue(3.0, at(0, 1));
    parameter.setValue(10.0, at(10, 1));
    EXPECT_EQ(parameter.value(at(0, 1)), 3.0);
    EXPECT_EQ(parameter.value(at(0, 0)), 0.0); // No root of the time cubic lies strictly inside the segment.
    parameter.setInterpolation(INTERPOLATION_CONSTANT, at(0, 1));
    EXPECT_EQ(parameter.value(at(0, 0)), 3.0);
}

TEST_F(LinkedValue, distances_are_compared_in_single_precision) {
    held.setValue(1.0, at(-1.000000001, 0)); // Further away, but by less than a float can tell.
    held.setValue(2.0, at(-1.0, 1));
    held.setValue(9.0, at(5, 0));
    EXPECT_EQ(held.value(at(0, 0)), 1.0) << "a tie, in the context's view";
    EXPECT_EQ(held.value(at(0, 1)), 2.0);
    EXPECT_EQ(held.value(at(0, 3)), 2.0) << "a tie between two other views: the second";
}

/// Overrides the arithmetic and tells what it was asked.
class Traced : public Parameter<double> {
public:
    using Parameter<double>::Parameter;

    double interpolate(BoundingKeyframes const & keys, Context const & context) const override {
        return 1000.0 + 100.0 * keys.before.index + 10.0 * keys.after.index + context.view().id();
    }
    double extrapolate(BoundingKeyframes const & keys, Context const & context) const override {
        return (keys.before.isNull() ? 2000.0 : 3000.0) + context.view().id();
    }
};

TEST(Value, reaches_overridden_arithmetic_with_the_keys_around_and_the_chosen_view) {
    Traced parameter(true, "p");
    setKeys(parameter, {10, 20, 30});
    for (int const view : {0, 6}) { // Of a parameter that cannot split the first view is chosen.
        EXPECT_EQ(parameter.value(at(5, view)), 2000.0);
        EXPECT_EQ(parameter.value(at(10, view)), 10.0);
        EXPECT_EQ(parameter.value(at(15, view)), 1010.0);
        EXPECT_EQ(parameter.value(at(29, view)), 1120.0);
        EXPECT_EQ(parameter.value(at(31, view)), 3000.0);
    }
    parameter.setSplittable(true);
    EXPECT_EQ(parameter.value(at(15, 6)), 1016.0);
    EXPECT_EQ(parameter.value(at(31, 6)), 3006.0);
    EXPECT_EQ(parameter.value(at(20, 6)), 1116.0) << "on a key that is not the chosen view's";
}

TEST(Value, at_a_time_that_is_no_number_runs_like_one_in_the_last_segment) {
    Parameter<double> held(true, "p");
    EXPECT_EQ(held.value(at(NOT_A_NUMBER)), 0.0);
    for (double const time : {1.0, 2.0, 3.0}) {
        setKeys(held, {time});
        EXPECT_EQ(held.value(at(NOT_A_NUMBER)), std::max(1.0, time - 1.0));
    }
}

TEST(Parameter, first_form_starts_with_nothing_and_the_second_with_all_given) {
    Parameter<int> const bare(true, "\xC3\xA9");
    EXPECT_EQ(bare.scriptName(), QString::fromLatin1("\xC3\xA9"));
    EXPECT_EQ(bare.displayName(), QString::fromUtf8("\xC3\xA9"));
    EXPECT_FALSE(bare.isSplittable() || bare.isSplit() || bare.isHidden() || bare.linkFlag());
    EXPECT_TRUE(bare.extrapolationBefore() == 0u && bare.extrapolationAfter() == 0u && bare.interpolation(at(0)) == 0u);
    EXPECT_EQ(bare.defaultValue(), 0);

    QString const name = QString::fromUtf8("跟踪 X");
    Parameter<int> const full(true, name, 5, INTERPOLATION_CONSTANT, EXTRAPOLATION_LINEAR);
    EXPECT_EQ(full.scriptName(), name);
    EXPECT_EQ(full.displayName(), name);
    EXPECT_EQ(full.value(at(0, 3)), 5);
    EXPECT_EQ(full.extrapolationBefore(), EXTRAPOLATION_LINEAR);
    EXPECT_EQ(full.extrapolationAfter(), EXTRAPOLATION_LINEAR);
    EXPECT_EQ(full.interpolation(at(0)), INTERPOLATION_CONSTANT);
}

TEST(Parameter, type_identity_differs_for_each_member_type) {
    std::vector<std::type_info const *> types;
#define TYPE(T) types.push_back(&Parameter<T>(false, "p").valueTypeInfo());
    VX_FOR_EACH_PARAMETER_TYPE(TYPE)
#undef TYPE
    EXPECT_EQ(types.size(), 19u);
    for (std::size_t i = 0; i < types.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_NE(*types[i], *types[j]) << i << " and " << j;
    EXPECT_EQ(NumericParameter<double>(false, "p").valueTypeInfo(), Parameter<double>(true, "q").valueTypeInfo());
}

} // namespace
