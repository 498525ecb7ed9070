#include "project/ProjectEdits.h"
#include "project/Clip.h"
#include "project/Layer.h"
#include "project/Lens.h"
#include "project/ProjectTest.h"

using ProjectTest::at;
using ProjectTest::projectOfLines;
using vxproject::KeyEdit;
using vxproject::Unit;
using vxproject::When;

namespace {

std::string const LINES = "Clip[1].Name.value=\"plate\"\n"
                          "Clip[1].Picture.Core.FrameWidth.value=1920\n"
                          "Clip[1].Picture.Core.FrameHeight.value=1080\n"
                          "Clip[1].Picture.Core.CropLeft.value=3\n"
                          "Clip[2].Name.value=\"other\"\n"
                          "Layer[1].Basic.Active.keyframes.append( Key( 5, 1, Constant ) )\n"
                          "Layer[1].跟踪.InputClipID.value=1\n"
                          "Layer[1].跟踪.MaxMotionX.value=900\n"
                          "Layer[1].跟踪.Scale.keyframes.append( Key( 1, 2, Linear ) )\n"
                          "Layer[1].跟踪.Scale.keyframes.append( Key( 10, 3, Linear ) )\n"
                          "Layer[1].插入.OutputClipID.value=1\n"
                          "Lens[1].Camera.InputClipID.value=1\n"
                          "Lens[1].Camera.UndistortedClipID.value=1\n";

Kyn::BasicParameter & memberOf(vxproject::Project & project, char const * path) {
    Kyn::BasicParameter * found = nullptr;
    project.forEachMember([&](Kyn::BasicParameter & member, QString const & its) {
        if (its == QString::fromUtf8(path))
            found = &member;
    });
    EXPECT_NE(found, nullptr) << path;
    return *found;
}

void pushValueAt(vxproject::Project & project, char const * path, char const * text, When const & when,
                 Tov::CompositeCommand & commands) {
    vxproject::pushValue(memberOf(project, path), QString::fromUtf8(path), QString::fromUtf8(text), when, Unit::Stored,
                         commands);
}

void pushKeyAt(vxproject::Project & project, char const * path, KeyEdit const & edit,
               Tov::CompositeCommand & commands) {
    vxproject::pushKeyEdit(memberOf(project, path), QString::fromUtf8(path), edit, commands);
}

char const * const SCALE = "Layer[1].跟踪.Scale";
char const * const NAME = "Layer[1].Name";
When const STATIC{std::nullopt, Kyn::View()};

struct Edit {
    char const * name;
    void (*push)(vxproject::Project & project, Tov::CompositeCommand & commands);
};

std::ostream & operator<<(std::ostream & stream, Edit const & edit) {
    return stream << edit.name;
}

class ProjectEdit : public testing::TestWithParam<Edit> {};

TEST_P(ProjectEdit, is_done_undone_and_done_again_with_the_same_texts) {
    auto const project = projectOfLines(LINES);
    std::string const before = project->toText().toStdString();
    Tov::CompositeCommand commands;
    GetParam().push(*project, commands);
    EXPECT_EQ(project->toText().toStdString(), before) << "pushing must change nothing";
    EXPECT_TRUE(commands.redo());
    std::string const after = project->toText().toStdString();
    EXPECT_NE(after, before);
    commands.undo();
    EXPECT_EQ(project->toText().toStdString(), before);
    EXPECT_TRUE(commands.redo());
    EXPECT_EQ(project->toText().toStdString(), after);
    commands.undo();
    EXPECT_EQ(project->toText().toStdString(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ProjectEdit,
    testing::Values(Edit{"text", [](auto & project,
                                    auto & commands) { pushValueAt(project, NAME, "a = \"b\"", STATIC, commands); }},
                    Edit{"field",
                         [](auto & project, auto & commands) {
                             pushValueAt(project, "Clip[1].Picture.Core.FrameRate", "23.976", STATIC, commands);
                         }},
                    Edit{"static_value_of_what_takes_keys",
                         [](auto & project, auto & commands) {
                             pushValueAt(project, "Layer[1].跟踪.MaxMotionX", "7", STATIC, commands);
                         }},
                    Edit{"value_of_a_key",
                         [](auto & project, auto & commands) {
                             pushValueAt(project, SCALE, "4", {10.0, Kyn::View()}, commands);
                         }},
                    Edit{"new_key",
                         [](auto & project, auto & commands) {
                             pushKeyAt(project, SCALE, {KeyEdit::Kind::Add, 5.0}, commands);
                         }},
                    Edit{"new_key_between_frames",
                         [](auto & project, auto & commands) {
                             pushKeyAt(project, SCALE, {KeyEdit::Kind::Add, 5.5}, commands);
                         }},
                    Edit{"deleted_key",
                         [](auto & project, auto & commands) {
                             pushKeyAt(project, SCALE, {KeyEdit::Kind::Delete, 10.0}, commands);
                         }},
                    Edit{"type",
                         [](auto & project, auto & commands) {
                             pushKeyAt(project, SCALE,
                                       {KeyEdit::Kind::SetType, 1.0, 0.0, {}, Kyn::INTERPOLATION_CONSTANT}, commands);
                         }},
                    Edit{"clear", [](auto & project,
                                     auto & commands) { pushKeyAt(project, SCALE, {KeyEdit::Kind::Clear}, commands); }},
                    Edit{"rescale",
                         [](auto & project, auto & commands) {
                             vxproject::pushRescale(project, {1920, 1080}, {960, 540}, commands);
                         }},
                    Edit{"replace_clip",
                         [](auto & project, auto & commands) { vxproject::pushReplaceClip(project, 1, 2, commands); }},
                    Edit{"remove_clip",
                         [](auto & project, auto & commands) { vxproject::pushRemoveClip(project, 1, commands); }}),
    [](testing::TestParamInfo<Edit> const & one) { return one.param.name; });

TEST(ProjectEdits, a_value_beyond_the_limits_is_held_within_them) {
    auto const project = projectOfLines(LINES);
    Tov::CompositeCommand commands;
    pushValueAt(*project, "Layer[1].跟踪.MaxMotionX", "5000", STATIC, commands);
    pushValueAt(*project, "Lens[1].Camera.RadialK1", "-1000", {3.0, Kyn::View()}, commands);
    EXPECT_TRUE(commands.redo());
    EXPECT_EQ(project->layer(1).tracking.maxMotionX.staticValue(Kyn::View()), 1000u);
    EXPECT_EQ(project->lens(1).camera.radialK1.keyframeValue(0, Kyn::View()), -100.0f);
}

TEST(ProjectEdits, a_display_value_goes_through_the_parameters_own_unit) {
    auto const project = projectOfLines(LINES + "Clip[1].Picture.Core.FirstFrameOffset.value=1001\n"
                                                "Layer[1].移除.InputClipID.value=1\n");
    Tov::CompositeCommand commands;
    vxproject::pushValue(memberOf(*project, "Layer[1].移除.InputRangeMin"), QString(), QStringLiteral("1011"), STATIC,
                         Unit::Display, commands);
    EXPECT_TRUE(commands.redo());
    EXPECT_EQ(project->layer(1).remove.inputRangeMin.staticValue(Kyn::View()), 10u);
}

TEST(ProjectEdits, a_moved_key_keeps_its_value) {
    auto const project = projectOfLines(LINES);
    Tov::CompositeCommand commands;
    pushKeyAt(*project, SCALE, {KeyEdit::Kind::Move, 10.0, 20.5, {}, std::nullopt}, commands);
    EXPECT_TRUE(commands.redo());
    EXPECT_TRUE(project->layer(1).tracking.track.scale.isKeyframe(at(20.5)));
    EXPECT_EQ(project->layer(1).tracking.track.scale.value(at(20.5)), 3.0);
    EXPECT_FALSE(project->layer(1).tracking.track.scale.isKeyframe(at(10)));
}

TEST(ProjectEdits, what_makes_no_sense_is_refused_and_changes_nothing) {
    auto const project = projectOfLines(LINES);
    std::string const before = project->toText().toStdString();
    Tov::CompositeCommand commands;
    Kyn::View const view;
    for (auto const & [path, text, when] : {std::tuple{SCALE, "2", STATIC},
                                            {SCALE, "two", When{1.0, view}},
                                            {NAME, "a", When{1.0, view}},
                                            {"Layer[1].跟踪.MaxMotionX", "1.5", STATIC},
                                            {"Clip[1].Picture.Core.FrameWidth", "1e3", STATIC},
                                            {"Clip[1].Picture.Core.FrameWidth", "10", When{1.0, view}},
                                            {"Clip[1].Source.Core.Gamma", "nan", STATIC},
                                            {"Layer[1].跟踪.InputClipID", "-1", STATIC},
                                            {"Layer[1].Basic.BlendMode", "99", STATIC}})
        EXPECT_THROW(pushValueAt(*project, path, text, when, commands), vxproject::EditError) << path << " " << text;
    for (KeyEdit const & edit : {KeyEdit{KeyEdit::Kind::Add, 1.0}, KeyEdit{KeyEdit::Kind::Delete, 1.5},
                                 KeyEdit{KeyEdit::Kind::Delete, 2.0}, KeyEdit{KeyEdit::Kind::Move, 2.0, 3.0},
                                 KeyEdit{KeyEdit::Kind::Move, 1.0, 10.0}, KeyEdit{KeyEdit::Kind::SetType, 2.0}})
        EXPECT_THROW(pushKeyAt(*project, SCALE, edit, commands), vxproject::EditError);
    EXPECT_THROW(pushKeyAt(*project, NAME, {KeyEdit::Kind::Add, 1.0}, commands), vxproject::EditError);
    EXPECT_THROW(vxproject::pushReplaceClip(*project, 1, 7, commands), vxproject::EditError);
    EXPECT_THROW(vxproject::pushRemoveClip(*project, 7, commands), vxproject::EditError);
    EXPECT_TRUE(commands.empty());
    EXPECT_EQ(project->toText().toStdString(), before);
}

TEST(ProjectEdits, rescaling_reaches_every_amount_once) {
    auto const project = projectOfLines(LINES);
    Tov::CompositeCommand commands;
    vxproject::pushRescale(*project, {1920, 1080}, {960, 270}, commands);
    EXPECT_TRUE(commands.redo());
    vxproject::Layer const & layer = project->layer(1);
    EXPECT_EQ(layer.tracking.maxMotionX.staticValue(Kyn::View()), 450u);
    EXPECT_EQ(layer.tracking.maxMotionY.staticValue(Kyn::View()), 25u);
    EXPECT_EQ(layer.insert.blur.focusBlur.staticValue(Kyn::View()), 0.25f);
    EXPECT_EQ(project->clip(1).picture.frameHeight, 270u);
    EXPECT_EQ(project->clip(1).picture.cropLeft, 2u);
}

TEST(ProjectEdits, references_follow_or_are_forgotten_as_each_set_says) {
    auto const project = projectOfLines(LINES);
    Tov::CompositeCommand commands;
    vxproject::pushReplaceClip(*project, 1, 2, commands);
    EXPECT_TRUE(commands.redo());
    Kyn::View const view;
    EXPECT_EQ(project->layer(1).tracking.inputClipId.staticValue(view), 2u);
    EXPECT_EQ(project->layer(1).insert.outputClipId.staticValue(view), 0u);
    EXPECT_EQ(project->lens(1).camera.inputClipId.staticValue(view), 2u);
    EXPECT_EQ(project->lens(1).camera.undistortedClipId.staticValue(view), 0u);
    EXPECT_NE(project->findClip(1), nullptr);
}

TEST(ProjectEdits, a_clip_that_was_taken_out_comes_back_as_the_same_object) {
    auto const project = projectOfLines(LINES);
    vxproject::Clip * const clip = project->findClip(1);
    Tov::CompositeCommand commands;
    vxproject::pushRemoveClip(*project, 1, commands);
    EXPECT_TRUE(commands.redo());
    EXPECT_EQ(project->findClip(1), nullptr);
    EXPECT_EQ(project->layer(1).tracking.inputClipId.staticValue(Kyn::View()), 0u);
    commands.undo();
    EXPECT_EQ(project->findClip(1), clip);
    EXPECT_EQ(clip->name.extendedName(), QStringLiteral("Clip[1].Name"));
}

} // namespace
