#include "project/FileError.h"
#include "project/ProjectTest.h"
#include "project/TextFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <chrono>
#include <cmath>
#include <csignal>
#include <sys/resource.h>

namespace {

using ProjectTest::at;
using ProjectTest::findingsOf;
using ProjectTest::projectOf;
using ProjectTest::projectOfLines;
using vxproject::Project;

std::string writtenBy(Project const & project) {
    return project.toText().toStdString();
}

// What is read

TEST(ProjectFile, lines_reach_the_parameters_of_their_item) {
    auto const project = projectOfLines("Layer[7].Name.value=\"screen left\"\n"
                                        "Layer[7].跟踪.Translation X.keyframes.append( Key( 1, 0.5, Linear ) )\n"
                                        "Layer[7].跟踪.Translation X.keyframes.append( Key( 3, 1.5, Linear ) )\n");
    ASSERT_EQ(project->items().size(), 1u);
    vxproject::Layer const * const layer = project->findLayer(7);
    ASSERT_NE(layer, nullptr);
    EXPECT_EQ(layer->name.value(at(0)).toStdString(), "screen left");
    EXPECT_EQ(layer->tracking.track.translationX.value(at(2)), 1.0);
    EXPECT_EQ(project->findLayer(1), nullptr);
}

TEST(ProjectFile, paths_and_changes_go_through_the_tree) {
    Project project;
    vxproject::Layer & layer = project.layer(3);
    EXPECT_EQ(layer.tracking.track.scale.extendedName().toStdString(), "Layer[3].跟踪.Scale");
    EXPECT_EQ(project.tree().find(QStringLiteral("Layer[3].Name")), &layer.name);
    int heard = 0;
    QObject::connect(&project.tree(), &Kyn::ParameterTree::changed, [&](Kyn::ParameterChange const &) { ++heard; });
    layer.tracking.track.scale.setValue(2.0, at(1));
    EXPECT_GT(heard, 0);
}

TEST(ProjectFile, masters_are_linked_across_layers) {
    auto const project = projectOfLines("Layer[1].跟踪.Scale.MasterParameterId=Layer[2].跟踪.Scale\n"
                                        "Layer[2].跟踪.Scale.value=2.5\n");
    EXPECT_EQ(project->findLayer(1)->tracking.track.scale.value(at(0)), 2.5);
    EXPECT_NE(writtenBy(*project).find("\nLayer[1].跟踪.Scale.MasterParameterId=Layer[2].跟踪.Scale\n"),
              std::string::npos);
}

TEST(ProjectFile, good_lines_beside_bad_ones_are_read) {
    auto const project = projectOfLines("Layer[1].跟踪.Scale.keyframes.append( Key( 1, 2, Linear ) )\n"
                                        "Layer[1].跟踪.Scale.keyframes.append( Key( 2 ) )\n"
                                        "garbage\n"
                                        "Layer[1].跟踪.Scale.keyframes.append( Key( 3, 4, Linear ) )\n");
    EXPECT_EQ(project->findings().size(), 2);
    EXPECT_EQ(project->findLayer(1)->tracking.track.scale.value(at(2)), 3.0);
}

TEST(ProjectFile, cut_anywhere_reads_what_is_whole_and_says_so) {
    QByteArray const text = QByteArray("vxproject 2\n"
                                       "Layer[1].Name.value=\"a\"\n"
                                       "Layer[1].跟踪.Scale.views=[0]\n"
                                       "Layer[1].跟踪.Scale.keyframes.append( Key( 1, 0.5, Linear ) )\n"
                                       "Layer[1].跟踪.Scale.keyframes.append( BezierKey( 2, 1, 3, 4, 5, 6 ) )\n"
                                       "Layer[1].跟踪.Scale.MasterParameterId=Layer[1].跟踪.Rotation\n");
    int read = 0;
    for (qsizetype size = 0; size < text.size(); ++size) {
        SCOPED_TRACE(size);
        QByteArray const cut = text.left(size);
        try {
            auto const project = projectOf(cut);
            ++read;
            EXPECT_EQ(project->findings().isEmpty(), cut.endsWith('\n')) << findingsOf(*project);
            ProjectTest::expectFixedPoint(*project);
        } catch (vxproject::FileError const & error) {
            bool const inFirstLine = size < 11;
            bool const inCharacter = std::string(error.what()).find("UTF-8") != std::string::npos;
            EXPECT_TRUE(inFirstLine || inCharacter) << error.what();
        }
    }
    EXPECT_GT(read, 200);
}

// What is written

TEST(ProjectFile, comment_stays_with_its_key_when_others_come) {
    auto const project = projectOfLines("Layer[1].跟踪.Scale.keyframes.append( Key( 1, 2, Linear ) )\n"
                                        "# the hand comes in\n"
                                        "Layer[1].跟踪.Scale.keyframes.append( Key( 5, 2, Linear ) )\n");
    project->layer(1).tracking.track.scale.setValue(3.0, at(3));
    EXPECT_NE(writtenBy(*project).find("Key( 3, 3, Linear ) )\n"
                                       "# the hand comes in\n"
                                       "Layer[1].跟踪.Scale.keyframes.append( Key( 5, 2, Linear ) )\n"),
              std::string::npos);
}

TEST(ProjectFile, unresolved_master_is_written_until_there_is_another) {
    auto const project = projectOfLines("Layer[1].跟踪.Scale.MasterParameterId=Layer[9].跟踪.Scale\n");
    EXPECT_NE(writtenBy(*project).find("MasterParameterId=Layer[9]"), std::string::npos);
    vxproject::Layer & layer = project->layer(1);
    layer.tracking.track.rotation.bAddConstrainedParameter(&layer.tracking.track.scale);
    EXPECT_EQ(writtenBy(*project).find("MasterParameterId=Layer[9]"), std::string::npos);
}

TEST(ProjectFile, any_number_on_a_value_line_comes_back_from_the_fewest_digits) {
    Project project;
    VX_TrackingParameterSet & tracking = project.layer(1).tracking;
    tracking.minPercentagePixelUsage.setStaticValue(0.1 + 0.2, Kyn::View());
    tracking.maxZoomPercentage.setStaticValue(100.0 / 3.0, Kyn::View());
    tracking.smoothingLevel.setStaticValue(0.1f, Kyn::View());
    for (char const * line : {"MinPercentagePixelUsage.value=0.30000000000000004\n",
                              "MaxZoomPercentage.value=33.333333333333336\n", "SmoothingLevel.value=0.1\n"})
        EXPECT_NE(writtenBy(project).find(line), std::string::npos) << line;
    for (double const number : {5e-324, 1.7976931348623157e308, -1.0 / 3.0, 1e21, 123456.5, 1234567.0, 2.5e-310}) {
        tracking.track.translationX.setStaticValue(number, Kyn::View());
        auto const read = projectOf(project.toText());
        EXPECT_EQ(read->layer(1).tracking.track.translationX.value(at(0)), number);
        EXPECT_EQ(findingsOf(*read), "");
    }
}

TEST(ProjectFile, times_that_six_digits_do_not_hold_are_told_before_they_are_lost) {
    Project project;
    Kyn::NumericParameter<double> & scale = project.layer(1).tracking.track.scale;
    for (double const frame : {0.1, 999999.0, 1000000.0, 1000001.0, 1234567.0})
        scale.setValue(1.0, at(frame));
    QStringList const losses = project.lossesOfWriting();
    ASSERT_EQ(losses.size(), 1);
    EXPECT_EQ(losses[0].toStdString(), "Layer[1].跟踪.Scale: 2 keys stand at times that the six digits of a key line "
                                       "do not hold; the first, 1000001, is written 1e+06");
}

// What is refused at saving

TEST(ProjectFile, text_that_no_line_can_hold_is_refused_with_its_name) {
    for (QString const & text :
         {QStringLiteral("a\nb"), QStringLiteral("a\rb"), QString(QChar::Null), QString(QChar(0xD83C))}) {
        Project project;
        project.layer(1).name.setValue(text, at(0));
        try {
            project.toText();
            ADD_FAILURE() << "was written";
        } catch (std::runtime_error const & error) {
            EXPECT_EQ(std::string(error.what()).rfind("Layer[1].Name cannot be saved: ", 0), 0u) << error.what();
        }
    }
}

TEST(ProjectFile, text_of_a_key_that_would_read_as_another_kind_of_key_is_refused) {
    Project project;
    project.layer(1).insert.url.setValue(QStringLiteral("a, Bezier Key"), at(1));
    ProjectTest::expectFixedPoint(project);
    project.layer(1).insert.url.setValue(QStringLiteral("BezierKey"), at(2));
    EXPECT_THROW(project.toText(), std::runtime_error);
    project.layer(1).insert.url.deleteAllKeyframes(Kyn::View());
    project.layer(1).insert.url.setStaticValue(QStringLiteral("BezierKey"), Kyn::View());
    ProjectTest::expectFixedPoint(project);
}

TEST(ProjectFile, names_that_would_break_a_key_are_refused) {
    for (char const * name : {"", "a.b", "a=b", "a[1", "a]", "a\nb"}) {
        Project project;
        project.layer(1).tracking.track.scale.setScriptName(QString::fromLatin1(name));
        EXPECT_THROW(project.toText(), std::runtime_error) << name;
    }
}

// Files

class SavedFile : public testing::Test {
protected:
    void SetUp() override {
        project.layer(1).name.setValue(QStringLiteral("new"), at(0));
        path = folder.filePath(QStringLiteral("画面 left.vxp"));
        write("old");
    }

