#include "clip/BaseClipInfo.h"
#include "clip/FilmTypeFactory.h"
#include "clip/GoldenScript.h"
#include "clip/Pulldown.h"

namespace {

using Test::golden;
using Test::joined;
using Test::PRESENT;
using Test::refusedOf;
using Test::sectionOf;
using VX::BaseClipFields;
using VX::FilmType;

VX_INTERLACE_MODE mode(int number) {
    return static_cast<VX_INTERLACE_MODE>(number);
}

/// Reads the section in which no two neighbours are alike, so that a line bound to the wrong field shows.
void change(VX_BaseClipInfo & clip) {
    EXPECT_EQ(refusedOf(clip, golden("changed_picture")), QStringList());
}

TEST(BaseClipInfo, new_record_writes_the_default_section_and_reads_it_back) {
    VX_BaseClipInfo clip;
    EXPECT_EQ(sectionOf(clip), golden("default_picture"));
    EXPECT_EQ(refusedOf(clip, golden("default_picture")), QStringList());
    EXPECT_EQ(sectionOf(clip), golden("default_picture"));
}

TEST(BaseClipInfo, every_line_reaches_its_field) {
    VX_BaseClipInfo clip;
    change(clip);
    VX::Colour3<unsigned char> const & colour = clip.displayColour();
    FilmType const & film = clip.filmType;
    EXPECT_EQ(joined(clip.frameWidth, clip.frameHeight, clip.cropTop, clip.cropLeft, clip.cropRight, clip.cropBottom),
              "720 288 1 2 3 4294967295");
    EXPECT_EQ(joined(clip.interlaceMode, clip.frameRate, clip.masterTimelineClipId, clip.firstFrameOffset),
              "13 23.976 7 -12");
    EXPECT_EQ(joined(film.name.toStdString(), film.filmBackWidth, film.filmBackHeight, film.anamorphic),
              "Gate = \"5\" 20.12 15.09 1");
    EXPECT_EQ(joined(film.widths[0], film.widths[1], film.widths[2], film.heights[0], film.heights[1], film.heights[2]),
              "11 12 13 14 15 -16");
    EXPECT_EQ(joined(clip.aspectRatio, clip.pixelAspectRatio, clip.proxyScale), "1.33333 1.06667 2");
    EXPECT_EQ(joined(int(colour.red), int(colour.green), int(colour.blue)), "255 128 9");
    EXPECT_EQ(joined(clip.viewOriginX, clip.viewOriginY, clip.viewZoom), "-0.5 1e+20 0.125");
    EXPECT_EQ(sectionOf(clip), golden("changed_picture"));
    clip.setDisplayColour({1, 2, 3});
    EXPECT_NE(sectionOf(clip).find("DisplayRed.value=1\nCore.DisplayGreen.value=2\nCore.DisplayBlue.value=3\n"),
              std::string::npos);
}

TEST(BaseClipInfo, place_that_was_never_set_survives_nine_digits_and_no_fewer) {
    VX_BaseClipInfo clip;
    clip.viewZoom = 1.0f;
    EXPECT_TRUE(clip.bStreamIn(QStringLiteral("ViewZoom.value=3.40282347e+38"), PRESENT));
    EXPECT_EQ(clip.viewZoom, BaseClipFields::NEVER_SET);
    EXPECT_TRUE(clip.bStreamIn(QStringLiteral("ViewZoom.value=3.40282e+38"), PRESENT));
    EXPECT_LT(clip.viewZoom, BaseClipFields::NEVER_SET);
}

TEST(BaseClipInfo, keys_that_have_moved_are_taken_and_change_nothing) {
    VX_BaseClipInfo clip;
    VX_BaseClipInfo const copy(clip);
    for (VX_BaseClipInfo one : {clip, copy}) {
        for (char const * line :
             {"ClipLength.value=50", "ClipModeBefore.views=[0, 1]", "ClipModeAfter.view[1].value=2"})
            EXPECT_TRUE(one.bStreamIn(QString::fromLatin1(line), PRESENT)) << line;
        EXPECT_EQ(sectionOf(one), golden("default_picture"));
    }
    for (char const * line : {"ClipLength", "clipLength.value=1", "SparseClip.value=1", "InterlaceMode.value=1", ""})
        EXPECT_FALSE(clip.bStreamIn(QString::fromLatin1(line), PRESENT)) << line;
}

TEST(BaseClipInfo, film_type_in_a_script_looks_nothing_up) {
    VX_BaseClipInfo clip;
    EXPECT_TRUE(clip.bStreamIn(QStringLiteral("FilmType.value=\"PAL\""), PRESENT));
    EXPECT_EQ(clip.filmType.name, QStringLiteral("PAL"));
    EXPECT_FALSE(clip.filmType.isValid());
    EXPECT_EQ(clip.aspectRatio, 0.0);
}

TEST(BaseClipInfo, number_of_files_is_the_file_that_follows) {
    VX_BaseClipInfo clip;
    EXPECT_EQ(clip.uiGetNumberOfPulldownFiles(9), 9u);
    clip.interlaceMode = mode(2);
    EXPECT_EQ(clip.uiGetNumberOfPulldownFiles(10), 5u);
    EXPECT_EQ(clip.uiGetNumberOfPulldownFiles(9), VX::NO_FILE);
    clip.interlaceMode = mode(3);
    EXPECT_EQ(clip.uiGetNumberOfPulldownFiles(8), 10u);
}

TEST(BaseClipInfo, format_bundles_size_film_and_mode) {
    VX_BaseClipInfo clip;
    change(clip);
    VX::ImageFormat const format = clip.format();
    EXPECT_EQ(format.size, QSize(720, 288));
    EXPECT_EQ(format.filmType.name, clip.filmType.name);
    EXPECT_EQ(format.filmType.heights[2], -16);
    EXPECT_EQ(format.interlaceMode, mode(13));
    clip.frameWidth = 2147483648u;
    clip.frameHeight = 4294967295u;
    EXPECT_EQ(clip.format().size, QSize(2147483647, 2147483647));
}

TEST(BaseClipInfo, only_interlaced_modes_double_the_pixel_aspect) {
    for (int number = 0; number <= 13; ++number) {
        VX_BaseClipInfo clip;
        clip.frameWidth = 720;
        clip.frameHeight = 576;
        clip.interlaceMode = mode(number);
        clip.setFilmType(FilmType(QStringLiteral("Gate"), 4.0, 3.0, 1, 2, 3, 4, 5, 6, true));
        EXPECT_DOUBLE_EQ(clip.pixelAspectRatio, (number == 1 || number == 2 ? 2.0 : 1.0) * 768.0 / 720.0) << number;
        EXPECT_DOUBLE_EQ(clip.aspectRatio, 4.0 / 3.0);
        EXPECT_EQ(clip.filmType.name, QStringLiteral("Gate"));
        EXPECT_EQ(clip.filmType.uiSize(2), QSize(3, 6));
    }
}

TEST(BaseClipInfo, ratios_stay_as_of_the_last_film_type) {
    VX_BaseClipInfo clip;
    clip.frameWidth = 2;
    clip.frameHeight = 1;
    clip.setFilmType(FilmType(1.0, 1.0));
    clip.interlaceMode = mode(1);
    clip.frameHeight = 100;
    EXPECT_EQ(clip.pixelAspectRatio, 0.5);
    clip.setFilmType(clip.filmType);
    EXPECT_EQ(clip.pixelAspectRatio, 100.0);
}

TEST(BaseClipInfo, copy_is_named_as_new_and_assignment_takes_the_names_too) {
    VX_BaseClipInfo source;
    change(source);
    source.setScriptName(QStringLiteral("Plate"));
    source.setDisplayName(QStringLiteral("The plate"), QStringLiteral("P"));
    VX_BaseClipInfo copy(source);
    VX_BaseClipInfo target;
    target = source;
    VX_BaseClipInfo const & self = target;
    target = self;
    EXPECT_EQ(joined(copy.scriptName().toStdString(), copy.displayName().toStdString(),
                     copy.shortDisplayName().toStdString()),
              "Core Core Core");
    EXPECT_EQ(joined(target.scriptName().toStdString(), target.displayName().toStdString(),
                     target.shortDisplayName().toStdString()),
              "Plate The plate P");
    target.setScriptName(QStringLiteral("Core"));
    for (VX_BaseClipInfo * other : {&copy, &target}) {
        EXPECT_EQ(sectionOf(*other), golden("changed_picture"));
        // Its lines reach its own fields.
        EXPECT_TRUE(other->bStreamIn(QStringLiteral("变形.value=0"), PRESENT));
        EXPECT_TRUE(other->bStreamIn(QStringLiteral("DisplayBlue.value=200"), PRESENT));
        EXPECT_FALSE(other->filmType.anamorphic);
        EXPECT_EQ(other->displayColour().blue, 200);
    }
    EXPECT_TRUE(source.filmType.anamorphic);
    EXPECT_EQ(source.displayColour().blue, 9);
}

} // namespace
