#include "parameter/NumericParameter.h"
#include "parameter/support/ChangeRecorder.h"

#include <gtest/gtest.h>

namespace {

using namespace Test;
using Kyn::Context;
using Kyn::Parameter;
using Kyn::ParameterChange;
using Kyn::ProxyScale;
using Kyn::Time;
using Kyn::View;

Context at(double time, int view = 0) {
    return Context(Time(time), View(view), ProxyScale::NONE);
}

std::vector<int> idsOf(Kyn::ParameterWithoutType const & parameter) {
    std::vector<int> ids;
    for (View const view : parameter.views())
        ids.push_back(view.id());
    return ids;
}

typedef std::vector<int> Ids;

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

TEST_F(Views, first_view_is_announced_unless_it_is_view_0) {
    ChangeRecorder recorder(parameter);
    parameter.setSplittable(true);
    parameter.setValue(1.0, at(0, 3));
    EXPECT_EQ(recorder.take(),
              (Changes{{ParameterChange::ViewAdded, 3}, {ParameterChange::KeyframeChangedValue, 3, STATIC_VALUE}}));
    EXPECT_EQ(idsOf(parameter), Ids{3});
    EXPECT_FALSE(parameter.isSplit());
    parameter.setValue(2.0, at(0, 0));
    EXPECT_EQ(recorder.take(),
              (Changes{{ParameterChange::ViewAdded, 0}, {ParameterChange::KeyframeChangedValue, 0, STATIC_VALUE}}));
    EXPECT_TRUE(parameter.isSplit());
}

TEST_F(Views, view_without_data_reads_the_first_view_whatever_the_order_of_making) {
    for (Ids const & order : {Ids{2, 5, 9}, Ids{9, 5, 2}, Ids{5, 9, 2}, Ids{5, 2, 9}}) {
        parameter = Parameter<double>(false, "p");
        fill(order);
        EXPECT_EQ(idsOf(parameter), (Ids{2, 5, 9}));
        for (int const id : {-7, -1, 0, 1, 3, 4, 6, 10, 2147483647}) {
            EXPECT_EQ(read(id), 20.0) << id;
            EXPECT_FALSE(parameter.hasView(View(id)));
        }
        for (int const id : {2, 5, 9})
            EXPECT_EQ(read(id), 10.0 * id);
    }
}

TEST_F(Views, far_ids_cost_no_more_than_near_ones) {
    fill({0, 2147483647});
    for (int id = 2000000000; id < 2000001000; ++id)
        parameter.setValue(id, at(0, id));
    EXPECT_EQ(parameter.numViews(), 1002u);
    EXPECT_EQ(read(2000000500), 2000000500.0);
    EXPECT_EQ(read(2147483646), 0.0);
}

TEST_F(Views, removing_hands_the_first_place_on_and_stops_at_the_last_view) {
    fill({1, 4, 6});
    ChangeRecorder recorder(parameter);
    EXPECT_FALSE(parameter.bRemoveView(View(2)));
    EXPECT_FALSE(parameter.bRemoveView(View(-1)));
    EXPECT_TRUE(parameter.bRemoveView(View(1)));
    EXPECT_EQ(read(1), 40.0);
    EXPECT_EQ(read(99), 40.0);
    EXPECT_TRUE(parameter.bRemoveView(View(6)));
    EXPECT_EQ(read(6), 40.0);
    EXPECT_FALSE(parameter.isSplit());
    EXPECT_FALSE(parameter.bRemoveView(View(4))) << "not while it is the only one";
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ViewRemoved, 1}, {ParameterChange::ViewRemoved, 6}}));
}

TEST_F(Views, view_may_be_removed_by_its_place_in_the_list) {
    fill({0, 1, 2});
    ChangeRecorder recorder(parameter);
    EXPECT_TRUE(parameter.bRemoveView(parameter.views()[1]));
    EXPECT_TRUE(parameter.bRemoveView(parameter.views().back()));
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ViewRemoved, 1}, {ParameterChange::ViewRemoved, 2}}));
}

TEST_F(Views, listener_that_makes_a_lower_view_meanwhile_does_not_turn_the_write_aside) {
    parameter.setSplittable(true);
    QObject context;
    QObject::connect(&parameter, &Kyn::ParameterWithoutType::changed, &context, [&](ParameterChange const & change) {
        if (change.type() == ParameterChange::ViewAdded && change.view() == View(5))
            parameter.setValue(1.0, at(0, 2));
    });
    parameter.setValue(9.0, at(0, 5));
    EXPECT_EQ(read(5), 9.0);
    EXPECT_EQ(read(2), 1.0);
}

