#include "clip/ClipBoundParameterSet.h"
#include "parameter/Parameter.h"
#include "parameter/support/At.h"
#include "parameter/support/ChangeRecorder.h"

#include <gtest/gtest.h>

namespace {

using Kyn::View;
using Test::at;
using Test::ChangeRecorder;
using Test::Changes;

class ForgetClip : public testing::Test {
protected:
    Kyn::Parameter<unsigned int> clip{false, "InputClipID", 0, Kyn::INTERPOLATION_CONSTANT,
                                      Kyn::EXTRAPOLATION_CONSTANT};
    ChangeRecorder recorder{clip};
    Changes const changed{{Kyn::ParameterChange::ValueChanged, 0}};

    void hold(unsigned int id) {
        clip.setValue(id, at(0));
        recorder.take();
    }
    void forget(unsigned int oldClip, unsigned int newClip) {
        VX::ClipBoundParameterSet::forgetClip(clip, oldClip, newClip);
    }
};

TEST_F(ForgetClip, clears_or_moves_a_reference_to_the_clip_once_and_no_other) {
    hold(8);
    forget(7, 0);
    forget(7, 9);
    EXPECT_EQ(clip.value(at(0)), 8u);
    EXPECT_TRUE(recorder.take().empty());
    forget(8, 9);
    EXPECT_EQ(clip.value(at(0)), 9u);
    EXPECT_EQ(recorder.take(), changed);
    forget(8, 9);
    forget(9, 9);
    EXPECT_TRUE(recorder.take().empty());
}

TEST_F(ForgetClip, of_clip_zero_means_every_reference) {
    for (unsigned int const id : {0u, 5u, 4294967295u}) {
        hold(id);
        forget(0, 0);
        EXPECT_EQ(clip.value(at(0)), 0u);
        EXPECT_EQ(recorder.take(), id == 0 ? Changes() : changed);
    }
    forget(0, 3);
    EXPECT_EQ(clip.value(at(0)), 3u);
}

TEST_F(ForgetClip, goes_back_to_the_default_whatever_that_is) {
    clip.setDefaultValue(12);
    hold(7);
    forget(7, 0);
    EXPECT_EQ(clip.value(at(0)), 12u);
}

// Without data of its own the default view reads the first one's, and takes data of its own when it changes.
TEST_F(ForgetClip, looks_at_the_default_view_alone) {
    clip.setSplittable(true);
    clip.setValue(7, at(0, 4));
    forget(7, 9);
    EXPECT_EQ(clip.staticValue(View(0)), 9u);
    forget(7, 0);
    EXPECT_EQ(clip.staticValue(View(4)), 7u);
}

} // namespace
