#include "parameter/NumericParameter.h"
#include "parameter/support/ChangeRecorder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

using namespace Test;
using Kyn::Context;
using Kyn::InterpolationData;
using Kyn::NumericParameter;
using Kyn::Parameter;
using Kyn::ParameterChange;
using Kyn::ProxyScale;
using Kyn::Time;
using Kyn::View;

constexpr unsigned int NONE = 0xFFFFFFFFu;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

Context at(double time, int view = 0) {
    return Context(Time(time), View(view), ProxyScale::NONE);
}

typedef std::vector<double> Times;

template <class P>
Times timesOf(P const & parameter, int view = 0) {
    Times times;
    for (unsigned int i = 0; i < parameter.numKeyframes(View(view)); ++i)
        times.push_back(parameter.keyframeContext(i, View(view)).time().toDouble());
    return times;
}

template <class P>
InterpolationData recordOf(P & parameter, unsigned int index, int view = 0) {
    return parameter.interpolationData({&parameter, View(view), index});
}

/// Records that tell which they are.
InterpolationData marked(double mark) {
    return {Kyn::INTERPOLATION_BEZIER, mark, mark, mark, mark};
}

/// A numeric parameter with Bezier keys at 10, 20, 30; mark() gives each a record of its own.
class Keys : public testing::Test {
protected:
    Keys() {
        parameter.setDefaultInterpolation(Kyn::INTERPOLATION_BEZIER);
        for (double const time : {10.0, 20.0, 30.0})
            parameter.setValue(time, at(time));
    }

    void mark() {
        for (unsigned int i = 0; i < 3; ++i)
            parameter.setInterpolationData(marked(i + 1.0), i, View(0));
    }
    Times marks() {
        Times found;
        for (unsigned int i = 0; i < parameter.numKeyframes(View(0)); ++i)
            found.push_back(recordOf(parameter, i).dOutTime);
        return found;
    }

    NumericParameter<double> parameter{true, "p"};
};

// Making keys

TEST_F(Keys, written_key_takes_the_type_of_the_next_and_an_added_one_that_of_the_one_before) {
    Kyn::Interpolation const types[] = {Kyn::Interpolation(5), Kyn::INTERPOLATION_LINEAR, Kyn::INTERPOLATION_CONSTANT};
    struct Case {
        double time;
        unsigned int written;
        unsigned int added;
    };
    Case const cases[] = {{5, 5, 3}, {15, 2, 5}, {25, 1, 2}, {35, 3, 3}};
    for (Case const & one : cases) {
        for (unsigned int i = 0; i < 3; ++i)
            parameter.setInterpolation(types[i], at(10.0 * (i + 1)));
        unsigned int index = parameter.setValue(1.0, at(one.time));
        EXPECT_EQ(recordOf(parameter, index).eType, one.written) << one.time;
        parameter.deleteKeyframe(at(one.time));
        index = parameter.addKeyframe(at(one.time));
        EXPECT_EQ(recordOf(parameter, index).eType, one.added) << one.time;
        parameter.deleteKeyframe(at(one.time));
    }
}

TEST_F(Keys, inserted_key_gets_handles_towards_the_next_and_the_key_before_keeps_its_own) {
    mark();
    parameter.setValue(50.0, at(25));
    EXPECT_EQ(recordOf(parameter, 1), marked(2));
    EXPECT_EQ(recordOf(parameter, 2), (InterpolationData{Kyn::INTERPOLATION_BEZIER, 0.5, -2.0, -0.5, 2.0}));
    EXPECT_EQ(recordOf(parameter, 3), marked(3));
}

TEST_F(Keys, appended_key_rebuilds_the_handles_of_the_last_by_that_keys_own_type) {
    mark();
    parameter.setValue(50.0, at(40));
    EXPECT_EQ(recordOf(parameter, 2), (InterpolationData{Kyn::INTERPOLATION_BEZIER, 1.0, 2.0, -1.0, -2.0}));
    EXPECT_EQ(recordOf(parameter, 3), Kyn::withoutHandles(Kyn::INTERPOLATION_BEZIER));
    InterpolationData straight = marked(7);
    straight.eType = Kyn::INTERPOLATION_LINEAR;
    parameter.setInterpolationData(straight, 3, View(0));
    parameter.addKeyframe(at(50));
    EXPECT_EQ(recordOf(parameter, 3), Kyn::withoutHandles(Kyn::INTERPOLATION_LINEAR));
}

