#include "clip/Pulldown.h"

#include "clip/InterlaceMode.h"

namespace VX {
namespace {
constexpr unsigned int FRAMES_IN_GROUP = 4;
constexpr unsigned int FILES_IN_GROUP = 5;

/// The five files that a clip may begin with, counted from 0, whichever field is first.
enum class Phase : unsigned int { First, Second, Third, Fourth, Fifth };

Phase phaseOf(VX_INTERLACE_MODE eMode) {
    return static_cast<Phase>(static_cast<unsigned int>(eMode - VX_INTERLACE_MODE_PULLDOWN_UPPER_1) % FILES_IN_GROUP);
}

bool isOneFrameAFile(VX_INTERLACE_MODE eMode) {
    return eMode == VX_INTERLACE_MODE_PROGRESSIVE || eMode == VX_INTERLACE_MODE_FIELDS_WITHOUT_ORDER;
}

unsigned int pulldownFile(unsigned int uiFrame, Phase phase) {
    unsigned int const group = uiFrame / FRAMES_IN_GROUP * FILES_IN_GROUP;
    unsigned int const place = uiFrame % FRAMES_IN_GROUP;
    switch (phase) {
    case Phase::First:
    case Phase::Third:
    case Phase::Fourth:
        break;
    case Phase::Second:
        return place == 3 ? group + 4 : group + place;
    case Phase::Fifth:
        return place == 0 && uiFrame != 0 ? group - 1 : group + place;
    }
    return group + place;
}

unsigned int pulldownFrames(unsigned int uiFiles, Phase phase) {
    // How many frames are whole after 0 to 4 files of a group, beyond four for each group before it.
    static constexpr unsigned int NONE_LESS_ONE = 0u - 1u;
    static constexpr unsigned int wholeFrames[][FILES_IN_GROUP] = {
        {0, 1, 2, 2, 3},             // first
        {0, 1, 1, 2, 3},             // second
        {NONE_LESS_ONE, 0, 1, 2, 3}, // third
        {NONE_LESS_ONE, 0, 1, 2, 3}, // fourth
        {0, 1, 2, 3, 3},             // fifth
    };
    unsigned int const group = uiFiles / FILES_IN_GROUP * FRAMES_IN_GROUP;
    return group + wholeFrames[static_cast<unsigned int>(phase)][uiFiles % FILES_IN_GROUP];
}
} // namespace

unsigned int pulldownFileFromFrame(unsigned int uiFrame, VX_INTERLACE_MODE eMode) {
    if (isOneFrameAFile(eMode))
        return uiFrame;
    if (bIsInterlaced(eMode))
        return uiFrame % 2 == 0 ? uiFrame / 2 : NO_FILE;
    if (bIs32Pulldown(eMode))
        return pulldownFile(uiFrame, phaseOf(eMode));
    return NO_FILE;
}

unsigned int frameCountFromFileCount(VX_INTERLACE_MODE eMode, unsigned int uiFiles) {
    if (isOneFrameAFile(eMode))
        return uiFiles;
    if (bIsInterlaced(eMode))
        return uiFiles * 2;
    if (bIs32Pulldown(eMode))
        return pulldownFrames(uiFiles, phaseOf(eMode));
    return NO_FILE;
}
} // namespace VX
