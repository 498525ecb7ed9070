#include "end-to-end/ToolRun.h"

#include <cmath>

namespace {

/// The commands that ask a lens, a warp and a scene.
class LensTool : public ToolRun {
protected:
    std::string project() const {
        return write("p.vxp", "vxproject 2\n"
                              "Clip[1].Picture.Core.FrameWidth.value=640\n"
                              "Clip[1].Picture.Core.FrameHeight.value=480\n"
                              "Clip[1].Picture.Core.FilmBackWidth.value=32\n"
                              "Clip[1].Picture.Core.FilmBackHeight.value=24\n"
                              "Layer[1].跟踪.InputClipID.value=1\n"
                              "Layer[1].跟踪.Translation X.keyframes.append( Key( 0, 0, Linear ) )\n"
                              "Layer[1].跟踪.Translation X.keyframes.append( Key( 10, 0.125, Linear ) )\n"
                              "Lens[1].Camera.InputClipID.value=1\n"
                              "Lens[1].Camera.Type.value=1\n"
                              "Lens[1].Camera.FocalDistance.value=32\n"
                              "Lens[1].Camera.RadialK1.value=-0.5\n"
                              "Lens[2].Name.value=\"nowhere\"\n"
                              "Scene.StereoCamera.InteraxialDistance.value=6.5\n"
                              "Scene.StereoCamera.Position.x.keyframes.append( Key( 1, 10, Linear ) )\n"
                              "Scene.Null[3].Name.value=\"lamp, left\"\n"
                              "Scene.Null[3].Scale.y.value=2\n");
    }
};

TEST_F(LensTool, distort_and_undistort_take_points_through_the_lens_alone) {
    std::string const file = project();
    // At half the width, half the focal length from the axis: 320 (1 - 0.5 / 4) = 280.
    EXPECT_EQ(run({"distort", file, "--lens", "1", "--frame", "0", "--points", "640 240"}).out, "x,y\n600,240\n");
    Answer const back = run({"undistort", file, "--lens", "1", "--frame", "0", "--points", "600 240; 3000 240"});
    EXPECT_EQ(back.code, 1);
    EXPECT_EQ(back.out, "x,y\n640,240\nnone,none\n");
    EXPECT_NE(back.err.find("takes 3000 240 nowhere"), std::string::npos) << back.err;
    QJsonArray const rows =
        json(run({"undistort", file, "--lens", "1", "--frame", "0", "--points", "3000 240", "--json"}).out).array();
    EXPECT_TRUE(rows[0].toObject().value(QStringLiteral("x")).isNull());
}

TEST_F(LensTool, warp_moves_in_the_undistorted_picture_and_back) {
    std::string const file = project();
    // On the axis at frame 0; an eighth of the width to the right at frame 10, which the lens draws in by 0.5 / 64.
    EXPECT_EQ(run({"warp", file, "--layer", "1", "--frames", "0,10", "--points", "320 240"}).out,
              "frame,x1,y1\n0,320,240\n10,399.375,240\n");
    Answer const back = run({"warp", file, "--layer", "1", "--frames", "10", "--points", "399.375 240", "--inverse"});
    EXPECT_EQ(back.code, 0);
    EXPECT_NEAR(std::stod(back.out.substr(std::string("frame,x1,y1\n10,").size())), 320.0, 1e-9);
    Answer const beyond = run({"warp", file, "--layer", "1", "--frames", "10", "--points", "9000 240; 320 240"});
    EXPECT_EQ(beyond.code, 1);
    EXPECT_EQ(beyond.out, "frame,x1,y1,x2,y2\n10,none,none,399.375,240\n");
    EXPECT_NE(beyond.err.find("layer 1 has no answer at frame 10: 9000 240 goes"), std::string::npos) << beyond.err;
    EXPECT_EQ(run({"warp", file, "--layer", "1", "--frames", "10", "--points", "1"}).code, 2);
}

TEST_F(LensTool, lens_prints_the_camera_of_the_clip) {
    std::string const file = project();
    EXPECT_EQ(run({"lens", file, "--lens", "1", "--frames", "7"}).out,
              "frame,type,fx,fy,x0,y0,zh,k1,k2,k3,k4\n7,1,640,640,320,240,320,-0.5,0,0,0\n");
    EXPECT_EQ(run({"lens", file, "--lens", "1", "--frames", "7-8", "--grid", pathOf("grid.svg")}).code, 0);
    std::string const svg = contentOf("grid.svg");
    EXPECT_NE(svg.find("M640.00 0.00"), std::string::npos); // A corner of the frame, and where the lens shows it.
    EXPECT_NE(svg.find("L600.00 240.00"), std::string::npos);
    Answer const unbound = run({"lens", file, "--lens", "2", "--frames", "7"});
    EXPECT_EQ(unbound.code, 1);
    EXPECT_NE(unbound.err.find("lens 2 has no input clip; name one with --clip"), std::string::npos) << unbound.err;
    EXPECT_EQ(run({"lens", file, "--lens", "2", "--clip", "1", "--frames", "7"}).code, 0);
    EXPECT_NE(run({"lens", file, "--lens", "3", "--frames", "7"}).err.find("those that there are: 1, 2"),
              std::string::npos);
}

TEST_F(LensTool, a_clip_without_a_film_back_makes_no_camera) {
    std::string const file = write("q.vxp", "vxproject 2\n"
                                            "Clip[1].Picture.Core.FrameWidth.value=640\n"
                                            "Clip[1].Picture.Core.FrameHeight.value=480\n"
                                            "Lens[1].Camera.InputClipID.value=1\n");
    std::string const why = ": lens 1 makes no camera at frame 7: its clip has no film back or no size\n";
    Answer const lens = run({"lens", file, "--lens", "1", "--frames", "7"});
    EXPECT_EQ(lens.code, 1);
    EXPECT_EQ(lens.err, file + why);
    Answer const point = run({"distort", file, "--lens", "1", "--frame", "7", "--points", "1 2"});
    EXPECT_EQ(point.code, 1);
    EXPECT_EQ(point.out, "x,y\nnone,none\n");
}

TEST_F(LensTool, stmap_writes_an_image_and_says_where_the_lens_shows_nothing) {
    std::string const file = project();
    Answer const direct = run({"stmap", file, "--lens", "1", "--frame", "0", "-o", pathOf("d.exr")});
    EXPECT_EQ(direct.code, 0);
    EXPECT_EQ(direct.out, pathOf("d.exr") + ": 640x480\n");
    EXPECT_EQ(contentOf("d.exr").substr(0, 4), "\x76\x2f\x31\x01");
    Answer const inverse = run({"stmap", file, "--lens", "1", "--frame", "0", "--inverse", "-o", pathOf("i.exr")});
    // The picture reaches 0.544 focal lengths from the axis, its corners lie at 0.625.
    EXPECT_EQ(inverse.code, 1);
    EXPECT_NE(inverse.err.find("the lens shows nothing at "), std::string::npos) << inverse.err;
    EXPECT_EQ(run({"stmap", file, "--lens", "1", "--frame", "0", "-o", pathOf("none/d.exr")}).code, 2);
}

TEST_F(LensTool, scene_prints_cameras_and_nulls) {
    std::string const file = project();
    std::string const header = "frame,object,id,name,x,y,z,rx,ry,rz,sx,sy,sz,focal\n";
    std::string const lamp = "1,null,3,\"lamp, left\",0,0,0,0,0,0,0,2,0,none\n";
    EXPECT_EQ(run({"scene", file, "--frames", "1"}).out, header + "1,camera,none,,10,0,0,0,0,0,0,0,0,0\n" + lamp);
    EXPECT_EQ(run({"scene", file, "--frames", "1", "--eye", "left"}).out,
              header + "1,camera,none,left,6.75,0,0,0,0,0,0,0,0,0\n" + lamp);
    EXPECT_EQ(run({"scene", file, "--frames", "1", "--eye", "third"}).code, 2);
    EXPECT_EQ(run({"scene", write("q.vxp", "vxproject 2\n"), "--frames", "1"}).code, 1);
}

} // namespace