TEST_F(Keys, key_read_from_a_script_leaves_the_handles_of_the_last_alone) {
    mark();
    ASSERT_TRUE(parameter.setFromScriptString("keyframes.append( Key( 40, 1, Linear ) )", Kyn::StreamVersion(2)));
    EXPECT_EQ(recordOf(parameter, 2), marked(3));
    EXPECT_EQ(recordOf(parameter, 3), Kyn::withoutHandles(Kyn::INTERPOLATION_LINEAR));
}

TEST_F(Keys, times_are_told_apart_to_the_last_bit) {
    parameter.setValue(1.0, at(0.1 + 0.2));
    parameter.setValue(2.0, at(0.3));
    EXPECT_EQ(timesOf(parameter), (Times{0.3, 0.1 + 0.2, 10, 20, 30}));
    parameter.deleteKeyframe(at(std::nextafter(20.0, 21.0)));
    EXPECT_EQ(parameter.numKeyframes(View(0)), 5u);
    EXPECT_FALSE(parameter.isKeyframe(at(std::nextafter(0.3, 0.0))));
}

TEST(AddKeyframe, takes_the_value_after_a_new_view_was_made) {
    Parameter<double> parameter(true, "p");
    parameter.setSplittable(true);
    parameter.setDefaultValue(3.0);
    parameter.setStaticValue(8.0, View(0));
    ChangeRecorder recorder(parameter);
    ASSERT_EQ(parameter.value(at(5, 1)), 8.0);
    EXPECT_EQ(parameter.addKeyframe(at(5, 1)), 0u);
    EXPECT_EQ(parameter.keyframeValue(0, View(1)), 3.0);
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ViewAdded, 1}, {ParameterChange::KeyframeAdded, 1, 0}}));
}

// Deleting keys

TEST(DeleteKeyframe, of_the_only_key_keeps_its_value_while_deleting_all_keeps_the_old_static_value) {
    for (bool const all : {false, true}) {
        Parameter<double> parameter(true, "p");
        parameter.setStaticValue(2.0, View(0));
        parameter.setValue(9.0, at(5));
        ChangeRecorder recorder(parameter);
        if (all)
            parameter.deleteAllKeyframes(View(0));
        else
            parameter.deleteKeyframe(at(5));
        EXPECT_EQ(parameter.value(at(0)), all ? 2.0 : 9.0);
        EXPECT_EQ(recorder.take(), (all ? Changes{{ParameterChange::AllKeyframesRemoved}}
                                        : Changes{{ParameterChange::KeyframeRemoved, 0, 0}}));
        EXPECT_EQ(int(ParameterChange::AllKeyframesRemoved), 9);
    }
}

TEST(DeleteKeyframe, of_a_view_without_data_works_on_view_0_unless_the_parameter_may_split) {
    Parameter<double> parameter(true, "p");
    parameter.setValue(9.0, at(5));
    parameter.setSplittable(true);
    parameter.deleteKeyframe(at(5, 3));
    parameter.deleteAllKeyframes(View(3));
    EXPECT_EQ(parameter.numKeyframes(View(0)), 1u);
    EXPECT_EQ(parameter.numKeyframes(View(3)), 0u);
    EXPECT_FALSE(parameter.hasView(View(3)));
    parameter.setSplittable(false);
    EXPECT_EQ(parameter.numKeyframes(View(3)), 1u);
    parameter.deleteKeyframe(at(5, 3));
    EXPECT_EQ(parameter.numKeyframes(View(0)), 0u);
}

TEST_F(Keys, changing_the_type_resets_the_handles_but_those_of_the_last_key) {
    mark();
    for (double const time : {10.0, 30.0})
        parameter.setInterpolation(Kyn::INTERPOLATION_LINEAR, at(time));
    InterpolationData last = marked(3);
    last.eType = Kyn::INTERPOLATION_LINEAR;
    EXPECT_EQ(recordOf(parameter, 0), Kyn::withoutHandles(Kyn::INTERPOLATION_LINEAR));
    EXPECT_EQ(recordOf(parameter, 1), marked(2));
    EXPECT_EQ(recordOf(parameter, 2), last);
}

// Moving keys

struct Move {
    char const * name;
    double from;
    double to;
    unsigned int index;
    Times times;
    Times marks; ///< Which record each key has afterwards; 0 for a new one.
};

class MovedKey : public Keys, public testing::WithParamInterface<Move> {};

