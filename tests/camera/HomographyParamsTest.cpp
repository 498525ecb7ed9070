#include "camera/HomographyParams.h"
#include "geometry/marlin/Homography.h"
#include "parameter/support/At.h"
#include "parameter/support/ChangeRecorder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

using Kyn::View;
using Test::at;
using Test::ChangeRecorder;
using Test::Changes;
using VX::HomographyParams;

Gan_Matrix33 homographyOf(HomographyDecomposition const & record) {
    Gan_Matrix33 matrix{};
    EXPECT_EQ(bReconstructHomography(&record, 0.0, &matrix), 1);
    return matrix;
}

constexpr HomographyDecomposition NEUTRAL{0, 0, 0, 1, 0, 1, 0, 0};
/// Each field another value, none of them neutral.
constexpr HomographyDecomposition DISTINCT{0.1, 0.2, 0.3, 1.4, 0.05, 1.6, 0.07, 0.08};

std::vector<HomographyParams::Value *> valuesOf(HomographyParams & params) {
    return {&params.translationX, &params.translationY, &params.rotation,     &params.scale,
            &params.shearX,       &params.shearY,       &params.perspectiveX, &params.perspectiveY};
}

TEST(HomographyParams, fresh_one_is_the_identity) {
    Gan_Matrix33 const h = HomographyParams().constructHomography(at(5));
    EXPECT_TRUE(h.xx == 1 && h.yy == 1 && h.zz == 1 && h.xy == 0 && h.xz == 0 && h.yx == 0 && h.yz == 0 && h.zx == 0 &&
                h.zy == 0);
}

TEST(HomographyParams, each_value_crosses_in_its_own_field) {
    HomographyParams params;
    params.setFromHomography(homographyOf(DISTINCT), at(3));
    std::vector<double> const expectedValues{0.2, 0.3, 0.1, 1.4, 0.05, 1.6, 0.07, 0.08};
    for (std::size_t i = 0; i < expectedValues.size(); ++i)
        EXPECT_NEAR(valuesOf(params)[i]->value(at(3)), expectedValues[i], 1e-12) << i;
    Gan_Matrix33 const expected = homographyOf(DISTINCT);
    Gan_Matrix33 const got = params.constructHomography(at(3));
    double const * a = &expected.xx;
    double const * b = &got.xx;
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(a[i], b[i], 1e-12) << i;
}

TEST(HomographyParams, values_that_make_no_homography_are_refused) {
    HomographyParams params;
    params.translationX.setValue(std::numeric_limits<double>::max(), at(0));
    params.scale.setValue(std::numeric_limits<double>::max(), at(0));
    params.shearY.setValue(std::numeric_limits<double>::max(), at(0));
    try {
        params.constructHomography(at(0));
        ADD_FAILURE();
    } catch (std::runtime_error const & error) {
        EXPECT_STREQ(error.what(), "Unable to construct homography");
    }
}

TEST(HomographyParams, matrix_that_cannot_be_decomposed_writes_the_neutral_values) {
    HomographyParams params;
    params.setFromHomography(homographyOf(DISTINCT), at(1));
    params.setFromHomography(Gan_Matrix33{}, at(2));
    EXPECT_EQ(params.rotation.value(at(2)), 0.0);
    EXPECT_EQ(params.shearY.value(at(2)), 1.0);
    EXPECT_NEAR(params.rotation.value(at(1)), 0.1, 1e-12);
}

// Writing back

/// What becomes of a value of Translation X that is written back over a present one.
bool writes(double present, double fresh) {
    HomographyParams params;
    params.translationX.setStaticValue(present, View(0));
    ChangeRecorder recorder(params.translationX);
    HomographyDecomposition record = NEUTRAL;
    record.dTranslationX = fresh;
    params.setFromHomography(homographyOf(record), at(1));
    bool const written = params.translationX.numKeyframes(View(0)) == 1;
    EXPECT_EQ(recorder.take().empty(), !written);
    EXPECT_EQ(params.translationX.value(at(1)), written ? fresh : present);
    return written;
}

TEST(WriteBack, skips_what_is_nearly_equal_in_single_precision) {
    EXPECT_FALSE(writes(0.0, 0.0));
    EXPECT_FALSE(writes(0.0, 9.9e-6));
    EXPECT_TRUE(writes(0.0, 0.00002));
    EXPECT_FALSE(writes(100000.0, 100000.5));
    EXPECT_TRUE(writes(100000.0, 100002.0));
    EXPECT_TRUE(writes(100000.0, -100000.0));
    EXPECT_FALSE(writes(16777216.0, 16777217.0));
    EXPECT_FALSE(writes(1e30, 1.000005e30));
    EXPECT_TRUE(writes(1e30, 1.0001e30));
}

