#include "parameter/ParameterEdits.h"
#include "parameter/support/ParameterTest.h"

#include <QTextStream>

#include <functional>

namespace {

using namespace Kyn;
using namespace Test;
using Tov::CompositeCommand;

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
            InterpolationData const data = recordOf(parameter, i, view.id());
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
        parameter.setDefaultInterpolation(INTERPOLATION_LINEAR);
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
    auto const type = [first](Interpolation newType, double time) {
        return [=](P & p, C & c) { p.setInterpolationCommand(newType, at(time, first(p)), c); };
    };
    auto const record = [first](unsigned int index) {
        return [=](P & p, C & c) {
            p.setInterpolationDataCommand({INTERPOLATION_BEZIER, 1, 2, 3, 4}, {&p, View(first(p)), index}, c);
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
        {"type changed", some, type(INTERPOLATION_BEZIER, 20)},
        {"type of the last key changed", some, type(INTERPOLATION_BEZIER, 40)},
        {"type changed beside a key", Effect::None, type(INTERPOLATION_BEZIER, 21)},
        {"record replaced", some, record(1)},
        {"record replaced past the end", Effect::None, record(4)},
        {"mode before", some, [](P & p, C & c) { p.setExtrapolationBeforeCommand(EXTRAPOLATION_LINEAR, c); }},
        {"mode after", some, [](P & p, C & c) { p.setExtrapolationAfterCommand(Extrapolation(7), c); }},
        {"constraint", some, [&master](P & p, C & c) { master.addConstrainedParameterCommand(&p, c); }},
        {"constraint to itself", Effect::None, [](P & p, C & c) { p.addConstrainedParameterCommand(&p, c); }},
        {"everything at once", some,
         [=, &master](P & p, C & c) {
             value(9, 25)(p, c);
             p.setExtrapolationAfterCommand(EXTRAPOLATION_LINEAR, c);
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

/// A parameter with Bezier keys at 10, 20, 30, the composite of a test's commands, and a record that no rule makes.
class EditShortfall : public testing::Test {
protected:
    EditShortfall() {
        parameter.setSplittable(true);
        parameter.setDefaultInterpolation(INTERPOLATION_BEZIER);
        parameter.setStaticValue(-5, View(0));
        setKeys(parameter, {10, 20, 30});
    }

    void setHandles(unsigned int index) { parameter.setInterpolationData(byHand, index, View(0)); }
    std::string state() const { return stateOf<double>(parameter); }
    bool redoAndUndo() {
        bool const done = commands.redo();
        commands.undo();
        return done;
    }

    InterpolationData const byHand{INTERPOLATION_BEZIER, 1.5, 2.5, -3.5, -4.5};
    InterpolationData const towardsTheNext{INTERPOLATION_BEZIER, 1, 1, -1, -1};
    NumericParameter<double> parameter{true, "p"};
    Parameter<double> & plain = parameter;
    CompositeCommand commands;
};

TEST_F(EditShortfall, deleted_key_comes_back_with_type_and_handles_of_a_new_one) {
    parameter.setInterpolation(INTERPOLATION_LINEAR, at(20));
    setHandles(0);
    setHandles(1);
    parameter.deleteKeyframeCommand(Frame(20), {View(0)}, commands);
    commands.redo();
    double const between = parameter.value(at(20)); // The handles are those towards the value that was in force.
    commands.undo();
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 20.0);
    EXPECT_EQ(recordOf(parameter, 0), byHand) << "the key before keeps its own";
    double const rise = (30.0 - between) * 0.1;
    EXPECT_EQ(recordOf(parameter, 1), (InterpolationData{INTERPOLATION_BEZIER, 1, rise, -1, -rise}));
}

TEST_F(EditShortfall, deleting_the_only_key_leaves_its_value_as_the_static_value) {
    parameter.deleteKeyframe(at(20));
    parameter.deleteKeyframe(at(30));
    parameter.deleteKeyframeCommand(Frame(10), {View(0)}, commands);
    redoAndUndo();
    EXPECT_EQ(timesOf(parameter), Times{10});
    EXPECT_EQ(parameter.staticValue(View(0)), 10.0);
}

TEST_F(EditShortfall, view_that_a_write_made_stays) {
    plain.valueCommand(7.0, at(5, 3), commands);
    parameter.addKeyframeCommand(Frame(5), {View(4)}, commands);
    redoAndUndo();
    EXPECT_EQ(idsOf(parameter), (Ids{0, 3, 4}));
    EXPECT_EQ(parameter.numKeyframes(View(3)), 0u);
}

TEST_F(EditShortfall, rebuilt_handles_before_an_appended_key_stay_rebuilt) {
    setHandles(2);
    plain.valueCommand(40.0, at(40), commands);
    redoAndUndo();
    EXPECT_EQ(timesOf(parameter), (Times{10, 20, 30}));
    EXPECT_EQ(recordOf(parameter, 2), towardsTheNext);
    setHandles(2);
    CompositeCommand adding;
    parameter.addKeyframeCommand(Frame(40), {View(0)}, adding);
    adding.redo();
    adding.undo();
    EXPECT_EQ(timesOf(parameter), (Times{10, 20, 30}));
    EXPECT_FALSE(recordOf(parameter, 2) == byHand);
}

TEST_F(EditShortfall, changed_type_comes_back_with_default_handles) {
    setHandles(1);
    parameter.setInterpolationCommand(INTERPOLATION_LINEAR, at(20), commands);
    redoAndUndo();
    EXPECT_EQ(recordOf(parameter, 1), towardsTheNext);
}

TEST_F(EditShortfall, value_beyond_the_limits_comes_back_limited) {
    parameter.setMaximum(25);
    plain.valueCommand(3.0, at(30), commands);
    redoAndUndo();
    EXPECT_EQ(parameter.keyframeValue(2, View(0)), 25.0);
}

TEST_F(EditShortfall, move_redoes_once_and_every_further_undo_moves_again) {
    std::string const before = state();
    plain.moveChangeCommand(21.0, at(20), Time(25), commands);
    commands.redo();
    EXPECT_EQ(timesOf(parameter), (Times{10, 25, 30}));
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 21.0);
    redoAndUndo();
    EXPECT_EQ(state(), before);
    commands.redo();
    EXPECT_EQ(state(), before) << "redo is carried out once";
    parameter.deleteKeyframe(at(20));
    parameter.setValue(99, at(25));
    commands.undo();
    EXPECT_EQ(timesOf(parameter), (Times{10, 20, 30})) << "whatever key stands at the new time is moved back";
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 20.0);
}

TEST_F(EditShortfall, move_knows_the_old_value_from_its_making_and_not_its_first_run) {
    plain.moveChangeCommand(21.0, at(20), Time(25), commands);
    parameter.setValue(77, at(20));
    parameter.setValue(5, at(25));
    commands.undo();
    EXPECT_EQ(timesOf(parameter), (Times{10, 20, 25, 30})) << "not run yet";
    redoAndUndo();
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 20.0);
}

TEST_F(EditShortfall, move_out_of_place_and_back_leaves_the_records_behind) {
    for (unsigned int i = 0; i < 3; ++i)
        setHandles(i);
    plain.moveChangeCommand(10.0, at(10), Time(25), commands);
    redoAndUndo();
    EXPECT_EQ(timesOf(parameter), (Times{10, 20, 30}));
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 10.0);
    EXPECT_EQ(recordOf(parameter, 0), towardsTheNext);
    EXPECT_EQ(recordOf(parameter, 1), byHand);
}

