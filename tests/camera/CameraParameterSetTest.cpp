#include "camera/CameraParameterSet.h"
#include "geometry/gandalf/LineFeatureMap.h"
#include "parameter/support/At.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <random>
#include <tuple>

namespace {

using Kyn::Frame;
using Kyn::View;
using Test::at;

VX_BaseClipInfo clipOf(VX_INTERLACE_MODE eMode = VX_INTERLACE_MODE_PROGRESSIVE) {
    VX_BaseClipInfo clip;
    clip.frameWidth = 1920;
    clip.frameHeight = 1080;
    clip.interlaceMode = eMode;
    clip.setFilmType(VX::FilmType(36.0, 24.0));
    return clip;
}

VX::Camera lensOf(Gan_CameraType eType) {
    VX::Camera lens;
    lens.eType = eType;
    lens.bDistortionActive = true;
    lens.fFocalDistance = 30.0f;
    lens.fImageCentreX = 0.52f;
    lens.fImageCentreY = 0.47f;
    lens.fRadialK1 = -0.1f;
    lens.fRadialK2 = 0.02f;
    lens.fCXX = 0.01f;
    lens.fCXY = 0.02f;
    lens.fCYX = 0.03f;
    lens.fCYY = 0.04f;
    return lens;
}

testing::AssertionResult isSame(Gan_Camera const & a, Gan_Camera const & b) {
    bool const bSame = std::tie(a.type, a.fx, a.fy, a.x0, a.y0, a.zh, a.project) ==
                           std::tie(b.type, b.fx, b.fy, b.x0, b.y0, b.zh, b.project) &&
                       std::equal(std::begin(a.distortion), std::end(a.distortion), b.distortion);
    return bSame ? testing::AssertionSuccess()
                 : testing::AssertionFailure()
                       << "type " << a.type << " fx " << a.fx << ", type " << b.type << " fx " << b.fx;
}

// The lens at one moment

TEST(Camera, is_measured_in_parts_of_the_frame) {
    VX::Camera lens = lensOf(GAN_CAMERA_ANAMORPHIC);
    Gan_Camera const camera = lens.toGanCamera(QSize(2000, 1000), 40.0, 1.5, false, true);
    EXPECT_EQ(camera.type, GAN_CAMERA_ANAMORPHIC);
    EXPECT_EQ(camera.fx, 1500.0);
    EXPECT_EQ(camera.fy, 2250.0);
    EXPECT_EQ(camera.zh, 1000.0);
    EXPECT_EQ(camera.x0, 2000.0 * static_cast<double>(0.52f));
    EXPECT_EQ(camera.y0, 1000.0 * static_cast<double>(0.47f)); // A second field without fields shifts nothing.
    EXPECT_EQ(camera.distortion[2], static_cast<double>(0.03f));
    lens.bDistortionActive = false;
    Gan_Camera const inactive = lens.toGanCamera(QSize(2000, 1000), 40.0, 1.5, true, true);
    EXPECT_EQ(inactive.type, GAN_CAMERA_LINEAR);
    EXPECT_EQ(inactive.distortion[2], 0.0);
    EXPECT_EQ(inactive.fy, 1125.0);
    EXPECT_EQ(inactive.y0, camera.y0 + 0.5);
}

TEST(Camera, second_field_is_the_odd_frame_in_mode_1_and_the_even_one_in_mode_2) {
    for (int mode = 0; mode <= 13; ++mode) {
        for (unsigned int frame : {0u, 3u, 4u, 0xFFFFFFFFu}) {
            VX_BaseClipInfo const clip = clipOf(static_cast<VX_INTERLACE_MODE>(mode));
            Gan_Camera const camera = lensOf(GAN_CAMERA_LINEAR).toGanCamera(Frame(frame), clip);
            bool const bSecond = (mode == 1 && frame % 2 == 1) || (mode == 2 && frame % 2 == 0);
            EXPECT_EQ(camera.y0 - 1080.0 * static_cast<double>(0.47f), bSecond ? 0.5 : 0.0) << mode << " " << frame;
            // A pixel of a field has twice the aspect, and a field half of it all: the same as without fields.
            EXPECT_DOUBLE_EQ(camera.fy, camera.fx * 1.5 * 1080.0 / 1920.0) << mode;
        }
    }
}

TEST(Camera, update_takes_back_what_toGanCamera_has_made_of_it) {
    for (auto const eType : {GAN_CAMERA_LINEAR, GAN_CAMERA_RADIAL_1, GAN_CAMERA_RADIAL_2, GAN_CAMERA_RADIAL_1_INVERSE,
                             GAN_CAMERA_ANAMORPHIC}) {
        for (unsigned int n = 0; n < 6; ++n) {
            Frame const frame(3 + n % 2);
            VX_BaseClipInfo const clip = clipOf(static_cast<VX_INTERLACE_MODE>(n / 2));
            Gan_Camera camera = lensOf(eType).toGanCamera(frame, clip);
            VX::Camera back;
            back.eType = eType;
            back.bDistortionActive = true;
            back.update(&camera, frame.toUInt(), &clip);
            EXPECT_FLOAT_EQ(back.fFocalDistance, 30.0f);
            EXPECT_FLOAT_EQ(back.fImageCentreX, 0.52f);
            EXPECT_FLOAT_EQ(back.fImageCentreY, 0.47f) << n;
            Gan_Camera const again = back.toGanCamera(frame, clip);
            EXPECT_TRUE(std::equal(std::begin(camera.distortion), std::end(camera.distortion), again.distortion));
        }
    }
}

TEST(Camera, update_keeps_its_own_model_and_the_terms_of_an_inactive_lens) {
    VX_BaseClipInfo const clip = clipOf();
    Gan_Camera solved = lensOf(GAN_CAMERA_ANAMORPHIC).toGanCamera(Frame(1), clip);
    VX::Camera lens = lensOf(GAN_CAMERA_RADIAL_1);
    lens.bDistortionActive = false;
    lens.update(&solved, 1, &clip);
    EXPECT_EQ(lens.fRadialK1, -0.1f);
    lens.bDistortionActive = true;
    lens.update(&solved, 1, &clip);
    EXPECT_EQ(lens.eType, GAN_CAMERA_RADIAL_1);
    EXPECT_EQ(lens.fRadialK1, 0.01f);
}

// The set

// The cache

TEST(CameraParameterSet, static_lens_has_one_entry_and_one_more_for_the_other_field) {
    VX_CameraParameterSet const set;
    Gan_Camera const fresh = set.getCamera(at(1), clipOf());
    EXPECT_EQ(fresh.type, GAN_CAMERA_LINEAR);
    EXPECT_EQ(fresh.fx, 1920.0 * 25.0 / 36.0);
    EXPECT_EQ(fresh.x0, 960.0);
    set.definitionCache[0.0].fFocalDistance = 72.0f;
    EXPECT_EQ(set.getCamera(at(200), clipOf()).fx, 2.0 * 1920.0); // It is not made again.
    EXPECT_EQ(set.hashCache.keys(), QList<double>({0.0}));
    VX_BaseClipInfo const interlaced = clipOf(VX_INTERLACE_MODE_LOWER_FIELD_FIRST);
    set.getCamera(at(6.9), interlaced);
    EXPECT_EQ(set.definitionCache.size(), 1);
    double const y0 = set.getCamera(at(7.9), interlaced).y0;
    EXPECT_EQ(set.getCamera(at(6), interlaced).y0, y0 + 0.5);
    EXPECT_EQ(set.hashCache.keys(), QList<double>({0.0, 1.0}));
    EXPECT_EQ(set.definitionCache.keys(), set.hashCache.keys());
}

TEST(CameraParameterSet, time_collapses_only_while_no_lens_value_has_two_keys) {
    typedef Kyn::NumericParameter<float> VX_CameraParameterSet::*Curve;
    for (Curve const curve : {&VX_CameraParameterSet::focalDistance, &VX_CameraParameterSet::imageCentreX,
                              &VX_CameraParameterSet::imageCentreY, &VX_CameraParameterSet::radialK1,
                              &VX_CameraParameterSet::radialK2, &VX_CameraParameterSet::cxx,
                              &VX_CameraParameterSet::cxy, &VX_CameraParameterSet::cyx, &VX_CameraParameterSet::cyy}) {
        VX_CameraParameterSet set;
        (set.*curve).setValue(1.0f, at(5));
        set.getCamera(at(8.5), clipOf());
        EXPECT_EQ(set.hashCache.keys(), QList<double>({0.0}));
        (set.*curve).setValue(2.0f, at(6));
        set.getCamera(at(8.5), clipOf());
        EXPECT_EQ(set.hashCache.keys(), QList<double>({0.0, 8.5}));
    }
}

class Bytes {
public:
    template <class... T>
    explicit Bytes(T... values) {
        (hash.update(&values, sizeof values), ...);
    }
    Tov::Hash hash;
};

TEST(CameraParameterSet, digest_has_its_inputs_in_order_and_width) {
    VX_CameraParameterSet set;
    VX_BaseClipInfo clip = clipOf(VX_INTERLACE_MODE_UPPER_FIELD_FIRST);
    clip.pixelAspectRatio = 1.25;
    set.type.setValue(GAN_CAMERA_DISTORTION_MAP, at(0));
    float term = 0.0f;
    for (auto * number : {&set.focalDistance, &set.imageCentreX, &set.imageCentreY, &set.radialK1, &set.radialK2,
                          &set.cxx, &set.cxy, &set.cyx, &set.cyy})
        number->setValue(term += 1.0f, at(0));
    auto const images = std::make_pair(boost::make_shared<Gan_Image>(), boost::make_shared<Gan_Image>());
    set.directSTMapClipId.setValue(21, at(0));
    set.imageLoader = [&](unsigned int id, Kyn::Context::Explicit, int, int) {
        return id == 21 ? images.first : images.second;
    };
    set.getCamera(at(7), clip);
    Bytes const bytes(std::int32_t(15), std::uint32_t(1920), std::uint32_t(1080), std::int32_t(1), 36.0, 24.0,
                      std::int32_t(1), 1.5, 1.25, 1.0f, 2.0f, 3.0f, true, 4.0f, 5.0f, 6.0f, 7.0f, 8.0f, 9.0f,
                      images.first.get(), images.second.get());
    EXPECT_TRUE(set.hashCache.value(1.0) == bytes.hash);
}

TEST(CameraParameterSet, maps_are_loaded_by_id_and_known_by_their_images) {
    VX_CameraParameterSet set;
    VX_BaseClipInfo const clip = clipOf();
    set.imageCentreX.setValue(0.25f, at(1));
    set.imageCentreY.setValue(0.75f, at(1));
    EXPECT_EQ(set.getCamera(at(1), clip).x0, 480.0);
    set.type.setValue(GAN_CAMERA_DISTORTION_MAP, at(0));
    EXPECT_EQ(set.getCamera(at(1), clip).x0, 960.0); // A map lies about the middle of the frame.
    EXPECT_EQ(set.getCamera(at(1), clip).y0, 540.0);
    EXPECT_EQ(set.getCamera(at(1), clip).directMap, nullptr);
    set.directSTMapClipId.setValue(7, at(0));
    set.inverseSTMapClipId.setValue(8, at(0));
    typedef std::tuple<unsigned int, double, int, int, int> Asked;
    std::vector<Asked> asked;
    QMap<unsigned int, boost::shared_ptr<Gan_Image>> images{{7, boost::make_shared<Gan_Image>()},
                                                            {8, boost::make_shared<Gan_Image>()}};
    set.imageLoader = [&](unsigned int id, Kyn::Context::Explicit context, int first, int second) {
        asked.emplace_back(id, context.time.toDouble(), context.view.id(), first, second);
        return images[id];
    };
    Gan_Camera camera = set.getCamera(at(33, 2), clip);
    EXPECT_EQ(camera.directMap, images[7].get());
    EXPECT_EQ(camera.inverseMap, images[8].get());
    // For the digest and for the lens, both at the time of a lens that does not vary.
    EXPECT_EQ(asked, std::vector<Asked>({{7, 0.0, 2, 0, 3}, {8, 0.0, 2, 0, 3}, {7, 0.0, 2, 0, 3}, {8, 0.0, 2, 0, 3}}));
    set.getCamera(at(34, 2), clip);
    EXPECT_EQ(asked.size(), 6u);
    images[8] = boost::make_shared<Gan_Image>();
    EXPECT_EQ(set.getCamera(at(34, 2), clip).inverseMap, images[8].get());
    images.clear();
    EXPECT_TRUE(set.definitionCache[0.0].pInverseMap.unique()); // The cache keeps what its cameras point to.
}

TEST(CameraParameterSet, time_that_is_no_number_or_negative_stays_out_of_the_caches) {
    VX_CameraParameterSet set;
    set.focalDistance.setValue(20.0f, at(0));
    set.focalDistance.setValue(30.0f, at(10));
    VX_BaseClipInfo const clip = clipOf(VX_INTERLACE_MODE_LOWER_FIELD_FIRST);
    EXPECT_EQ(set.getCamera(at(-10), clip).fx, 1920.0 * 10.0 / 36.0);
    EXPECT_EQ(set.getCamera(at(-9), clip).y0, 540.5); // As of frame 0.
    set.getCamera(at(std::numeric_limits<double>::quiet_NaN()), clip);
    set.getCamera(Kyn::Context(), clip);
    EXPECT_TRUE(set.hashCache.isEmpty());
    EXPECT_TRUE(set.definitionCache.isEmpty());
    EXPECT_EQ(set.getCamera(at(5), clip).fx, 1920.0 * 25.0 / 36.0);
}

TEST(CameraParameterSet, cached_lens_equals_the_one_made_anew_whatever_happened_before) {
    std::mt19937 random(11);
    auto const below = [&random](unsigned int end) { return static_cast<unsigned int>(random() % end); };
    VX_CameraParameterSet set;
    VX_BaseClipInfo clips[] = {clipOf(), clipOf(VX_INTERLACE_MODE_UPPER_FIELD_FIRST)};
    Gan_CameraType const types[] = {GAN_CAMERA_LINEAR, GAN_CAMERA_RADIAL_2, GAN_CAMERA_ANAMORPHIC};
    for (int step = 0; step < 2000; ++step) {
        Kyn::Context const key = at(below(8) * 0.5);
        auto * const curves = &(below(2) ? set.radialK1 : set.cxy);
        switch (below(6)) {
        case 0:
            curves->setValue(static_cast<float>(below(100)) / 1000.0f, key);
            break;
        case 1:
            curves->deleteAllKeyframes(View(0));
            break;
        case 2:
            set.type.setValue(types[below(3)], key);
            break;
        case 3:
            set.distortionActive.setValue(below(2) == 0, key);
            break;
        default:
            break;
        }
        VX_BaseClipInfo const & clip = clips[below(2)];
        Kyn::Context const moment = at(below(12) * 0.5);
        Gan_Camera const camera = set.getCamera(moment, clip);
        Gan_Camera const expected = set.getCameraDefinition(moment).toGanCamera(moment.toFrame(), clip);
        ASSERT_TRUE(isSame(camera, expected)) << step;
    }
}

// Lines

Gan_LineFeatureMap * oneLine(double x) {
    Gan_LineFeatureMap * const map = gan_line_feature_map_alloc();
    Gan_Vector2 const points[] = {{x, 0.0}, {x, 1.0}};
    gan_line_feature_map_add(map, points, 2);
    return map;
}

double firstX(VX_LineParameters const & lines) {
    return lines.pLines->lines.front().points.front().x;
}

TEST(CameraParameterSet, lines_are_made_when_asked_for_and_stay_with_their_set) {
    VX_CameraParameterSet set;
    EXPECT_EQ(set.getLineParameters(5, false), nullptr);
    VX_LineParameters * const lines = set.getLineParameters(5, true);
    EXPECT_EQ(lines->pLines, nullptr);
    EXPECT_EQ(lines->iIdentifier, -1);
    EXPECT_EQ(set.getLineParameters(5, true), lines);
    lines->pLines = oneLine(10.0);
    lines->iIdentifier = 3;
    VX_CameraParameterSet copy(set);
    VX_CameraParameterSet assigned;
    assigned.getLineParameters(6, true)->pLines = oneLine(20.0);
    assigned = set;
    EXPECT_EQ(set.getLineParameters(5, false), lines);
    lines->pLines->lines.front().points.front().x = 11.0;
    for (VX_CameraParameterSet * other : {&copy, &assigned}) {
        ASSERT_EQ(other->lineParameters.keys(), QList<unsigned int>({5}));
        EXPECT_EQ(firstX(*other->getLineParameters(5, false)), 10.0);
        EXPECT_EQ(other->getLineParameters(5, false)->iIdentifier, 3);
    }
    VX_LineParameters own(*lines);
    own = *&own;
    EXPECT_EQ(firstX(own), 11.0);
    own = VX_LineParameters();
    EXPECT_EQ(own.pLines, nullptr);
}

// Copying

TEST(CameraParameterSet, copy_has_neither_loader_nor_caches_and_hides_as_a_new_set_does) {
    VX_CameraParameterSet source;
    source.imageLoader = [](unsigned int, Kyn::Context::Explicit, int, int) { return boost::shared_ptr<Gan_Image>(); };
    source.focalDistance.hide(false);
    source.getCamera(at(0), clipOf());
    VX_CameraParameterSet const copy(source);
    EXPECT_FALSE(copy.imageLoader);
    EXPECT_TRUE(copy.hashCache.isEmpty());
    EXPECT_TRUE(copy.definitionCache.isEmpty());
    EXPECT_TRUE(copy.focalDistance.isHidden());
}

TEST(CameraParameterSet, assignment_keeps_scene_line_length_loader_and_caches) {
    VX_CameraParameterSet source;
    source.sceneToCameraScale.setValue(7.0, at(2));
    source.lineLengthThreshold.setValue(99, at(0));
    source.imageLoader = [](unsigned int, Kyn::Context::Explicit, int, int) { return boost::shared_ptr<Gan_Image>(); };
    VX_CameraParameterSet target;
    target.sceneToCameraScale.setValue(3.0, at(0));
    target.lineLengthThreshold.setValue(5, at(0));
    target.focalDistance.setValue(80.0f, at(0));
    double const before = target.getCamera(at(0), clipOf()).fx;
    Tov::Hash const hash = target.hashCache.value(0.0);
    target = source;
    EXPECT_EQ(target.sceneToCameraScale.value(at(2)), 3.0);
    EXPECT_EQ(target.lineLengthThreshold.value(at(0)), 5u);
    EXPECT_FALSE(target.imageLoader);
    EXPECT_TRUE(target.hashCache.value(0.0) == hash);
    EXPECT_NE(target.getCamera(at(0), clipOf()).fx, before); // What is kept is seen to be another lens.
}

} // namespace
