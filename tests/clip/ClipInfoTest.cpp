#include "clip/ClipInfo.h"
#include "clip/GoldenScript.h"
#include "parameter/support/ChangeRecorder.h"
#include "support/Warnings.h"

#include <limits>
#include <tuple>

namespace {

using Kyn::View;
using Test::Change;
using Test::ChangeRecorder;
using Test::Changes;
using Test::ExpectWarning;
using Test::golden;
using Test::joined;
using Test::PRESENT;
using Test::refusedOf;
using Test::sectionOf;
using Tov::FSPercentEscapedString;

View const LEFT(0);
View const RIGHT(1);
View const ALL(-1);
QStringList const NOTHING;
constexpr bool CLIP_VIEW = true;
constexpr bool PROJECT_VIEW = false;

FSPercentEscapedString escaped(char const * text) {
    return FSPercentEscapedString(QString::fromUtf8(text), FSPercentEscapedString::ALREADY_ESCAPED);
}

VX_CLIP_MODE repeat(int number) {
    return static_cast<VX_CLIP_MODE>(number);
}

void nameViews(VX_ClipInfo & clip) {
    clip.setViewName(LEFT, QStringLiteral("left"));
    clip.setViewName(RIGHT, QStringLiteral("right"));
}

/// Two views, nearly every value off its default; the prefix and some others are shared.
void changeToStereo(VX_ClipInfo & clip) {
    EXPECT_EQ(refusedOf(clip, golden("stereo_sequence")), NOTHING);
    clip.singleFrame = VX_TRUE;
    clip.imageHeader.timeCode = 0x01020304;
    clip.setCacheAffinity(static_cast<VX_ClipInfo::CacheAffinity>(7));
    clip.reserved = 11;
}

void changeToDiscrete(VX_ClipInfo & clip) {
    clip.discreteFrames = VX_TRUE;
    clip.singleFrame = VX_TRUE;
    clip.setViewName(LEFT, QStringLiteral("stills"));
    clip.setLength(3, LEFT);
    clip.discreteFramesList = {{QStringLiteral("a, b.dpx"), Kyn::Frame(12), 1},
                               {QStringLiteral("/p/%1 (2), 3 ) %.tif"), Kyn::Frame(4294967295u), 0},
                               {QStringLiteral("a, b.dpx"), Kyn::Frame(12), 1}};
}

// Script

TEST(ClipInfoScript, of_a_new_record_is_the_default_section) {
    VX_ClipInfo clip;
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(sectionOf(clip), golden("default_source"));
        EXPECT_EQ(refusedOf(clip, golden("default_source")), NOTHING);
    }
}

TEST(ClipInfoScript, of_a_sequence_reaches_every_value_and_is_written_alike) {
    VX_ClipInfo clip;
    changeToStereo(clip);
    EXPECT_EQ(joined(clip.readOnly, clip.hidden, clip.discreteFrames, clip.predefined, clip.sparseClip), "1 1 2 1 1");
    VX::ColourspaceParameters const & c = clip.colourspace;
    EXPECT_EQ(joined(c.colourspace, c.gamma, c.offset, c.referenceWhite, c.referenceBlack, c.softClip),
              "1 2.2 -0.5 700.25 64 12.5");
    EXPECT_EQ(joined(c.nativePixelType, c.floatFormat, c.eightBitFormat), "3 1 0");
    EXPECT_EQ(joined(clip.imageFormatOfFile, clip.originalImageFormat, clip.imageDataTypeOfFile), "4 0 8");
    EXPECT_EQ(joined(clip.processBits, clip.linear, clip.reapplyPulldown, clip.proxyScale), "10 1 0 2");
    EXPECT_EQ(clip.clipDirectory(RIGHT, CLIP_VIEW), QStringLiteral("C:\\shots = right, \"b\""));
    EXPECT_EQ(clip.clipPrefix(RIGHT, CLIP_VIEW), escaped("plate%25."));
    EXPECT_EQ(clip.clipSuffix(RIGHT, CLIP_VIEW), escaped(".tar.gz"));
    EXPECT_EQ(clip.nameForView(RIGHT, CLIP_VIEW), QStringLiteral("right"));
    for (View const view : {LEFT, RIGHT})
        EXPECT_EQ(joined(clip.minIndex(view, CLIP_VIEW), clip.maxIndex(view, CLIP_VIEW), clip.lengthForView(view),
                         clip.repeatModeBefore(view, CLIP_VIEW), clip.repeatModeAfter(view, CLIP_VIEW)),
                  view == LEFT ? "1001 1050 50 0 2" : "7 56 4294967295 0 3");
    for (int const view : {0, 1, 5})
        EXPECT_EQ(clip.clipViewForProjectView(View(view)), view == 1 ? LEFT : RIGHT);
    EXPECT_EQ(sectionOf(clip), golden("stereo_sequence"));
}