    void write(QByteArray const & bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    std::string content() const { return vxproject::readFile(path).toStdString(); }
    int filesInFolder() const { return static_cast<int>(QDir(folder.path()).entryList(QDir::Files).size()); }

    QTemporaryDir folder;
    QString path;
    Project project;
};

TEST_F(SavedFile, replaces_the_old_one_and_is_read_back) {
    project.save(path);
    EXPECT_EQ(Project::read(path)->layer(1).name.value(at(0)).toStdString(), "new");
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(SavedFile, old_one_stands_when_a_text_is_refused) {
    project.layer(1).name.setValue(QStringLiteral("a\nb"), at(0));
    EXPECT_THROW(project.save(path), std::runtime_error);
    EXPECT_EQ(content(), "old");
}

TEST_F(SavedFile, old_one_stands_when_the_disk_takes_no_more) {
    // Beyond this size every write fails, for root too.
    rlimit limit = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    auto const oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = limit;
    small.rlim_cur = 1000;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_THROW(project.save(path), vxproject::FileError);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(SavedFile, goes_through_a_link_and_leaves_it) {
    QString const link = folder.filePath(QStringLiteral("link.vxp"));
    ASSERT_TRUE(QFile::link(path, link));
    project.save(link);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_NE(content(), "old");
}

TEST_F(SavedFile, takes_the_place_of_plain_files_only) {
    EXPECT_THROW(project.save(folder.path()), vxproject::FileError);
    EXPECT_THROW(project.save(QStringLiteral("/dev/null")), vxproject::FileError);
    EXPECT_THROW(project.save(folder.filePath(QStringLiteral("no/such/folder.vxp"))), vxproject::FileError);
}

// Size

TEST(ProjectFile, many_keys_and_long_lines_are_read_in_good_time) {
    constexpr int KEYS = 200000;
    constexpr int LENGTH = 3000000;
    QByteArray text("vxproject 2\n");
    for (int i = 0; i < KEYS; ++i)
        text += "Layer[1].跟踪.Scale.keyframes.append( Key( " + QByteArray::number(i) + ", 1.5, Linear ) )\n";
    text += "Layer[1].Name.value=\"" + QByteArray(LENGTH, 'x') + "\"\n";
    text += QByteArray(LENGTH, '.') + "\n";
    text += "Layer[1].跟踪.Scale.keyframes.append( " + QByteArray(LENGTH, '(') + "\n";
    auto const start = std::chrono::steady_clock::now();
    auto const project = projectOf(text);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
    EXPECT_EQ(project->layer(1).tracking.track.scale.numKeyframes(Kyn::View()), static_cast<unsigned int>(KEYS));
    EXPECT_EQ(project->layer(1).name.value(at(0)).size(), LENGTH);
    ASSERT_EQ(project->findings().size(), 2);
    EXPECT_LT(project->findings()[0].what.size(), 300);
    EXPECT_GT(project->toText().size(), 3 * LENGTH);
}

} // namespace