TEST_F(EditShortfall, deleting_all_keys_works_on_whole_frames_and_undoes_forwards) {
    parameter.setValue(3, at(12.5));
    parameter.deleteAllKeyframesCommand(View(0), commands);
    commands.redo();
    EXPECT_EQ(timesOf(parameter), Times{12.5}) << "a key between two frames is left alone";
    ChangeRecorder recorder(parameter);
    commands.undo();
    std::vector<unsigned int> added;
    for (Change const & change : recorder.take())
        if (change.type == ParameterChange::KeyframeAdded)
            added.push_back(change.index);
    EXPECT_EQ(added, (std::vector<unsigned int>{0, 2, 3}));
    EXPECT_EQ(parameter.staticValue(View(0)), -5.0);
}

TEST_F(EditShortfall, on_a_constrained_parameter_the_masters_state_is_what_undo_writes) {
    NumericParameter<double> master(true, "master");
    master.setExtrapolationAfter(EXTRAPOLATION_LINEAR);
    master.setStaticValue(8, View(0));
    ASSERT_TRUE(master.bAddConstrainedParameter(&parameter));
    plain.valueCommand(1.0, at(20), commands);
    parameter.setExtrapolationAfterCommand(EXTRAPOLATION_CONSTANT, commands);
    parameter.addKeyframeCommand(Frame(15), {View(0)}, commands);
    commands.redo();
    EXPECT_FALSE(parameter.isKeyframe(at(15))) << "a constrained parameter gets no key";
    parameter.setValue(4, at(15));
    commands.undo();
    EXPECT_FALSE(parameter.isKeyframe(at(15))) << "but undo deletes without asking";
    parameter.bUnconstrain();
    EXPECT_EQ(parameter.value(at(20)), 8.0);
    EXPECT_EQ(parameter.extrapolationAfter(), EXTRAPOLATION_LINEAR);
}

