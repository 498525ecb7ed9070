#include "end-to-end/ToolRun.h"

#include <QDir>

#include <algorithm>
#include <fstream>
#include <sstream>

// Each file of sessions/ is a case: what a user types in a folder that is empty at first, and all that comes of it.
//
//     # A remark.
//     $ A command line,
//     > and what it reads.
//         What it writes,
//       ! what it says on standard error,
//     [1] and its exit code, unless that is 0.
//
// VX_WRITE_GOLDEN=1 in the environment writes the answers anew; the difference is then for a person to read.

namespace {

std::vector<std::string> sessions() {
    QDir const folder(QStringLiteral(VX_TEST_DATA "/end-to-end/sessions"));
    std::vector<std::string> files;
    for (QString const & name : folder.entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name))
        files.push_back(folder.filePath(name).toStdString());
    return files;
}

std::vector<std::string> linesOf(std::string const & text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

class Session : public ToolRun, public testing::WithParamInterface<std::string> {
protected:
    /// The line, what its command reads, and what comes of it.
    std::string answered(std::string const & line, std::string const & input) const {
        std::string text = line + "\n";
        for (std::string const & read : linesOf(input))
            text += (read.empty() ? ">" : "> " + read) + "\n";
        Answer const answer = shell(line.substr(2), input);
        for (std::string const & written : linesOf(answer.out))
            text += "    " + written + "\n";
        for (std::string const & said : linesOf(answer.err))
            text += "  ! " + said + "\n";
        return answer.code == 0 ? text : text + "[" + std::to_string(answer.code) + "]\n";
    }
};

TEST_P(Session, goes_as_written) {
    std::stringstream file;
    file << std::ifstream(GetParam()).rdbuf();
    std::vector<std::string> const lines = linesOf(file.str());
    std::string played;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string input;
        if (lines[i].empty() || lines[i][0] == '#')
            played += lines[i] + "\n";
        if (lines[i].rfind("$ ", 0) != 0)
            continue;
        for (std::size_t next = i + 1; next < lines.size() && lines[next].rfind('>', 0) == 0; ++next)
            input += lines[next].substr(std::min<std::size_t>(lines[next].size(), 2)) + "\n";
        played += answered(lines[i], input);
    }
    if (std::getenv("VX_WRITE_GOLDEN"))
        std::ofstream(GetParam()) << played;
    else
        EXPECT_EQ(played, file.str());
}

INSTANTIATE_TEST_SUITE_P(Tool, Session, testing::ValuesIn(sessions()), [](auto const & file) {
    return QFileInfo(QString::fromStdString(file.param)).baseName().toStdString();
});

} // namespace