// Copying between views

TEST(CopyView, takes_value_keys_and_records_of_what_the_source_reads) {
    Kyn::NumericParameter<double> from(true, "from");
    from.setDefaultInterpolation(Kyn::INTERPOLATION_BEZIER);
    for (double const time : {1.0, 5.0, 9.0})
        from.setValue(time * time, at(time));
    Parameter<double> to(true, "to");
    to.setSplittable(true);
    to.setValue(3.0, at(2, 1));
    ChangeRecorder recorder(to);
    to.copyView(View(4), View(77), &from); // View 77 reads the first view.
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ViewAdded, 4}}));
    ASSERT_EQ(to.numKeyframes(View(4)), 3u);
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ(to.keyframeContext(i, View(4)).time(), from.keyframeContext(i, View(0)).time());
        EXPECT_EQ(to.keyframeValue(i, View(4)), from.keyframeValue(i, View(0)));
        EXPECT_EQ(to.interpolationData({&to, View(4), i}), from.interpolationData({&from, View(0), i}));
    }
    to.copyView(View(4), View(1), nullptr);
    EXPECT_EQ(recorder.take(), Changes()) << "a view that was there is overwritten silently";
    EXPECT_EQ(to.numKeyframes(View(4)), 1u);
}

TEST(CopyView, does_nothing_where_the_parameter_cannot_split_or_the_type_differs) {
    Parameter<double> to(true, "to");
    Parameter<double> same(true, "same");
    Parameter<float> other(true, "other");
    same.setValue(1.0, at(1));
    other.setValue(1.0f, at(1));
    to.copyView(View(0), View(0), &same);
    EXPECT_FALSE(to.hasView(View(0)));
    to.setSplittable(true);
    to.copyView(View(0), View(0), &other);
    EXPECT_FALSE(to.hasView(View(0)));
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

TEST_F(SplitView, seeds_the_static_value_of_the_reference_but_no_keys) {
    ChangeRecorder recorder(parameter);
    EXPECT_TRUE(parameter.bSplitView(View(1), View(2)));
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ViewAdded, 1}, {ParameterChange::ValueChanged, 1}}));
    EXPECT_EQ(parameter.staticValue(View(1)), 40.0);
    EXPECT_EQ(parameter.numKeyframes(View(1)), 0u);
    EXPECT_TRUE(parameter.bSplitView(View(3), View(9))) << "a reference without data: the first view";
    EXPECT_EQ(parameter.staticValue(View(3)), 20.0);
}

TEST_F(SplitView, reference_may_be_a_place_in_the_list_of_views) {
    EXPECT_TRUE(parameter.bSplitView(View(1), parameter.views().back()));
    EXPECT_EQ(parameter.staticValue(View(1)), 40.0);
}

TEST_F(SplitView, that_names_itself_or_becomes_the_first_keeps_the_default_value) {
    parameter.setDefaultValue(5.0);
    EXPECT_TRUE(parameter.bSplitView(View(3), View(3)));
    EXPECT_EQ(parameter.staticValue(View(3)), 5.0);
    parameter.bRemoveView(View(0));
    EXPECT_TRUE(parameter.bSplitView(View(1), View(9)));
    EXPECT_EQ(parameter.staticValue(View(1)), 5.0);
}

TEST_F(SplitView, is_refused_while_linked_without_flag_without_data_and_where_data_is) {
    EXPECT_FALSE(parameter.bSplitView(View(2), View(0)));
    flag.setValue(true, at(0));
    EXPECT_FALSE(parameter.bSplitView(View(1), View(0)));
    flag.setValue(false, at(0));
    parameter.setSplittable(false);
    EXPECT_FALSE(parameter.bSplitView(View(1), View(0)));
    parameter.setSplittable(true);
    parameter.setLinkFlag(nullptr);
    EXPECT_FALSE(parameter.bSplitView(View(1), View(0)));
    EXPECT_EQ(idsOf(parameter), (Ids{0, 2}));
    Parameter<double> empty(true, "empty");
    empty.setSplittable(true);
    empty.setLinkFlag(&flag);
    EXPECT_FALSE(empty.bSplitView(View(1), View(0)));
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