TEST_F(EditShortfall, constraint_undone_twice_restores_the_state_of_the_first_redo) {
    NumericParameter<double> master(true, "master");
    master.addConstrainedParameterCommand(&parameter, commands);
    std::string const before = state();
    redoAndUndo();
    parameter.setValue(44, at(44));
    redoAndUndo();
    EXPECT_EQ(state(), before);
}

// What else edits owe

class Edits : public EditShortfall {};

TEST_F(Edits, constraint_that_the_master_refuses_leaves_the_parameter_alone) {
    NumericParameter<double> first(true, "first");
    NumericParameter<double> second(true, "second");
    NumericParameter<float> other(true, "other");
    first.bAddConstrainedParameter(&parameter);
    for (ParameterWithoutType * const refused :
         {static_cast<ParameterWithoutType *>(&parameter), static_cast<ParameterWithoutType *>(&other),
          static_cast<ParameterWithoutType *>(nullptr)})
        second.addConstrainedParameterCommand(refused, commands);
    std::string const before = state();
    ChangeRecorder recorder(parameter);
    EXPECT_FALSE(redoAndUndo());
    EXPECT_EQ(state(), before);
    EXPECT_EQ(recorder.take(), Changes());
    EXPECT_EQ(parameter.masterParameter(), static_cast<ParameterWithoutType *>(&first));
}

TEST_F(Edits, value_written_twice_keeps_the_old_value_of_the_first_time) {
    plain.valueCommand(3.0, at(20), commands);
    commands.redo();
    parameter.setValue(5, at(20));
    commands.redo();
    EXPECT_EQ(parameter.value(at(20)), 3.0);
    commands.undo();
    EXPECT_EQ(parameter.value(at(20)), 20.0);
    EXPECT_EQ(parameter.numKeyframes(View(0)), 3u);
}

TEST_F(Edits, never_run_hold_nothing_and_do_nothing) {
    Parameter<double> fresh(true, "fresh");
    {
        CompositeCommand unused;
        fresh.valueCommand(1.0, at(5, 3), unused);
        fresh.deleteAllKeyframesCommand(View(0), unused);
        fresh.setInterpolationCommand(INTERPOLATION_LINEAR, at(1), unused);
    }
    EXPECT_FALSE(fresh.hasView(View(0)));
    EXPECT_LE(sizeof(ParameterValueEdit<double>), 104u);
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

} // namespace
