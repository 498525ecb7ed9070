#pragma once

#include "clip/TimeCode.h"
#include "foundation/Translation.h"
#include "parameter/kyn/Frame.h"
#include "parameter/kyn/View.h"

#include <QObject>
#include <QSize>

#include <vector>

class VX_BaseClipInfo;
class VX_ClipInfo;

namespace VX {

class ClipContext;
class ColourspaceParameters;

/// A clip with its files, as the application's clip bin has it. The application implements it, and decides which thread
/// the object lives in.
///
/// Views are project views. Times are frames of the clip, from 0.
class IClip : public QObject {
    Q_OBJECT

public:
    VX_DECLARE_TRUTF8

    ~IClip() override;

    virtual unsigned int clipId() const = 0;
    /// What the user calls it.
    virtual QString name() const = 0;
    virtual void setName(QString const & name) = 0;

    /// The records themselves: whoever writes them tells nobody. Good as long as the clip.
    virtual VX_BaseClipInfo & baseInfo() = 0;
    virtual VX_ClipInfo & clipInfo() = 0;
    virtual VX::ColourspaceParameters const & colourspace() const = 0;

    virtual std::vector<Kyn::View> views() const = 0;
    virtual unsigned int length(Kyn::View const & view) const = 0;
    /// Between the first frame of the project and that of the clip, in frames.
    virtual int firstFrameOffset() const = 0;
    /// Of a frame, counted from the time code of the first file at the clip's frame rate. Not valid without either.
    virtual VX_TimeCode timeCode(Kyn::Frame const & frame) const = 0;

    /// The file that holds a picture, by the clip's naming, fields and repeat modes; null where there is none.
    virtual QString fileName(VX::ClipContext const & context, Kyn::View const & view) const = 0;
    /// Whether that file is there. Asks the disk.
    virtual bool fileExists(VX::ClipContext const & context, Kyn::View const & view) const = 0;

    virtual bool isReadOnly() const = 0;
    /// Not shown in the clip bin.
    virtual bool isHidden() const = 0;
    /// A list of frames in place of a numbered sequence.
    virtual bool isDiscrete() const = 0;
};

} // namespace VX
