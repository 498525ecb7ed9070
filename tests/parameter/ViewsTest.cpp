#include "parameter/support/ParameterTest.h"

#include <memory>

namespace {

using namespace Kyn;
using namespace Test;

/// A parameter whose views may differ, with a value in each of the views given: ten times its id.
class Views : public testing::Test {
protected:
    void fill(Ids const & ids) {
        parameter.setSplittable(true);
        for (int const id : ids)
            parameter.setValue(10.0 * id, at(0, id));
    }

    double read(int view) { return parameter.value(at(0, view)); }

    Parameter<double> parameter{false, "p"};
};

TEST_F(Views, empty_parameter_answers_the_default_for_any_view_and_makes_view_0_silently) {
    parameter.setSplittable(true);
    parameter.setDefaultValue(4.0);
    ChangeRecorder recorder(parameter);
    EXPECT_EQ(idsOf(parameter), Ids{0});
    EXPECT_EQ(parameter.numViews(), 1u);
    EXPECT_FALSE(parameter.hasView(View(0)));
    EXPECT_EQ(read(5), 4.0);
    EXPECT_TRUE(parameter.hasView(View(0)));
    EXPECT_FALSE(parameter.hasView(View(5)));
    parameter.setDefaultValue(6.0);
    EXPECT_EQ(read(5), 4.0) << "the default concerns views made from now on";
    EXPECT_EQ(recorder.take(), Changes());
}

TEST_F(Views, removed_by_its_place_in_the_list_is_the_one_that_was_there) {
    fill({0, 1, 2});
    ChangeRecorder recorder(parameter);
    EXPECT_TRUE(parameter.bRemoveView(parameter.views()[1]));
    EXPECT_TRUE(parameter.bRemoveView(parameter.views().back()));
    EXPECT_FALSE(parameter.bRemoveView(View(0))) << "not while it is the only one";
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ViewRemoved, 1}, {ParameterChange::ViewRemoved, 2}}));
}

TEST_F(Views, listener_that_makes_a_lower_view_meanwhile_does_not_turn_the_write_aside) {
    parameter.setSplittable(true);
    QObject context;
    QObject::connect(&parameter, &ParameterWithoutType::changed, &context, [&](ParameterChange const & change) {
        if (change.type() == ParameterChange::ViewAdded && change.view() == View(5))
            parameter.setValue(1.0, at(0, 2));
    });
    parameter.setValue(9.0, at(0, 5));
    EXPECT_EQ(read(5), 9.0);
    EXPECT_EQ(read(2), 1.0);
}

// Copying between views

TEST(CopyView, takes_value_keys_and_records_of_what_the_source_reads) {
    NumericParameter<double> from(true, "from");
    from.setDefaultInterpolation(INTERPOLATION_BEZIER);
    setKeys(from, {1, 5, 9});
    Parameter<double> to(true, "to");
    to.copyView(View(4), View(0), &from);
    EXPECT_FALSE(to.hasView(View(0))) << "it cannot split";
    to.setSplittable(true);
    Parameter<float> const other(true, "other");
    to.copyView(View(4), View(0), &other);
    EXPECT_FALSE(to.hasView(View(4))) << "the type differs";
    to.copyView(View(4), View(77), &from); // View 77 reads the first view.
    EXPECT_EQ(timesOf(to, 4), timesOf(from));
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ(to.keyframeValue(i, View(4)), from.keyframeValue(i, View(0)));
        EXPECT_EQ(recordOf(to, i, 4), recordOf(from, i));
    }
}

// Linked views

class SplitView : public testing::Test {
protected:
    SplitView() {
        parameter.setSplittable(true);
        parameter.setValue(1.0, at(5, 0));
        parameter.setStaticValue(20.0, View(0));
        parameter.setValue(30.0, at(5, 2));
        parameter.setStaticValue(40.0, View(2));
        parameter.setLinkFlag(&flag);
    }

    Parameter<bool> flag{false, "flag"};
    Parameter<double> parameter{true, "p"};
};

TEST_F(SplitView, seeds_the_static_value_of_the_reference_which_may_be_a_place_in_the_list) {
    EXPECT_TRUE(parameter.bSplitView(View(1), parameter.views().back()));
    EXPECT_EQ(parameter.staticValue(View(1)), 40.0);
    EXPECT_EQ(parameter.numKeyframes(View(1)), 0u);
}

TEST_F(SplitView, that_names_itself_or_becomes_the_first_keeps_the_default_value) {
    parameter.setDefaultValue(5.0);
    EXPECT_TRUE(parameter.bSplitView(View(3), View(3)));
    EXPECT_EQ(parameter.staticValue(View(3)), 5.0);
    parameter.bRemoveView(View(0));
    EXPECT_TRUE(parameter.bSplitView(View(1), View(9)));
    EXPECT_EQ(parameter.staticValue(View(1)), 5.0);
}

TEST_F(SplitView, asks_the_static_value_of_the_flag_in_that_very_view) {
    Parameter<bool> keyed(true, "flag");
    keyed.setSplittable(true);
    keyed.setStaticValue(false, View(0));
    keyed.setStaticValue(true, View(1));
    keyed.setValue(true, at(0, 3)); // Its static value stays false.
    parameter.setLinkFlag(&keyed);
    EXPECT_FALSE(parameter.bSplitView(View(1), View(0)));
    EXPECT_TRUE(parameter.bSplitView(View(3), View(0)));
}

TEST(LinkFlag, refuses_itself_and_circles_even_by_way_of_assignment) {
    Parameter<bool> a(false, "a");
    Parameter<bool> b(false, "b");
    a.setLinkFlag(&a);
    EXPECT_EQ(a.linkFlag(), nullptr);
    a.setLinkFlag(&b);
    b.setLinkFlag(&a);
    EXPECT_EQ(b.linkFlag(), nullptr);
    b = a; // Would link b to itself, and asking it would never end.
    EXPECT_EQ(b.linkFlag(), nullptr);
    b.setSplittable(true);
    b.setValue(false, at(0, 0));
    b.setValue(true, at(0, 1));
    EXPECT_FALSE(b.value(at(0, 0)));
}

TEST(LinkFlag, destroyed_reads_false_and_null) {
    auto flag = std::make_unique<Parameter<bool>>(false, "flag");
    flag->setValue(true, at(0));
    Parameter<double> parameter(true, "p");
    parameter.setSplittable(true);
    parameter.setLinkFlag(flag.get());
    parameter.setValue(0.0, at(0, 0));
    parameter.deleteKeyframe(at(0, 0));
    parameter.setValue(5.0, at(0, 1));
    Parameter<double> const copy(parameter);
    EXPECT_EQ(parameter.value(at(3, 0)), 5.0);
    flag.reset();
    EXPECT_EQ(parameter.value(at(3, 0)), 0.0);
    EXPECT_EQ(copy.value(at(3, 0)), 0.0);
    EXPECT_EQ(parameter.linkFlag(), nullptr);
    EXPECT_FALSE(parameter.bSplitView(View(4), View(0)));
    EXPECT_EQ(Parameter<double>(parameter).linkFlag(), nullptr);
}

} // namespace
