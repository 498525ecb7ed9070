#include "clip/ColourspaceParameters.h"
#include "end-to-end/ToolRun.h"

#include <sstream>

namespace {

class LutCommand : public ToolRun {};

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

TEST_F(LutCommand, prints_the_tables_of_its_settings) {
    VX::ColourspaceParameters settings;
    settings.colourspace = VX_COLORSPACE_FILM_LOG;
    settings.gamma = 0.6f;
    settings.offset = 3.5f;
    settings.referenceWhite = 700.0f;
    settings.referenceBlack = 90.0f;
    settings.softClip = 20.0f;
    auto const table = [&](std::string const & name) {
        return valuesOf(
            run("lut --colourspace film-log --gamma 0.6 --offset 3.5 --white 700 --black 90 --soft-clip 20 --table " +
                name)
                .out);
    };
    EXPECT_EQ(table("clip16ToLinear16"), numbersOf(settings.clip16ToLinear16LUT()));
    EXPECT_EQ(table("linear16ToClip16"), numbersOf(settings.linear16ToClip16LUT()));
    EXPECT_EQ(table("clip8ToLinear16"), numbersOf(settings.clip8ToLinear16LUT()));
    EXPECT_EQ(table("linear16ToClip8"), numbersOf(settings.linear16ToClip8LUT()));
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

TEST_F(LutCommand, files_hold_the_table_from_0_to_1) {
    for (auto const & [name, top] : {std::pair("clip8ToLinear16", 65535.0), std::pair("linear16ToClip8", 255.0),
                                     std::pair("clip16ToLinear16", 65535.0)}) {
        std::string const ask = std::string("lut --gamma 2.2 --table ") + name;
        std::vector<double> const printed = valuesOf(run(ask).out);
        for (std::string const file : {"t.spi1d", "t.cube"}) {
            Answer const answer = run(ask + " -o " + file);
            EXPECT_EQ(answer.code, 0) << answer.err;
            EXPECT_EQ(answer.out, file + ": " + std::to_string(printed.size()) + " entries\n");
            std::vector<double> const written = bodyOf(contentOf(file.c_str()), file == "t.cube" ? 3 : 1);
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

} // namespace
