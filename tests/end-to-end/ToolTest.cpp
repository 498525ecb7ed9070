#include "end-to-end/ToolRun.h"

#include <algorithm>

namespace {

class Tool : public ToolRun {
protected:
    std::string project() const {
        return write("画面 1.vxp", "vxproject 2\n"
                                   "Layer[1].Name.value=\"screen, left\"\n"
                                   "Layer[1].跟踪.SmoothingLevel.value=0.1\n"
                                   "Layer[1].跟踪.Translation X.keyframes.append( Key( 1, 0, Linear ) )\n"
                                   "Layer[1].跟踪.Translation X.keyframes.append( Key( 5, 0.5, Linear ) )\n"
                                   "Layer[1].跟踪.Translation X.view[1].value=2\n"
                                   "Layer[5].跟踪.Scale.value=2\n");
    }
};

std::string const table = "frame,h11,h12,h13,h21,h22,h23,h31,h32,h33\n"
                          "1,1,0,64,0,1,0,0,0,1\n"
                          "2,1,0,128,0,1,0,0,0,1\n";

TEST_F(Tool, demo_takes_the_measured_track_through_a_project) {
    Answer const demo =
        shell(quoted(VX_EXAMPLES "/box_lid/run.sh") + " " + quoted(VX_TOOL) + " " + quoted(pathOf("demo folder")));
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
    std::string const worse = write("worse", "#!/bin/sh\n" + quoted(VX_TOOL) + " \"$@\" || exit\n" +
                                                 "[ \"$1\" = import-track ] && sed -i 's/Key( 70, 0[.]/Key( 70, 0.1/' "
                                                 "\"$8\"\nexit 0\n");
    QFile::setPermissions(QString::fromStdString(worse), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Answer const demo = shell(quoted(VX_EXAMPLES "/box_lid/run.sh") + " " + quoted(worse));
    EXPECT_NE(demo.code, 0);
    EXPECT_NE(demo.err.find("is above 0.05"), std::string::npos) << demo.err;
}

TEST_F(Tool, helps_everywhere_and_refuses_bad_usage) {
    EXPECT_EQ(run({"--help"}).code, 0);
    for (char const * command : {"info", "check", "get", "track", "import-track", "compare-track", "format", "files",
                                 "film", "pulldown", "timecode", "lut"}) {
        Answer const help = run({command, "--help"});
        EXPECT_EQ(help.code, 0) << command;
        EXPECT_EQ(help.err, "");
        EXPECT_NE(help.out.find(command), std::string::npos);
        Answer const bare = run({command});
        EXPECT_EQ(bare.code, 2) << command;
        EXPECT_EQ(bare.out, "");
        EXPECT_NE(bare.err, "");
    }
    std::string const file = project();
    std::vector<std::vector<std::string>> const bad = {
        {},
        {"frobnicate"},
        {"info", file, "--loud"},
        {"get", file, "*", "--frames", "9-1"},
        {"get", file, "*", "--frames", "1", "--view", "-1"},
        {"track", file, "--layer", "-1", "--frames", "1"},
        {"track", file, "--layer", "1", "--frames", "1", "--size", "640"},
        {"track", file, "--layer", "1", "--frames", "1", "--corners", "1 2 3"},
        {"track", file, "--layer", "one", "--frames", "1"},
    };
    for (std::vector<std::string> const & arguments : bad) {
        Answer const answer = run(arguments);
        EXPECT_EQ(answer.code, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(answer.out, "");
        EXPECT_NE(answer.err, "");
    }
}

TEST_F(Tool, unreadable_files_give_one_message_and_code_2) {
    for (std::string const & path : {folder.path().toStdString(), pathOf("missing.vxp"), write("a", ""),
                                     write("b", "other\n"), write("c", "vxproject 3\n"),
                                     write("d", "vxproject 2\n\xff"), write("e", std::string("vxproject 2\n\0", 13))}) {
        for (char const * command : {"info", "check", "format"}) {
            Answer const answer = run({command, path});
            EXPECT_EQ(answer.code, 2) << path;
            EXPECT_EQ(answer.out, "");
            EXPECT_EQ(answer.err.rfind("vxproject: " + path + ":", 0), 0u) << answer.err;
            EXPECT_EQ(std::count(answer.err.begin(), answer.err.end(), '\n'), 1) << answer.err;
        }
    }
}

TEST_F(Tool, check_lists_all_findings_and_other_commands_answer_beside_them) {
    std::string const clean = project();
    EXPECT_EQ(run({"check", clean}).code, 0);
    EXPECT_EQ(run({"check", clean}).out, "");
    std::string const path = write("bad.vxp", "vxproject 2\nwhat\nLayer[1].跟踪.Scale.value=1,5\n");
    Answer const check = run({"check", path});
    EXPECT_EQ(check.code, 1);
    EXPECT_EQ(check.err, "");
    EXPECT_EQ(check.out.rfind(path + ":2: ", 0), 0u) << check.out;
    EXPECT_NE(check.out.find(path + ":3: '1,5' reads as 1\n"), std::string::npos);
    QJsonArray const findings =
        json(run({"check", path, "--json"}).out).object().value(QStringLiteral("findings")).toArray();
    ASSERT_EQ(findings.size(), 2);
    EXPECT_EQ(findings[1].toObject().value(QStringLiteral("line")).toInt(), 3);
    Answer const get = run({"get", path, "Layer[1].跟踪.Scale", "--frames", "1"});
    EXPECT_EQ(get.code, 1);
    EXPECT_EQ(get.out, "frame,Layer[1].跟踪.Scale\n1,1\n");
    EXPECT_EQ(get.err, check.out);
}

TEST_F(Tool, info_says_what_there_is) {
    Answer const info = run({"info", project()});
    EXPECT_EQ(info.code, 0);
    std::string const modules = "插入, 插入.ROI, 插入.Composite, 插入.Blur, 插入.Offset, 插入.Edge, 插入.Luminance, "
                                "插入.ColourFilter, 移除, 稳定, Warper, Matte\n";
    EXPECT_EQ(info.out, project() +
                            ": 2 layers\n"
                            "Layer[1] \"screen, left\"\n"
                            "  跟踪: 36 parameters, 1 keyed, 2 keys, frames 1 to 5, views 0, 1\n"
                            "  without keys: Basic, " +
                            modules +
                            "Layer[5] \"\"\n"
                            "  without keys: Basic, 跟踪, " +
                            modules);
    QJsonObject const layer =
        json(run({"info", project(), "--json"}).out).object().value(QStringLiteral("layers")).toArray()[0].toObject();
    EXPECT_EQ(layer.value(QStringLiteral("id")).toInt(), 1);
    EXPECT_EQ(layer.value(QStringLiteral("sets")).toArray()[1].toObject().value(QStringLiteral("keys")).toInt(), 2);
}

TEST_F(Tool, get_prints_columns_by_pattern_view_and_frame) {
    std::string const file = project();
    EXPECT_EQ(run({"get", file, "*Translation X", "--frames", "1-5x2,1.25"}).out,
              "frame,Layer[1].跟踪.Translation X,Layer[1].跟踪.ViewOffsetTranslation X,"
              "Layer[5].跟踪.Translation X,Layer[5].跟踪.ViewOffsetTranslation X\n"
              "1,0,0,0,0\n3,0.25,0,0,0\n5,0.5,0,0,0\n1.25,0.03125,0,0,0\n");
    EXPECT_EQ(run({"get", file, "Layer[1].跟踪.Translation X", "--frames", "3", "--view", "1", "--display"}).out,
              "frame,Layer[1].跟踪.Translation X\n3,2\n");
    EXPECT_EQ(run({"get", file, "Layer[1].Name", "--frames", "-1"}).out, "frame,Layer[1].Name\n-1,\"screen, left\"\n");
    QJsonObject const row = json(run({"get", file, "Layer[1].*", "--frames", "3", "--json"}).out).array()[0].toObject();
    EXPECT_EQ(row.value(QStringLiteral("Layer[1].Name")).toString().toStdString(), "screen, left");
    EXPECT_EQ(row.value(QStringLiteral("Layer[1].跟踪.SmoothingLevel")).toDouble(), 0.1);
    EXPECT_TRUE(row.value(QStringLiteral("Layer[1].跟踪.ApplySearch")).toBool());
    Answer const none = run({"get", file, "Layer[1].Nome", "--frames", "3"});
    EXPECT_EQ(none.code, 1);
    EXPECT_EQ(none.out, "");
    EXPECT_NE(none.err, "");
}

TEST_F(Tool, track_gives_homographies_and_corners_in_both_units) {
    std::string const csv = write("track.csv", table);
    std::string const file = pathOf("track.vxp");
    Answer const import = run({"import-track", csv, "-o", file, "--size", "640x480", "--layer", "3"});
    EXPECT_EQ(import.code, 0);
    EXPECT_EQ(import.out, file + ": 2 homographies in layer 3\n");
    EXPECT_EQ(import.err, "");
    EXPECT_EQ(run({"track", file, "--layer", "3", "--frames", "1-2", "--size", "640x480"}).out, table);
    EXPECT_EQ(run({"track", file, "--layer", "3", "--frames", "2"}).out,
              "frame,h11,h12,h13,h21,h22,h23,h31,h32,h33\n2,1,0,0.2,0,1,0,0,0,1\n");
    EXPECT_EQ(
        run({"track", file, "--layer", "3", "--frames", "1.5", "--size", "640x480", "--corners", "0 0; -0.5 100"}).out,
        "frame,x1,y1,x2,y2\n1.5,96,0,95.5,100\n");
    EXPECT_EQ(json(run({"track", file, "--layer", "3", "--frames", "1,2", "--json"}).out)
                  .array()[1]
                  .toObject()
                  .value(QStringLiteral("h13"))
                  .toDouble(),
              0.2);
    Answer const stranger = run({"track", file, "--layer", "1", "--frames", "1"});
    EXPECT_EQ(stranger.code, 1);
    EXPECT_EQ(stranger.err, file + ": there is no layer 1; those that there are: 3\n");
}

TEST_F(Tool, track_answers_where_it_can_and_names_the_frames_where_not) {
    std::string const file = write("p.vxp", "vxproject 2\n"
                                            "Layer[1].跟踪.Perspective X.keyframes.append( Key( 1, 0, Constant ) )\n"
                                            "Layer[1].跟踪.Perspective X.keyframes.append( Key( 2, -1, Constant ) )\n");
    Answer const answer = run({"track", file, "--layer", "1", "--frames", "1,2", "--corners", "1 0"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_EQ(answer.out, "frame,x1,y1\n1,1,0\n");
    EXPECT_EQ(answer.err, file + ": layer 1 has no answer at frame 2: a point goes to infinity\n");
}

TEST_F(Tool, import_reports_rows_and_leaves_nothing_half_done) {
    std::string const file = pathOf("track.vxp");
    std::string const partly = write("partly.csv", table + "3,1,0,0,0,0,0,0,0,1\n");
    Answer const import = run({"import-track", partly, "-o", file});
    EXPECT_EQ(import.code, 1);
    EXPECT_EQ(import.out, file + ": 2 homographies in layer 1, 1 rows left out\n");
    EXPECT_NE(import.err.find(partly + ":4: "), std::string::npos) << import.err;
    EXPECT_NE(import.err.find(partly + ":2: this moves by more than ten frame widths"), std::string::npos);
    std::string const before = contentOf("track.vxp");
    std::string const broken = write("broken.csv", table + "3,1,0\n");
    Answer const refused = run({"import-track", broken, "-o", file});
    EXPECT_EQ(refused.code, 2);
    EXPECT_EQ(refused.err, "vxproject: " + broken + ":4: the row has 3 fields, the header 10\n");
    EXPECT_EQ(run({"import-track", write("none.csv", table.substr(0, 42)), "-o", file}).code, 2);
    EXPECT_EQ(contentOf("track.vxp"), before);
}

TEST_F(Tool, comparison_keeps_its_limit) {
    std::string const csv = write("track.csv", table);
    std::string const other = write("other.csv", table + "3,1,0,138,0,1,0,0,0,1\n");
    std::string const file = pathOf("track.vxp");
    run({"import-track", csv, "-o", file, "--size", "640x480"});
    std::vector<std::string> compare = {"compare-track", file,      other,       "--layer", "1",
                                        "--size",        "640x480", "--corners", "0 0",     "--limit"};
    compare.push_back("10.5");
    Answer const near = run(compare);
    EXPECT_EQ(near.code, 0);
    EXPECT_EQ(near.out.rfind("frames,largest,largest_frame,largest_point,mean,rms\n3,10,3,1,3.33", 0), 0u) << near.out;
    compare.back() = "9.5";
    Answer const far = run(compare);
    EXPECT_EQ(far.code, 1);
    EXPECT_EQ(far.err, file + ": the largest distance, 10, is above 9.5\n");
    compare.push_back("--each");
    EXPECT_EQ(run(compare).out, "frame,largest\n1,0\n2,0\n3,10\n");
}

TEST_F(Tool, format_writes_to_standard_output_or_in_place) {
    std::string const file = project();
    Answer const format = run({"format", file});
    EXPECT_EQ(format.code, 0);
    EXPECT_EQ(run({"format", file, "-o", file}).code, 0);
    EXPECT_EQ(contentOf("画面 1.vxp"), format.out);
    EXPECT_EQ(run({"format", file}).out, format.out);
    Answer const nowhere = run({"format", file, "-o", pathOf("no/such/folder.vxp")});
    EXPECT_EQ(nowhere.code, 2);
    std::string const late = write("late.vxp", "vxproject 2\n"
                                               "Layer[1].跟踪.Scale.keyframes.append( Key( 1000001, 2, Linear ) )\n");
    Answer const lossy = run({"format", late});
    EXPECT_EQ(lossy.code, 1);
    EXPECT_NE(lossy.err.find("1000001, is written 1e+06"), std::string::npos) << lossy.err;
}

TEST_F(Tool, closed_pipe_ends_it_quietly_and_a_full_disk_does_not) {
    std::string const get = quoted(VX_TOOL) + " get " + quoted(project()) + " '*' --frames 1-100000";
    Answer const head = shell("(" + get + " | head -n 1)");
    EXPECT_EQ(head.err, "");
    Answer const ignored = shell("(trap '' PIPE; " + get + " | head -n 1)");
    EXPECT_EQ(ignored.err, "");
    if (QFile::exists(QStringLiteral("/dev/full"))) {
        Answer const full = shell("(" + get + " >/dev/full)");
        EXPECT_EQ(full.code, 2);
        EXPECT_EQ(std::count(full.err.begin(), full.err.end(), '\n'), 1) << full.err;
    }
}

} // namespace