TEST(ClipInfoScript, of_a_discrete_clip_has_one_line_that_a_new_record_refuses) {
    VX_ClipInfo discrete;
    changeToDiscrete(discrete);
    EXPECT_EQ(sectionOf(discrete), golden("discrete"));
    VX_ClipInfo clip;
    QStringList const refused = refusedOf(clip, golden("discrete"));
    EXPECT_EQ(refused, QStringList("Core.SingleFrame.value=1"));
    EXPECT_NE(sectionOf(clip), golden("discrete"));
    // Writing has switched the form, so that the line is taken now, and those of a sequence are refused.
    EXPECT_EQ(refusedOf(clip, refused.join('\n').toStdString()), NOTHING);
    EXPECT_EQ(sectionOf(clip), golden("discrete"));
    for (char const * line : {"SparseClip.value=1", "ClipDirectory.value=\"d\"", "IndexWidth.value=3"})
        EXPECT_FALSE(clip.bStreamIn(QString::fromLatin1(line), PRESENT)) << line;
    clip.discreteFrames = VX_FALSE;
    EXPECT_TRUE(clip.bStreamIn(QStringLiteral("SingleFrame.value=0"), PRESENT));
    sectionOf(clip);
    EXPECT_FALSE(clip.bStreamIn(QStringLiteral("SingleFrame.value=0"), PRESENT));
    EXPECT_TRUE(clip.bStreamIn(QStringLiteral("ClipDirectory.value=\"d\""), PRESENT));
}

TEST(ClipInfoScript, opens_its_lines_with_the_prefix_and_the_name_if_there_is_one) {
    VX_ClipInfo clip;
    changeToDiscrete(clip);
    clip.setScriptName(QStringLiteral("Plate"));
    EXPECT_NE(sectionOf(clip, QStringLiteral("Clip[1].")).find("\nClip[1].Plate.Frames.keyframes.append( "),
              std::string::npos);
    clip.setScriptName(QString());
    std::string const nameless = sectionOf(clip, QStringLiteral("Clip[1]."));
    EXPECT_EQ(nameless.rfind("Clip[1].ReadOnly.value=0\n", 0), 0u);
    EXPECT_NE(nameless.find("\nClip[1].Frames.keyframes.append( "), std::string::npos);
}

TEST(ClipInfoScript, members_are_the_same_objects_after_a_change_of_form) {
    VX_ClipInfo clip;
    auto * const sparse = dynamic_cast<Kyn::StaticParameter<bool> *>(clip.findMember(QStringLiteral("SparseClip")));
    ASSERT_NE(sparse, nullptr);
    int sent = 0;
    QObject::connect(sparse, &Kyn::BasicParameter::valueChanged, [&] { ++sent; });
    clip.discreteFrames = VX_TRUE;
    sectionOf(clip);
    EXPECT_EQ(clip.findMember(QStringLiteral("SparseClip")), nullptr);
    EXPECT_EQ(clip.directory.owner(), nullptr);
    sparse->setValue(true);
    EXPECT_TRUE(clip.sparseClip);
    clip.discreteFrames = VX_FALSE;
    sectionOf(clip);
    EXPECT_EQ(clip.findMember(QStringLiteral("SparseClip")), sparse);
    EXPECT_EQ(clip.directory.owner(), &clip);
    EXPECT_TRUE(clip.bStreamIn(QStringLiteral("SparseClip.value=0"), PRESENT));
    EXPECT_FALSE(clip.sparseClip);
    EXPECT_EQ(sent, 1); // By the line, not by setValue().
}

