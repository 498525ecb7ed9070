#include "clip/ColourspaceParameters.h"
#include "end-to-end/ToolRun.h"

#include <QDir>

#include <algorithm>
#include <sstream>

namespace {

typedef std::vector<std::string> Arguments;

/// The commands that answer what footage is.
class ClipTool : public ToolRun {
protected:
    /// A clip of four files that ping-pongs, seen by project view 0; a discrete one; a broken one.
    std::string project() const {
        std::string const plate = "Clip[1].Source.Core.";
        return write("p.vxp", "vxproject 2\n"
                              "Clip[1].Picture.Core.eInterlaceMode.value=0\n" +
                                  plate + "ClipDirectory.value=\"" + folder.path().toStdString() + "/\"\n" + plate +
                                  "ClipPrefix.value=\"plate.\"\n" + plate + "ClipSuffix.value=\".dpx\"\n" + plate +
                                  "MinimumIndex.value=98\n" + plate + "MaximumIndex.value=101\n" + plate +
                                  "IndexWidth.value=4\n" + plate + "Colourspace.value=1\n" + plate +
                                  "Gamma.value=0.6\n" + plate + "RefBlack.value=100\n" + plate + "HasIndex.value=1\n" +
                                  plate + "ClipLength.value=4\n" + plate + "ClipModeBefore.value=0\n" + plate +
                                  "ClipModeAfter.value=3\n"
                                  "Clip[2].Source.Core.DiscreteFrames.value=1\n"
                                  "Clip[2].Source.Core.Frames.keyframes.append( DiscreteFrame( /a, b.dpx, 12, 1 ) )\n"
                                  "Clip[2].Source.Core.ClipViewForProjectView.value=0\n"
                                  "Clip[2].Source.Core.ClipViewForProjectView.view[3].value=1\n"
                                  "Clip[3].Source.Core.IndexWidth.value=4294967295\n"
                                  "Clip[3].Source.Core.HasIndex.value=1\n"
                                  "Clip[3].Source.Core.ClipLength.value=1\n");
    }

    std::string plate(int index) const {
        return pathOf(QString::asprintf("plate.%04d.dpx", index).toUtf8().constData());
    }
};

/// The second column of a table, below its header.
std::vector<double> valuesOf(std::string const & csv) {
    std::vector<double> values;
    std::istringstream lines(csv);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "index,value");
    while (std::getline(lines, line)) {
        std::size_t const comma = line.find(',');
        EXPECT_EQ(line.substr(0, comma), std::to_string(values.size()));
        values.push_back(std::stod(line.substr(comma + 1)));
    }
    return values;
}

template <class Entries>
std::vector<double> numbersOf(Entries const & entries) {
    return std::vector<double>(entries.begin(), entries.end());
}

// Questions that need no file

struct Question {
    Arguments arguments;
    int code;
    std::string answer; ///< Without the header line.

    friend std::ostream & operator<<(std::ostream & stream, Question const & question) {
        return stream << testing::PrintToString(question.arguments);
    }
};

class ClipToolAnswers : public ToolRun, public testing::WithParamInterface<Question> {};

TEST_P(ClipToolAnswers, rows) {
    Answer const answer = run(GetParam().arguments);
    EXPECT_EQ(answer.code, GetParam().code);
    EXPECT_EQ(answer.out.substr(answer.out.find('\n') + 1), GetParam().answer);
    EXPECT_EQ(answer.err.empty(), GetParam().code == 0) << answer.err;
}

INSTANTIATE_TEST_SUITE_P(
    Film, ClipToolAnswers,
    testing::Values(
        Question{{"film", "--size", "2048x1556"}, 0, "35mm Full Aperture,24.892,18.669,1.3333333333333333,exact\n"},
        Question{{"film", "--size", "999x1556"}, 0, "35mm Full Aperture,24.892,18.669,1.3333333333333333,height\n"},
        Question{{"film", "--size", "1828x1556"}, 0, "Cinemascope/Panavision,43.893,18.593,2.3607271553810576,exact\n"},
        Question{{"film", "--size", "720x288", "--interlaced"}, 0, "PAL,20.12,15.09,1.3333333333333335,exact\n"},
        Question{{"film", "--size", "720x288"}, 1, ""},
        Question{{"film", "--par", "1.3333", "--size", "1440x1080"}, 0, "HDV,16,9,1.7777777777777777,exact\n"},
        Question{{"film", "--par", "1.2", "--size", "1600x1080"}, 0, "DVCPRO HD 1080,16,9,1.7777777777777777,aspect\n"},
        Question{{"film", "--par", "2", "--size", "100x50"}, 0, "Custom,200,50,4,custom\n"},
        Question{{"film", "--par", "2", "--size", "100x50", "--interlaced"}, 0, "Custom,100,50,2,custom\n"},
        Question{{"film", "--name", "70mm IMAX"}, 0, "70mm IMAX,70.39,52.62,1.3377042949448879,exact\n"},
        Question{{"film", "--name", "Custom"}, 0, "Custom,10,10,1,custom\n"},
        Question{{"film", "--name", "hd"}, 1, ""}));

