#include "parameter/NumericParameter.h"
#include "parameter/ParameterEdits.h"
#include "parameter/support/ChangeRecorder.h"

#include <QTextStream>

#include <functional>
#include <gtest/gtest.h>
#include <type_traits>

namespace {

using namespace Test;
using Kyn::Context;
using Kyn::Frame;
using Kyn::InterpolationData;
using Kyn::NumericParameter;
using Kyn::Parameter;
using Kyn::ParameterChange;
using Kyn::ProxyScale;
using Kyn::Time;
using Kyn::View;
using Tov::CompositeCommand;

Context at(double time, int view = 0) {
    return Context(Time(time), View(view), ProxyScale::NONE);
}

template <class T>
T valueOf(int number) {
    if constexpr (std::is_same_v<T, QString>)
        return QString::number(number);
    else if constexpr (std::is_same_v<T, bool>)
        return number % 2 != 0;
    else
        return static_cast<T>(number);
}

/// All that a parameter stores, as text that can be compared and read.
template <class T>
std::string stateOf(Parameter<T> const & parameter) {
    QString text;
    QTextStream stream(&text);
    stream.setRealNumberPrecision(17);
    for (View const view : parameter.views()) {
        if (!parameter.hasView(view))
            continue;
        stream << "view " << view.id() << " static " << parameter.staticValue(view) << '\n';
        for (unsigned int i = 0; i < parameter.numKeyframes(view); ++i) {
            Kyn::KeyframeIndex const key{const_cast<Parameter<T> *>(&parameter), view, i};
            InterpolationData const data = parameter.interpolationData(key);
            stream << "  " << parameter.keyframeContext(i, view).time().toDouble() << ": "
                   << parameter.keyframeValue(i, view) << " type " << unsigned(data.eType) << " handles "
                   << data.dOutTime << ' ' << data.dOutValue << ' ' << data.dInTime << ' ' << data.dInValue << '\n';
        }
    }
    stream << "modes " << unsigned(parameter.extrapolationBefore()) << ' ' << unsigned(parameter.extrapolationAfter())
           << (parameter.isConstrained() ? " constrained" : "");
    stream.flush();
    return text.toStdString();
}

// The law

/// Keys that a deleted one comes back like: whole frames, all of the default type LINEAR without handles, and the
/// static value that of the last key. What is not so has its own test below.
template <class T>
struct Shape {
    char const * name;
    bool animatable;
    std::vector<std::pair<int, std::vector<int>>> keys; ///< For each view the frames of its keys.

