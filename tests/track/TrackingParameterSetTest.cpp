#include "track/TrackingParameterSet.h"
#include "parameter/support/At.h"
#include "parameter/support/ChangeRecorder.h"
#include "parameter/support/ScriptLines.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace {

using Kyn::View;
using Test::at;
using Test::ChangeRecorder;
using Test::Changes;
using Test::linesOf;
using Test::PRESENT;
using Test::scriptOf;

QStringList namesOf(VX_TrackingParameterSet const & set, bool (*chosen)(Kyn::ParameterWithoutType const &)) {
    QStringList names;
    set.forEachParameter(
        [&](Kyn::ParameterWithoutType * parameter) {
            if (chosen(*parameter))
                names.append(parameter->scriptName());
        },
        false);
    return names;
}

QStringList const HOMOGRAPHY{"Translation X", "Translation Y", "Rotation",      "Scale",
                             "Shear X",       "Shear Y",       "Perspective X", "Perspective Y"};

QStringList withPrefix(QStringList names) {
    for (QString & name : names)
        name.prepend("ViewOffset");
    return names;
}

TEST(TrackingParameterSet, script_order_is_that_of_registration) {
    VX_TrackingParameterSet const set;
    QStringList const settings{"InputClipID",
                               "AutoMaxMotionX",
                               "AutoMaxMotionY",
                               "interviewAutoMaxMotionX",
                               "interviewAutoMaxMotionY",
                               "SmoothingLevel",
                               "MinPercentagePixelUsage",
                               "ApplySearch",
                               "ManualTrack",
                               "MaxRotationAngle",
                               "MaxZoomPercentage",
                               "MaxMotionX",
                               "MaxMotionY",
                               "PredictMaxMotionX",
                               "PredictMaxMotionY",
                               "TrackingModel",
                               "UseActiveColorChannel",
                               "TrackThisView",
                               "TrackFromOtherViews",
                               "UseWideBaselineTracker"};
    EXPECT_EQ(namesOf(set, [](auto const &) { return true; }), settings + HOMOGRAPHY + withPrefix(HOMOGRAPHY));
}

TEST(TrackingParameterSet, fresh_one_writes_its_defaults) {
    VX_TrackingParameterSet set;
    QStringList const lines = linesOf(set);
    auto const value = [&lines](char const * name) {
        QString const opening = QString::fromUtf8("跟踪.") + name + ".value=";
        QStringList const found = lines.filter(opening);
        return found.size() == 1 ? found[0].mid(opening.size()).toStdString() : "not once";
    };
    for (char const * zero : {"InputClipID", "AutoMaxMotionX", "interviewAutoMaxMotionY", "SmoothingLevel",
                              "ManualTrack", "MaxRotationAngle", "MaxZoomPercentage", "TrackingModel",
                              "UseActiveColorChannel", "UseWideBaselineTracker", "Rotation", "ViewOffsetShear X"})
        EXPECT_EQ(value(zero), "0") << zero;
    for (char const * one : {"ApplySearch", "PredictMaxMotionX", "PredictMaxMotionY", "TrackThisView",
                             "TrackFromOtherViews", "Scale", "ViewOffsetShear Y"})
        EXPECT_EQ(value(one), "1") << one;
    EXPECT_EQ(value("MaxMotionX"), "100");
    EXPECT_EQ(value("MaxMotionY"), "100");
    EXPECT_EQ(value("MinPercentagePixelUsage"), "50");
    // All that can be keyed hold their ends.
    EXPECT_EQ(lines.filter(".before=Constant").size(), 34);
    EXPECT_EQ(lines.filter(".after=Constant").size(), 34);
}

TEST(TrackingParameterSet, members_have_their_limits_and_ways_between_keys) {
    VX_TrackingParameterSet set;
    for (auto * pixels : {&set.maxMotionX, &set.maxMotionY})
        EXPECT_EQ(pixels->maximum(), 1000u);
    for (auto * pixels :
         {&set.autoMaxMotionX, &set.autoMaxMotionY, &set.interviewAutoMaxMotionX, &set.interviewAutoMaxMotionY})
        EXPECT_EQ(pixels->maximum(), 10000u);
    EXPECT_EQ(set.smoothingLevel.maximum(), 100.0f);
    EXPECT_EQ(set.minPercentagePixelUsage.maximum(), 100.0);
    EXPECT_EQ(set.maxRotationAngle.maximum(), 1000.0);
    EXPECT_EQ(set.maxZoomPercentage.maximum(), 1000.0);
    EXPECT_EQ(set.maxZoomPercentage.minimum(), 0.0);
    EXPECT_EQ(namesOf(set, [](auto const & one) { return !one.isAnimatable(); }),
              QStringList({"InputClipID", "ManualTrack"}));
    EXPECT_EQ(namesOf(set, [](auto const & one) { return one.isSplittable(); }), HOMOGRAPHY + withPrefix(HOMOGRAPHY));
    EXPECT_EQ(set.maxMotionX.interpolation(at(0)), Kyn::INTERPOLATION_LINEAR);
    EXPECT_EQ(set.trackingModel.interpolation(at(0)), Kyn::INTERPOLATION_CONSTANT);
    EXPECT_EQ(VX_TrackingParameterSet(View(3)).boundView(set.track.scale), View::INVALID());
    VX_TrackingParameterSet const bound(View(3));
    EXPECT_EQ(bound.boundView(bound.viewOffset.scale), View(3));
}