INSTANTIATE_TEST_SUITE_P(
    Pulldown, ClipToolAnswers,
    testing::Values(
        Question{{"pulldown", "--mode", "4", "--frames", "0-7"}, 0, "0,0\n1,1\n2,2\n3,4\n4,5\n5,6\n6,7\n7,9\n"},
        Question{{"pulldown", "--mode", "1", "--frames", "4,5"}, 0, "4,2\n5,none\n"},
        Question{{"pulldown", "--mode", "0", "--frames", "4294967294-4294967295"},
                 0,
                 "4294967294,4294967294\n4294967295,none\n"},
        Question{{"pulldown", "--mode", "5", "--files", "0-10x5"}, 0, "0,none\n5,3\n10,7\n"},
        Question{{"pulldown", "--mode", "14", "--frames", "0,1"}, 1, "0,none\n1,none\n"},
        Question{{"pulldown", "--mode", "2147483647", "--files", "3"}, 1, "3,none\n"}));

INSTANTIATE_TEST_SUITE_P(
    Timecode, ClipToolAnswers,
    testing::Values(Question{{"timecode", "01:02:03:04", "--rate", "24"}, 0, "01:02:03:04,0x01020304,89356\n"},
                    Question{{"timecode", "1:2:3:4", "--rate", "23.976"}, 0, "01:02:03:04,0x01020304,89356\n"},
                    Question{
                        {"timecode", "--word", "0x01020304", "--rate", "-25"}, 0, "01:02:03:04,0x01020304,93079\n"},
                    Question{{"timecode", "--word", "0x0000000a", "--rate", "24"}, 0, "00:00:00:10,0x00000010,10\n"},
                    Question{{"timecode", "--word", "0x99600000", "--rate", "24"}, 1, ""},
                    Question{{"timecode", "--word", "0xffffffff", "--rate", "24"}, 1, ""},
                    Question{{"timecode", "00:60:00:00", "--rate", "24"}, 1, ""},
                    // 11931 * 359999 + 99 - 2^32
                    Question{{"timecode", "99:59:59:99", "--rate", "11931"}, 1, "99:59:59:99,0x99595999,180872\n"}));

TEST_F(ClipTool, film_list_is_what_each_name_gives) {
    std::string const list = run({"film", "--list"}).out;
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 31);
    QJsonArray const films = json(run({"film", "--list", "--json"}).out).array();
    ASSERT_EQ(films.size(), 30);
    for (int const i : {0, 22, 29}) {
        QJsonObject const film = films[i].toObject();
        EXPECT_EQ(film.keys().join(QLatin1Char(' ')).toStdString(), "aspect height match name width");
        std::string const name = film.value(QStringLiteral("name")).toString().toStdString();
        EXPECT_EQ(json(run({"film", "--name", name, "--json"}).out).array()[0].toObject(), film) << name;
    }
    EXPECT_EQ(run({"film", "--size", "5x5", "--json"}).out, "[]\n");
}

TEST_F(ClipTool, no_number_is_null_in_json) {
    QJsonObject const row = json(run({"pulldown", "--mode", "1", "--frames", "5", "--json"}).out).array()[0].toObject();
    EXPECT_EQ(row.value(QStringLiteral("frame")).toInt(), 5);
    EXPECT_TRUE(row.value(QStringLiteral("file")).isNull());
    QJsonArray const halves = json(run({"lut", "--table", "halfToLinear32", "--json"}).out).array();
    ASSERT_EQ(halves.size(), 65536);
    EXPECT_EQ(halves[0x3c00].toObject().value(QStringLiteral("value")).toDouble(), 1.0);
    EXPECT_TRUE(halves[0xffff].toObject().value(QStringLiteral("value")).isNull());
    EXPECT_TRUE(halves[0x7c00].toObject().value(QStringLiteral("value")).isNull());
}

