#include "project/Lens.h"
#include "project/Clip.h"
#include "project/FileError.h"
#include "project/LayerWarp.h"
#include "project/ProjectTest.h"
#include "project/Scene.h"
#include "project/StMap.h"
#include "project/TextFile.h"

#include <QTemporaryDir>

#include <cmath>

using ProjectTest::at;
using ProjectTest::findingsOf;
using ProjectTest::projectOf;
using ProjectTest::projectOfLines;

namespace {

constexpr double WIDTH = 640.0;
constexpr double HEIGHT = 480.0;
constexpr double FOCAL = 640.0 * 30.0 / 36.0;

std::string const CLIP_AND_LENS = "Clip[1].Picture.Core.FrameWidth.value=640\n"
                                  "Clip[1].Picture.Core.FrameHeight.value=480\n"
                                  "Clip[1].Picture.Core.FilmBackWidth.value=36\n"
                                  "Clip[1].Picture.Core.FilmBackHeight.value=27\n"
                                  "Lens[4].Camera.InputClipID.value=1\n"
                                  "Lens[4].Camera.Type.value=1\n"
                                  "Lens[4].Camera.FocalDistance.value=30\n"
                                  "Lens[4].Camera.RadialK1.value=-0.25\n";
std::string const TRACKED_LAYER = "Layer[1].跟踪.InputClipID.value=1\n"
                                  "Layer[1].跟踪.Translation X.value=0.125\n"
                                  "Layer[1].跟踪.Scale.value=2\n";

/// Where the lens shows a point of the undistorted picture, by its formula.
Gan_Vector2 shownBy(double k1, Gan_Vector2 const & p) {
    double const x = (p.x - WIDTH / 2) / FOCAL;
    double const y = (p.y - HEIGHT / 2) / FOCAL;
    double const factor = 1.0 + k1 * (x * x + y * y);
    return {FOCAL * x * factor + WIDTH / 2, FOCAL * y * factor + HEIGHT / 2};
}

Gan_Camera cameraOf(vxproject::Project const & project, quint32 lens) {
    return vxproject::cameraAt(*project.findLens(lens), at(0), project.findClip(1)->picture);
}

void expectNear(std::optional<Gan_Vector2> const & got, std::optional<Gan_Vector2> const & expected, double tolerance) {
    ASSERT_TRUE(got && expected);
    EXPECT_NEAR(got->x, expected->x, tolerance);
    EXPECT_NEAR(got->y, expected->y, tolerance);
}

TEST(LayerWarp, carries_points_out_of_the_lens_with_the_track_and_into_it_again) {
    auto const project = projectOfLines(CLIP_AND_LENS + TRACKED_LAYER);
    ASSERT_EQ(findingsOf(*project), "");
    auto const warp = vxproject::LayerWarp::at(*project, project->layer(1), at(7), std::nullopt);
    ASSERT_TRUE(warp.has_value());
    double const k1 = static_cast<double>(-0.25f);
    for (Gan_Vector2 const & undistorted : {Gan_Vector2{310.0, 250.0}, {250.0, 150.0}, {200.0, 330.0}}) {
        // The track doubles about the centre and moves by an eighth of the width.
        Gan_Vector2 const moved{2.0 * (undistorted.x - WIDTH / 2) + WIDTH / 2 + WIDTH / 8,
                                2.0 * (undistorted.y - HEIGHT / 2) + HEIGHT / 2};
        Gan_Vector2 const from = shownBy(k1, undistorted);
        Gan_Vector2 const to = shownBy(k1, moved);
        expectNear(warp->warp(from), to, 1e-9);
        expectNear(warp->unwarp(to), from, 1e-9);
    }
    EXPECT_FALSE(warp->warp({1e5, 1e5}).has_value());
    EXPECT_FALSE(warp->warp({std::nan(""), 0.0}).has_value());
    project->clip(1).picture.filmType.filmBackWidth = 0.0; // Without a film back no lens has an answer.
    EXPECT_FALSE(vxproject::LayerWarp::at(*project, project->layer(1), at(0), std::nullopt).has_value());
}

TEST(LayerWarp, without_a_lens_is_the_track_in_pixels_of_any_frame) {
    auto const project = projectOfLines(TRACKED_LAYER);
    EXPECT_FALSE(vxproject::LayerWarp::at(*project, project->layer(1), at(0), std::nullopt).has_value());
    auto const warp = vxproject::LayerWarp::at(*project, project->layer(1), at(0), vxproject::FrameSize{100, 50});
    ASSERT_TRUE(warp.has_value());
    expectNear(warp->warp({60.0, 30.0}), Gan_Vector2{2.0 * 10.0 + 50.0 + 12.5, 2.0 * 5.0 + 25.0}, 1e-12);
}

TEST(Lens, of_a_clip_is_the_one_of_lowest_id_that_names_it) {
    auto const project = projectOfLines("Lens[9].Camera.InputClipID.value=1\nLens[3].Camera.InputClipID.value=1\n"
                                        "Lens[1].Camera.InputClipID.value=2\nLens[0].Name.value=\"unbound\"\n");
    EXPECT_EQ(project->lensOfClip(1), project->findLens(3));
    EXPECT_EQ(project->lensOfClip(7), nullptr);
    EXPECT_EQ(project->lensOfClip(0), nullptr);
}

TEST(StMap, of_a_lens_says_at_each_pixel_where_the_source_lies) {
    auto const project = projectOfLines(CLIP_AND_LENS);
    vxproject::StMap const map = vxproject::stMapOf(cameraOf(*project, 4), {640, 480}, vxproject::MapDirection::Direct);
    EXPECT_EQ(map.nowhere, 0u);
    std::size_t const pixel = 100 * 640 + 30; // row 100 from the top
    Gan_Vector2 const source = shownBy(static_cast<double>(-0.25f), {30.5, 100.5});
    EXPECT_NEAR(static_cast<double>(map.s[pixel]), source.x / WIDTH, 1e-7);
    EXPECT_NEAR(static_cast<double>(map.t[pixel]), 1.0 - source.y / HEIGHT, 1e-7);
}

TEST(StMap, a_pair_read_back_as_a_lens_does_what_the_lens_did) {
    auto const project = projectOfLines(CLIP_AND_LENS);
    QTemporaryDir const folder;
    Gan_Camera const lens = cameraOf(*project, 4);
    std::string lines = CLIP_AND_LENS + "Lens[5].Camera.Type.value=15\n"
                                        "Lens[5].Camera.FocalDistance.value=30\n"
                                        "Lens[5].Camera.directSTMapClipID.value=11\n"
                                        "Lens[5].Camera.inverseSTMapClipID.value=12\n";
    for (auto const & [name, id, direction] : {std::tuple("direct", 11, vxproject::MapDirection::Direct),
                                               std::tuple("inverse", 12, vxproject::MapDirection::Inverse)}) {
        vxproject::replaceFile(folder.filePath(QLatin1String(name) + QStringLiteral(".exr")),
                               vxproject::exrOf(vxproject::stMapOf(lens, {640, 480}, direction)));
        std::string const source = "Clip[" + std::to_string(id) + "].Source.Core.";
        lines += source + "ClipDirectory.value=\"" + folder.path().toStdString() + "\"\n" + source +
                 "ClipPrefix.value=\"" + name + "\"\n" + source + "ClipSuffix.value=\".exr\"\n";
    }
    auto const read = projectOfLines(lines);
    Gan_Camera const mapped = cameraOf(*read, 5);
    ASSERT_NE(mapped.directMap, nullptr);
    EXPECT_EQ(cameraOf(*read, 5).directMap, mapped.directMap) << "was read anew";
    for (double x = 10.25; x < WIDTH; x += 61.0) // Straight lines between the pixels of the map.
        for (double y = 9.75; y < HEIGHT; y += 53.0) {
            expectNear(vxproject::distorted(mapped, {x, y}), vxproject::distorted(lens, {x, y}), 2e-3);
            expectNear(vxproject::undistorted(mapped, {x, y}), vxproject::undistorted(lens, {x, y}), 1e-2);
        }
}

TEST(StMap, what_the_lens_does_not_show_stays_that_way_when_read_back) {
    vxproject::StMap map{{2, 1}, {0.5f, vxproject::StMap::NOWHERE}, {0.5f, vxproject::StMap::NOWHERE}, 1};
    QTemporaryDir const folder;
    QString const path = folder.filePath(QStringLiteral("map.exr"));
    vxproject::replaceFile(path, vxproject::exrOf(map));
    vxproject::StMap const read = vxproject::readStMap(path);
    EXPECT_EQ(read.s, map.s);
    EXPECT_EQ(read.nowhere, 1u);
    boost::shared_ptr<Gan_Image> const image = vxproject::imageOf(read);
    auto const * const offsets = static_cast<float const *>(image->pixels);
    EXPECT_TRUE(std::isnan(offsets[2]));
    EXPECT_FALSE(std::isnan(offsets[0]));
}

TEST(StMap, a_damaged_file_is_refused) {
    QTemporaryDir const folder;
    QString const path = folder.filePath(QStringLiteral("map.exr"));
    QByteArray const whole = vxproject::exrOf({{8, 8}, std::vector<float>(64, 0.5f), std::vector<float>(64, 0.5f), 0});
    for (QByteArray const & bytes :
         {QByteArray(), QByteArray("no picture"), whole.left(40), whole.left(whole.size() - 9)}) {
        vxproject::replaceFile(path, bytes);
        EXPECT_THROW(vxproject::readStMap(path), vxproject::FileError) << bytes.size();
    }
    EXPECT_THROW(vxproject::readStMap(folder.filePath(QStringLiteral("none.exr"))), vxproject::FileError);
}

TEST(Scene, is_one_item_whose_nulls_are_made_by_their_lines_and_written_by_id) {
    auto const project = projectOfLines("Scene.Null[30].Name.value=\"lamp\"\n"
                                        "Scene.StereoCamera.InteraxialDistance.value=6.5\n"
                                        "Scene.Null[4].Position.x.keyframes.append( Key( 1, 2, Linear ) )\n");
    EXPECT_EQ(findingsOf(*project), "");
    vxproject::Scene & scene = project->scene();
    EXPECT_EQ(scene.rig.interaxialDistance.value(at(0)), 6.5f);
    ASSERT_EQ(scene.nulls().size(), 2u);
    EXPECT_EQ(scene.null(30).name.staticValue(Kyn::View()), QStringLiteral("lamp"));
    EXPECT_EQ(scene.null(4).position.x()->extendedName(), QStringLiteral("Scene.Null[4].Position.x"));
    QByteArray const text = project->toText();
    EXPECT_LT(text.indexOf("Scene.Null[4]."), text.indexOf("Scene.Null[30]."));
    ProjectTest::expectFixedPoint(*project);
}

} // namespace
