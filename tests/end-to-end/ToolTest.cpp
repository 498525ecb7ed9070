#include "end-to-end/ToolRun.h"

#include <QDir>

#include <utility>

namespace {

class Tool : public ToolRun {};

TEST_F(Tool, demo_takes_the_measured_track_through_a_project) {
    Answer const demo = shell(quoted(VX_EXAMPLES "/box_lid/run.sh") + " " + quoted(VX_TOOL) + " 'demo folder'");
    EXPECT_EQ(demo.code, 0) << demo.err;
    EXPECT_EQ(demo.err, "");
    EXPECT_NE(demo.out.find("391 homographies"), std::string::npos);
    EXPECT_NE(demo.out.find("8 keyed, 3128 keys, frames 0 to 390"), std::string::npos);
    EXPECT_NE(demo.out.find("    0   362.67    17.78   597.33    74.67   549.33   184.89   296.00    99.56"),
              std::string::npos);
    EXPECT_NE(demo.out.find("largest"), std::string::npos);
    EXPECT_TRUE(QFile::exists(QString::fromStdString(pathOf("demo folder/box_lid.vxp"))));
}

TEST_F(Tool, demo_fails_when_a_corner_comes_out_elsewhere) {
    // The program, but for a file that loses a digit on its way.
    write("worse", "#!/bin/sh\n" + quoted(VX_TOOL) + " \"$@\" || exit\n" +
                       "[ \"$1\" = import-track ] && sed -i 's/Key( 70, 0[.]/Key( 70, 0.1/' \"$8\"\nexit 0\n");
    std::string const worse = pathOf("worse");
    QFile::setPermissions(QString::fromStdString(worse), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Answer const demo = shell(quoted(VX_EXAMPLES "/box_lid/run.sh") + " " + quoted(worse));
    EXPECT_NE(demo.code, 0);
    EXPECT_NE(demo.err.find("is above 0.05"), std::string::npos) << demo.err;
}

TEST_F(Tool, every_command_has_help_and_refuses_to_go_without_arguments) {
    EXPECT_EQ(run("--help").code, 0);
    for (std::string const command : {"info", "check", "get", "track", "import-track", "compare-track", "format",
                                      "files", "film", "pulldown", "timecode", "lut"}) {
        Answer const help = run(command + " --help");
        EXPECT_EQ(help.code, 0) << command;
        EXPECT_EQ(help.err, "");
        EXPECT_NE(help.out.find(command), std::string::npos);
        expectRefused(command);
    }
}

TEST_F(Tool, bad_usage_is_told_before_anything_is_done) {
    write("p.vxp", "vxproject 2\nClip[1].Name.value=\"a\"\nLayer[1].Name.value=\"a\"\n");
    std::vector<std::pair<std::string, std::vector<std::string>>> const bad = {
        {"", {"", "frobnicate"}},
        {"info ", {"p.vxp --loud"}},
        {"get p.vxp '*' ", {"--frames 9-1", "--frames 1 --view -1"}},
        {"track p.vxp --frames 1 --layer ", {"-1", "one", "1 --size 640", "1 --corners '1 2 3'"}},
        {"lens p.vxp --frames 7", {""}},
        {"scene p.vxp --frames 1 --eye ", {"third"}},
        {"warp p.vxp --layer 1 --frames 10 --points ", {"1"}},
        {"set p.vxp 'Layer[1].Name' left --in-place --dry-run", {""}},
        {"film ",
         {"--size 0x5", "--size 5x5 --list", "--par 0 --size 5x5", "--par nan --size 5x5", "--par 1 --name HD",
          "--interlaced --list"}},
        {"pulldown --mode ",
         {"1", "-1 --frames 1", "1 --frames 1 --files 1", "1 --frames -1", "1 --frames 0-1x0.5",
          "1 --frames 4294967296"}},
        {"timecode ",
         {"01:02:03 --rate 24", "'01:02:03;04' --rate 29.97", "01:02:03:04", "01:02:03:04 --rate 0",
          "01:02:03:04 --rate nan", "--word 01020304 --rate 24", "01:02:03:04 --word 0x01020304 --rate 24"}},
        {"lut --table ", {"halfToLinear", "halfToLinear32 -o a.cube"}},
        {"lut --table clip8ToLinear16 ",
         {"-o a.lut", "-o no/such/a.cube", "-o a.cube --json", "--colourspace log", "p.vxp",
          "p.vxp --clip 1 --gamma 2"}},
        {"files ",
         {"p.vxp", "p.vxp --clip -1", "p.vxp --clip 1 --view -1", "p.vxp --clip 1 --frames 0.5",
          "missing.vxp --clip 1"}},
    };
    for (auto const & [command, endings] : bad)
        for (std::string const & ending : endings)
            expectRefused(command + ending);
    EXPECT_TRUE(QDir(folder.path()).entryList({QStringLiteral("a.*")}).isEmpty());
}

} // namespace