TEST_P(MovedKey, lands_where_it_should_and_meets_the_record_it_should) {
    Move const & move = GetParam();
    mark();
    parameter.setDefaultInterpolation(Kyn::INTERPOLATION_LINEAR);
    ChangeRecorder recorder(parameter);
    unsigned int const old = static_cast<unsigned int>(move.from / 10.0) - 1;
    EXPECT_EQ(parameter.moveChangeKeyframe(77.0, at(move.from), Time(move.to)), move.index);
    EXPECT_EQ(timesOf(parameter), move.times);
    EXPECT_EQ(parameter.keyframeValue(move.index, View(0)), 77.0);
    EXPECT_EQ(marks(), move.marks);
    bool const inPlace = move.marks == Times{1, 2, 3};
    EXPECT_EQ(recorder.take(), (inPlace ? Changes{{ParameterChange::KeyframeChangedTimeValue, 0, move.index}}
                                        : Changes{{ParameterChange::KeyframeMoved, 0, 0, {old, move.index}}}));
    EXPECT_FALSE(parameter.signalsBlocked());
}

// Out of place, the record of the old place stays: with keys at 10, 20, 30 and records 1, 2, 3, taking the first key
// out leaves 20 with record 1 and 30 with record 2, and so on. Handles towards the next key are new where marked 0 or
// where an appended key rebuilt them (0 for LINEAR, a tenth of the distance for BEZIER).
INSTANTIATE_TEST_SUITE_P(
    That, MovedKey,
    testing::Values(Move{"stays", 20, 20, 1, {10, 20, 30}, {1, 2, 3}},
                    Move{"moves_between_its_neighbours", 20, 28, 1, {10, 28, 30}, {1, 2, 3}},
                    Move{"reaches_the_next", 20, 30, 1, {10, 30, 30}, {1, 2, 3}},
                    Move{"reaches_the_one_before", 20, 10, 1, {10, 10, 30}, {1, 2, 3}},
                    Move{"first_moves_away", 10, -99, 0, {-99, 20, 30}, {1, 2, 3}},
                    Move{"last_moves_away", 30, 99, 2, {10, 20, 99}, {1, 2, 3}},
                    // Inserted before 30, whose record is now 2: new record at place 1.
                    Move{"first_passes_the_second", 10, 25, 1, {20, 25, 30}, {1, 0.5, 2}},
                    // Appended: the record of 30, now 2, is rebuilt; the key reads record 3, its own lies behind.
                    Move{"first_becomes_the_last", 10, 40, 2, {20, 30, 40}, {1, 1.0, 3}},
                    Move{"last_becomes_the_first", 30, 5, 0, {5, 10, 20}, {0.5, 1, 2}},
                    Move{"second_becomes_the_last", 20, 40, 2, {10, 30, 40}, {1, 1.0, 3}}),
    [](auto const & row) { return std::string(row.param.name); });

TEST(MoveKeyframe, out_of_place_from_another_view_lands_in_the_default_view) {
    Parameter<double> parameter(true, "p");
    parameter.setSplittable(true);
    for (double const time : {1.0, 2.0, 3.0})
        parameter.setValue(time, at(time, 4));
    ChangeRecorder recorder(parameter);
    EXPECT_EQ(parameter.moveChangeKeyframe(8.0, at(1, 4), Time(9)), 0u);
    EXPECT_EQ(timesOf(parameter, 4), (Times{2, 3}));
    EXPECT_EQ(timesOf(parameter, 0), (Times{9}));
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::KeyframeMoved, 4, 0, {0, 0}}})) << "the new view is silent";
}

TEST(MoveKeyframe, leaves_signals_blocked_where_they_were) {
    Parameter<double> parameter(true, "p");
    for (double const time : {1.0, 2.0, 3.0})
        parameter.setValue(time, at(time));
    ChangeRecorder recorder(parameter);
    parameter.blockSignals(true);
    parameter.moveChangeKeyframe(8.0, at(1), Time(9));
    EXPECT_TRUE(parameter.signalsBlocked());
    EXPECT_EQ(recorder.take(), Changes());
}