// Views

TEST(ClipInfoViews, a_project_view_is_mapped_to_a_clip_view) {
    VX_ClipInfo clip;
    EXPECT_EQ(clip.projectViewForClipView(LEFT), LEFT);
    EXPECT_EQ(clip.projectViewForClipView(RIGHT), View::INVALID());
    ChangeRecorder heard(clip.clipViewForProjectView_);
    clip.setClipViewForProjectView(View(5), RIGHT);
    EXPECT_EQ(heard.take(), (Changes{{Kyn::ParameterChange::ViewAdded, 5}, {Kyn::ParameterChange::ValueChanged, 5}}));
    clip.setClipViewForProjectView(View(5), RIGHT);
    EXPECT_EQ(heard.take(), Changes());
    EXPECT_EQ(clip.remapViewIfRequired(View(5), PROJECT_VIEW), RIGHT);
    EXPECT_EQ(clip.remapViewIfRequired(View(5), CLIP_VIEW), View(5));
    clip.setClipViewForProjectView(View(3), RIGHT);
    EXPECT_EQ(clip.projectViewForClipView(RIGHT), View(3)); // The first by number, not by age.
}

/// Sets through project view 3, which shows the right view, and reads in each way.
template <class T, class Set, class Get>
void expectMapped(Kyn::Parameter<T> VX::ClipInfoMembers::*parameter, T const & value, Set set, Get get) {
    VX_ClipInfo clip;
    clip.setClipViewForProjectView(View(3), RIGHT);
    T const before = (clip.*get)(LEFT, CLIP_VIEW);
    ChangeRecorder heard(clip.*parameter);
    (clip.*set)(value, View(3), PROJECT_VIEW);
    EXPECT_EQ(heard.take(), (Changes{{Kyn::ParameterChange::ViewAdded, 1}, {Kyn::ParameterChange::ValueChanged, 1}}));
    EXPECT_TRUE((clip.*get)(View(3), PROJECT_VIEW) == value);
    EXPECT_TRUE((clip.*get)(RIGHT, CLIP_VIEW) == value);
    EXPECT_TRUE((clip.*get)(RIGHT, PROJECT_VIEW) == before); // Project view 1 shows the left view.
    (clip.*set)(value, RIGHT, CLIP_VIEW);
    EXPECT_EQ(heard.take(), Changes());
    (clip.*set)(before, RIGHT, CLIP_VIEW);
    EXPECT_EQ(heard.take(), (Changes{{Kyn::ParameterChange::ValueChanged, 1}}));
}

TEST(ClipInfoViews, setters_write_what_differs_at_the_mapped_view) {
    typedef VX_ClipInfo C;
    expectMapped(&C::directory, QStringLiteral("/d"), &C::setClipDirectory, &C::clipDirectory);
    expectMapped(&C::prefix, escaped("p."), &C::setClipPrefix, &C::clipPrefix);
    expectMapped(&C::suffix, escaped(".s"), &C::setClipSuffix, &C::clipSuffix);
    expectMapped(&C::minimumIndex, 3u, &C::setMinIndex, &C::minIndex);
    expectMapped(&C::maximumIndex, 4u, &C::setMaxIndex, &C::maxIndex);
    expectMapped(&C::indexWidth_, 5u, &C::setIndexWidth, &C::indexWidth);
    expectMapped(&C::repeatModeBefore_, repeat(2), &C::setRepeatModeBefore, &C::repeatModeBefore);
    expectMapped(&C::repeatModeAfter_, repeat(3), &C::setRepeatModeAfter, &C::repeatModeAfter);
}

TEST(ClipInfoViews, are_those_that_have_a_name) {
    VX_ClipInfo clip;
    clip.setClipDirectory(QStringLiteral("/r"), RIGHT, CLIP_VIEW);
    EXPECT_FALSE(clip.isMultiView());
    EXPECT_EQ(clip.clipViews(), std::vector<View>{LEFT});
    clip.setClipViewForProjectView(RIGHT, LEFT);
    clip.setViewName(RIGHT, QStringLiteral("right"));
    EXPECT_TRUE(clip.isMultiView());
    EXPECT_EQ(clip.clipViews(), (std::vector<View>{LEFT, RIGHT}));
    EXPECT_EQ(clip.nameForView(RIGHT, CLIP_VIEW), QStringLiteral("right"));
    EXPECT_EQ(clip.nameForView(RIGHT, PROJECT_VIEW), QString());
}