    void fill(Parameter<T> & parameter) const {
        parameter.setSplittable(true);
        parameter.setDefaultInterpolation(Kyn::INTERPOLATION_LINEAR);
        int number = 0;
        for (auto const & [view, frames] : keys) {
            for (int const frame : frames)
                parameter.setValue(valueOf<T>(++number), at(frame, view));
            parameter.setStaticValue(valueOf<T>(number), View(view));
        }
    }
};

template <class T>
std::vector<Shape<T>> const & shapes() {
    static std::vector<Shape<T>> const all{
        {"static", false, {{0, {}}}},
        {"no keys", true, {{0, {}}}},
        {"one key", true, {{0, {20}}}},
        {"many keys", true, {{0, {10, 20, 30, 40}}}},
        {"another first view", true, {{3, {10, 20, 30, 40}}}},
        {"several views", true, {{0, {10, 20, 30, 40}}, {2, {20, 35}}, {5, {}}}},
    };
    return all;
}

enum class Effect { Some, None };

template <class T>
struct Edit {
    char const * name;
    Effect effect; ///< On many keys.
    std::function<void(Parameter<T> &, CompositeCommand &)> push;
};

template <class T>
std::vector<Edit<T>> edits(Parameter<T> & master) {
    typedef Parameter<T> P;
    typedef CompositeCommand C;
    auto const first = [](P & p) { return p.views().front().id(); };
    auto const value = [first](int number, double time) {
        return [=](P & p, C & c) { p.valueCommand(valueOf<T>(number), at(time, first(p)), c); };
    };
    auto const add = [](unsigned int frame) {
        return [=](P & p, C & c) { p.addKeyframeCommand(Frame(frame), p.views(), c); };
    };
    auto const remove = [](unsigned int frame) {
        return [=](P & p, C & c) {
            p.deleteKeyframeCommand(Frame(frame), {View(9), View(5), View(3), View(2), View(0)}, c);
        };
    };
    auto const type = [first](Kyn::Interpolation newType, double time) {
        return [=](P & p, C & c) { p.setInterpolationCommand(newType, at(time, first(p)), c); };
    };
    auto const record = [first](unsigned int index) {
        return [=](P & p, C & c) {
            p.setInterpolationDataCommand({Kyn::INTERPOLATION_BEZIER, 1, 2, 3, 4}, {&p, View(first(p)), index}, c);
        };
    };
    Effect const some = Effect::Some;
    return {
        {"value on a key", some, value(9, 20)},
        {"value between keys", some, value(8, 15)},
        {"value before the keys", some, value(8, 5.5)},
        {"value behind the keys", some, value(9, 50)},
        {"several values", some,
         [=](P & p, C & c) {
             value(9, 20)(p, c);
             value(8, 25)(p, c);
             value(7, 25)(p, c);
             value(6, 20)(p, c);
         }},
        {"key added between", some, add(15)},
        {"key added in front", some, add(1)},
        {"key added behind", some, add(50)},
        {"key added where one is", Effect::None, [=](P & p, C & c) { p.addKeyframeCommand(at(20.75, first(p)), c); }},
        {"inner key deleted", some, remove(20)},
        {"first key deleted", some, remove(10)},
        {"last key deleted", some, remove(40)},
        {"no key deleted", Effect::None, remove(11)},
        {"key of a context deleted", some, [=](P & p, C & c) { p.deleteKeyframeCommand(at(30.9, first(p)), c); }},
        {"all keys deleted", some, [=](P & p, C & c) { p.deleteAllKeyframesCommand(View(first(p)), c); }},
        {"all keys deleted of no view", Effect::None, [](P & p, C & c) { p.deleteAllKeyframesCommand(View(9), c); }},
        {"type changed", some, type(Kyn::INTERPOLATION_BEZIER, 20)},
        {"type of the last key changed", some, type(Kyn::INTERPOLATION_BEZIER, 40)},
        {"type changed beside a key", Effect::None, type(Kyn::INTERPOLATION_BEZIER, 21)},
        {"record replaced", some, record(1)},
        {"record replaced past the end", Effect::None, record(4)},
        {"mode before", some, [](P & p, C & c) { p.setExtrapolationBeforeCommand(Kyn::EXTRAPOLATION_LINEAR, c); }},
        {"mode after", some, [](P & p, C & c) { p.setExtrapolationAfterCommand(Kyn::Extrapolation(7), c); }},
        {"constraint", some, [&master](P & p, C & c) { master.addConstrainedParameterCommand(&p, c); }},
        {"constraint to itself", Effect::None, [](P & p, C & c) { p.addConstrainedParameterCommand(&p, c); }},
        {"everything at once", some,
         [=, &master](P & p, C & c) {
             value(9, 25)(p, c);
             p.setExtrapolationAfterCommand(Kyn::EXTRAPOLATION_LINEAR, c);
             record(1)(p, c);
             add(26)(p, c);
             master.addConstrainedParameterCommand(&p, c);
         }},
    };
}

template <class P>
class EveryEdit : public testing::Test {};

typedef testing::Types<NumericParameter<double>, NumericParameter<int>, NumericParameter<bool>, Parameter<unsigned int>,
                       Parameter<QString>, Parameter<View>, Parameter<VX_STEREO_MODE>>
    EditedTypes;
TYPED_TEST_SUITE(EveryEdit, EditedTypes);

TYPED_TEST(EveryEdit, undone_gives_the_state_before_and_redone_the_state_after) {
    typedef decltype(std::declval<TypeParam>().defaultValue()) T;
    TypeParam master(true, "master");
    master.setValue(valueOf<T>(5), at(3));
    for (Shape<T> const & shape : shapes<T>()) {
        for (Edit<T> const & edit : edits<T>(master)) {
            SCOPED_TRACE(std::string(shape.name) + ", " + edit.name);
            TypeParam parameter(shape.animatable, "p");
            shape.fill(parameter);
            std::string const before = stateOf<T>(parameter);
            CompositeCommand commands;
            edit.push(parameter, commands);
            ASSERT_EQ(stateOf<T>(parameter), before) << "a factory runs nothing";
            commands.redo();
            std::string const after = stateOf<T>(parameter);
            if (std::string(shape.name) == "many keys") {
                EXPECT_EQ(after != before, edit.effect == Effect::Some);
            }
            for (int round = 0; round < 2; ++round) {
                commands.undo();
                EXPECT_EQ(stateOf<T>(parameter), before);
                commands.redo();
                EXPECT_EQ(stateOf<T>(parameter), after);
            }
            commands.undo();
        }
    }
}

// Where an edit's own rules fall short of the law

class EditShortfall : public testing::Test {
protected:
    EditShortfall() {
        parameter.setSplittable(true);
        parameter.setDefaultInterpolation(Kyn::INTERPOLATION_BEZIER);
        parameter.setStaticValue(-5, View(0));
        for (double const time : {10.0, 20.0, 30.0})
            parameter.setValue(time, at(time));
    }

