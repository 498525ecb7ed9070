#include "parameter/NumericParameter.h"
#include "parameter/support/ChangeRecorder.h"

#include <gtest/gtest.h>
#include <typeinfo>

namespace {

using namespace Test;
using Kyn::Context;
using Kyn::Keyframe;
using Kyn::NumericParameter;
using Kyn::Parameter;
using Kyn::ParameterChange;
using Kyn::ProxyScale;
using Kyn::Time;
using Kyn::View;

typedef boost::shared_ptr<Tov::MementoBase> Saved;

Context at(double time, int view = 0) {
    return Context(Time(time), View(view), ProxyScale::NONE);
}

/// Shows where keys and records lie, so that a test can tell whether two parameters share them.
class Shared : public NumericParameter<double> {
public:
    using NumericParameter<double>::NumericParameter;

    Keyframe<double> const * keys(int view = 0) const { return this->viewData(View(view)).keys.constData(); }
    Kyn::InterpolationData const * records() const { return this->viewData(View(0)).interpolation.constData(); }
};

Shared withKeys(int count) {
    Shared parameter(true, "p");
    for (int i = 0; i < count; ++i)
        parameter.setValue(i % 7, at(i));
    return parameter;
}

TEST(Copy, of_a_parameter_with_many_keys_copies_none_until_one_side_is_written) {
    Shared original = withKeys(100000);
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
    EXPECT_EQ(assigned.keys(), copy.keys());
    EXPECT_EQ(copy.value(at(5)), 5.0);
    original.importState(saved);
    EXPECT_EQ(read.keys(), copy.keys()) << "a memento shares as well";
}

TEST(Copy, is_not_made_by_reading) {
    Shared original = withKeys(100);
    Parameter<bool> linked(false, "linked");
    linked.setValue(true, at(0));
    original.setSplittable(true);
    original.setValue(1, at(0.5, 1));
    original.setLinkFlag(&linked);
    Shared const copy(original);
    Time time(0);
    unsigned int index = 0;
    Context found;
    for (int const view : {0, 1, 2}) {
        for (double const t : {-1.0, 0.0, 0.25, 50.0, 50.5, 200.0}) {
            copy.value(at(t, view));
            copy.isKeyframe(at(t, view));
            copy.bNearestKeyframeIndex(at(t, view), index);
            copy.bNearestKeyframeTime(at(t, view), time);
            copy.bPreviousKeyframe(at(t, view), found);
            copy.bNextKeyframe(at(t, view), found);
            static_cast<void>(copy.interpolation(at(t, view)));
            copy.serialisedKeyframe(at(t, view));
        }
        copy.keyframeValue(3, View(view));
        copy.keyframeContext(3, View(view));
        copy.numKeyframes(View(view));
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
        original.setDefaultInterpolation(Kyn::INTERPOLATION_LINEAR);
        original.setSplittable(true);
        original.setValue(1, at(1, 0));
        original.setValue(2, at(2, 4));
        original.setExtrapolationBefore(Kyn::EXTRAPOLATION_LINEAR);
        original.setExtrapolationAfter(Kyn::EXTRAPOLATION_CONSTANT);
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
        EXPECT_EQ(p.views(), (std::vector<View>{View(0), View(4)}));
        EXPECT_TRUE(p.isKeyframe(at(1, 0)) && p.isKeyframe(at(2, 4)));
        EXPECT_EQ(p.extrapolationBefore(), Kyn::EXTRAPOLATION_LINEAR);
        EXPECT_EQ(p.extrapolationAfter(), Kyn::EXTRAPOLATION_CONSTANT);
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
        EXPECT_EQ(p.interpolation(at(0, 0)), Kyn::INTERPOLATION_LINEAR) << "the default interpolation";
    }

    Parameter<bool> flag{false, "flag"};
    NumericParameter<double> original{true, "p"};
};

TEST_F(Saving, copy_takes_everything) {
    NumericParameter<double> copy(original);
    EXPECT_EQ(copy.maximum(), 50.0);
    expectAll(copy);
    Parameter<double> sliced(original);
    expectAll(sliced);
    expectContents(original);
}

TEST_F(Saving, assignment_takes_everything_and_says_so_once) {
    NumericParameter<double> other(false, "other");
    ChangeRecorder recorder(other);
    other = original;
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ParameterCopied}}));
    EXPECT_EQ(other.maximum(), 50.0);
    expectAll(other);
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
    EXPECT_EQ(other.interpolation(at(0, 0)), Kyn::INTERPOLATION_NONE);
    EXPECT_GT(other.maximum(), 50.0);
}

TEST_F(Saving, memento_brings_removed_views_back_and_sends_only_that_it_did) {
    Saved const saved = original.exportState();
    for (int round = 0; round < 2; ++round) {
        original.bRemoveView(View(4));
        original.deleteAllKeyframes(View(0));
        original.setDefaultInterpolation(Kyn::INTERPOLATION_BEZIER);
        original.setScriptName("changed");
        original.hide(false);
        original.setLinkFlag(nullptr);
        original.setMaximum(70);
        ChangeRecorder recorder(original);
        original.importState(saved);
        EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::ParameterCopied}}));
        EXPECT_EQ(original.maximum(), 70.0) << "a memento does not know limits";
        expectAll(original);
    }
}

TEST_F(Saving, memento_outlives_its_source_and_serves_any_parameter_of_the_type) {
    Saved saved;
    {
        NumericParameter<double> const copy(original);
        saved = copy.exportState();
    }
    Parameter<double> other(false, "other");
    other.importState(saved);
    expectAll(other);
}

class Foreign : public Tov::MementoBase {};

TEST_F(Saving, memento_of_another_class_or_null_is_a_bad_cast_and_changes_nothing) {
    NumericParameter<float> narrower(true, "float");
    Saved const bad[] = {Saved(), Saved(new Foreign), narrower.exportState()};
    ChangeRecorder recorder(original);
    for (Saved const & one : bad)
        EXPECT_THROW(original.importState(one), std::bad_cast);
    EXPECT_EQ(recorder.take(), Changes());
    expectAll(original);
}

} // namespace
