#include "project/ClipFiles.h"

#include "clip/Pulldown.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

namespace {

using vxproject::ClipFiles;
typedef ClipFiles::Other Other;

constexpr unsigned int LARGEST = 0xFFFFFFFFu;

Tov::FSPercentEscapedString stored(char const * text) {
    return Tov::FSPercentEscapedString(QString::fromUtf8(text), Tov::FSPercentEscapedString::ALREADY_ESCAPED);
}

/// A sequence of one view; values that a test cares about it sets itself.
class ClipFilesOfSequence : public testing::Test {
protected:
    ClipFilesOfSequence() {
        describe(Kyn::View(0), "/shots/s010/", "plate.");
        source.setLength(4, Kyn::View(0));
    }

    void describe(Kyn::View view, char const * directory, char const * prefix) {
        source.setClipDirectory(QString::fromUtf8(directory), view, true);
        source.setClipPrefix(stored(prefix), view, true);
        source.setClipSuffix(stored(".dpx"), view, true);
        source.setMinIndex(7, view, true);
        source.setMaxIndex(10, view, true);
        source.setIndexWidth(4, view, true);
        source.hasIndex.setStaticValue(true, view);
    }

    ClipFiles files(VX_INTERLACE_MODE mode = VX_INTERLACE_MODE_PROGRESSIVE, int projectView = 0) const {
        return ClipFiles(source, mode, Kyn::View(projectView));
    }

    std::string fileOf(qint64 frame) const { return files().fileOf(frame).toStdString(); }

    /// The index in a frame's file name; -1 for a frame without a file.
    static int indexIn(QString const & file) { return file.isNull() ? -1 : file.chopped(4).right(4).toInt(); }

