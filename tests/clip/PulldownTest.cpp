#include "clip/Pulldown.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace {

using VX::frameCountFromFileCount;
using VX::NO_FILE;
using VX::pulldownFileFromFrame;

VX_INTERLACE_MODE mode(int number) {
    return static_cast<VX_INTERLACE_MODE>(number);
}

/// A film on tape, field by field: two fields of one frame, three of the next, and two fields in each file. It begins
/// in the middle of its life, with one of the five files of a group.
class Tape {
public:
    static constexpr unsigned int FILES = 60;

    explicit Tape(unsigned int firstFile) {
        unsigned int const firstField = 2 * firstFile;
        for (unsigned int film = 0; fields_.size() < firstField + 2 * FILES; ++film)
            fields_.insert(fields_.end(), film % 2 == 0 ? 2 : 3, film);
        fields_.erase(fields_.begin(), fields_.begin() + firstField);
    }

    /// The first file of each frame, in the order of their appearance.
    std::vector<unsigned int> firstFiles() const {
        std::vector<unsigned int> files;
        for (unsigned int field = 0; field < 2 * FILES; ++field)
            if (field == 0 || fields_[field] != fields_[field - 1])
                files.push_back(field / 2);
        return files;
    }

    /// How many frames have two fields or more in a number of files.
    unsigned int wholeFrames(unsigned int files) const {
        std::map<unsigned int, int> found;
        for (unsigned int field = 0; field < 2 * files; ++field)
            ++found[fields_[field]];
        return static_cast<unsigned int>(
            std::count_if(found.begin(), found.end(), [](auto const & frame) { return frame.second >= 2; }));
    }

private:
    std::vector<unsigned int> fields_;
};

/// The pulldown modes: five phases for each order of fields.
class Pulldown : public testing::TestWithParam<int> {
protected:
    VX_INTERLACE_MODE mode_ = mode(GetParam());
    unsigned int phase_ = static_cast<unsigned int>(GetParam() - 3) % 5 + 1;
    Tape tape_{phase_ - 1};
    bool beginsInTheMiddle_ = phase_ == 3 || phase_ == 4;
};

TEST_P(Pulldown, file_of_a_frame_is_the_first_that_shows_it) {
    // The phases that begin with a file of two frames follow the first phase instead.
    std::vector<unsigned int> const files = beginsInTheMiddle_ ? Tape(0).firstFiles() : tape_.firstFiles();
    for (unsigned int frame = 0; frame < files.size(); ++frame)
        ASSERT_EQ(pulldownFileFromFrame(frame, mode_), files[frame]) << frame;
}

TEST_P(Pulldown, frames_count_when_they_are_whole) {
    Tape const tape(phase_ == 3 ? 3 : phase_ - 1); // The third phase counts as the fourth.
    for (unsigned int files = 1; files < Tape::FILES; ++files)
        ASSERT_EQ(frameCountFromFileCount(mode_, files), tape.wholeFrames(files)) << files;
}

TEST_P(Pulldown, no_files_hold_no_frames_or_wrap) {
    EXPECT_EQ(frameCountFromFileCount(mode_, 0), beginsInTheMiddle_ ? 0xFFFFFFFFu : 0u);
}

TEST_P(Pulldown, arithmetic_wraps_at_32_bits) {
    for (unsigned int const frame : {0xFFFFFFFFu, 0xFFFFFFFCu, 3435973837u, 3435973836u}) {
        unsigned long long const group = frame / 4;
        unsigned long long const within = pulldownFileFromFrame(frame % 4 + 4, mode_);
        EXPECT_EQ(pulldownFileFromFrame(frame, mode_), static_cast<unsigned int>((group - 1) * 5 + within)) << frame;
    }
    unsigned int const most = frameCountFromFileCount(mode_, 0xFFFFFFFFu); // A multiple of five.
    EXPECT_EQ(most, 0xFFFFFFFFu / 5 * 4 - (beginsInTheMiddle_ ? 1 : 0));
}

INSTANTIATE_TEST_SUITE_P(, Pulldown, testing::Range(3, 13),
                         [](auto const & test) { return "mode_" + std::to_string(test.param); });

TEST(PulldownPhases, third_phase_counts_a_frame_less_than_its_tape_at_whole_groups) {
    Tape const tape(2);
    for (unsigned int files = 0; files < Tape::FILES; ++files)
        for (int const thirdPhase : {5, 10})
            EXPECT_EQ(frameCountFromFileCount(mode(thirdPhase), files) + (files % 5 == 0 ? 1 : 0),
                      tape.wholeFrames(files))
                << files;
}

TEST(FramesInFiles, one_frame_a_file_without_a_cadence_and_two_if_interlaced) {
    for (unsigned int const number : {0u, 1u, 7u, 0xFFFFFFFFu}) {
        for (int const plain : {0, 13}) {
            EXPECT_EQ(pulldownFileFromFrame(number, mode(plain)), number);
            EXPECT_EQ(frameCountFromFileCount(mode(plain), number), number);
        }
        for (int const interlaced : {1, 2}) {
            EXPECT_EQ(pulldownFileFromFrame(number, mode(interlaced)), number % 2 == 0 ? number / 2 : NO_FILE);
            EXPECT_EQ(frameCountFromFileCount(mode(interlaced), number), 2 * number);
        }
    }
}

TEST(FramesInFiles, value_that_is_no_mode_has_no_files) {
    for (int const none : {14, 99, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(pulldownFileFromFrame(0, mode(none)), NO_FILE);
        EXPECT_EQ(frameCountFromFileCount(mode(none), 10), 0xFFFFFFFFu);
    }
}

} // namespace
