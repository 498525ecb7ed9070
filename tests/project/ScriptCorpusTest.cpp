#include "project/ProjectTest.h"
#include "project/TextFile.h"

#include <QDir>

#include <algorithm>

// Each file below scripts/ is a case. A good one is read without a finding; beside a bad one NAME.vxp stands
// NAME.findings, which holds all its findings, "LINE: what"; a line that is said to be kept is written as it stands.
// Both are then written, read, and written the same again.

namespace {

std::vector<std::string> filesIn(char const * folder) {
    QDir const scripts(QStringLiteral(VX_TEST_DATA "/") + QLatin1String(folder));
    std::vector<std::string> files;
    for (QString const & name : scripts.entryList({QStringLiteral("*.vxp")}, QDir::Files, QDir::Name))
        files.push_back(scripts.filePath(name).toStdString());
    return files;
}

std::string caseName(testing::TestParamInfo<std::string> const & info) {
    std::string name = QFileInfo(QString::fromStdString(info.param)).completeBaseName().toStdString();
    std::replace_if(
        name.begin(), name.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return name;
}

class GoodScript : public testing::TestWithParam<std::string> {};
class BadScript : public testing::TestWithParam<std::string> {};

TEST_P(GoodScript, is_read_without_a_finding_and_written_alike_twice) {
    auto const project = vxproject::Project::read(QString::fromStdString(GetParam()));
    EXPECT_EQ(ProjectTest::findingsOf(*project), "");
    ProjectTest::expectFixedPoint(*project);
}

TEST_P(BadScript, gives_all_its_findings_and_is_written_alike_twice) {
    QString const path = QString::fromStdString(GetParam());
    auto const project = vxproject::Project::read(path);
    QString expected = path;
    expected.replace(QStringLiteral(".vxp"), QStringLiteral(".findings"));
    EXPECT_EQ(ProjectTest::findingsOf(*project), vxproject::readFile(expected).toStdString());
    ProjectTest::expectFixedPoint(*project);
    QList<QByteArray> const lines = vxproject::readFile(path).split('\n');
    QList<QByteArray> const written = project->toText().split('\n');
    for (vxproject::Finding const & finding : project->findings())
        if (finding.what.endsWith(QLatin1String("the line is kept as it stands"))) {
            EXPECT_TRUE(written.contains(lines[finding.line - 1])) << finding.line;
        }
}

INSTANTIATE_TEST_SUITE_P(Scripts, GoodScript, testing::ValuesIn(filesIn("project/scripts/good")), caseName);
INSTANTIATE_TEST_SUITE_P(Examples, GoodScript, testing::ValuesIn(filesIn("../examples/footage")), caseName);
INSTANTIATE_TEST_SUITE_P(Scripts, BadScript, testing::ValuesIn(filesIn("project/scripts/bad")), caseName);

} // namespace