TEST(TrackingParameterSet, shows_seven_settings_and_both_homographies) {
    VX_TrackingParameterSet set;
    QStringList const settings{
        "SmoothingLevel", "MinPercentagePixelUsage", "MaxRotationAngle", "MaxZoomPercentage", "MaxMotionX",
        "MaxMotionY",     "UseWideBaselineTracker"};
    EXPECT_EQ(namesOf(set, [](auto const & one) { return !one.isHidden(); }),
              settings + HOMOGRAPHY + withPrefix(HOMOGRAPHY));
    EXPECT_EQ(set.minPercentagePixelUsage.displayName(), "Min % Pixels Used");
    EXPECT_EQ(set.maxRotationAngle.displayName(), "Max Rotation Angle");
    EXPECT_EQ(set.maxZoomPercentage.displayName(), "Max Zoom %");
    EXPECT_EQ(set.maxMotionX.displayName(), "Max Motion X");
    EXPECT_EQ(set.maxMotionY.displayName(), "Max Motion Y");
    EXPECT_EQ(set.smoothingLevel.displayName(), "Smoothing Level");
    EXPECT_EQ(set.useWideBaselineTracker.displayName(), "UseWideBaselineTracker");
    EXPECT_EQ(set.scriptName(), QString::fromUtf8("跟踪"));
    EXPECT_EQ(set.tree(), nullptr);
}

TEST(TrackingParameterSet, takes_its_own_lines_and_the_old_key_render) {
    VX_TrackingParameterSet set;
    EXPECT_TRUE(set.bStreamIn("Render.value=1", PRESENT));
    EXPECT_TRUE(set.bStreamIn("Translation X.keyframes.append( Key( 1, 0.5, Linear ) )", PRESENT));
    EXPECT_TRUE(set.bStreamIn("ViewOffsetScale.view[2].value=3", PRESENT));
    EXPECT_FALSE(set.bStreamIn("TranslationX.value=1", PRESENT));
    EXPECT_TRUE(set.track.translationX.isKeyframe(at(1)));
    EXPECT_EQ(set.viewOffset.scale.staticValue(View(2)), 3);
    EXPECT_TRUE(linesOf(set).filter("Render").isEmpty());
    VX_TrackingParameterSet copy(set);
    EXPECT_TRUE(copy.bStreamIn("Render.value=1", PRESENT));
}

// Rescaling and references

TEST(TrackingParameterSet, rescale_cuts_six_amounts_and_leaves_the_rest) {
    VX_TrackingParameterSet set;
    set.maxMotionX.setStaticValue(101, View(0));
    set.autoMaxMotionX.setStaticValue(3, View(0));
    set.autoMaxMotionY.setStaticValue(4, View(0));
    set.interviewAutoMaxMotionX.setStaticValue(5, View(0));
    set.interviewAutoMaxMotionY.setStaticValue(6000, View(0));
    QStringList before = linesOf(set);
    set.rescale(0.5f, 2.0f, View(0));
    EXPECT_EQ(set.maxMotionX.staticValue(View(0)), 50u);
    EXPECT_EQ(set.maxMotionY.staticValue(View(0)), 200u);
    EXPECT_EQ(set.autoMaxMotionX.staticValue(View(0)), 1u);
    EXPECT_EQ(set.autoMaxMotionY.staticValue(View(0)), 8u);
    EXPECT_EQ(set.interviewAutoMaxMotionX.staticValue(View(0)), 2u);
    EXPECT_EQ(set.interviewAutoMaxMotionY.staticValue(View(0)), 12000u);
    EXPECT_EQ(set.interviewAutoMaxMotionY.value(at(0)), 10000u);
    QStringList const after = linesOf(set);
    for (QString const & line : after)
        before.removeOne(line);
    EXPECT_EQ(before.size(), 6);
}

TEST(TrackingParameterSet, rescale_limits_keys_keeps_their_times_and_signals_only_changes) {
    VX_TrackingParameterSet set;
    set.maxMotionX.setValue(700, at(1.5));
    ChangeRecorder recorder(set.maxMotionX);
    set.rescale(1.0f, 1.0f);
    EXPECT_TRUE(recorder.take().empty());
    set.rescale(2.0f, 1.0f);
    EXPECT_EQ(recorder.take(),
              (Changes{{Kyn::ParameterChange::KeyframeChangedValue, 0, 0}, {Kyn::ParameterChange::ValueChanged, 0}}));
    EXPECT_EQ(set.maxMotionX.keyframeValue(0, View(0)), 1000u);
    EXPECT_EQ(set.maxMotionX.keyframeContext(0, View(0)).time(), Kyn::Time(1.5));
}

