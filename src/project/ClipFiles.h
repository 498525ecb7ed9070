#pragma once

#include "clip/ClipInfo.h"
#include "project/FrameList.h"

#include <QHash>
#include <QStringList>

#include <optional>

namespace vxproject {

/// In which files the frames of a clip lie, as one view of the project sees it.
///
/// Frames count from 0. The file of a frame has the index that the clip's least one and VX::pulldownFileFromFrame make;
/// the odd frame of the interlace modes 1 and 2 lies in the file of the even one before it. Outside the length the
/// repeat modes before and after the clip decide:
///
///     0  no file
///     1  the frame at that end
///     2  loop: behind a clip of frames 0 to 3 come 0 1 2 3 0 1 ...
///     3  ping-pong: behind it come 2 1 0 1 2 3 2 ..., each end once; before it, going back, 1 2 3 2 1 0 1 ...
///
/// A discrete clip has the files of its list instead: those of the frame and clip view. An entry for the very frame
/// wins over the repeat modes, wherever the length ends, and the later of two over the earlier.
///
/// Nothing is asked of the disk but by othersInFolder. The record must outlive this object, which takes the view's
/// values when it is made.
class ClipFiles {
public:
    ClipFiles(VX_ClipInfo const & source, VX_INTERLACE_MODE mode, Kyn::View const & projectView);

    /// All frames of the clip, of its length in that view; those in the list of a discrete clip without a length.
    FrameList frames() const;
    /// Null for a frame without a file. Any frame may be asked for.
    QString fileOf(qint64 frame) const;

    /// Whether there are names at all. If not, problems() has the reason.
    bool hasNames() const;
    /// What about the record makes no sense, a sentence each. The files are as said above nevertheless.
    QStringList problems() const;

    /// A file that looks like one of the clip's and is none.
    struct Other {
        enum class Why {
            OutsideRange,    ///< The index is neither from the least to the greatest nor within the length.
            PaddedOtherwise, ///< The index is one of the clip's, but has another number of zeros in front.
        };

        QString file; ///< The whole name.
        Why why;
    };

    /// Files in the folder that have the prefix, the suffix and digits alone between, and are none of the clip's, by
    /// number. Always empty for stills and discrete clips.
    std::vector<Other> othersInFolder() const;
    /// "1 to 100", the range that Other speaks of.
    QString rangeText() const;

private:
    bool isSequence() const { return !isDiscrete_ && hasIndex_; }
    bool hasView() const { return clipView_.isValid(); }
    /// The frame within the length that stands for any one.
    std::optional<qint64> withinLength(qint64 frame) const;
    /// The index of a frame within the length; it may lie beyond 32 bits.
    std::optional<qint64> indexOf(qint64 frame) const;
    /// -1 without one.
    qint64 lastIndexOfLength() const;
    qint64 greatestIndex() const;

    VX_ClipInfo const & source_;
    VX_INTERLACE_MODE mode_;
    Kyn::View projectView_;
    Kyn::View clipView_;
    unsigned int length_ = 0;
    unsigned int minimum_ = 0;
    unsigned int maximum_ = 0;
    VX_CLIP_MODE before_ = VX_CLIP_MODE_NO_REPEAT;
    VX_CLIP_MODE after_ = VX_CLIP_MODE_NO_REPEAT;
    bool hasIndex_ = false;
    bool isDiscrete_ = false;
    QHash<qint64, QString> listed_; ///< Of a discrete clip, for the clip view.
};

} // namespace vxproject
