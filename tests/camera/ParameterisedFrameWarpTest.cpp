#include "camera/ParameterisedFrameWarp.h"
#include "parameter/support/At.h"
#include "parameter/support/ScriptLines.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Test::at;
using Test::BEFORE_VIEW_LISTS;
using Test::linesOf;
using Test::PRESENT;
using VX::FrameWarp;
using VX::ParameterisedFrameWarp;

constexpr std::size_t WEIGHTS = VX_ParameterisedGanCamera::WEIGHT_COUNT;

/// Each field another value, which six digits hold.
Gan_Camera cameraOf(unsigned int type, Gan_CubicBSplineWeights * weights = nullptr) {
    Gan_Camera camera{};
    camera.type = static_cast<Gan_CameraType>(type);
    camera.zh = 960;
    camera.fx = 2000.5;
    camera.fy = 1990.25;
    camera.x0 = 961;
    camera.y0 = 542;
    for (int i = 0; i < 4; ++i)
        camera.distortion[i] = 0.125 * (i + 1);
    camera.weight = weights;
    return camera;
}

Gan_CubicBSplineWeights distinctWeights() {
    Gan_CubicBSplineWeights weights;
    for (std::size_t i = 0; i < WEIGHTS; ++i)
        weights.element[i] = 0.25 * static_cast<double>(i) - 70.0;
    return weights;
}

// The camera

struct Model {
    unsigned int type;
    unsigned int terms;
};

class GanCameraModel : public testing::TestWithParam<Model> {};

