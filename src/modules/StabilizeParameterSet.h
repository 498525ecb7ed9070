#pragma once

#include "modules/ModuleTable.h"

/// How the stabilize module steadies a clip: which components of a motion are taken out, over which frames and how
/// smoothly, and how the border that this uncovers is filled. Its script name is that of the module, in Chinese.
class VX_StabilizeParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_StabilizeParameterSet")

    /// `clips` is not kept. `frameOffset` gives the number of the clip's first frame, in which the first and last frame
    /// are shown: see KynFrameOffset.
    VX_StabilizeParameterSet(VX_BaseClipInfoContainer * clips, boost::function<int(void)> frameOffset);
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_StabilizeParameterSet(VX_StabilizeParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_StabilizeParameterSet & operator=(VX_StabilizeParameterSet const & other);

    /// The input clip and the clip stabilized against follow to the new clip; the output is cleared in either case.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

private:
    KynFrameOffset::OffsetFunction frameOffset_; ///< For the rows below.

public:
    // clang-format off
    ClipReference inputClipId            {row("InputClipID"), STATIC, 0, HELD, HOLD};
    ClipReference stabilizeClipId        {row("StabilizeClipID"), STATIC, 0, HELD, HOLD};
    ClipReference outputClipId           {row("OutputClipID"), STATIC, 0, HELD, HOLD};
    Flag fixedFrames                     {row("FixedFrames"), KEYED, false, HELD, HOLD};
    Flag applyToWholeImage               {row("ApplyToWholeImage"), STATIC, true, HELD, HOLD};
    Flag applyMatteInComposite           {row("ApplyMatteInComposite"), STATIC, false, HELD, HOLD};
    Flag applyCrop                       {row("ApplyCrop"), STATIC, false, HELD, HOLD};
    KynFrameOffset firstFrameToStabilize {row("FirstFrameToStabilize"), STATIC, 0, 0, NO_LIMIT, HELD, HOLD, frameOffset_};
    KynFrameOffset lastFrameToStabilize  {row("LastFrameToStabilize"), STATIC, NO_LIMIT, 0, NO_LIMIT, HELD, HOLD, frameOffset_};
    Flag xTranslation                    {row("XTranslation"), STATIC, true, HELD, HOLD};
    Flag yTranslation                    {row("YTranslation"), STATIC, true, HELD, HOLD};
    Flag rotation                        {row("Rotation"), STATIC, false, HELD, HOLD};
    Flag zoom                            {row("Zoom"), STATIC, false, HELD, HOLD};
    Flag xShear                          {row("XShear"), STATIC, false, HELD, HOLD};
    Flag yShear                          {row("YShear"), STATIC, false, HELD, HOLD};
    Flag xForeshortening                 {row("XForeshortening"), STATIC, false, HELD, HOLD};
    Flag yForeshortening                 {row("YForeshortening"), STATIC, false, HELD, HOLD};
    Flag all                             {row("All"), STATIC, false, HELD, HOLD};
    Amount smoothingFrames               {row("SmoothingFrames"), STATIC, 10.0f, 0.0f, 50.0f, HELD, HOLD};
    Flag maximumSmoothing                {row("MaximumSmoothing"), STATIC, false, HELD, HOLD};
    Flag borderAutoFill                  {row("BorderAutoFill"), STATIC, false, HELD, HOLD};
    Flag fillFromBackground              {row("FillFromBackground"), STATIC, false, HELD, HOLD};
    Count autoFillFrameRange             {row("AutoFillFrameRange"), KEYED, 10, 1, NO_LIMIT, HELD, HOLD};
    Flag borderApplyIlluminationModel    {row("BorderApplyIlluminationModel"), STATIC, false, HELD, HOLD};
    Flag borderApplyBlending             {row("BorderApplyBlending"), STATIC, false, HELD, HOLD};
    Flag frameAutoFitShift               {row("FrameAutoFitShift"), STATIC, false, HELD, HOLD};
    Flag frameAutoFitZoom                {row("FrameAutoFitZoom"), STATIC, false, HELD, HOLD};
    Flag applyEdgeEnhancement            {row("ApplyEdgeEnhancement"), STATIC, false, HELD, HOLD};
    Amount edgeEnhancement               {row("EdgeEnhancement"), STATIC, 1.0f, 0.0f, 10.0f, HELD, HOLD};
    // clang-format on
};
