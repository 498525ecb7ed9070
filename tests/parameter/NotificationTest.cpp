#include "parameter/kyn/ScopedSignalPermit.h"
#include "parameter/support/ParameterTest.h"
#include "parameter/support/ScriptLines.h"

#include <functional>
#include <memory>

namespace {

using namespace Kyn;
using namespace Test;

typedef NumericParameter<double> Subject;
typedef ParameterChange C;

// What each operation sends is compared with a model in RandomOperationsTest.cpp; here it matters when it is sent.

/// An operation on a parameter with keys at 10, 20, 30 in view 0 and the static value 5 in view 1, and what it sends.
struct Case {
    char const * name;
    std::function<void(Subject &)> operation;
    Changes sent;
};

class Notification : public testing::TestWithParam<Case> {
protected:
    Notification() {
        parameter.setSplittable(true);
        setKeys(parameter, {10, 20, 30});
        parameter.setStaticValue(5.0, View(1));
    }

    Subject parameter{true, "p"};
};

TEST_P(Notification, is_sent_once_in_order_after_the_data_has_changed) {
    ChangeRecorder recorder(parameter);
    Subject plain(parameter);
    GetParam().operation(plain);
    // What a listener sees at any change is what the operation leaves, as nobody listening to `plain` shows.
    QObject context;
    QObject::connect(&parameter, &ParameterWithoutType::changed, &context, [&](C const & change) {
        EXPECT_EQ(&change.parameter(), static_cast<ParameterWithoutType *>(&parameter));
        if (change.type() != C::ViewAdded) {
            EXPECT_EQ(scriptOf(parameter), scriptOf(plain));
        }
    });
    GetParam().operation(parameter);
    EXPECT_EQ(recorder.take(), GetParam().sent);
}

INSTANTIATE_TEST_SUITE_P(
    Of, Notification,
    testing::Values(
        Case{"write_on_a_key", [](Subject & p) { p.setValue(1, at(20)); }, {{C::KeyframeChangedValue, 0, 1}}},
        Case{"write_in_a_new_view",
             [](Subject & p) { p.setValue(1, at(15, 7)); },
             {{C::ViewAdded, 7}, {C::KeyframeAdded, 7, 0}, {C::KeyframeChangedValue, 7, 0}}},
        Case{"adding_in_a_new_view",
             [](Subject & p) { p.addKeyframe(at(35, 7)); },
             {{C::ViewAdded, 7}, {C::KeyframeAdded, 7, 0}}},
        Case{"deleting", [](Subject & p) { p.deleteKeyframe(at(30)); }, {{C::KeyframeRemoved, 0, 2}}},
        Case{"deleting_all", [](Subject & p) { p.deleteAllKeyframes(View(0)); }, {{C::AllKeyframesRemoved}}},
        Case{"resetting_a_new_view",
             [](Subject & p) { p.resetToDefault(at(0, 9)); },
             {{C::ViewAdded, 9}, {C::ViewReset, 9}}},
        Case{"setting_a_type",
             [](Subject & p) { p.setInterpolation(INTERPOLATION_LINEAR, at(20)); },
             {{C::KeyframeChangedInterpolation, 0, 1}}},
        Case{"setting_a_record",
             [](Subject & p) { p.setInterpolationData({}, 2, View(0)); },
             {{C::KeyframeChangedInterpolation, 0, 2}}},
        Case{"the_same_modes",
             [](Subject & p) {
                 p.setExtrapolationBefore(p.extrapolationBefore());
                 p.setExtrapolationAfter(p.extrapolationAfter());
             },
             {{C::ChangedExtrapolationBefore}, {C::ChangedExtrapolationAfter}}},
        Case{"moving_in_place",
             [](Subject & p) { p.moveChangeKeyframe(20, at(20), Time(20)); },
             {{C::KeyframeChangedTimeValue, 0, 1}}},
        Case{"moving_past_a_key",
             [](Subject & p) { p.moveChangeKeyframe(1, at(10), Time(25)); },
             {{C::KeyframeMoved, 0, 0, {0, 1}}}},
        Case{"removing_a_view", [](Subject & p) { p.bRemoveView(View(0)); }, {{C::ViewRemoved, 0}}},
        Case{"copying_a_state", [](Subject & p) { p.copyFrom(&p); }, {{C::ParameterCopied}}},
        Case{"copying_of_another_type",
             [](Subject & p) {
                 NumericParameter<float> const other(true, "other");
                 p.copyFrom(&other);
                 p.copyFrom(nullptr);
             },
             {}},
        Case{"assigning_itself",
             [](Subject & p) {
                 Subject const & same = p;
                 p = same;
             },
             {}},
        Case{"restoring", [](Subject & p) { p.importState(p.exportState()); }, {{C::ParameterCopied}}},
        Case{"reading_script",
             [](Subject & p) {
                 for (QString const line : {"views=[0, 4]", "view[4].value=3", "value=2", "before=Linear",
                                            "keyframes.append( Key( 1, 2, Linear ) )", "nonsense"})
                     p.setFromScriptString(line, PRESENT);
             },
             {}}),
    [](auto const & row) { return std::string(row.param.name); });

TEST(ChangeTypes, keep_the_numbers_that_applications_know) {
    EXPECT_EQ(int(C::AllKeyframesRemoved), 9);
    EXPECT_EQ(int(C::ScriptRead), 15);
}

TEST(BlockedSignals, pass_what_a_living_permit_names_and_nothing_else) {
    Subject parameter(true, "p");
    ChangeRecorder recorder(parameter);
    parameter.blockSignals(true);
    {
        ScopedSignalPermit const outer(parameter, C::KeyframeAdded);
        {
            ScopedSignalPermit const inner(parameter, C::ScriptRead);
            parameter.setValue(1, at(1));
            ParameterChange read(C::ScriptRead, parameter, 0);
            parameter.emitChange(read);
            EXPECT_EQ(recorder.take(), (Changes{{C::KeyframeAdded, 0, 0}, {C::ScriptRead}}));
            EXPECT_TRUE(parameter.signalsBlocked());
        }
        ParameterChange read(C::ScriptRead, parameter, 0);
        parameter.emitChange(read);
        parameter.addKeyframe(at(2));
        EXPECT_EQ(recorder.take(), (Changes{{C::KeyframeAdded, 0, 1}}));
    }
    parameter.addKeyframe(at(3));
    EXPECT_EQ(recorder.take(), Changes());
    EXPECT_TRUE(parameter.signalsBlocked());
    parameter.blockSignals(false);
    parameter.addKeyframe(at(4));
    EXPECT_EQ(recorder.take(), (Changes{{C::KeyframeAdded, 0, 3}}));
}

TEST(BlockedSignals, set_by_a_listener_stay_blocked) {
    Subject parameter(true, "p");
    QObject context;
    QObject::connect(&parameter, &ParameterWithoutType::changed, &context,
                     [&](C const &) { parameter.blockSignals(true); });
    parameter.setValue(1, at(1));
    EXPECT_TRUE(parameter.signalsBlocked());
}

TEST(Listeners, come_and_go_and_are_not_copied) {
    Subject parameter(true, "p");
    auto first = std::make_unique<ChangeRecorder>(parameter);
    ChangeRecorder second(parameter);
    parameter.setValue(1, at(1));
    EXPECT_EQ(first->take(), second.take());
    first.reset();
    parameter.setValue(2, at(1));
    EXPECT_EQ(second.take().size(), 1u);
    Subject copy(parameter);
    copy.setValue(1, at(1));
    QObject::disconnect(&parameter, nullptr, nullptr, nullptr);
    parameter.setValue(3, at(1));
    ChangeRecorder third(parameter);
    parameter.setValue(4, at(1));
    EXPECT_EQ(second.take(), Changes());
    EXPECT_EQ(third.take().size(), 1u);
}

TEST(Listeners, may_die_beside_any_parameter_without_a_deadlock) {
    std::vector<std::unique_ptr<Subject>> parameters;
    for (int i = 0; i < 2000; ++i) {
        parameters.push_back(std::make_unique<Subject>(true, "p"));
        { ChangeRecorder const recorder(*parameters.back()); }
        ChangeRecorder next(*parameters.back());
        parameters.back()->setValue(1, at(1));
        ASSERT_EQ(next.take().size(), 2u);
    }
}

} // namespace
