#include "project/ProjectEdits.h"
#include "project/Clip.h"
#include "project/Layer.h"
#include "project/ProjectTest.h"

#include <functional>

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

char const * const SCALE = "Layer[1].跟踪.Scale";
char const * const NAME = "Layer[1].Name";
When const STATIC{std::nullopt, Kyn::View()};

typedef std::function<void(vxproject::Project &, Tov::CompositeCommand &)> Push;

Push value(char const * path, char const * text, When const & when = STATIC) {
    return [=](auto & project, auto & commands) {
        vxproject::pushValue(memberOf(project, path), QString(), QString::fromUtf8(text), when, Unit::Stored, commands);
    };
}

Push key(KeyEdit const & edit) {
    return [=](auto & project, auto & commands) {
        vxproject::pushKeyEdit(memberOf(project, SCALE), QString(), edit, commands);
    };
}

struct Edit {
    char const * name;
    Push push;
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
    testing::Values(
        Edit{"text", value(NAME, "a = \"b\"")}, Edit{"field", value("Clip[1].Picture.Core.FrameRate", "23.976")},
        Edit{"static_value_of_what_takes_keys", value("Layer[1].跟踪.MaxMotionX", "7")},
        Edit{"value_of_a_key", value(SCALE, "4", {10.0, Kyn::View()})}, Edit{"new_key", key({KeyEdit::Kind::Add, 5.0})},
        Edit{"new_key_between_frames", key({KeyEdit::Kind::Add, 5.5})},
        Edit{"deleted_key", key({KeyEdit::Kind::Delete, 10.0})}, Edit{"clear", key({KeyEdit::Kind::Clear})},
        Edit{"type", key({KeyEdit::Kind::SetType, 1.0, 0.0, {}, Kyn::INTERPOLATION_CONSTANT})},
        Edit{"rescale",
             [](auto & project, auto & commands) {
                 vxproject::pushRescale(project, {1920, 1080}, {960, 540}, commands);
             }},
        Edit{"replace_clip",
             [](auto & project, auto & commands) { vxproject::pushReplaceClip(project, 1, 2, commands); }},
        Edit{"remove_clip", [](auto & project, auto & commands) { vxproject::pushRemoveClip(project, 1, commands); }}),
    [](testing::TestParamInfo<Edit> const & one) { return one.param.name; });

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