// Tables

TEST_F(ClipTool, lut_prints_the_tables_of_its_settings) {
    VX::ColourspaceParameters settings;
    settings.colourspace = VX_COLORSPACE_FILM_LOG;
    settings.gamma = 0.6f;
    settings.offset = 3.5f;
    settings.referenceWhite = 700.0f;
    settings.referenceBlack = 90.0f;
    settings.softClip = 20.0f;
    auto const table = [&](char const * name) {
        return valuesOf(run({"lut", "--colourspace", "film-log", "--gamma", "0.6", "--offset", "3.5", "--white", "700",
                             "--black", "90", "--soft-clip", "20", "--table", name})
                            .out);
    };
    EXPECT_EQ(table("clip16ToLinear16"), numbersOf(settings.clip16ToLinear16LUT()));
    EXPECT_EQ(table("linear16ToClip16"), numbersOf(settings.linear16ToClip16LUT()));
    EXPECT_EQ(table("clip8ToLinear16"), numbersOf(settings.clip8ToLinear16LUT()));
    EXPECT_EQ(table("linear16ToClip8"), numbersOf(settings.linear16ToClip8LUT()));
    std::string const named = run({"lut", "--colourspace", "fixed-log", "--table", "clip8ToLinear16"}).out;
    EXPECT_EQ(run({"lut", "--colourspace", "2", "--table", "clip8ToLinear16"}).out, named);
}

TEST_F(ClipTool, lut_takes_the_settings_of_a_clip) {
    Answer const own = run({"lut", project(), "--clip", "1", "--table", "clip16ToLinear16"});
    EXPECT_EQ(own.code, 0) << own.err;
    EXPECT_EQ(run({"lut", "--colourspace", "1", "--gamma", "0.6", "--black", "100", "--table", "clip16ToLinear16"}).out,
              own.out);
    Answer const stranger = run({"lut", project(), "--clip", "7", "--table", "clip16ToLinear16"});
    EXPECT_EQ(stranger.code, 1);
    EXPECT_EQ(stranger.err, pathOf("p.vxp") + ": there is no clip 7; those that there are: 1, 2, 3\n");
}

/// The numbers of a table file's body, whatever stands around them.
std::vector<double> bodyOf(std::string const & text, std::size_t columns) {
    std::vector<double> values;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::vector<double> row;
        for (double number = 0; words >> number;)
            row.push_back(number);
        if (row.empty() || !words.eof())
            continue;
        EXPECT_EQ(row, std::vector<double>(columns, row.front()));
        values.push_back(row.front());
    }
    return values;
}

TEST_F(ClipTool, lut_files_hold_the_table_from_0_to_1) {
    for (auto const & [name, top] : {std::pair("clip8ToLinear16", 65535.0), std::pair("linear16ToClip8", 255.0),
                                     std::pair("clip16ToLinear16", 65535.0)}) {
        Arguments const ask = {"lut", "--gamma", "2.2", "--table", name};
        std::vector<double> const printed = valuesOf(run(ask).out);
        for (auto const & [file, columns] : {std::pair("t.spi1d", 1u), std::pair("t.cube", 3u)}) {
            Arguments writing = ask;
            writing.insert(writing.end(), {"-o", pathOf(file)});
            Answer const answer = run(writing);
            EXPECT_EQ(answer.code, 0) << answer.err;
            EXPECT_EQ(answer.out, pathOf(file) + ": " + std::to_string(printed.size()) + " entries\n");
            std::vector<double> const written = bodyOf(contentOf(file), columns);
            ASSERT_EQ(written.size(), printed.size());
            for (std::size_t i = 0; i < printed.size(); ++i)
                ASSERT_NEAR(written[i] * top, printed[i], 1e-4) << name << " " << i;
        }
        std::string const length = std::to_string(printed.size());
        EXPECT_EQ(contentOf("t.spi1d").rfind("Version 1\nFrom 0.0 1.0\nLength " + length + "\nComponents 1\n{\n", 0),
                  0u);
        EXPECT_EQ(contentOf("t.spi1d").substr(contentOf("t.spi1d").size() - 3), "\n}\n");
        EXPECT_NE(contentOf("t.cube").find("\nLUT_1D_SIZE " + length +
                                           "\nDOMAIN_MIN 0.0 0.0 0.0\n"
                                           "DOMAIN_MAX 1.0 1.0 1.0\n"),
                  std::string::npos);
    }
}