TEST(DeleteClipView, removes_it_everywhere_and_maps_to_the_first_that_is_left) {
    VX_ClipInfo clip;
    nameViews(clip);
    clip.importStreams(VX_ClipInfo(), View(2), 1); // Gives every value entries for all views.
    clip.setClipViewForProjectView(View(1), RIGHT);
    clip.setClipViewForProjectView(View(7), LEFT);
    clip.deleteClipView(LEFT);
    EXPECT_EQ(clip.clipViews(), (std::vector<View>{RIGHT, View(2)}));
    EXPECT_FALSE(clip.directory.hasView(LEFT));
    EXPECT_EQ(clip.clipViewForProjectView(LEFT), RIGHT);
    EXPECT_EQ(clip.clipViewForProjectView(View(7)), RIGHT);
    EXPECT_EQ(clip.clipViewForProjectView(View(2)), View(2));
}

TEST(DeleteClipView, warns_of_each_value_that_had_nothing_for_it_and_goes_on) {
    VX_ClipInfo clip;
    nameViews(clip);
    clip.setLength(9, RIGHT);
    clip.setClipViewForProjectView(RIGHT, RIGHT);
    {
        ExpectWarning const warning("VX_ClipInfo: parameter");
        clip.deleteClipView(clip.clipViews().back());
        EXPECT_EQ(warning.texts().size(), 9u); // Only name and length had something.
    }
    EXPECT_FALSE(clip.isMultiView());
    EXPECT_EQ(clip.lengthForView(RIGHT), 0u);
    EXPECT_EQ(clip.clipViewForProjectView(RIGHT), LEFT);
}

TEST(DeleteClipView, leaves_the_only_view_in_place_with_a_warning_of_each_value) {
    VX_ClipInfo clip;
    ExpectWarning const warning("did not have view 0");
    clip.deleteClipView(LEFT);
    ASSERT_EQ(warning.texts().size(), 11u);
    EXPECT_EQ(warning.texts().front(), "VX_ClipInfo: parameter SourceViewName did not have view 0");
    EXPECT_EQ(warning.texts().back(), "VX_ClipInfo: parameter ClipModeAfter did not have view 0");
    EXPECT_EQ(sectionOf(clip), golden("default_source"));
}

class ImportStreams : public testing::Test {
protected:
    VX_ClipInfo clip;
    VX_ClipInfo other; ///< Views 0, 2 and 4, no parameter with all of them.

    ImportStreams() {
        nameViews(clip);
        clip.setClipDirectory(QStringLiteral("/own"), LEFT, CLIP_VIEW);
        other.setClipDirectory(QStringLiteral("/other"), LEFT, CLIP_VIEW);
        other.setMinIndex(20, View(2), CLIP_VIEW);
        other.setMaxIndex(40, View(4), CLIP_VIEW);
    }
};

TEST_F(ImportStreams, copies_at_most_the_count_and_maps_all) {
    clip.setClipViewForProjectView(LEFT, View(10));
    clip.importStreams(other, View(10), 2);
    EXPECT_EQ(clip.clipViews(), (std::vector<View>{LEFT, RIGHT, View(10), View(11)}));
    EXPECT_EQ(clip.clipDirectory(View(10), CLIP_VIEW), QStringLiteral("/other"));
    EXPECT_EQ(clip.clipDirectory(View(11), CLIP_VIEW), QStringLiteral("/other"));
    EXPECT_EQ(clip.minIndex(View(10), CLIP_VIEW), 0u);
    EXPECT_EQ(clip.minIndex(View(11), CLIP_VIEW), 20u);
    EXPECT_FALSE(clip.maximumIndex.hasView(View(12)));
    clip.setClipViewForProjectView(LEFT, RIGHT); // New views follow no other one's mapping.
    for (int view : {10, 11, 12})
        EXPECT_EQ(clip.clipViewForProjectView(View(view)), View(view));
    EXPECT_EQ(clip.clipViewForProjectView(View(13)), RIGHT);
    clip.importStreams(other, View(20), 0);
    EXPECT_FALSE(clip.minimumIndex.hasView(View(20)));
    EXPECT_EQ(clip.clipViewForProjectView(View(22)), View(22));
}