// After each move out of place there is one more record than keys. Whatever follows, nothing may be read or written
// outside of either list.
TEST(MoveKeyframe, many_times_out_of_place_leaves_every_key_with_a_record) {
    NumericParameter<double> parameter(true, "p");
    parameter.setSplittable(true);
    std::mt19937 random(5);
    auto const pick = [&random](unsigned int count) { return static_cast<int>(random() % count); };
    for (int step = 0; step < 5000; ++step) {
        Context const context = at(pick(12), pick(3));
        switch (pick(8)) {
        case 0:
            parameter.setValue(step, context);
            break;
        case 1:
            parameter.addKeyframe(context);
            break;
        case 2:
            parameter.deleteKeyframe(context);
            break;
        case 3:
            parameter.setInterpolation(Kyn::Interpolation(pick(4)), context);
            break;
        case 4:
            parameter.resetToDefault(context);
            break;
        default:
            parameter.moveChangeKeyframe(step, context, Time(pick(12)));
            break;
        }
        for (int view = 0; view < 3; ++view) {
            Times const times = timesOf(parameter, view);
            ASSERT_TRUE(std::is_sorted(times.begin(), times.end())) << step;
            for (unsigned int i = 0; i < times.size(); ++i)
                ASSERT_LT(recordOf(parameter, i, view).eType, 4u);
            for (double time = -1.0; time < 13.0; time += 0.5)
                parameter.value(at(time, view));
        }
    }
}

// Times that are not numbers

TEST(TimesThatAreNoNumbers, stand_where_they_were_put_and_hide_no_other_key) {
    Parameter<double> parameter(true, "p");
    for (double const time : {5.0, NOT_A_NUMBER, 7.0, 3.0, 6.0, NOT_A_NUMBER})
        parameter.setValue(time, at(time));
    EXPECT_EQ(parameter.numKeyframes(View(0)), 6u) << "no such time equals another";
    for (double const time : {3.0, 5.0, 6.0, 7.0}) {
        EXPECT_TRUE(parameter.isKeyframe(at(time))) << time;
        EXPECT_EQ(parameter.value(at(time)), time);
        EXPECT_EQ(parameter.setValue(time + 1.0, at(time)), parameter.setValue(time, at(time)));
    }
    EXPECT_FALSE(parameter.isKeyframe(at(NOT_A_NUMBER)));
    parameter.deleteKeyframe(at(NOT_A_NUMBER));
    EXPECT_EQ(parameter.numKeyframes(View(0)), 6u);
    unsigned int index = 9;
    Context found = at(0);
    EXPECT_TRUE(parameter.bNearestKeyframeIndex(at(NOT_A_NUMBER), index));
    EXPECT_EQ(index, 5u) << "no key is later";
    EXPECT_TRUE(parameter.bPreviousKeyframe(at(NOT_A_NUMBER), found));
    EXPECT_FALSE(parameter.bNextKeyframe(at(NOT_A_NUMBER), found));
    for (double const time : {3.0, 5.0, 6.0, 7.0})
        parameter.deleteKeyframe(at(time));
    EXPECT_EQ(parameter.numKeyframes(View(0)), 2u);
    parameter.deleteAllKeyframes(View(0));
    EXPECT_EQ(parameter.numKeyframes(View(0)), 0u);
}

TEST(TimesThatAreNoNumbers, are_reached_by_moves_and_never_left_by_one) {
    Parameter<double> parameter(true, "p");
    parameter.setValue(1.0, at(1));
    EXPECT_EQ(parameter.moveChangeKeyframe(2.0, at(1), Time(NOT_A_NUMBER)), 0u) << "the only key stays in place";
    EXPECT_EQ(parameter.moveChangeKeyframe(2.0, at(NOT_A_NUMBER), Time(1)), NONE);
    parameter.setValue(5.0, at(5));
    parameter.setValue(4.0, at(4));
    EXPECT_EQ(parameter.moveChangeKeyframe(6.0, at(4), Time(NOT_A_NUMBER)), 2u) << "out of place, and last";
    EXPECT_TRUE(parameter.isKeyframe(at(5)));
    EXPECT_FALSE(parameter.isKeyframe(at(4)));
}

TEST(Times, infinite_ones_are_ordinary_ends) {
    NumericParameter<double> parameter(true, "p");
    parameter.setDefaultInterpolation(Kyn::INTERPOLATION_CONSTANT);
    for (double const time : {HUGE_VAL, 0.0, -HUGE_VAL, 1.0})
        parameter.setValue(time == 0.0 ? 5.0 : 6.0, at(time));
    EXPECT_EQ(timesOf(parameter), (Times{-HUGE_VAL, 0.0, 1.0, HUGE_VAL}));
    EXPECT_EQ(parameter.value(at(0.5)), 5.0);
    EXPECT_EQ(parameter.value(at(1e300)), 6.0);
}

} // namespace