TEST_F(ClipTool, lut_of_settings_without_sense_is_given_and_doubted) {
    std::vector<std::pair<Arguments, std::string>> const doubtful = {
        {{"--gamma", "0"}, "gamma 0 is no number above 0"},
        {{"--gamma", "nan"}, "gamma nan is no number above 0"},
        {{"--colourspace", "1", "--white", "95", "--black", "95"}, "black, 95, is not below white, 95"},
        {{"--colourspace", "1", "--soft-clip", "nan"}, "the table has no sense"},
        {{"--colourspace", "1", "--white", "1e9"}, "1e+09 is no code"},
        {{"--colourspace", "3"}, "colourspace 3 is none of 0 to 2; all entries are 0"},
    };
    for (auto const & [settings, doubt] : doubtful) {
        Arguments arguments = {"lut", "--table", "clip16ToLinear16"};
        arguments.insert(arguments.end(), settings.begin(), settings.end());
        Answer const answer = run(arguments);
        EXPECT_EQ(answer.code, 1) << doubt;
        EXPECT_NE(answer.err.find(doubt), std::string::npos) << answer.err;
        EXPECT_EQ(valuesOf(answer.out).size(), 65536u);
        EXPECT_EQ(run(arguments).out, answer.out);
    }
    // What the fixed log does not use is not doubted.
    EXPECT_EQ(run({"lut", "--colourspace", "2", "--gamma", "0", "--black", "900", "--table", "clip8ToLinear16"}).code,
              0);
}

// Files

TEST_F(ClipTool, files_follows_length_and_repeat_modes) {
    std::string const file = project();
    Answer const whole = run({"files", file, "--clip", "1"});
    EXPECT_EQ(whole.code, 0) << whole.err;
    EXPECT_EQ(whole.out,
              "frame,file\n0," + plate(98) + "\n1," + plate(99) + "\n2," + plate(100) + "\n3," + plate(101) + "\n");
    EXPECT_EQ(run({"files", file, "--clip", "1", "--frames", "-1,4-8x4"}).out,
              "frame,file\n-1,none\n4," + plate(100) + "\n8," + plate(100) + "\n");
    QJsonArray const rows = json(run({"files", file, "--clip", "1", "--frames=-1-0", "--json"}).out).array();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_TRUE(rows[0].toObject().value(QStringLiteral("file")).isNull());
    EXPECT_EQ(rows[1].toObject().value(QStringLiteral("file")).toString().toStdString(), plate(98));
}

TEST_F(ClipTool, files_goes_through_the_view_of_a_discrete_clip) {
    std::string const file = project();
    Answer const right = run({"files", file, "--clip", "2", "--view", "3"});
    EXPECT_EQ(right.code, 0) << right.err;
    EXPECT_EQ(right.out, "frame,file\n12,\"/a, b.dpx\"\n");
    Answer const left = run({"files", file, "--clip", "2", "--frames", "12"});
    EXPECT_EQ(left.code, 1);
    EXPECT_EQ(left.out, "frame,file\n12,none\n");
    EXPECT_EQ(left.err, file + ": clip 2: its length is 0, so no frame has a file\n");
}

TEST_F(ClipTool, files_checks_the_folder_and_names_what_lies_beside) {
    std::string const file = project();
    auto const touch = [&](int index) { write(QString::asprintf("plate.%04d.dpx", index).toUtf8().constData(), ""); };
    for (int const index : {97, 98, 99, 101})
        touch(index);
    write("plate.00099.dpx", "");
    std::string const others = plate(97) + ": looks like the same sequence, but lies outside its range, 98 to 101\n" +
                               pathOf("plate.00099.dpx") +
                               ": looks like the same sequence, but its index is padded otherwise\n";
    Answer const missing = run({"files", file, "--clip", "1", "--frames=-1-2", "--check"});
    EXPECT_EQ(missing.code, 1);
    EXPECT_EQ(missing.out, "frame,file,exists\n-1,none,none\n0," + plate(98) + ",1\n1," + plate(99) + ",1\n2," +
                               plate(100) + ",0\n");
    EXPECT_EQ(missing.err,
              file + ": clip 1: the files of 1 of 4 frames are missing, first " + plate(100) + "\n" + others);
    touch(100);
    Answer const complete = run({"files", file, "--clip", "1", "--check", "--json"});
    EXPECT_EQ(complete.code, 0);
    EXPECT_EQ(complete.err, others);
    EXPECT_TRUE(json(complete.out).array()[2].toObject().value(QStringLiteral("exists")).toBool());
    for (int index = 200; index < 220; ++index)
        touch(index);
    std::string const many = run({"files", file, "--clip", "1", "--check"}).err;
    EXPECT_EQ(std::count(many.begin(), many.end(), '\n'), 11) << many;
    EXPECT_NE(many.find("\n12 more look like it, up to " + plate(219) + "\n"), std::string::npos) << many;
}