TEST_F(ImportStreams, makes_every_value_of_every_own_view_explicit_before) {
    clip.importStreams(other, View(10), 4294967295u);
    EXPECT_EQ(clip.maxIndex(View(12), CLIP_VIEW), 40u);
    clip.setClipDirectory(QStringLiteral("/changed"), LEFT, CLIP_VIEW);
    EXPECT_EQ(clip.clipDirectory(RIGHT, CLIP_VIEW), QStringLiteral("/own"));
    std::vector<View> const views{LEFT, RIGHT, View(10), View(11), View(12)};
    std::vector<View> const mapped{LEFT, View(10), View(11), View(12)};
    clip.forEachParameter(
        [&](Kyn::ParameterWithoutType * parameter) {
            std::vector<View> const & expected = parameter == &clip.clipViewForProjectView_ ? mapped : views;
            EXPECT_EQ(parameter->views(), expected) << parameter->scriptName().toStdString();
        },
        false);
}

TEST_F(ImportStreams, stops_at_the_largest_view_number_and_begins_at_none_without_a_first_view) {
    std::string const before = sectionOf(clip);
    clip.importStreams(other, View::INVALID(), 3);
    EXPECT_EQ(sectionOf(clip), before);
    int const largest = std::numeric_limits<int>::max();
    clip.importStreams(other, View(largest - 1), 3);
    EXPECT_EQ(clip.clipViews(), (std::vector<View>{LEFT, RIGHT, View(largest - 1), View(largest)}));
    EXPECT_EQ(clip.minIndex(View(largest), CLIP_VIEW), 20u);
    EXPECT_EQ(clip.clipViewForProjectView(View(largest)), View(largest));
    EXPECT_EQ(clip.clipViewForProjectView(LEFT), LEFT);
}

TEST_F(ImportStreams, from_itself_doubles_the_views) {
    clip.setMinIndex(5, View(4), CLIP_VIEW); // The list of views that the argument stands in grows.
    clip.importStreams(clip, clip.minimumIndex.views().back(), 2);
    EXPECT_EQ(clip.clipViews(), (std::vector<View>{LEFT, RIGHT, View(4), View(5)}));
    EXPECT_EQ(clip.nameForView(View(4), CLIP_VIEW), QStringLiteral("left"));
    EXPECT_EQ(clip.nameForView(View(5), CLIP_VIEW), QStringLiteral("right"));
    EXPECT_EQ(clip.minIndex(View(4), CLIP_VIEW), 0u);
    EXPECT_EQ(clip.clipViewForProjectView(View(6)), View(6));
}

// Length

TEST(ClipLength, of_an_invalid_view_is_that_of_the_default_one) {
    VX_ClipInfo clip;
    nameViews(clip);
    clip.setLength(10, LEFT);
    clip.setLength(20, RIGHT);
    EXPECT_EQ(clip.lengthForView(RIGHT), 20u);
    EXPECT_EQ(clip.lengthForView(View(7)), 10u);
    EXPECT_EQ(clip.lengthForView(ALL), 10u); // Not the longest.
    ChangeRecorder heard(clip.length);
    clip.setLength(20, ALL);
    EXPECT_EQ(heard.take(), (Changes{{Kyn::ParameterChange::ValueChanged, 0}}));
    EXPECT_EQ(clip.lengthForView(LEFT), 20u);
    clip.setLength(5, ALL);
    EXPECT_EQ(heard.take(),
              (Changes{{Kyn::ParameterChange::ValueChanged, 0}, {Kyn::ParameterChange::ValueChanged, 1}}));
    EXPECT_EQ(clip.length.numViews(), 2u);
}

