#include "parameter/support/ParameterTest.h"

namespace {

using namespace Kyn;
using namespace Test;

constexpr unsigned int NONE = 0xFFFFFFFFu;

/// Records that tell which they are.
InterpolationData marked(double mark) {
    return {INTERPOLATION_BEZIER, mark, mark, mark, mark};
}

/// A numeric parameter with Bezier keys at 10, 20, 30 whose records are marked 1, 2, 3.
class Keys : public testing::Test {
protected:
    Keys() {
        parameter.setDefaultInterpolation(INTERPOLATION_BEZIER);
        setKeys(parameter, {10, 20, 30});
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

TEST_F(Keys, written_key_takes_the_type_of_the_next_and_an_added_one_that_of_the_one_before) {
    Interpolation const types[] = {Interpolation(5), INTERPOLATION_LINEAR, INTERPOLATION_CONSTANT};
    for (unsigned int i = 0; i < 3; ++i)
        parameter.setInterpolation(types[i], at(10.0 * (i + 1)));
    EXPECT_EQ(recordOf(parameter, parameter.setValue(1.0, at(15))).eType, INTERPOLATION_LINEAR);
    EXPECT_EQ(recordOf(parameter, parameter.addKeyframe(at(25))).eType, INTERPOLATION_LINEAR);
    EXPECT_EQ(recordOf(parameter, parameter.addKeyframe(at(5))).eType, INTERPOLATION_BEZIER) << "none: the default";
}

TEST_F(Keys, inserted_key_gets_handles_towards_the_next_and_the_key_before_keeps_its_own) {
    parameter.setValue(50.0, at(25));
    EXPECT_EQ(recordOf(parameter, 1), marked(2));
    EXPECT_EQ(recordOf(parameter, 2), (InterpolationData{INTERPOLATION_BEZIER, 0.5, -2.0, -0.5, 2.0}));
    EXPECT_EQ(recordOf(parameter, 3), marked(3));
}

TEST_F(Keys, appended_key_rebuilds_the_handles_of_the_last_by_that_keys_own_type) {
    parameter.setValue(50.0, at(40));
    EXPECT_EQ(recordOf(parameter, 2), (InterpolationData{INTERPOLATION_BEZIER, 1.0, 2.0, -1.0, -2.0}));
    EXPECT_EQ(recordOf(parameter, 3), withoutHandles(INTERPOLATION_BEZIER));
    InterpolationData straight = marked(7);
    straight.eType = INTERPOLATION_LINEAR;
    parameter.setInterpolationData(straight, 3, View(0));
    parameter.addKeyframe(at(50));
    EXPECT_EQ(recordOf(parameter, 3), withoutHandles(INTERPOLATION_LINEAR));
}

// Moving keys

struct Move {
    char const * name;
    double from;
    double to;
    unsigned int index;
    Times times;
    Times marks; ///< Which record each key has afterwards.
};

class MovedKey : public Keys, public testing::WithParamInterface<Move> {};

TEST_P(MovedKey, lands_where_it_should_and_meets_the_record_it_should) {
    Move const & move = GetParam();
    parameter.setDefaultInterpolation(INTERPOLATION_LINEAR);
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
// out leaves 20 with record 1 and 30 with record 2, and so on. A new record and the rebuilt one before an appended key
// hold a tenth of the distance to the next key.
INSTANTIATE_TEST_SUITE_P(
    That, MovedKey,
    testing::Values(Move{"moves_between_its_neighbours", 20, 28, 1, {10, 28, 30}, {1, 2, 3}},
                    Move{"reaches_the_next", 20, 30, 1, {10, 30, 30}, {1, 2, 3}},
                    Move{"reaches_the_one_before", 20, 10, 1, {10, 10, 30}, {1, 2, 3}},
                    Move{"last_moves_away", 30, 99, 2, {10, 20, 99}, {1, 2, 3}},
                    // Inserted before 30, whose record is now 2: new record at place 1.
                    Move{"first_passes_the_second", 10, 25, 1, {20, 25, 30}, {1, 0.5, 2}},
                    // Appended: the record of 30, now 2, is rebuilt; the key reads record 3, its own lies behind.
                    Move{"first_becomes_the_last", 10, 40, 2, {20, 30, 40}, {1, 1.0, 3}},
                    Move{"last_becomes_the_first", 30, 5, 0, {5, 10, 20}, {0.5, 1, 2}}),
    [](auto const & row) { return std::string(row.param.name); });

TEST(MoveKeyframe, out_of_place_from_another_view_lands_in_the_default_view) {
    Parameter<double> parameter(true, "p");
    parameter.setSplittable(true);
    setKeys(parameter, {1, 2, 3}, 4);
    EXPECT_EQ(parameter.moveChangeKeyframe(8.0, at(1, 4), Time(9)), 0u);
    EXPECT_EQ(timesOf(parameter, 4), (Times{2, 3}));
    EXPECT_EQ(timesOf(parameter, 0), (Times{9}));
}

TEST_F(Keys, moved_while_signals_are_blocked_leave_them_so) {
    ChangeRecorder recorder(parameter);
    parameter.blockSignals(true);
    parameter.moveChangeKeyframe(8.0, at(10), Time(99));
    EXPECT_TRUE(parameter.signalsBlocked());
    EXPECT_EQ(recorder.take(), Changes());
}

// Times that are not numbers

TEST(TimesThatAreNoNumbers, stand_where_they_were_put_and_hide_no_other_key) {
    Parameter<double> parameter(true, "p");
    setKeys(parameter, {5.0, NOT_A_NUMBER, 7.0, 3.0, 6.0, NOT_A_NUMBER});
    parameter.deleteKeyframe(at(NOT_A_NUMBER));
    EXPECT_EQ(parameter.numKeyframes(View(0)), 6u) << "no such time equals another";
    EXPECT_FALSE(parameter.isKeyframe(at(NOT_A_NUMBER)));
    unsigned int index = 9;
    Context found = at(0);
    EXPECT_TRUE(parameter.bNearestKeyframeIndex(at(NOT_A_NUMBER), index));
    EXPECT_EQ(index, 5u) << "no key is later";
    EXPECT_TRUE(parameter.bPreviousKeyframe(at(NOT_A_NUMBER), found));
    EXPECT_FALSE(parameter.bNextKeyframe(at(NOT_A_NUMBER), found));
    for (double const time : {3.0, 5.0, 6.0, 7.0}) {
        EXPECT_EQ(parameter.value(at(time)), time);
        EXPECT_EQ(parameter.setValue(time + 1.0, at(time)), parameter.setValue(time, at(time)));
        parameter.deleteKeyframe(at(time));
        EXPECT_FALSE(parameter.isKeyframe(at(time))) << time;
    }
    EXPECT_EQ(parameter.numKeyframes(View(0)), 2u);
}

TEST(TimesThatAreNoNumbers, are_reached_by_moves_and_never_left_by_one) {
    Parameter<double> parameter(true, "p");
    setKeys(parameter, {1});
    EXPECT_EQ(parameter.moveChangeKeyframe(2.0, at(1), Time(NOT_A_NUMBER)), 0u) << "the only key stays in place";
    EXPECT_EQ(parameter.moveChangeKeyframe(2.0, at(NOT_A_NUMBER), Time(1)), NONE);
    setKeys(parameter, {5, 4});
    EXPECT_EQ(parameter.moveChangeKeyframe(6.0, at(4), Time(NOT_A_NUMBER)), 2u) << "out of place, and last";
    EXPECT_TRUE(parameter.isKeyframe(at(5)));
    EXPECT_FALSE(parameter.isKeyframe(at(4)));
}

} // namespace
