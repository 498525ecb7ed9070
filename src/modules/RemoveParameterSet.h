#pragma once

#include "modules/ModuleTable.h"

/// How the remove module cleans a clip: the clip, the clean plate that the fill comes from, the frames that are
/// searched for it, and how it is blended in. Its script name is that of the module, in Chinese.
///
/// Nothing here follows a change of frame size, "BlendWidth" included: it counts pixels of whatever frame it is applied
/// to, so whoever rescales a project has to look at it.
class VX_RemoveParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_RemoveParameterSet")

    /// `clips` is not kept. `frameOffset` gives the number of the clip's first frame, in which both ends of the input
    /// range are shown: see KynFrameOffset.
    VX_RemoveParameterSet(VX_BaseClipInfoContainer * clips, boost::function<int(void)> frameOffset);
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_RemoveParameterSet(VX_RemoveParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_RemoveParameterSet & operator=(VX_RemoveParameterSet const & other);

    /// The input clip follows to the new clip; clean plate and output are cleared in either case.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

private:
    KynFrameOffset::OffsetFunction frameOffset_; ///< For the rows below.

public:
    // clang-format off
    ClipReference inputClipId                               {row("InputClipID"), STATIC, 0, HELD, HOLD};
    ClipReference cleanplateClipId                          {row("CleanplateClipID"), STATIC, 0, HELD, HOLD};
    ClipReference outputClipId                              {row("OutputClipID"), STATIC, 0, HELD, HOLD};
    Kyn::Parameter<VX_REMOVESOURCE_MODE> removeMode         {row("RemoveMode"), STATIC, {}, HELD, HOLD};
    Count blendWidth                                        {row("BlendWidth"), KEYED, 0, 0, 100, HELD, HOLD};
    KynFrameOffset inputRangeMin                            {row("InputRangeMin"), KEYED, 0, 0, NO_LIMIT, LINEAR, HOLD, frameOffset_};
    KynFrameOffset inputRangeMax                            {row("InputRangeMax"), KEYED, NO_LIMIT, 0, NO_LIMIT, LINEAR, HOLD, frameOffset_};
    Count inputRangeBefore                                  {row("InputRangeBefore"), KEYED, NO_LIMIT, 0, NO_LIMIT, HELD, HOLD};
    Count inputRangeAfter                                   {row("InputRangeAfter"), KEYED, NO_LIMIT, 0, NO_LIMIT, HELD, HOLD};
    Count inputRangeStep                                    {row("InputRangeStep"), KEYED, 1, 1, 100, HELD, HOLD};
    Flag useOpticalFlow                                     {row("UseOpticalFlow"), KEYED, false, HELD, HOLD};
    Flag useFloodFill                                       {row("UseFloodFill"), KEYED, false, HELD, HOLD};
    Kyn::Parameter<VX_ILLUMINATION_MODEL> illuminationModel {row("IlluminationModel"), KEYED, {}, HELD, HOLD};
    Amount interpolatedSmoothingLevel                       {row("InterpolatedSmoothingLevel"), KEYED, 0.1f, 0.0f, 1.0f, HELD, HOLD};
    Amount floodFillSmoothingLevel                          {row("FloodFillSmoothingLevel"), KEYED, 0.1f, 0.0f, 1.0f, HELD, HOLD};
    Flag preferSameView                                     {row("PreferSameView"), KEYED, true, HELD, HOLD};
    // clang-format on

    /// No row: it has no script name, is neither written nor read, and is met by no walk. Its display name, "Not Set",
    /// is what the interface shows where there is nothing to choose. Copied and assigned with the set.
    Flag notSet{STATIC, QStringLiteral("Not Set"), false, HELD, HOLD};
};