TEST_P(GanCameraModel, gives_back_the_terms_it_has_and_touches_no_other) {
    Gan_CubicBSplineWeights source = distinctWeights();
    VX_ParameterisedGanCamera set;
    set.setFromGanCamera(cameraOf(GetParam().type, &source), at(3));
    EXPECT_EQ(set.fx.numKeyframes(Kyn::View()), 1u);
    EXPECT_EQ(set.distortion4.numKeyframes(Kyn::View()), GetParam().terms == 4 ? 1u : 0u);

    Gan_CubicBSplineWeights untouched{};
    Gan_Camera camera{};
    for (double & term : camera.distortion)
        term = -7;
    camera.weight = &untouched;
    set.populateGanCamera(camera, at(3));
    Gan_Camera const expected = cameraOf(GetParam().type);
    EXPECT_EQ(camera.type, expected.type);
    EXPECT_TRUE(camera.zh == expected.zh && camera.fx == expected.fx && camera.fy == expected.fy &&
                camera.x0 == expected.x0 && camera.y0 == expected.y0);
    for (unsigned int i = 0; i < 4; ++i)
        EXPECT_EQ(camera.distortion[i], i < GetParam().terms ? expected.distortion[i] : -7) << i;
    bool const spline = GetParam().type == GAN_CAMERA_BSPLINE || GetParam().type == GAN_CAMERA_BSPLINE_INVERSE;
    for (std::size_t i = 0; i < WEIGHTS; ++i)
        ASSERT_EQ(untouched.element[i], spline ? source.element[i] : 0.0) << i;
    EXPECT_EQ(camera.weight, &untouched);
    EXPECT_EQ(camera.project, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Every, GanCameraModel,
                         testing::Values(Model{0, 0}, Model{1, 1}, Model{2, 2}, Model{3, 3}, Model{4, 1}, Model{5, 0},
                                         Model{9, 4}, Model{12, 0}, Model{13, 0}, Model{14, 2}, Model{15, 0},
                                         Model{0xFFFFFFFF, 0}),
                         [](auto const & model) { return "type_" + std::to_string(model.param.type); });

TEST(ParameterisedGanCamera, limits_hold_on_every_way_in) {
    Gan_CubicBSplineWeights weights = distinctWeights();
    weights.element[5] = 150.0;
    weights.element[6] = -1e300;
    Gan_Camera camera = cameraOf(GAN_CAMERA_BSPLINE, &weights);
    camera.x0 = -3;
    camera.fx = 20000;
    VX_ParameterisedGanCamera set;
    set.setFromGanCamera(camera, at(0));
    set.populateGanCamera(camera, at(0));
    EXPECT_EQ(camera.x0, 0.0);
    EXPECT_EQ(camera.fx, 10000.0);
    EXPECT_EQ(weights.element[5], 100.0);
    EXPECT_EQ(weights.element[6], -100.0);

    // A barrel lens is lost, from a script too: its term is negative.
    camera = cameraOf(GAN_CAMERA_RADIAL_2);
    camera.distortion[0] = -0.12;
    set.setFromGanCamera(camera, at(0));
    EXPECT_TRUE(set.bStreamIn("Distortion2.keyframes.append( Key( 0, -0.5, Linear ) )", PRESENT));
    set.populateGanCamera(camera, at(0));
    EXPECT_EQ(camera.distortion[0], 0.0);
    EXPECT_EQ(camera.distortion[1], 0.0);
}

TEST(ParameterisedGanCamera, grid_is_found_by_row_and_column_and_x_before_y) {
    VX_ParameterisedGanCamera const set;
    EXPECT_EQ(set.findParameter("Weight-3-11Y"), &set.weight(2 * (17 * 3 + 11) + 1));
}

TEST(ParameterisedGanCamera, spline_without_a_buffer_is_refused_before_anything_is_written) {
    VX_ParameterisedGanCamera set;
    Gan_Camera camera = cameraOf(GAN_CAMERA_BSPLINE);
    EXPECT_THROW(set.setFromGanCamera(camera, at(0)), std::invalid_argument);
    EXPECT_EQ(set.fx.value(at(0)), 0.0);
    set.type.setValue(GAN_CAMERA_BSPLINE_INVERSE, at(0));
    EXPECT_THROW(set.populateGanCamera(camera, at(0)), std::invalid_argument);
    EXPECT_EQ(camera.type, GAN_CAMERA_BSPLINE);
    EXPECT_EQ(camera.fx, 2000.5);
}

// The warp

/// A spline lens, a homography and a radial lens.
void fill(FrameWarp & warp, int selection = 4) {
    Gan_CubicBSplineWeights weights{};
    weights.element[300] = 0.00390625;
    Gan_Camera out = cameraOf(GAN_CAMERA_BSPLINE, &weights);
    Gan_Camera in = cameraOf(GAN_CAMERA_RADIAL_1);
    gan_camera_internalize(&out);
    gan_camera_internalize(&in);
    Gan_Matrix33 const homography{1.25, 0.5, 0.03125, -0.25, 1.5, 0.0625, 0.125, 0.375, 2};
    warp.vSetAttributes(7, selection, 1920, 1080, true, out, nullptr, homography, true, in, nullptr);
}

/// The elements in row order.
std::vector<double> elementsOf(Gan_Matrix33 const & m) {
    return {m.xx, m.xy, m.xz, m.yx, m.yy, m.yz, m.zx, m.zy, m.zz};
}

TEST(ParameterisedFrameWarp, fresh_one_gives_the_zero_matrix_and_leaves_a_stale_inverse) {
    FrameWarp warp;
    fill(warp);
    std::vector<double> const inverse = elementsOf(*warp.pcgmat33GetInverseHomography());
    std::vector<double> const original = elementsOf(*warp.pcgmat33GetOriginalHomography());
    Gan_CubicBSplineWeights const * const weights = warp.pstctGetBackprojectionWeight();
    ParameterisedFrameWarp().populateFrameWarp(warp, at(0));
    EXPECT_EQ(elementsOf(*warp.pcgmat33GetHomography()), std::vector<double>(9, 0.0));
    EXPECT_FALSE(warp.bGetUsingBackprojectionCamera() || warp.bGetUsingProjectionCamera());
    EXPECT_EQ(elementsOf(*warp.pcgmat33GetInverseHomography()), inverse);
    EXPECT_EQ(elementsOf(*warp.pcgmat33GetOriginalHomography()), original);
    EXPECT_EQ(warp.uiGetReferenceFrameHeight(), 1080u);
    EXPECT_EQ(warp.pstctGetBackprojectionWeight(), weights);
}

TEST(ParameterisedFrameWarp, carries_points_as_the_warp_that_it_was_set_from) {
    FrameWarp warp;
    fill(warp);
    ParameterisedFrameWarp set;
    set.setFromFrameWarp(warp, at(12));
    FrameWarp other;
    fill(other, 99);
    other.backProjectionCamera().fx = 1;
    set.populateFrameWarp(other, at(12));
    EXPECT_EQ(other.iGetSelectionID(), 4);
    EXPECT_EQ(other.eGetReferenceClipID(), 7u);
    EXPECT_NE(other.pstctGetBackprojectionWeight(), warp.pstctGetBackprojectionWeight());
    for (double const x : {100.0, 960.0, 1500.0}) {
        double expected[] = {x, 0.5 * x};
        double got[] = {x, 0.5 * x};
        warp.vWarpPoint(expected[0], expected[1]);
        other.vWarpPoint(got[0], got[1]);
        EXPECT_NE(expected[0], x);
        EXPECT_EQ(got[0], expected[0]);
        EXPECT_EQ(got[1], expected[1]);
    }
}

TEST(ParameterisedFrameWarp, negative_selection_comes_back_as_minus_one) {
    FrameWarp warp;
    fill(warp, -5);
    ParameterisedFrameWarp set;
    set.setFromFrameWarp(warp, at(0));
    EXPECT_EQ(set.layerId.value(at(0)), 4294967295u);
    set.populateFrameWarp(warp, at(0));
    EXPECT_EQ(warp.iGetSelectionID(), -1);
}

TEST(ParameterisedFrameWarp, reset_takes_keys_of_its_own_parameters_only) {
    FrameWarp warp;
    fill(warp);
    ParameterisedFrameWarp set;
    set.homographyXX.setStaticValue(3.0, Kyn::View());
    set.type = static_cast<FrameWarp::_Type>(2);
    set.setFromFrameWarp(warp, at(1));
    set.reset(Kyn::View());
    unsigned int keys = 0;
    set.forEachParameter([&](Kyn::ParameterWithoutType * p) { keys += p->numKeyframes(Kyn::View()); }, false);
    EXPECT_EQ(keys, 0u);
    EXPECT_EQ(set.homographyXX.value(at(1)), 3.0);
    EXPECT_EQ(set.backprojectionCamera.fx.numKeyframes(Kyn::View()), 1u);
    EXPECT_EQ(set.type, 2);
}

// Script

int readInto(ParameterisedFrameWarp & set, QStringList const & lines, Kyn::StreamVersion const & version = PRESENT) {
    int taken = 0;
    for (QString const & line : lines)
        taken += set.bStreamIn(line, version);
    return taken;
}

TEST(ParameterisedFrameWarp, script_brings_back_both_elements_of_the_shared_key) {
    ParameterisedFrameWarp set;
    FrameWarp warp;
    fill(warp);
    set.setFromFrameWarp(warp, at(1));
    set.homographyZX.setValue(0.25, at(8));
    set.type = static_cast<FrameWarp::_Type>(3);
    QStringList const lines = linesOf(set);
    EXPECT_EQ(lines.filter("HomograpyZX.views=").size(), 2);
    EXPECT_EQ(lines.filter("HomograpyZX.keyframes.append").size(), 3);
    EXPECT_EQ(lines.filter("HomograpyZZ").size(), 0);
    // The cameras' own names play no part, and they stand last.
    EXPECT_LT(lines.indexOf("Type.value=3"), lines.indexOf(lines.filter("Camera.Type.").first()));
    EXPECT_EQ(lines.filter("ProjectionCamera.Fx.views=").size(), 1);
    EXPECT_EQ(lines.filter("BackprojectionCamera.Fx.views=").size(), 1);
    ParameterisedFrameWarp read;
    for (int reading = 0; reading < 2; ++reading) {
        EXPECT_EQ(readInto(read, lines), lines.size());
        EXPECT_EQ(read.homographyZX.value(at(1)), 0.125);
        EXPECT_EQ(read.homographyZX.value(at(8)), 0.25);
        EXPECT_EQ(read.homographyZZ.value(at(1)), 2.0);
        EXPECT_EQ(read.homographyZZ.numKeyframes(Kyn::View()), 1u);
        EXPECT_EQ(linesOf(read), lines);
    }
    EXPECT_EQ(read.type, 3);
    EXPECT_EQ(read.backprojectionCamera.weight(300).value(at(1)), 0.00390625f);

    // A script that was cut between the two, then the whole one.
    ParameterisedFrameWarp cut;
    readInto(cut, lines.mid(0, lines.lastIndexOf(lines.filter("HomograpyZY.").last())));
    cut.beginReading();
    EXPECT_EQ(readInto(cut, lines), lines.size());
    EXPECT_EQ(linesOf(cut), lines);
}

// Without a list of views nothing says where the second element begins: its keys are lost to the first.
TEST(ParameterisedFrameWarp, script_without_view_lists_gives_the_keys_of_both_elements_to_the_first) {
    ParameterisedFrameWarp set;
    set.homographyZX.setValue(0.125, at(1));
    set.homographyZX.setValue(0.25, at(8));
    set.homographyZZ.setValue(2.0, at(1));
    set.homographyZZ.setValue(3.0, at(5));
    QStringList const written = linesOf(set).filter("HomograpyZX.");
    QStringList const lines = written.filter(QRegularExpression("keyframes|before|after"));
    ASSERT_EQ(lines.size(), written.size() - 2);
    ParameterisedFrameWarp read;
    EXPECT_EQ(readInto(read, lines, BEFORE_VIEW_LISTS), lines.size());
    EXPECT_EQ(read.homographyZX.numKeyframes(Kyn::View()), 3u);
    EXPECT_EQ(read.homographyZX.value(at(1)), 2.0); // Of two keys at one time the later line stays.
    EXPECT_EQ(read.homographyZX.value(at(5)), 3.0);
    EXPECT_EQ(read.homographyZX.value(at(8)), 0.25);
    EXPECT_EQ(read.homographyZZ.numKeyframes(Kyn::View()), 0u);
    EXPECT_EQ(read.homographyZZ.value(at(1)), 0.0);

    // A value without keys opens its element as a list of views does.
    ParameterisedFrameWarp still;
    EXPECT_EQ(readInto(still, {"HomograpyZX.value=4", "HomograpyZX.value=5"}, BEFORE_VIEW_LISTS), 2);
    EXPECT_EQ(still.homographyZX.value(at(1)), 4.0);
    EXPECT_EQ(still.homographyZZ.value(at(1)), 5.0);
}

TEST(ParameterisedFrameWarp, copies_have_cameras_limits_and_type_of_their_own) {
    ParameterisedFrameWarp set;
    FrameWarp warp;
    fill(warp);
    set.setFromFrameWarp(warp, at(1));
    set.projectionCamera.fy.setMaximum(20);
    set.type = static_cast<FrameWarp::_Type>(3);
    QStringList const lines = linesOf(set);
    ParameterisedFrameWarp copy(set);
    ParameterisedFrameWarp assigned;
    assigned = set;
    set = ParameterisedFrameWarp();
    for (ParameterisedFrameWarp * each : {&copy, &assigned}) {
        EXPECT_EQ(linesOf(*each), lines);
        EXPECT_EQ(each->projectionCamera.fy.maximum(), 20);
        each->type = static_cast<FrameWarp::_Type>(4);
        EXPECT_EQ(linesOf(*each).filter("Type.value=4").size(), 1);
    }
}

} // namespace
