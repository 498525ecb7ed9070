#include "parameter/support/ParameterTest.h"

#include <typeinfo>

namespace {

using namespace Kyn;
using namespace Test;

typedef boost::shared_ptr<Tov::MementoBase> Saved;

/// Shows where keys and records lie, so that a test can tell whether two parameters share them.
class Shared : public NumericParameter<double> {
public:
    using NumericParameter<double>::NumericParameter;

    Keyframe<double> const * keys(int view = 0) const { return this->viewData(View(view)).keys.constData(); }
    InterpolationData const * records() const { return this->viewData(View(0)).interpolation.constData(); }
};

TEST(Copy, copies_no_key_until_one_side_is_written) {
    Shared original(true, "p");
    setKeys(original, {1, 2, 5});
    Shared const copy(original);
    Shared assigned(true, "q");
    assigned = original;
    Saved const saved = original.exportState();
    Shared const & read = original;
    ASSERT_EQ(read.keys(), copy.keys());
    ASSERT_EQ(read.records(), copy.records());
    ASSERT_EQ(read.keys(), assigned.keys());

    original.setValue(99, at(5));
    EXPECT_NE(read.keys(), copy.keys());
    EXPECT_EQ(copy.value(at(5)), 5.0);
    original.importState(saved);
    EXPECT_EQ(read.keys(), copy.keys()) << "a memento shares as well";
}

TEST(Copy, is_not_made_by_reading) {
    Shared original(true, "p");
    Parameter<bool> linked(false, "linked");
    linked.setValue(true, at(0));
    original.setSplittable(true);
    setKeys(original, {0, 1, 2, 3, 4});
    setKeys(original, {0.5}, 1);
    original.setLinkFlag(&linked);
    Shared const copy(original);
    Time time(0);
    unsigned int index = 0;
    Context found;
    for (int const view : {0, 1, 2}) {
        for (double const t : {-1.0, 0.0, 0.25, 2.0, 2.5, 200.0}) {
            Context const context = at(t, view);
            copy.value(context);
            copy.isKeyframe(context);
            copy.bNearestKeyframeIndex(context, index);
            copy.bNearestKeyframeTime(context, time);
            copy.bPreviousKeyframe(context, found);
            copy.bNextKeyframe(context, found);
            static_cast<void>(copy.interpolation(context));
            copy.serialisedKeyframe(context);
        }
        copy.keyframeValue(3, View(view));
        copy.keyframeContext(3, View(view));
    }
    Shared const & read = original;
    EXPECT_EQ(read.keys(), copy.keys());
    EXPECT_EQ(read.keys(1), copy.keys(1));
    EXPECT_EQ(read.records(), copy.records());
}

/// A parameter in which all that can be copied differs from a new one.
class Saving : public testing::Test {
protected:
    Saving() {
        original.setDefaultInterpolation(INTERPOLATION_LINEAR);
        original.setSplittable(true);
        original.setValue(1, at(1, 0));
        original.setValue(2, at(2, 4));
        original.setExtrapolationBefore(EXTRAPOLATION_LINEAR);
        original.setExtrapolationAfter(EXTRAPOLATION_CONSTANT);
        original.setDefaultValue(6);
        original.setLinkFlag(&flag);
        original.hide(true);
        original.setDisplayName("shown");
        original.setMaximum(50);
    }

    /// What copyFrom takes over too.
    static void expectContents(Parameter<double> const & p) {
        EXPECT_TRUE(p.isAnimatable());
        EXPECT_TRUE(p.isSplittable());
        EXPECT_EQ(idsOf(p), (Ids{0, 4}));
        EXPECT_TRUE(p.isKeyframe(at(1, 0)) && p.isKeyframe(at(2, 4)));
        EXPECT_EQ(p.extrapolationBefore(), EXTRAPOLATION_LINEAR);
        EXPECT_EQ(p.extrapolationAfter(), EXTRAPOLATION_CONSTANT);
        EXPECT_EQ(p.defaultValue(), 6.0);
    }
    /// And what it does not.
    void expectAll(Parameter<double> & p) const {
        expectContents(p);
        EXPECT_EQ(p.linkFlag(), &flag);
        EXPECT_TRUE(p.isHidden());
        EXPECT_EQ(p.scriptName(), QString("p"));
        EXPECT_EQ(p.displayName(), QString("shown"));
        p.deleteAllKeyframes(View(0));
        EXPECT_EQ(p.interpolation(at(0, 0)), INTERPOLATION_LINEAR) << "the default interpolation";
    }

    Parameter<bool> flag{false, "flag"};
    NumericParameter<double> original{true, "p"};
};

TEST_F(Saving, copy_and_assignment_take_everything) {
    NumericParameter<double> copy(original);
    NumericParameter<double> assigned(false, "other");
    ChangeRecorder recorder(assigned);
    assigned = original;
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ParameterCopied}}));
    for (NumericParameter<double> * one : {&copy, &assigned}) {
        EXPECT_EQ(one->maximum(), 50.0);
        expectAll(*one);
    }
    expectContents(original);
}

TEST_F(Saving, copyFrom_is_narrower) {
    NumericParameter<double> other(false, "other");
    other.copyFrom(&original);
    expectContents(other);
    EXPECT_EQ(other.linkFlag(), nullptr);
    EXPECT_FALSE(other.isHidden());
    EXPECT_EQ(other.scriptName(), QString("other"));
    EXPECT_EQ(other.displayName(), QString("other"));
    other.deleteAllKeyframes(View(0));
    EXPECT_EQ(other.interpolation(at(0, 0)), INTERPOLATION_NONE);
    EXPECT_GT(other.maximum(), 50.0);
}

TEST_F(Saving, memento_outlives_its_source_and_serves_any_parameter_of_the_type) {
    Saved const saved = Parameter<double>(original).exportState();
    original.bRemoveView(View(4));
    original.setDefaultInterpolation(INTERPOLATION_BEZIER);
    original.setScriptName("changed");
    original.hide(false);
    original.setLinkFlag(nullptr);
    original.setMaximum(70);
    ChangeRecorder recorder(original);
    for (int round = 0; round < 2; ++round) {
        original.importState(saved);
        EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ParameterCopied}}));
        expectAll(original);
        recorder.take();
    }
    EXPECT_EQ(original.maximum(), 70.0) << "a memento does not know limits";
    Parameter<double> other(false, "other");
    other.importState(saved);
    expectAll(other);
}

TEST_F(Saving, memento_of_another_class_or_null_is_a_bad_cast_and_changes_nothing) {
    NumericParameter<float> const narrower(true, "float");
    ChangeRecorder recorder(original);
    for (Saved const & bad : {Saved(), narrower.exportState()})
        EXPECT_THROW(original.importState(bad), std::bad_cast);
    EXPECT_EQ(recorder.take(), Changes());
    expectAll(original);
}

} // namespace