TEST(TrackingParameterSet, rescale_without_a_view_means_every_view) {
    VX_TrackingParameterSet set;
    set.maxMotionY.setSplittable(true);
    set.maxMotionY.setStaticValue(10, View(0));
    set.maxMotionY.setStaticValue(20, View(4));
    set.rescale(1.0f, 3.0f);
    EXPECT_EQ(set.maxMotionY.staticValue(View(0)), 30u);
    EXPECT_EQ(set.maxMotionY.staticValue(View(4)), 60u);
}

TEST(TrackingParameterSet, reference_to_a_clip_moves_and_goes) {
    VX_TrackingParameterSet set;
    set.inputClipId.setValue(7, at(0));
    set.removeReferencesToClip(8, 0);
    EXPECT_EQ(set.inputClipId.value(at(0)), 7u);
    set.removeReferencesToClip(7, 9);
    EXPECT_EQ(set.inputClipId.value(at(0)), 9u);
    set.removeReferencesToClip(9, 0);
    EXPECT_EQ(set.inputClipId.value(at(0)), 0u);
}

// Copies and mementos

void disturb(VX_TrackingParameterSet & set) {
    set.maxMotionX.setValue(44, at(1));
    set.maxMotionX.setMaximum(40);
    set.smoothingLevel.setMinimum(5);
    set.trackingModel.setValue(TRACK_MODEL_PERSPECTIVE, at(2));
    set.track.rotation.setValue(0.5, at(3));
    set.track.rotation.setValue(0.7, at(4, 2));
    set.viewOffset.shearY.setValue(2, at(5));
    set.inputClipId.setValue(12, at(0));
}

TEST(TrackingParameterSet, copy_has_the_values_and_the_faces_of_a_new_set) {
    VX_TrackingParameterSet set;
    disturb(set);
    set.inputClipId.setSplittable(true);
    set.track.scale.hide(true);
    set.track.scale.setSplittable(false);
    set.setScriptName("Other");
    set.setDisplayName("Other", "Other");
    VX_TrackingParameterSet copy(set);
    EXPECT_EQ(copy.scriptName(), QString::fromUtf8("跟踪"));
    EXPECT_EQ(copy.displayName(), QString::fromUtf8("跟踪"));
    EXPECT_FALSE(copy.track.scale.isHidden());
    EXPECT_TRUE(copy.track.scale.isSplittable());
    EXPECT_FALSE(copy.inputClipId.isSplittable());
    EXPECT_EQ(copy.maxMotionX.maximum(), 40u);
    set.setScriptName(copy.scriptName());
    set.track.scale.hide(false);
    EXPECT_EQ(linesOf(copy), linesOf(set));
}

TEST(TrackingParameterSet, assignment_takes_names_and_hidden_flags_too) {
    VX_TrackingParameterSet set;
    disturb(set);
    set.track.scale.hide(true);
    set.setScriptName("Other");
    set.setDisplayName("Long", "Short");
    VX_TrackingParameterSet other;
    other = set;
    EXPECT_EQ(linesOf(other), linesOf(set));
    EXPECT_TRUE(other.track.scale.isHidden());
    EXPECT_EQ(other.shortDisplayName(), "Short");
    EXPECT_EQ(other.smoothingLevel.minimum(), 5.0f);
    EXPECT_EQ(linesOf(other)[0], "Other.InputClipID.value=12");
}

TEST(TrackingParameterSet, memento_brings_back_curves_views_and_limits) {
    VX_TrackingParameterSet set;
    disturb(set);
    std::string const before = scriptOf(set);
    auto const memento = set.exportState();
    set.track.rotation.deleteAllKeyframes(View(0));
    set.track.rotation.bRemoveView(View(2));
    set.maxMotionX.setMaximum(1000);
    set.rescale(3, 3);
    ASSERT_NE(scriptOf(set), before);
    for (int time = 0; time < 2; ++time) {
        ChangeRecorder recorder(set.track.rotation);
        set.importState(memento);
        EXPECT_EQ(recorder.take(), Changes{{Kyn::ParameterChange::ParameterCopied}});
        EXPECT_EQ(scriptOf(set), before);
        EXPECT_EQ(set.maxMotionX.maximum(), 40u);
        set.maxMotionX.setMaximum(7);
    }
}

TEST(TrackingParameterSet, restoring_leaves_what_is_hidden_as_it_is) {
    VX_TrackingParameterSet set;
    auto const memento = set.exportState();
    set.maxMotionX.hide(true);
    set.applySearch.hide(false);
    set.importState(memento);
    EXPECT_TRUE(set.maxMotionX.isHidden());
    EXPECT_FALSE(set.applySearch.isHidden());
}

TEST(TrackingParameterSet, foreign_and_null_mementos_are_refused_unchanged) {
    VX_TrackingParameterSet set;
    disturb(set);
    std::string const before = scriptOf(set);
    for (auto const & memento : {set.track.scale.exportState(), boost::shared_ptr<Tov::MementoBase>()}) {
        try {
            set.importState(memento);
            ADD_FAILURE();
        } catch (std::logic_error const & error) {
            EXPECT_STREQ(error.what(), "Bad memento type");
        }
    }
    EXPECT_EQ(scriptOf(set), before);
}

} // namespace
