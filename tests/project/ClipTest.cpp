#include "project/Clip.h"
#include "clip/ClipContext.h"
#include "project/ClipInterfaces.h"
#include "project/LayerInterface.h"
#include "project/ProjectTest.h"

#include <limits>
#include <stdexcept>

using ProjectTest::findingsOf;
using ProjectTest::projectOf;
using ProjectTest::projectOfLines;

namespace {

Kyn::View const left;

TEST(Clip, a_discrete_clip_is_read_whole_in_any_order_and_written_behind_its_members) {
    auto const project =
        projectOfLines("Clip[1].Source.Core.Frames.keyframes.append( DiscreteFrame( a, b.dpx, 12, 1 ) )\n"
                       "Clip[1].Source.Core.SingleFrame.value=1\n"
                       "Clip[1].Source.Core.DiscreteFrames.value=0\n"
                       "Clip[1].Source.Core.DiscreteFrames.value=1\n");
    EXPECT_EQ(findingsOf(*project), "");
    VX_ClipInfo const & source = project->findClip(1)->source;
    EXPECT_EQ(source.singleFrame, VX_TRUE);
    ASSERT_EQ(source.discreteFramesList.size(), 1);
    EXPECT_EQ(source.discreteFramesList[0].fileName, QStringLiteral("a, b.dpx"));
    QByteArray const text = project->toText();
    EXPECT_TRUE(text.endsWith("\nClip[1].Source.Core.Frames.keyframes.append( DiscreteFrame( a, b.dpx, 12, 1 ) )\n"));
    EXPECT_FALSE(text.contains("ClipDirectory"));
}

TEST(Clip, a_clip_turned_discrete_is_saved_as_one) {
    vxproject::Project project;
    VX_ClipInfo & source = project.clip(1).source;
    source.discreteFrames = VX_TRUE;
    source.discreteFramesList = {{QStringLiteral("x.dpx"), Kyn::Frame(3), 0}};
    auto const again = projectOf(project.toText());
    EXPECT_EQ(findingsOf(*again), "");
    EXPECT_EQ(again->findClip(1)->source.discreteFramesList.size(), 1);
}

TEST(Clip, fields_come_back_to_the_bit) {
    vxproject::Project project;
    vxproject::Clip & clip = project.clip(3);
    clip.picture.aspectRatio = 0.1 + 0.2;
    clip.picture.filmType.filmBackWidth = 5e-324;
    clip.picture.frameRate = 23.976f;
    clip.source.colourspace.gamma = std::numeric_limits<float>::denorm_min();
    auto const again = projectOf(project.toText());
    EXPECT_EQ(findingsOf(*again), "");
    vxproject::Clip const & read = *again->findClip(3);
    EXPECT_EQ(read.picture.aspectRatio, 0.1 + 0.2);
    EXPECT_EQ(read.picture.filmType.filmBackWidth, 5e-324);
    EXPECT_EQ(read.picture.frameRate, 23.976f);
    EXPECT_EQ(read.picture.viewZoom, VX::BaseClipFields::NEVER_SET);
    EXPECT_EQ(read.source.colourspace.gamma, std::numeric_limits<float>::denorm_min());
}

TEST(Clip, what_no_line_gives_back_is_refused_when_saving) {
    for (char const * name : {"a\nb", "", " a", "\tb"}) {
        vxproject::Project project;
        VX_ClipInfo & source = project.clip(1).source;
        source.discreteFrames = VX_TRUE;
        source.discreteFramesList = {{QString::fromUtf8(name), Kyn::Frame(3), 0}};
        EXPECT_THROW(project.toText(), std::runtime_error) << name;
    }
    vxproject::Project project;
    project.clip(1).picture.filmType.name = QStringLiteral("two\nlines");
    try {
        project.toText();
        FAIL() << "was written";
    } catch (std::runtime_error const & error) {
        EXPECT_STREQ(error.what(), "Clip[1].Picture.Core.FilmType cannot be saved: the text holds a line break");
    }
}

TEST(Clip, the_container_answers_for_the_clips_of_the_project) {
    auto const project = projectOfLines("Clip[7].Name.value=\"plate\"\n"
                                        "Clip[0].Name.value=\"none\"\n"
                                        "Clip[9].Name.value=\"plate\"\n");
    VX_BaseClipInfoContainer const & clips = project->clips();
    EXPECT_EQ(clips.clipIds(), (QVector<unsigned int>{7, 9}));
    EXPECT_EQ(clips.pcGetBaseClipInfo(9), &project->findClip(9)->picture);
    EXPECT_EQ(clips.pcGetClipInfo(7), &project->findClip(7)->source);
    EXPECT_EQ(clips.clipName(7), QStringLiteral("plate"));
    EXPECT_EQ(clips.clipIdOfName(QStringLiteral("plate")), 7u);
    EXPECT_EQ(clips.clipIdOfName(QStringLiteral("none")), 0u);
    EXPECT_EQ(clips.pcGetBaseClipInfo(0), nullptr);
    EXPECT_EQ(clips.pcGetClipInfo(8), nullptr);
    EXPECT_EQ(clips.clipName(8), QString());
}

TEST(Clip, the_interfaces_show_the_records) {
    auto const project = projectOfLines("Clip[4].Name.value=\"plate\"\n"
                                        "Clip[4].Picture.Core.FrameWidth.value=1921\n"
                                        "Clip[4].Picture.Core.FrameHeight.value=1080\n"
                                        "Clip[4].Picture.Core.FrameRate.value=25\n"
                                        "Clip[4].Source.Core.ClipDirectory.value=\"d\"\n"
                                        "Clip[4].Source.Core.ClipModeAfter.value=0\n"
                                        "Clip[4].Source.Core.ClipLength.view[0].value=9\n"
                                        "Clip[4].Source.Core.ClipLength.view[1].value=5\n"
                                        "Clip[4].Source.Core.ClipViewForProjectView.view[0].value=0\n"
                                        "Clip[4].Source.Core.ClipViewForProjectView.view[3].value=1\n");
    vxproject::Clip & clip = project->clip(4);
    vxproject::BaseClip const base(clip, 4);
    VX::ClipContext const half(2.9, Kyn::ProxyScale::HALF);
    EXPECT_EQ(half.frame(), Kyn::Frame(2));
    EXPECT_EQ(base.sizeAt(half), QSize(961, 540));
    EXPECT_EQ(base.views(), (std::vector<Kyn::View>{left, Kyn::View(3)}));
    EXPECT_EQ(base.length(Kyn::View(3)), 5u);
    EXPECT_TRUE(base.hasFrame(VX::ClipContext(4.0, Kyn::ProxyScale::FULL), Kyn::View(3)));
    EXPECT_FALSE(base.hasFrame(VX::ClipContext(5.0, Kyn::ProxyScale::FULL), Kyn::View(3)));

    vxproject::FileClip file(clip, 4);
    EXPECT_STREQ(file.metaObject()->superClass()->className(), "QObject");
    EXPECT_EQ(file.fileName(half, left), QStringLiteral("d/"));
    EXPECT_FALSE(file.fileExists(half, left));
    EXPECT_FALSE(file.timeCode(Kyn::Frame(3)).isValid());
    clip.source.imageHeader.timeCode = 0x00595924; // 00:59:59:24
    EXPECT_EQ(file.timeCode(Kyn::Frame(1)).toUInt32(), 0x01000000u);
    file.setName(QStringLiteral("renamed"));
    EXPECT_EQ(base.name(), QStringLiteral("renamed"));
}

TEST(Clip, the_layer_interface_speaks_for_all_of_its_modules) {
    auto const project = projectOfLines("Layer[1].跟踪.InputClipID.value=6\n"
                                        "Layer[1].跟踪.MaxMotionX.value=10\n"
                                        "Layer[1].跟踪.Scale.keyframes.append( Key( 3, 2, Linear ) )\n"
                                        "Layer[1].跟踪.Rotation.keyframes.append( Key( 8, 0, Linear ) )\n");
    vxproject::LayerInterface layer(project->layer(1), 1);
    EXPECT_EQ(layer.moduleNames().size(), 7);
    EXPECT_EQ(layer.moduleNames()[1], QStringLiteral("跟踪"));
    EXPECT_EQ(layer.module(QStringLiteral("跟踪")), &project->layer(1).tracking);
    EXPECT_EQ(layer.module(QStringLiteral("none")), nullptr);
    Kyn::Time first;
    Kyn::Time last;
    ASSERT_TRUE(layer.bTrackRange(left, first, last));
    EXPECT_EQ(first, Kyn::Time(3.0));
    EXPECT_EQ(last, Kyn::Time(8.0));
    EXPECT_TRUE(layer.homography(ProjectTest::at(3)).has_value());
    layer.rescale(2.0f, 1.0f);
    EXPECT_EQ(project->layer(1).tracking.maxMotionX.value(ProjectTest::at(0)), 20u);
    layer.removeReferencesToClip(6, 8);
    EXPECT_EQ(layer.inputClipId(), 8u);
}

} // namespace