    void setHandles(unsigned int index) { parameter.setInterpolationData(byHand, index, View(0)); }
    InterpolationData record(unsigned int index, int view = 0) {
        return parameter.interpolationData({&parameter, View(view), index});
    }
    std::string state() const { return stateOf<double>(parameter); }

    InterpolationData const byHand{Kyn::INTERPOLATION_BEZIER, 1.5, 2.5, -3.5, -4.5};
    NumericParameter<double> parameter{true, "p"};
    Parameter<double> & plain = parameter;
    CompositeCommand commands;
};

TEST_F(EditShortfall, deleted_key_comes_back_with_type_and_handles_of_a_new_one) {
    parameter.setInterpolation(Kyn::INTERPOLATION_LINEAR, at(20));
    setHandles(0);
    setHandles(1);
    parameter.deleteKeyframeCommand(Frame(20), {View(0)}, commands);
    commands.redo();
    double const between = parameter.value(at(20)); // The handles are those towards the value that was in force.
    commands.undo();
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 20.0);
    EXPECT_EQ(record(0), byHand) << "the key before keeps its own";
    double const rise = (30.0 - between) * 0.1;
    EXPECT_EQ(record(1), (InterpolationData{Kyn::INTERPOLATION_BEZIER, 1, rise, -1, -rise}));
}

TEST_F(EditShortfall, deleting_the_only_key_leaves_its_value_as_the_static_value) {
    parameter.deleteKeyframe(at(20));
    parameter.deleteKeyframe(at(30));
    parameter.deleteKeyframeCommand(Frame(10), {View(0)}, commands);
    commands.redo();
    commands.undo();
    EXPECT_EQ(parameter.numKeyframes(View(0)), 1u);
    EXPECT_EQ(parameter.staticValue(View(0)), 10.0);
}

TEST_F(EditShortfall, view_that_a_write_made_stays) {
    plain.valueCommand(7.0, at(5, 3), commands);
    parameter.addKeyframeCommand(Frame(5), {View(4)}, commands);
    commands.redo();
    commands.undo();
    EXPECT_TRUE(parameter.hasView(View(3)) && parameter.hasView(View(4)));
    EXPECT_EQ(parameter.numKeyframes(View(3)), 0u);
}

TEST_F(EditShortfall, rebuilt_handles_before_an_appended_key_stay_rebuilt) {
    InterpolationData const rebuilt{Kyn::INTERPOLATION_BEZIER, 1, 1, -1, -1};
    for (bool const write : {true, false}) {
        setHandles(2);
        CompositeCommand one;
        if (write)
            plain.valueCommand(40.0, at(40), one);
        else
            parameter.addKeyframeCommand(Frame(40), {View(0)}, one);
        one.redo();
        one.undo();
        EXPECT_EQ(parameter.numKeyframes(View(0)), 3u);
        if (write)
            EXPECT_EQ(record(2), rebuilt);
        else
            EXPECT_FALSE(record(2) == byHand);
    }
}

TEST_F(EditShortfall, changed_type_comes_back_with_default_handles) {
    setHandles(1);
    parameter.setInterpolationCommand(Kyn::INTERPOLATION_LINEAR, at(20), commands);
    commands.redo();
    commands.undo();
    EXPECT_EQ(record(1), (InterpolationData{Kyn::INTERPOLATION_BEZIER, 1, 1, -1, -1}));
}

TEST_F(EditShortfall, value_beyond_the_limits_comes_back_limited) {
    parameter.setMaximum(25);
    plain.valueCommand(3.0, at(30), commands);
    commands.redo();
    commands.undo();
    EXPECT_EQ(parameter.keyframeValue(2, View(0)), 25.0);
}