TEST(ClipLength, comes_from_the_number_of_files_in_each_view) {
    VX_ClipInfo clip;
    nameViews(clip);
    clip.setMinIndex(1, LEFT, CLIP_VIEW);
    clip.setMaxIndex(10, LEFT, CLIP_VIEW);
    clip.setMaxIndex(30, RIGHT, CLIP_VIEW);
    clip.setLengthFromFileCount(VX_INTERLACE_MODE_UPPER_FIELD_FIRST);
    EXPECT_EQ(clip.lengthForView(LEFT), 20u);
    EXPECT_EQ(clip.lengthForView(RIGHT), 60u);
    clip.setMinIndex(12, LEFT, CLIP_VIEW);
    clip.setLengthFromFileCount(VX_INTERLACE_MODE_PROGRESSIVE);
    EXPECT_EQ(clip.lengthForView(LEFT), 4294967295u);     // 10 - 12 + 1 wraps.
    EXPECT_EQ(clip.lengthForView(RIGHT), 30u - 12u + 1u); // The right view reads the left one's least index.
}

// Files

TEST(FirstFileName, is_that_of_the_least_index_in_the_default_view) {
    VX_ClipInfo clip;
    EXPECT_EQ(clip.firstFileName(), QStringLiteral("/"));
    changeToStereo(clip); // What the project shows of it does not matter.
    EXPECT_EQ(clip.firstFileName(), QStringLiteral("/shots/left/plate%25.1001.dpx"));
    clip.setIndexWidth(255, LEFT, CLIP_VIEW);
    EXPECT_EQ(clip.firstFileName(), QStringLiteral("/shots/left/plate%25.") + QString(251, '0') + "1001.dpx");
    clip.setIndexWidth(256, LEFT, CLIP_VIEW);
    EXPECT_TRUE(clip.firstFileName().isNull());
    clip.hasIndex.setStaticValue(false, LEFT);
    EXPECT_EQ(clip.firstFileName(), QStringLiteral("/shots/left/plate%25..dpx"));
}

TEST(ClipFiles, are_named_by_the_values_of_their_view) {
    VX_ClipInfo clip;
    changeToStereo(clip);
    EXPECT_EQ(clip.fileName(8, LEFT), QStringLiteral("/shots/left/plate%25.0008.dpx"));
    EXPECT_EQ(clip.fileName(8, RIGHT), QStringLiteral("C:\\shots = right, \"b\"/plate%25.0008.tar.gz"));
    EXPECT_EQ(clip.imageFileExtension(LEFT, false, PROJECT_VIEW), QStringLiteral("gz")); // It shows the right view.
    EXPECT_EQ(clip.imageFileExtension(LEFT, false, CLIP_VIEW), QStringLiteral("dpx"));
    EXPECT_EQ(clip.imageFileExtension(RIGHT, true, CLIP_VIEW), QStringLiteral(".gz"));
    for (auto const & [suffix, without, with] :
         {std::tuple("dpx", "dpx", "dpx"), std::tuple("", "", ""), std::tuple("x.", "", ".")}) {
        clip.setClipSuffix(escaped(suffix), LEFT, CLIP_VIEW);
        EXPECT_EQ(clip.imageFileExtension(LEFT, false, CLIP_VIEW), QLatin1String(without)) << suffix;
        EXPECT_EQ(clip.imageFileExtension(LEFT, true, CLIP_VIEW), QLatin1String(with)) << suffix;
    }
}

TEST(ClipFiles, data_type_follows_the_colourspace_only_where_it_converts) {
    auto const typeWith = [](float gamma, VX_BOOL floatFormat, VX_BOOL eightBitFormat) {
        VX_ClipInfo clip;
        clip.imageDataTypeOfFile = static_cast<Gan_Type>(5);
        clip.colourspace.gamma = gamma;
        clip.colourspace.floatFormat = floatFormat;
        clip.colourspace.eightBitFormat = eightBitFormat;
        clip.vRebuildDataTypeOfFile();
        return static_cast<unsigned int>(clip.imageDataTypeOfFile);
    };
    EXPECT_EQ(typeWith(1.0f, VX_FALSE, VX_TRUE), 5u);
    EXPECT_EQ(typeWith(2.2f, VX_FALSE, VX_FALSE), 3u);
    EXPECT_EQ(typeWith(2.2f, VX_FALSE, VX_TRUE), 1u);
    EXPECT_EQ(typeWith(1.0f, VX_TRUE, VX_TRUE), 8u);
}

