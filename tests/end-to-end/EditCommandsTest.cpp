#include "end-to-end/ToolRun.h"

namespace {

/// The commands that change a project.
class EditTool : public ToolRun {
protected:
    std::string project() const {
        return write("p.vxp", "vxproject 2\n"
                              "Clip[1].Picture.Core.FrameWidth.value=1920\n"
                              "Clip[1].Picture.Core.FrameHeight.value=1080\n"
                              "Clip[2].Name.value=\"other\"\n"
                              "Layer[1].Name.value=\"screen\"\n"
                              "Layer[1].跟踪.InputClipID.value=1\n"
                              "Layer[1].跟踪.Scale.keyframes.append( Key( 1, 2, Linear ) )\n");
    }
};

TEST_F(EditTool, set_writes_back_or_elsewhere_or_only_shows_the_difference) {
    std::string const file = project();
    std::string const before = contentOf("p.vxp");
    Answer const dry = run({"set", file, "Layer[1].Name", "left", "--dry-run"});
    EXPECT_EQ(dry.code, 0);
    EXPECT_NE(dry.out.find("\n-Layer[1].Name.value=\"screen\"\n+Layer[1].Name.value=\"left\"\n"), std::string::npos);
    EXPECT_EQ(dry.err, "Layer[1].Name: \"screen\" -> \"left\"\n");
    EXPECT_EQ(contentOf("p.vxp"), before);

    EXPECT_EQ(run({"set", file, "Layer[1].Name", "left", "-o", pathOf("q.vxp")}).code, 0);
    EXPECT_EQ(contentOf("p.vxp"), before);
    EXPECT_EQ(run({"get", pathOf("q.vxp"), "Layer[1].Name", "--frames", "0"}).out, "frame,Layer[1].Name\n0,left\n");

    Answer const limited = run({"set", file, "Layer[1].跟踪.MaxMotion*", "5000", "--in-place"});
    EXPECT_EQ(limited.err, "Layer[1].跟踪.MaxMotionX: 100 -> 1000\nLayer[1].跟踪.MaxMotionY: 100 -> 1000\n");
    EXPECT_NE(contentOf("p.vxp"), before);
}

TEST_F(EditTool, key_edits_keys_and_all_of_them_or_none) {
    std::string const file = project();
    std::string const path = "Layer[1].跟踪.Scale";
    EXPECT_EQ(run({"key", file, path, "--add", "--frames", "5-7", "--type", "constant", "--in-place"}).err,
              path + ": 1 key -> 4 keys\n");
    EXPECT_EQ(run({"key", file, path, "--move", "6.5", "--frames", "6", "--in-place"}).code, 0);
    EXPECT_NE(contentOf("p.vxp").find("Scale.keyframes.append( Key( 6.5, 2, Constant ) )\n"), std::string::npos);
    std::string const before = contentOf("p.vxp");
    Answer const refused = run({"key", file, path, "--delete", "--frames", "5,6", "--in-place"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.err, file + ": " + path + ": there is no key at frame 6\n");
    EXPECT_EQ(contentOf("p.vxp"), before);
    EXPECT_EQ(run({"key", file, path, "--clear", "--in-place"}).err, path + ": 4 keys -> 1\n");
}

TEST_F(EditTool, rescale_and_clip_commands_say_what_they_changed) {
    std::string const file = project();
    Answer const rescaled = run({"rescale", file, "--from", "1920x1080", "--to", "960x540", "--dry-run"});
    EXPECT_NE(rescaled.err.find("Clip[1].Picture.Core.FrameWidth: 1920 -> 960\n"), std::string::npos) << rescaled.err;
    EXPECT_NE(rescaled.err.find("Layer[1].跟踪.MaxMotionX: 100 -> 50\n"), std::string::npos) << rescaled.err;
    EXPECT_EQ(run({"replace-clip", file, "1", "2", "--dry-run"}).err, "Layer[1].跟踪.InputClipID: 1 -> 2\n");
    EXPECT_EQ(run({"remove-clip", file, "1", "--in-place"}).err,
              "Clip[1] is gone\nLayer[1].跟踪.InputClipID: 1 -> 0\n");
    EXPECT_EQ(contentOf("p.vxp").find("Clip[1]"), std::string::npos);
    EXPECT_EQ(run({"replace-clip", file, "1", "2", "--in-place"}).err, file + ": there is no clip 1\n");
}

TEST_F(EditTool, bad_requests_leave_the_file_as_it_was) {
    std::string const file = project();
    std::string const before = contentOf("p.vxp");
    EXPECT_EQ(run({"set", file, "Layer[1].Name", "left"}).code, 2);
    EXPECT_EQ(run({"set", file, "Layer[1].Name", "left", "--in-place", "--dry-run"}).code, 2);
    EXPECT_EQ(run({"set", file, "Layer[9].Name", "left", "--in-place"}).code, 1);
    EXPECT_EQ(run({"set", file, "Clip[1].Picture.Core.FrameWidth", "wide", "--in-place"}).code, 1);
    EXPECT_EQ(run({"set", file, "Layer[1].Name", "two\nlines", "--in-place"}).code, 2);
    EXPECT_EQ(run({"key", file, "Layer[1].Name", "--add", "--frames", "1", "--in-place"}).code, 1);
    EXPECT_EQ(run({"key", file, "Layer[1].跟踪.Scale", "--in-place"}).code, 2);
    EXPECT_EQ(run({"rescale", file, "--from", "0x1080", "--to", "960x540", "--in-place"}).code, 2);
    EXPECT_EQ(contentOf("p.vxp"), before);
}

TEST_F(EditTool, schema_has_a_row_for_every_parameter) {
    std::string const table = run({"schema"}).out;
    EXPECT_NE(
        table.find("\nVX_TrackingParameterSet,MaxMotionX,Max Motion X,unsigned int,100,0,1000,1,0,0,Linear,Constant\n"),
        std::string::npos);
    EXPECT_NE(
        table.find("\nVX_CameraParameterSet,FocalDistance,FocalDistance,float,25,0.001,1e+07,1,0,1,Linear,Linear\n"),
        std::string::npos);
    EXPECT_GT(json(run({"schema", "--json"}).out).array().size(), 1500);
}

} // namespace