TEST_F(EditShortfall, move_redoes_once_and_every_further_undo_moves_again) {
    std::string const before = state();
    plain.moveChangeCommand(21.0, at(20), Time(25), commands);
    commands.redo();
    EXPECT_EQ(parameter.keyframeContext(1, View(0)), at(25));
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 21.0);
    commands.redo();
    commands.undo();
    EXPECT_EQ(state(), before);
    commands.redo();
    EXPECT_EQ(state(), before) << "redo is carried out once";
    parameter.deleteKeyframe(at(20));
    parameter.setValue(99, at(25));
    commands.undo();
    EXPECT_EQ(parameter.keyframeContext(1, View(0)), at(20)) << "whatever key stands at the new time is moved back";
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 20.0);
}

TEST_F(EditShortfall, move_knows_the_old_value_from_its_making_and_not_its_first_run) {
    plain.moveChangeCommand(21.0, at(20), Time(25), commands);
    parameter.setValue(77, at(20));
    commands.undo();
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 77.0) << "not run yet";
    commands.redo();
    commands.undo();
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 20.0);
}

TEST_F(EditShortfall, move_out_of_place_and_back_leaves_the_records_behind) {
    for (unsigned int i = 0; i < 3; ++i)
        setHandles(i);
    plain.moveChangeCommand(10.0, at(10), Time(25), commands);
    commands.redo();
    commands.undo();
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ(parameter.keyframeContext(i, View(0)), at(10.0 * (i + 1)));
        EXPECT_EQ(parameter.keyframeValue(i, View(0)), 10.0 * (i + 1));
    }
    EXPECT_EQ(record(0), (InterpolationData{Kyn::INTERPOLATION_BEZIER, 1, 1, -1, -1}));
    EXPECT_EQ(record(1), byHand);
}

TEST_F(EditShortfall, deleting_all_keys_works_on_whole_frames_and_undoes_forwards) {
    parameter.setValue(3, at(12.5));
    parameter.deleteAllKeyframesCommand(View(0), commands);
    ChangeRecorder recorder(parameter);
    commands.redo();
    EXPECT_EQ(parameter.numKeyframes(View(0)), 1u) << "a key between two frames is left alone";
    EXPECT_TRUE(parameter.isKeyframe(at(12.5)));
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::KeyframeRemoved, 0, 0},
                                        {ParameterChange::KeyframeRemoved, 0, 1},
                                        {ParameterChange::KeyframeRemoved, 0, 1}}));
    commands.undo();
    Changes added;
    for (Change const & change : recorder.take())
        if (change.type == ParameterChange::KeyframeAdded)
            added.push_back(change);
    EXPECT_EQ(added, (Changes{{ParameterChange::KeyframeAdded, 0, 0},
                              {ParameterChange::KeyframeAdded, 0, 2},
                              {ParameterChange::KeyframeAdded, 0, 3}}));
    EXPECT_EQ(parameter.staticValue(View(0)), -5.0);
}

TEST_F(EditShortfall, on_a_constrained_parameter_the_masters_state_is_what_undo_writes) {
    NumericParameter<double> master(true, "master");
    master.setExtrapolationAfter(Kyn::EXTRAPOLATION_LINEAR);
    master.setStaticValue(8, View(0));
    ASSERT_TRUE(master.bAddConstrainedParameter(&parameter));
    plain.valueCommand(1.0, at(20), commands);
    parameter.setExtrapolationAfterCommand(Kyn::EXTRAPOLATION_CONSTANT, commands);
    parameter.addKeyframeCommand(Frame(15), {View(0)}, commands);
    commands.redo();
    EXPECT_FALSE(parameter.isKeyframe(at(15))) << "a constrained parameter gets no key";
    parameter.setValue(4, at(15));
    commands.undo();
    EXPECT_FALSE(parameter.isKeyframe(at(15))) << "but undo deletes without asking";
    parameter.bUnconstrain();
    EXPECT_EQ(parameter.value(at(20)), 8.0);
    EXPECT_EQ(parameter.extrapolationAfter(), Kyn::EXTRAPOLATION_LINEAR);
}

TEST_F(EditShortfall, constraint_undone_twice_restores_the_state_of_the_first_redo) {
    NumericParameter<double> master(true, "master");
    master.addConstrainedParameterCommand(&parameter, commands);
    std::string const before = state();
    commands.redo();
    commands.undo();
    parameter.setValue(44, at(44));
    EXPECT_NE(state(), before);
    commands.redo();
    commands.undo();
    EXPECT_EQ(state(), before);
}

