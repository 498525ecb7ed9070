#pragma once

#include "foundation/Enumerations.h"

/// How frames lie in the files of a clip. 3:2 pulldown spreads four frames over five files of two fields each, three
/// fields and two in turn: AA BB BC CD DD. The five phases say with which of these files a clip begins.
///
/// Everything here is unsigned 32-bit arithmetic and wraps.
namespace VX {
/// The answer for a frame without a file of its own, and for a mode above 13.
constexpr unsigned int NO_FILE = 0xFFFFFFFFu;

/// The file of a frame, both counted from 0. One frame a file for modes 0 and 13.
///
/// Modes 1 and 2 hold two frames in a file, one from each field: even frames have it, odd ones give NO_FILE.
///
/// Pulldown: the first file that shows the frame, in phases 1, 2 and 5. Phases 3 and 4 begin with a file of two frames;
/// they have the rule of phase 1 all the same and differ from it in frameCountFromFileCount only.
unsigned int pulldownFileFromFrame(unsigned int uiFrame, VX_INTERLACE_MODE eMode);

/// How many frames a number of files holds: with pulldown, those that have two fields or more in them.
///
/// Phase 3 counts as phase 4 does, which is one less at each whole group of five files. In both, no files at all hold
/// 0xFFFFFFFF frames: who asks about an empty clip must look first. A mode above 13 gives that number, too.
unsigned int frameCountFromFileCount(VX_INTERLACE_MODE eMode, unsigned int uiFiles);
} // namespace VX
