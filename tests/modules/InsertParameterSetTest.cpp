#include "modules/InsertParameterSet.h"
#include "clip/BaseClipInfo.h"
#include "clip/BaseClipInfoContainer.h"
#include "parameter/support/At.h"
#include "parameter/support/ScriptLines.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Test::at;
using Test::linesOf;

constexpr double PI = 3.141592653589793;

/// One clip under id 7.
class OneClip : public VX_BaseClipInfoContainer {
public:
    VX_BaseClipInfo info;

    OneClip() {
        info.frameWidth = 720;
        info.frameHeight = 576;
    }
    QVector<unsigned int> clipIds() const override { return {7}; }
    VX_BaseClipInfo const * pcGetBaseClipInfo(unsigned int id) const override {
        EXPECT_NE(id, 0u) << "no clip is looked up for id 0";
        return id == 7 ? &info : nullptr;
    }
    VX_ClipInfo const * pcGetClipInfo(unsigned int) const override { return nullptr; }
    QString clipName(unsigned int) const override { return {}; }
    unsigned int clipIdOfName(QString const &) const override { return 0; }
};

// The rotation

TEST(RotationParameter, shows_degrees_with_the_sign_reversed) {
    VX_InsertOffsetParameterSet set;
    EXPECT_EQ(set.rotationZ.toDisplay(PI / 2, at(0)), -90);
    EXPECT_EQ(set.rotationZ.fromDisplay(45, at(0)), -PI / 4);
    EXPECT_EQ(VX_InsertOffsetParameterSet::RotationParameter(set.rotationZ).dToDisplay(PI, at(0)), -180);
}

// The region

class Region : public testing::Test {
protected:
    OneClip clips;
    VX_InsertParameterSet insert{&clips};

    /// What half of the frame is shown as, across and down.
    void expectHalf(float across, float down) {
        for (auto * const x : {&insert.roi.roiX1, &insert.roi.roiX2})
            EXPECT_EQ(x->toDisplay(0.5f, at(0)), across);
        for (auto * const y : {&insert.roi.roiY1, &insert.roi.roiY2})
            EXPECT_EQ(y->toDisplay(0.5f, at(0)), down);
    }
};

TEST_F(Region, is_shown_in_pixels_of_the_insert_clip) {
    expectHalf(0.5f, 0.5f);
    insert.insertClipId.setValue(7, at(0));
    expectHalf(360, 288);
    EXPECT_EQ(insert.roi.roiX1.fromDisplay(360, at(0)), 0.5f);
    insert.insertClipId.setValue(8, at(0));
    expectHalf(0.5f, 0.5f);
}

TEST_F(Region, height_of_a_field_counts_twice_but_not_that_of_pulldown) {
    insert.insertClipId.setValue(7, at(0));
    for (int mode = 0; mode <= 12; ++mode) {
        clips.info.interlaceMode = static_cast<VX_INTERLACE_MODE>(mode);
        expectHalf(360, mode == 1 || mode == 2 ? 576 : 288);
    }
}

TEST_F(Region, conversions_change_nothing_that_is_stored) {
    insert.insertClipId.setValue(7, at(0));
    auto const before = linesOf(insert);
    (void)insert.roi.roiX2.fromDisplay(5, at(3));
    EXPECT_EQ(insert.roi.roiX2.value(at(0)), 1);
    EXPECT_EQ(linesOf(insert), before);
    insert.roi.roiX2.setValue(11, at(3));
    EXPECT_EQ(insert.roi.roiX2.value(at(3)), 10) << "limits are fractions too";
}

TEST_F(Region, of_a_copied_insert_follows_the_copys_clip_in_the_same_container) {
    insert.insertClipId.setValue(7, at(0));
    VX_InsertParameterSet copy(insert);
    insert.insertClipId.setValue(0, at(0));
    EXPECT_EQ(copy.roi.roiY1.toDisplay(0.5f, at(0)), 288);
    copy.insertClipId.setValue(0, at(0));
    EXPECT_EQ(copy.roi.roiY1.toDisplay(0.5f, at(0)), 0.5f);
}

TEST_F(Region, copied_alone_keeps_looking_at_the_same_clip) {
    VX_InsertROIParameterSet copied(insert.roi);
    VX_InsertROIParameterSet assigned(nullptr, nullptr);
    VX_InsertROIParameterSet::ROIParameter lone(insert.roi.roiY1);
    EXPECT_EQ(assigned.roiX1.toDisplay(0.5f, at(0)), 0.5f);
    assigned = insert.roi;
    insert.insertClipId.setValue(7, at(0));
    EXPECT_EQ(copied.roiX1.toDisplay(0.5f, at(0)), 360);
    EXPECT_EQ(assigned.roiY2.toDisplay(0.5f, at(0)), 288);
    EXPECT_EQ(lone.toDisplay(0.5f, at(0)), 288);
    EXPECT_EQ(VX_InsertROIParameterSet(assigned).roiX2.toDisplay(0.5f, at(0)), 360);
}

TEST_F(Region, whose_clip_parameter_is_gone_shows_fractions) {
    auto gone = std::make_unique<VX_InsertParameterSet>(&clips);
    gone->insertClipId.setValue(7, at(0));
    VX_InsertROIParameterSet const region(gone->roi);
    EXPECT_EQ(region.roiX1.toDisplay(0.5f, at(0)), 360);
    gone.reset();
    EXPECT_EQ(region.roiX1.toDisplay(0.5f, at(0)), 0.5f);
}

} // namespace