// Copies

std::string valuesOutsideTheScript(VX_ClipInfo const & clip) {
    return joined(static_cast<int>(clip.cacheAffinity()), clip.reserved, clip.imageHeader.timeCode,
                  clip.imageHeader.format, clip.imageHeader.type, clip.singleFrame);
}

class ClipCopy : public testing::Test {
protected:
    VX_ClipInfo source;
    VX_ClipInfo discrete;

    ClipCopy() {
        changeToStereo(source);
        source.setScriptName(QStringLiteral("Plate"));
        source.setDisplayName(QStringLiteral("The plate"), QStringLiteral("P"));
        changeToDiscrete(discrete);
        sectionOf(discrete); // Switches the list of members.
    }
};

TEST_F(ClipCopy, takes_all_values_and_is_named_as_new) {
    VX_ClipInfo copy(source);
    EXPECT_EQ(sectionOf(copy), golden("stereo_sequence"));
    EXPECT_EQ(valuesOutsideTheScript(copy), "7 11 16909060 13 17 1");
    EXPECT_EQ(valuesOutsideTheScript(VX_ClipInfo()), "2 10 4294967295 13 17 0");
    EXPECT_EQ(copy.displayName(), QStringLiteral("Core"));
    EXPECT_EQ(copy.shortDisplayName(), QStringLiteral("Core"));
    copy.setLength(1, RIGHT);
    EXPECT_TRUE(copy.bStreamIn(QStringLiteral("Gamma.value=3"), PRESENT));
    EXPECT_EQ(copy.colourspace.gamma, 3.0f);
    EXPECT_EQ(source.lengthForView(RIGHT), 4294967295u);
    EXPECT_EQ(source.colourspace.gamma, 2.2f);
}

TEST_F(ClipCopy, of_a_discrete_clip_lists_the_members_of_a_sequence) {
    VX_ClipInfo copy(discrete);
    EXPECT_FALSE(copy.bStreamIn(QStringLiteral("SingleFrame.value=0"), PRESENT));
    EXPECT_EQ(sectionOf(copy), golden("discrete"));
}

TEST_F(ClipCopy, by_assignment_takes_the_names_and_leaves_the_list_of_members) {
    discrete = source;
    EXPECT_EQ(discrete.scriptName(), QStringLiteral("Plate"));
    EXPECT_EQ(discrete.displayName(), QStringLiteral("The plate"));
    EXPECT_EQ(discrete.shortDisplayName(), QStringLiteral("P"));
    EXPECT_EQ(valuesOutsideTheScript(discrete), "7 11 16909060 13 17 1");
    EXPECT_TRUE(discrete.discreteFramesList.isEmpty());
    EXPECT_FALSE(discrete.bStreamIn(QStringLiteral("SparseClip.value=1"), PRESENT));
    EXPECT_TRUE(discrete.bStreamIn(QStringLiteral("SingleFrame.value=1"), PRESENT));
    discrete.setScriptName(QStringLiteral("Core"));
    VX_ClipInfo const & self = discrete;
    discrete = self;
    EXPECT_EQ(sectionOf(discrete), golden("stereo_sequence"));
}

TEST_F(ClipCopy, for_a_derived_clip_takes_little) {
    VX_ClipInfo derived = source.copyInfoForDerivedClip();
    EXPECT_EQ(valuesOutsideTheScript(derived), "2 10 16909060 13 17 0");
    EXPECT_EQ(derived.scriptName(), QStringLiteral("Core"));
    VX_ClipInfo expected;
    EXPECT_EQ(refusedOf(expected, "Core.ImageFormatOfFile.value=4\nCore.ImageDataTypeOfFile.value=8\n"
                                  "Core.SourceViewName.value=\"left\"\nCore.ClipLength.value=50\n"
                                  "Core.ClipModeBefore.value=0\nCore.ClipModeAfter.value=2\n"),
              NOTHING);
    EXPECT_EQ(sectionOf(derived), sectionOf(expected));
}

} // namespace
