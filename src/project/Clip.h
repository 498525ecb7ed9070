#pragma once

#include "clip/BaseClipInfo.h"
#include "clip/ClipInfo.h"
#include "project/Item.h"

namespace vxproject {

/// A clip: its name for the user, and its two records, which share a script name and so stand under one word each:
///
///     Clip[1].Picture.Core.FrameWidth.value=1920
///     Clip[1].Source.Core.ClipDirectory.value="/shots/s010"
class Clip : public Item {
public:
    Clip();

    /// Lists the members of the form that "DiscreteFrames" says. The lines are the frames of a discrete clip.
    QStringList settle() override;

    /// Any text without a line break.
    Kyn::Parameter<QString> name{row("Name"), false, QString(), Kyn::INTERPOLATION_CONSTANT,
                                 Kyn::EXTRAPOLATION_CONSTANT};
    VX_BaseClipInfo picture;
    VX_ClipInfo source;

private:
    Kyn::ParameterSet pictureRoot_{QStringLiteral("Picture"), nullptr};
    Kyn::ParameterSet sourceRoot_{QStringLiteral("Source"), nullptr};
};

} // namespace vxproject