    VX_ClipInfo source;
};

std::string all(QStringList const & lines) {
    return lines.join(QLatin1Char('\n')).toStdString();
}

std::vector<double> listOf(vxproject::FrameList const & frames) {
    std::vector<double> list;
    frames.forEach([&](double frame) { list.push_back(frame); });
    return list;
}

// Names

TEST_F(ClipFilesOfSequence, names_are_those_of_the_files_in_a_real_folder) {
    QTemporaryDir folder;
    source.setClipDirectory(folder.path() + QStringLiteral("//"), Kyn::View(0), true);
    for (int index = 7; index <= 10; ++index)
        EXPECT_TRUE(QFile(folder.filePath(QString::asprintf("plate.%04d.dpx", index))).open(QIODevice::WriteOnly));
    EXPECT_EQ(listOf(files().frames()), (std::vector<double>{0, 1, 2, 3}));
    QStringList named;
    files().frames().forEach([&](double frame) {
        QString const file = files().fileOf(static_cast<qint64>(frame));
        EXPECT_TRUE(QFile::exists(file)) << file.toStdString();
        named.append(file.mid(folder.path().size() + 1));
    });
    EXPECT_EQ(all(named), all(QDir(folder.path()).entryList(QDir::Files, QDir::Name)));
    EXPECT_EQ(all(files().problems()), "");
    EXPECT_TRUE(files().othersInFolder().empty());
}

TEST_F(ClipFilesOfSequence, still_has_one_file_whatever_the_range) {
    source.hasIndex.setStaticValue(false, Kyn::View(0));
    source.setMaxIndex(0, Kyn::View(0), true);
    EXPECT_EQ(fileOf(0), "/shots/s010/plate..dpx");
    EXPECT_EQ(fileOf(3), fileOf(0));
    EXPECT_EQ(all(files().problems()), "");
}

class ClipFilesByMode : public ClipFilesOfSequence, public testing::WithParamInterface<int> {};

TEST_P(ClipFilesByMode, index_is_the_least_one_and_the_pulldown_file) {
    auto const mode = static_cast<VX_INTERLACE_MODE>(GetParam());
    source.setLength(40, Kyn::View(0));
    for (unsigned int frame = 0; frame < 40; ++frame) {
        unsigned int const file = VX::pulldownFileFromFrame(frame, mode);
        QString const name = files(mode).fileOf(frame);
        if (file != VX::NO_FILE)
            EXPECT_EQ(indexIn(name), static_cast<int>(7 + file)) << frame;
        else // The odd frame of a file with two.
            EXPECT_EQ(name.toStdString(), files(mode).fileOf(frame - 1).toStdString()) << frame;
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, ClipFilesByMode, testing::Range(0, 14));

// Outside the length

struct Repeat {
    char const * name;
    int mode;
    char const * indices; ///< Of frames -7 to 10, for a length of four; 0 is none.
    int ofOne;            ///< Where the length is 1.
};

class ClipFilesByRepeat : public ClipFilesOfSequence, public testing::WithParamInterface<Repeat> {};

TEST_P(ClipFilesByRepeat, goes_on_at_its_own_end_of_the_length) {
    auto const mode = static_cast<VX_CLIP_MODE>(GetParam().mode);
    // The other end has another mode, which must not matter.
    VX_CLIP_MODE const other = mode == VX_CLIP_MODE_LOOP ? VX_CLIP_MODE_NO_REPEAT : VX_CLIP_MODE_LOOP;
    QStringList const indices = QString::fromLatin1(GetParam().indices).split(' ');
    ASSERT_EQ(indices.size(), 18);
    for (int frame = -7; frame <= 10; ++frame) {
        source.setRepeatModeBefore(frame < 0 ? mode : other, Kyn::View(0), true);
        source.setRepeatModeAfter(frame < 0 ? other : mode, Kyn::View(0), true);
        source.setLength(4, Kyn::View(0));
        EXPECT_EQ(std::max(indexIn(files().fileOf(frame)), 0), indices[frame + 7].toInt()) << frame;
        source.setLength(1, Kyn::View(0));
        EXPECT_EQ(std::max(indexIn(files().fileOf(frame)), 0), frame == 0 ? 7 : GetParam().ofOne) << frame;
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, ClipFilesByRepeat,
                         testing::Values(Repeat{"none", 0, "0 0 0 0 0 0 0 7 8 9 10 0 0 0 0 0 0 0", 0},
                                         Repeat{"end", 1, "7 7 7 7 7 7 7 7 8 9 10 10 10 10 10 10 10 10", 7},
                                         Repeat{"loop", 2, "8 9 10 7 8 9 10 7 8 9 10 7 8 9 10 7 8 9", 7},
                                         Repeat{"ping_pong", 3, "8 7 8 9 10 9 8 7 8 9 10 9 8 7 8 9 10 9", 7}),
                         [](auto const & row) { return row.param.name; });

TEST_F(ClipFilesOfSequence, frames_far_outside_are_answered_at_once) {
    source.setRepeatModeAfter(VX_CLIP_MODE_PING_PONG, Kyn::View(0), true);
    source.setRepeatModeBefore(VX_CLIP_MODE_LOOP, Kyn::View(0), true);
    EXPECT_EQ(indexIn(files().fileOf(6'000'000'000'000'005)), 8);
    EXPECT_EQ(indexIn(files().fileOf(-4'000'000'000'000'001)), 10);
    source.setLength(0, Kyn::View(0));
    EXPECT_TRUE(files().fileOf(0).isNull());
    EXPECT_TRUE(listOf(files().frames()).empty());
    EXPECT_EQ(all(files().problems()), "its length is 0, so no frame has a file");
}

// Views

TEST_F(ClipFilesOfSequence, project_view_goes_through_the_mapping) {
    describe(Kyn::View(1), "/shots/s010/right", "r.");
    source.setLength(2, Kyn::View(1));
    source.setClipViewForProjectView(Kyn::View(0), Kyn::View(1));
    source.setClipViewForProjectView(Kyn::View(1), Kyn::View(0));
    ClipFiles const left = files(VX_INTERLACE_MODE_PROGRESSIVE, 0);
    ClipFiles const right = files(VX_INTERLACE_MODE_PROGRESSIVE, 1);
    EXPECT_EQ(left.fileOf(3).toStdString(), "/shots/s010/right/r.0008.dpx"); // The end frame of two.
    EXPECT_EQ(right.fileOf(3).toStdString(), "/shots/s010/plate.0010.dpx");
    EXPECT_EQ(listOf(left.frames()).size(), 2u);
    EXPECT_EQ(listOf(right.frames()).size(), 4u);
}

// Discrete clips

TEST(ClipFilesOfDiscreteClip, list_decides_by_frame_and_clip_view) {
    VX_ClipInfo source;
    source.discreteFrames = VX_TRUE;
    source.discreteFramesList = {{QStringLiteral("/a, b.dpx"), Kyn::Frame(0), 0},
                                 {QStringLiteral("/c d.dpx"), Kyn::Frame(1), 0},
                                 {QStringLiteral("/right.dpx"), Kyn::Frame(1), 1},
                                 {QStringLiteral("/late.dpx"), Kyn::Frame(9), 0},
                                 {QStringLiteral("/again.dpx"), Kyn::Frame(0), 0}};
    source.setClipViewForProjectView(Kyn::View(3), Kyn::View(1));
    ClipFiles const listed(source, VX_INTERLACE_MODE_PROGRESSIVE, Kyn::View(0));
    EXPECT_EQ(listOf(listed.frames()), (std::vector<double>{0, 1, 9}));

    source.setLength(3, Kyn::View(0));
    source.setRepeatModeAfter(VX_CLIP_MODE_LOOP, Kyn::View(0), true);
    ClipFiles const files(source, VX_INTERLACE_MODE_PROGRESSIVE, Kyn::View(0));
    EXPECT_EQ(listOf(files.frames()), (std::vector<double>{0, 1, 2}));
    EXPECT_EQ(files.fileOf(0).toStdString(), "/again.dpx");
    EXPECT_EQ(files.fileOf(4).toStdString(), "/c d.dpx");
    EXPECT_TRUE(files.fileOf(2).isNull());
    EXPECT_EQ(files.fileOf(9).toStdString(), "/late.dpx");
    EXPECT_TRUE(files.othersInFolder().empty());
    ClipFiles const right(source, VX_INTERLACE_MODE_PROGRESSIVE, Kyn::View(3));
    EXPECT_EQ(right.fileOf(1).toStdString(), "/right.dpx");
    EXPECT_TRUE(right.fileOf(0).isNull());
}

// Records without sense

TEST_F(ClipFilesOfSequence, index_beyond_32_bits_has_no_file_instead_of_another_frames) {
    source.setMinIndex(LARGEST - 1, Kyn::View(0), true);
    source.setMaxIndex(LARGEST, Kyn::View(0), true);
    EXPECT_EQ(fileOf(1), "/shots/s010/plate.4294967295.dpx");
    EXPECT_TRUE(files().fileOf(2).isNull());
    EXPECT_NE(all(files().problems()).find("there is no index beyond 4294967295"), std::string::npos);
    source.setLength(LARGEST, Kyn::View(0));
    source.setMinIndex(0, Kyn::View(0), true);
    EXPECT_EQ(fileOf(LARGEST), "/shots/s010/plate.4294967294.dpx");
    EXPECT_EQ(all(files().problems()), "");
}

// The folder

TEST_F(ClipFilesOfSequence, others_have_the_name_but_not_the_number) {
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("a+b/plate.0099.dpx"))); // A folder is no file.
    for (char const * name :
         {"plate.0007.dpx", "plate.0010.dpx", "plate.0011.dpx", "plate.0006.dpx", "plate.00008.dpx", "plate.8.dpx",
          "plate.99999999999999999999.dpx", "plate.100000.dpx", "plate.dpx", "plate..dpx", "plate.00x9.dpx",
          "plate.0012.exr", "Plate.0012.dpx", "plate.-012.dpx", "xplate.0012.dpx", "plate.0012.dpx.bak"})
        EXPECT_TRUE(
            QFile(folder.filePath(QStringLiteral("a+b/") + QString::fromLatin1(name))).open(QIODevice::WriteOnly));
    std::string const expected = "outside plate.0006.dpx\n"
                                 "padded plate.8.dpx\n"
                                 "padded plate.00008.dpx\n"
                                 "outside plate.0011.dpx\n"
                                 "outside plate.100000.dpx\n"
                                 "outside plate.99999999999999999999.dpx\n";
    // The folder may stand in the prefix as well.
    for (bool const inPrefix : {false, true}) {
        source.setClipDirectory(folder.path() + QLatin1String(inPrefix ? "" : "/a+b/"), Kyn::View(0), true);
        source.setClipPrefix(stored(inPrefix ? "a+b/plate." : "plate."), Kyn::View(0), true);
        std::string found;
        for (Other const & other : files().othersInFolder()) {
            EXPECT_TRUE(QFile::exists(other.file)) << other.file.toStdString();
            found += (other.why == Other::Why::OutsideRange ? "outside " : "padded ") +
                     other.file.mid(folder.path().size() + 5).toStdString() + "\n";
        }
        EXPECT_EQ(found, expected);
    }
    // The eleventh is the clip's once its length goes there.
    source.setLength(5, Kyn::View(0));
    EXPECT_EQ(files().othersInFolder().size(), 5u);
    source.setClipSuffix(stored("/x.dpx"), Kyn::View(0), true);
    EXPECT_TRUE(files().othersInFolder().empty());
}

} // namespace
