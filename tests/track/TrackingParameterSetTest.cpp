#include "track/TrackingParameterSet.h"
#include "parameter/support/At.h"
#include "parameter/support/ChangeRecorder.h"
#include "parameter/support/ScriptLines.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Kyn::View;
using Test::at;
using Test::ChangeRecorder;
using Test::Changes;
using Test::scriptOf;

TEST(TrackingParameterSet, view_that_it_is_made_for_binds_the_homographies) {
    VX_TrackingParameterSet const unbound;
    EXPECT_EQ(unbound.boundView(unbound.track.scale), View::INVALID());
    VX_TrackingParameterSet const bound(View(3));
    EXPECT_EQ(bound.boundView(bound.track.scale), View(3));
    EXPECT_EQ(bound.boundView(bound.viewOffset.scale), View(3));
}

TEST(TrackingParameterSet, rescale_without_a_view_means_every_view) {
    VX_TrackingParameterSet set;
    set.maxMotionY.setSplittable(true);
    set.maxMotionY.setStaticValue(10, View(0));
    set.maxMotionY.setStaticValue(20, View(4));
    set.rescale(1.0f, 3.0f);
    EXPECT_EQ(set.maxMotionY.staticValue(View(0)), 30u);
    EXPECT_EQ(set.maxMotionY.staticValue(View(4)), 60u);
    set.rescale(1.0f, 2.0f, View(4));
    EXPECT_EQ(set.maxMotionY.staticValue(View(0)), 30u);
    EXPECT_EQ(set.maxMotionY.staticValue(View(4)), 120u);
}

TEST(TrackingParameterSet, copy_may_be_split_where_a_new_set_may) {
    VX_TrackingParameterSet set;
    set.inputClipId.setSplittable(true);
    set.track.scale.setSplittable(false);
    VX_TrackingParameterSet const copy(set);
    EXPECT_FALSE(copy.inputClipId.isSplittable());
    EXPECT_TRUE(copy.track.scale.isSplittable());
}

// Mementos

void disturb(VX_TrackingParameterSet & set) {
    set.maxMotionX.setValue(44, at(1));
    set.maxMotionX.setMaximum(40);
    set.track.rotation.setValue(0.5, at(3));
    set.track.rotation.setValue(0.7, at(4, 2));
    set.viewOffset.shearY.setValue(2, at(5));
    set.inputClipId.setValue(12, at(0));
}

TEST(TrackingParameterSet, memento_brings_back_curves_views_and_limits_and_leaves_what_is_hidden) {
    VX_TrackingParameterSet set;
    disturb(set);
    std::string const before = scriptOf(set);
    auto const memento = set.exportState();
    for (int time = 0; time < 2; ++time) {
        set.track.rotation.deleteAllKeyframes(View(0));
        set.track.rotation.bRemoveView(View(2));
        set.rescale(3, 3);
        set.maxMotionX.setMaximum(7);
        ASSERT_NE(scriptOf(set), before);
        ChangeRecorder recorder(set.track.rotation);
        set.importState(memento);
        EXPECT_EQ(recorder.take(), Changes{{Kyn::ParameterChange::ParameterCopied}});
        EXPECT_EQ(scriptOf(set), before);
        EXPECT_EQ(set.maxMotionX.maximum(), 40u);
    }
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
