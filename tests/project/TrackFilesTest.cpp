#include "project/FrameList.h"
#include "project/Layer.h"
#include "project/NumberText.h"
#include "project/ParameterValue.h"
#include "project/ProjectTest.h"
#include "project/TrackComparison.h"
#include "project/TrackImport.h"

#include <cmath>

namespace {

using ProjectTest::at;
using vxproject::FrameList;
using vxproject::FrameSize;
using vxproject::TrackTable;

constexpr FrameSize SIZE{640, 480};
std::vector<Gan_Vector2> const CORNERS = {{362.667, 17.778}, {597.333, 74.667}, {549.333, 184.889}, {296, 99.556}};

TrackTable tableOf(std::string const & rows) {
    return TrackTable::fromText(QByteArray::fromStdString("frame,h11,h12,h13,h21,h22,h23,h31,h32,h33\n" + rows),
                                QStringLiteral("t.csv"));
}

TrackTable boxLid() {
    return TrackTable::read(QStringLiteral(VX_EXAMPLES "/box_lid/box_lid_track.csv"));
}

// Coordinates

TEST(PixelCoordinates, origin_is_the_centre_and_the_unit_the_width) {
    Gan_Vector2 const centre = vxproject::fromPixels({320, 240}, SIZE);
    EXPECT_EQ(centre.x, 0.0);
    EXPECT_EQ(centre.y, 0.0);
    Gan_Vector2 const corner = vxproject::fromPixels({640, 480}, SIZE);
    EXPECT_EQ(corner.x, 0.5);
    EXPECT_EQ(corner.y, 0.375);
    Gan_Vector2 const back = vxproject::toPixels(corner, SIZE);
    EXPECT_EQ(back.x, 640.0);
    EXPECT_EQ(back.y, 480.0);
}

TEST(PixelCoordinates, homography_maps_the_same_point_in_both) {
    Gan_Matrix33 const pixels{1.1, 0.2, -30, 0.05, 0.9, 12, 1e-4, -2e-4, 1};
    Gan_Matrix33 const project = vxproject::homographyFromPixels(pixels, SIZE);
    Gan_Vector2 const point{100, 50};
    Gan_Vector2 inPixels;
    Gan_Vector2 inProject;
    ASSERT_TRUE(vxproject::mapPoint(pixels, point, inPixels));
    ASSERT_TRUE(vxproject::mapPoint(project, vxproject::fromPixels(point, SIZE), inProject));
    Gan_Vector2 const expected = vxproject::fromPixels(inPixels, SIZE);
    EXPECT_NEAR(inProject.x, expected.x, 1e-14);
    EXPECT_NEAR(inProject.y, expected.y, 1e-14);
    Gan_Vector2 untouched{7, 7};
    EXPECT_FALSE(vxproject::mapPoint({1, 0, 0, 0, 1, 0, 1, 0, -100}, {100, 0}, untouched));
    EXPECT_EQ(untouched.x, 7.0);
}

// Tables

TEST(TrackTable, columns_stand_in_any_order_and_others_are_ignored) {
    TrackTable const table = TrackTable::fromText("# made by hand\r\n"
                                                  "h33, frame,note,h11,h12,h13,h21,h22,h23,h31,h32\r\n"
                                                  "\r\n"
                                                  "9,5,second,1,2,3,4,5,6,7,8\r\n"
                                                  "1,-2,first,1,0,0,0,1,0,0,0",
                                                  QStringLiteral("t.csv"));
    ASSERT_EQ(table.rows.size(), 2u);
    EXPECT_EQ(table.rows[0].frame, -2.0);
    EXPECT_EQ(table.rows[0].line, 5);
    Gan_Matrix33 const & h = table.rows[1].homography;
    EXPECT_EQ(h.xz, 3.0);
    EXPECT_EQ(h.zy, 8.0);
    EXPECT_EQ(h.zz, 9.0);
}

TEST(TrackTable, later_row_of_a_frame_is_taken_and_reported) {
    TrackTable const table = tableOf("1,1,0,0,0,1,0,0,0,1\n2,1,0,0,0,1,0,0,0,1\n1,1,0,5,0,1,0,0,0,1\n");
    ASSERT_EQ(table.rows.size(), 2u);
    EXPECT_EQ(table.rows[0].homography.xz, 5.0);
    ASSERT_EQ(table.findings.size(), 1);
    EXPECT_EQ(table.findings[0].toString(QStringLiteral("t.csv")).toStdString(),
              "t.csv:4: frame 1 stands in line 2 already, in whose place this row comes");
}

// Import

TEST(TrackImport, gives_every_measured_homography_back_before_any_file) {
    TrackTable const table = boxLid();
    VX::HomographyParams track;
    vxproject::TrackImport const import = importTrack(table, SIZE, Kyn::View(), track);
    EXPECT_EQ(import.imported, 391u);
    EXPECT_TRUE(import.findings.isEmpty());
    for (auto * value : track.trackingParameters(TRACK_MODEL_PERSPECTIVE))
        EXPECT_EQ(value->numKeyframes(Kyn::View()), 391u);
    vxproject::TrackComparison const found = compareTrack(track, Kyn::View(), table, CORNERS, SIZE);
    EXPECT_EQ(found.frames, 391u);
    EXPECT_LT(found.largest.distance, 1e-9);
}

TEST(TrackImport, comes_through_a_project_file_within_a_twentieth_of_a_pixel) {
    TrackTable const table = boxLid();
    vxproject::Project project;
    importTrack(table, SIZE, Kyn::View(), project.layer(1).tracking.track);
    auto const read = ProjectTest::projectOf(project.toText());
    EXPECT_EQ(ProjectTest::findingsOf(*read), "");
    vxproject::TrackComparison const found =
        compareTrack(read->layer(1).tracking.track, Kyn::View(), table, CORNERS, SIZE);
    EXPECT_EQ(found.frames, 391u);
    EXPECT_LT(found.largest.distance, 0.05);
    EXPECT_GT(found.largest.distance, 1e-6) << "six digits cost something";
    EXPECT_LE(found.mean, found.rootMeanSquare);
    EXPECT_LE(found.rootMeanSquare, found.largest.distance);
}

TEST(TrackImport, value_that_stays_gets_a_key_at_every_frame) {
    TrackTable const table = tableOf("1,1,0,0,0,1,0,0,0,1\n2,1,0,0,0,1,0,0,0,1\n9,1,0,0.5,0,1,0,0,0,1\n");
    VX::HomographyParams track;
    importTrack(table, std::nullopt, Kyn::View(), track);
    EXPECT_EQ(track.translationX.value(at(2)), 0.0);
    EXPECT_EQ(track.translationX.value(at(9)), 0.5);
    EXPECT_EQ(track.scale.numKeyframes(Kyn::View()), 3u);
}

TEST(TrackImport, rotation_runs_on_through_full_turns) {
    std::string rows;
    for (int frame = 0; frame <= 40; ++frame) {
        double const angle = -frame * 0.5; // more than three turns
        std::string const c = std::to_string(std::cos(angle));
        std::string const s = std::to_string(std::sin(angle));
        rows += std::to_string(frame) + "," + c + "," + std::to_string(-std::sin(angle)) + ",0," + s + "," + c +
                ",0,0,0,1\n";
    }
    VX::HomographyParams track;
    importTrack(tableOf(rows), std::nullopt, Kyn::View(), track);
    EXPECT_NEAR(track.rotation.value(at(40)), -20.0, 1e-5);
    EXPECT_NEAR(track.rotation.value(at(12.5)), -6.25, 1e-5);
}

TEST(TrackImport, rows_that_make_no_track_are_left_out_and_reported) {
    TrackTable const table = tableOf("1,1,0,0,0,1,0,0,0,1\n"
                                     "2,1,0,0,0,0,0,0,0,1\n" // no inverse
                                     "3,0,0,1,0,1,0,1,0,0\n" // the centre goes to infinity
                                     "1000001,1,0,0,0,1,0,0,0,1\n"
                                     "4,-2,0,0,0,-2,0,0,0,-2\n"); // any factor will do
    VX::HomographyParams track;
    vxproject::TrackImport const import = importTrack(table, std::nullopt, Kyn::View(), track);
    EXPECT_EQ(import.imported, 2u);
    ASSERT_EQ(import.findings.size(), 3);
    EXPECT_EQ(import.findings[0].line, 3);
    EXPECT_EQ(import.findings[1].line, 4);
    EXPECT_EQ(import.findings[2].line, 5);
    EXPECT_EQ(track.scale.value(at(4)), 1.0);
}

TEST(TrackComparison, finds_the_frame_and_the_point_that_are_off) {
    TrackTable const table = tableOf("1,1,0,0,0,1,0,0,0,1\n2,1,0,0,0,1,0,0,0,1\n3,1,0,0,0,1,0,0,0,1\n");
    VX::HomographyParams track;
    importTrack(table, SIZE, Kyn::View(), track);
    track.scale.setValue(1.01, at(2));
    vxproject::TrackComparison const found = compareTrack(track, Kyn::View(), table, {{320, 240}, {420, 240}}, SIZE);
    EXPECT_EQ(found.largest.frame, 2.0);
    EXPECT_EQ(found.largest.point, 1u);
    EXPECT_NEAR(found.largest.distance, 1.0, 1e-12);
    EXPECT_NEAR(found.mean, 1.0 / 6.0, 1e-12);
    EXPECT_NEAR(found.rootMeanSquare, std::sqrt(1.0 / 6.0), 1e-12);
}

// Small texts

std::string timesOf(char const * text) {
    std::optional<FrameList> const list = FrameList::parse(QString::fromLatin1(text));
    if (!list)
        return "none";
    QStringList times;
    list->forEach([&](double frame) { times.append(vxproject::shortestText(frame)); });
    return times.join(QLatin1Char(' ')).toStdString();
}

TEST(FrameList, is_written_as_single_frames_ranges_and_steps) {
    EXPECT_EQ(timesOf("7"), "7");
    EXPECT_EQ(timesOf("1-4"), "1 2 3 4");
    EXPECT_EQ(timesOf("1-6x2"), "1 3 5");
    EXPECT_EQ(timesOf("1-2x0.25"), "1 1.25 1.5 1.75 2");
    EXPECT_EQ(timesOf("9, 1-3, 0.5"), "9 1 2 3 0.5");
    EXPECT_EQ(timesOf("-3--1"), "-3 -2 -1");
    EXPECT_EQ(timesOf("0-0.3x0.1").size(), std::string("0 0.1 0.2 0.30000000000000004").size());
}

TEST(FrameList, refuses_what_is_no_list) {
    for (char const * text : {"", "x", "1-", "-", "3-1", "1-9x0", "1-9x-1", "1x2", "1,,2", "1-9x", "1e3", "nan", "1..2",
                              "0-1e9", "0-1x0.0000000000000000001", "1 2"})
        EXPECT_EQ(timesOf(text), "none") << text;
}

TEST(ParameterPattern, star_stands_for_any_text) {
    auto const matches = [](char const * path, char const * pattern) {
        return vxproject::matchesPattern(QString::fromUtf8(path), QString::fromUtf8(pattern));
    };
    EXPECT_TRUE(matches("Layer[1].跟踪.Scale", "Layer[1].跟踪.Scale"));
    EXPECT_TRUE(matches("Layer[1].跟踪.Scale", "*"));
    EXPECT_TRUE(matches("Layer[1].跟踪.Scale", "Layer[*.Sc*"));
    EXPECT_FALSE(matches("Layer[12].跟踪.Shear Y", "*Shear ?*"));
    EXPECT_TRUE(matches("aXbXc", "a*X*c"));
    EXPECT_TRUE(matches("aaab", "*ab"));
    EXPECT_FALSE(matches("Layer[1].跟踪.Scale", "Scale"));
    EXPECT_FALSE(matches("Layer[1].跟踪.Scale", "*scale"));
    EXPECT_FALSE(matches("", "a"));
    EXPECT_TRUE(matches("", "*"));
}

} // namespace