TEST_F(ClipTool, files_refuses_names_that_no_file_system_takes) {
    Answer const answer = run({"files", project(), "--clip", "3", "--check"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_NE(answer.err.find("an index of 4294967295 digits"), std::string::npos) << answer.err;
}

TEST_F(ClipTool, control_characters_of_a_folder_do_not_reach_the_screen) {
    std::string const bell = write("bell.vxp", "vxproject 2\n"
                                               "Clip[1].Source.Core.ClipDirectory.value=\"/no\a, such\"\n"
                                               "Clip[1].Source.Core.ClipPrefix.value=\"still\"\n"
                                               "Clip[1].Source.Core.ClipLength.value=1\n");
    Answer const answer = run({"files", bell, "--clip", "1", "--check"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_EQ(answer.out, "frame,file,exists\n0,\"/no\a, such/still\",0\n");
    EXPECT_EQ(answer.err.find('\a'), std::string::npos) << answer.err;
    EXPECT_EQ(std::count(answer.err.begin(), answer.err.end(), '\n'), 1) << answer.err;
}

TEST_F(ClipTool, bad_usage_of_the_clip_commands_is_told_before_anything_is_done) {
    std::string const file = project();
    std::vector<Arguments> const bad = {
        {"film", "--size", "0x5"},
        {"film", "--size", "5x5", "--list"},
        {"film", "--par", "0", "--size", "5x5"},
        {"film", "--par", "nan", "--size", "5x5"},
        {"film", "--par", "1", "--name", "HD"},
        {"film", "--interlaced", "--list"},
        {"pulldown", "--mode", "1"},
        {"pulldown", "--mode", "-1", "--frames", "1"},
        {"pulldown", "--mode", "1", "--frames", "1", "--files", "1"},
        {"pulldown", "--mode", "1", "--frames", "-1"},
        {"pulldown", "--mode", "1", "--frames", "0-1x0.5"},
        {"pulldown", "--mode", "1", "--frames", "4294967296"},
        {"timecode", "01:02:03", "--rate", "24"},
        {"timecode", "01:02:03;04", "--rate", "29.97"},
        {"timecode", "01:02:03:04"},
        {"timecode", "01:02:03:04", "--rate", "0"},
        {"timecode", "01:02:03:04", "--rate", "nan"},
        {"timecode", "--word", "01020304", "--rate", "24"},
        {"timecode", "01:02:03:04", "--word", "0x01020304", "--rate", "24"},
        {"lut", "--table", "halfToLinear"},
        {"lut", "--table", "halfToLinear32", "-o", pathOf("a.cube")},
        {"lut", "--table", "clip8ToLinear16", "-o", pathOf("a.lut")},
        {"lut", "--table", "clip8ToLinear16", "-o", pathOf("no/such/a.cube")},
        {"lut", "--table", "clip8ToLinear16", "-o", pathOf("a.cube"), "--json"},
        {"lut", "--table", "clip8ToLinear16", "--colourspace", "log"},
        {"lut", file, "--table", "clip8ToLinear16"},
        {"lut", file, "--clip", "1", "--gamma", "2", "--table", "clip8ToLinear16"},
        {"files", file},
        {"files", file, "--clip", "-1"},
        {"files", file, "--clip", "1", "--view", "-1"},
        {"files", file, "--clip", "1", "--frames", "0.5"},
        {"files", pathOf("missing.vxp"), "--clip", "1"},
    };
    for (Arguments const & arguments : bad) {
        Answer const answer = run(arguments);
        EXPECT_EQ(answer.code, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(answer.out, "") << testing::PrintToString(arguments);
        EXPECT_NE(answer.err, "") << testing::PrintToString(arguments);
    }
    EXPECT_TRUE(QDir(folder.path()).entryList({QStringLiteral("a.*")}).isEmpty());
}

} // namespace