TEST(WriteBack, absolute_bound_is_strict_and_relative_bound_is_not) {
    // Exactly 1e-5f apart: not closer than the absolute bound, and the relative one is far away.
    EXPECT_TRUE(writes(0.0, static_cast<double>(1e-5f)));
    // At 2^17 single precision goes in steps of 2^-6; the quotient 1e-5f itself still counts as equal.
    float const large = 131072.0f;
    float step = large;
    while ((step - large) / step <= 1e-5f)
        step = std::nextafter(step, 2 * large);
    EXPECT_TRUE(writes(static_cast<double>(large), static_cast<double>(step)));
    EXPECT_FALSE(writes(static_cast<double>(large), static_cast<double>(std::nextafter(step, large))));
}

TEST(WriteBack, view_without_data_starts_from_the_first_views_curve) {
    HomographyParams params;
    for (HomographyParams::Value * value : valuesOf(params))
        value->setSplittable(true);
    params.setFromHomography(homographyOf(DISTINCT), at(1));
    HomographyDecomposition other = DISTINCT;
    other.dRotation = 0.5;
    params.setFromHomography(homographyOf(other), at(9, 2));
    EXPECT_EQ(params.rotation.numKeyframes(View(2)), 2u);
    EXPECT_NEAR(params.rotation.value(at(1, 2)), 0.1, 1e-12);
    EXPECT_NEAR(params.rotation.value(at(9, 2)), 0.5, 1e-12);
    EXPECT_NEAR(params.rotation.value(at(9, 0)), 0.1, 1e-12);
    EXPECT_FALSE(params.scale.hasView(View(2))); // Nothing was written there.
}

// Tracking models

TEST(TrackModel, lists_the_values_it_drives_in_order) {
    HomographyParams p;
    HomographyParams const & constant = p;
    QList<HomographyParams::Value *> const translation{&p.translationX, &p.translationY};
    QList<HomographyParams::Value *> const affine =
        QList<HomographyParams::Value *>{&p.shearX, &p.shearY, &p.rotation, &p.scale} + translation;
    EXPECT_EQ(p.trackingParameters(TRACK_MODEL_TRANSLATION), translation);
    EXPECT_EQ(p.trackingParameters(TRACK_MODEL_AFFINE), affine);
    EXPECT_EQ(p.trackingParameters(TRACK_MODEL_PERSPECTIVE),
              (QList<HomographyParams::Value *>{&p.perspectiveX, &p.perspectiveY} + affine));
    EXPECT_EQ(p.trackingParameters(TRACK_MODEL_TRANSLATION_ROTATION_SCALE),
              (QList<HomographyParams::Value *>{&p.rotation, &p.scale} + translation));
    EXPECT_EQ(p.trackingParameters(TRACK_MODEL_TRANSLATION_SCALE),
              (QList<HomographyParams::Value *>{&p.scale} + translation));
    for (int model = -1; model <= 6; ++model) {
        auto const own = p.trackingParameters(static_cast<_TrackModel>(model));
        auto const same = constant.trackingParameters(static_cast<_TrackModel>(model));
        EXPECT_TRUE(std::equal(own.begin(), own.end(), same.begin(), same.end())) << model;
        EXPECT_EQ(own.isEmpty(), model < 0 || model > 4);
    }
}

TEST(TrackModel, knows_whether_all_or_any_of_its_values_have_a_key) {
    HomographyParams params;
    auto const answers = [&](double time, int model) {
        _TrackModel const asked = static_cast<_TrackModel>(model);
        return std::make_pair(params.allKeyframedAtTime(at(time), asked), params.anyKeyframedAtTime(at(time), asked));
    };
    auto const both = std::make_pair(true, true);
    auto const neither = std::make_pair(false, false);
    auto const some = std::make_pair(false, true);
    params.translationX.setValue(1, at(4));
    EXPECT_EQ(answers(4, TRACK_MODEL_TRANSLATION), some);
    EXPECT_EQ(answers(4.5, TRACK_MODEL_TRANSLATION), neither);
    params.translationY.setValue(1, at(4));
    EXPECT_EQ(answers(4, TRACK_MODEL_TRANSLATION), both);
    EXPECT_EQ(answers(4, TRACK_MODEL_PERSPECTIVE), some);
    EXPECT_EQ(answers(4, 5), std::make_pair(true, false));
}

// Copying

TEST(HomographyParams, copies_hold_values_and_limits_of_their_own) {
    HomographyParams params("ViewOffset");
    params.setFromHomography(homographyOf(DISTINCT), at(1));
    params.scale.setMaximum(1.2);
    HomographyParams const copy(params);
    HomographyParams assigned;
    ChangeRecorder recorder(assigned.scale);
    assigned = params;
    EXPECT_EQ(recorder.take(), Changes{{Kyn::ParameterChange::ParameterCopied}});
    params.scale.deleteAllKeyframes(View(0));
    for (HomographyParams const * one : {&copy, static_cast<HomographyParams const *>(&assigned)}) {
        EXPECT_EQ(one->scale.scriptName(), "ViewOffsetScale");
        EXPECT_EQ(one->scale.value(at(1)), 1.2);
        EXPECT_NEAR(one->scale.keyframeValue(0, View(0)), 1.4, 1e-12);
    }
    HomographyParams const & same = assigned;
    assigned = same;
    EXPECT_TRUE(recorder.take().empty());
}

} // namespace