// What else edits owe

class Edits : public EditShortfall {};

TEST_F(Edits, constraint_that_the_master_refuses_leaves_the_parameter_alone) {
    NumericParameter<double> first(true, "first");
    NumericParameter<double> second(true, "second");
    NumericParameter<float> other(true, "other");
    first.bAddConstrainedParameter(&parameter);
    second.addConstrainedParameterCommand(&parameter, commands);
    second.addConstrainedParameterCommand(&other, commands);
    second.addConstrainedParameterCommand(nullptr, commands);
    EXPECT_EQ(commands.size(), 3u);
    std::string const before = state();
    ChangeRecorder recorder(parameter);
    EXPECT_FALSE(commands.redo());
    commands.undo();
    EXPECT_EQ(state(), before);
    EXPECT_EQ(recorder.take(), Changes());
    EXPECT_EQ(parameter.masterParameter(), static_cast<Kyn::ParameterWithoutType *>(&first));
}

TEST_F(Edits, value_written_twice_keeps_the_old_value_of_the_first_time) {
    plain.valueCommand(3.0, at(20), commands);
    ChangeRecorder recorder(parameter);
    commands.redo();
    parameter.setValue(5, at(20));
    commands.redo();
    EXPECT_EQ(recorder.take().size(), 3u);
    EXPECT_EQ(parameter.value(at(20)), 3.0);
    commands.undo();
    EXPECT_EQ(parameter.value(at(20)), 20.0);
    EXPECT_EQ(parameter.numKeyframes(View(0)), 3u);
}

TEST_F(Edits, undo_of_an_added_key_leaves_the_views_alone_that_had_one) {
    parameter.setValue(1, at(1, 2));
    parameter.addKeyframeCommand(Frame(20), {View(2), View(0)}, commands);
    commands.redo();
    EXPECT_TRUE(parameter.isKeyframe(at(20, 2)));
    commands.undo();
    EXPECT_FALSE(parameter.isKeyframe(at(20, 2)));
    EXPECT_TRUE(parameter.isKeyframe(at(20, 0)));
}

TEST_F(Edits, numeric_factories_limit_the_value_that_goes_into_the_edit) {
    parameter.setMinimum(0);
    parameter.setMaximum(25);
    parameter.valueCommand(1e9, at(10), commands);
    parameter.moveChangeCommand(-1e9, at(20), 22.0, commands);
    parameter.setMinimum(-100);
    parameter.setMaximum(100);
    commands.redo();
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 25.0);
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 0.0);
}

// Composites

class Counted : public Tov::Command {
public:
    Counted(std::string & trace, char name, bool accepted) : log(trace), letter(name), result(accepted) {}
    ~Counted() override { log += '~'; }
    bool redo() override {
        log += letter;
        return result;
    }
    void undo() override { log += static_cast<char>(letter - 'a' + 'A'); }

private:
    std::string & log;
    char letter;
    bool result;
};

TEST(Composite, runs_all_forwards_undoes_backwards_and_owns_what_it_holds) {
    std::string log;
    {
        CompositeCommand commands;
        EXPECT_TRUE(commands.empty() && commands.redo());
        commands.push_back(new Counted(log, 'a', true));
        commands.push_back(nullptr);
        commands.push_back(new Counted(log, 'b', false));
        auto * const inner = new CompositeCommand;
        inner->push_back(new Counted(log, 'c', true));
        commands.push_back(inner);
        EXPECT_EQ(commands.size(), 3u);
        EXPECT_FALSE(commands.redo()) << "one was refused";
        commands.undo();
    }
    EXPECT_EQ(log, "abcCBA~~~");
}

TEST_F(Edits, never_run_hold_nothing_and_do_nothing) {
    Parameter<double> fresh(true, "fresh");
    {
        CompositeCommand unused;
        fresh.valueCommand(1.0, at(5, 3), unused);
        fresh.deleteAllKeyframesCommand(View(0), unused);
        fresh.setInterpolationCommand(Kyn::INTERPOLATION_LINEAR, at(1), unused);
    }
    EXPECT_FALSE(fresh.hasView(View(0)));
    EXPECT_LE(sizeof(Kyn::ParameterValueEdit<double>), 104u);
}

} // namespace
