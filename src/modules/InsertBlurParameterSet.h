#pragma once

#include "modules/ModuleTable.h"

/// How an insert is softened: antialiasing with its gain and mask, blur by focus and by motion, edge enhancement, and
/// the clip that holds the smoothed insert.
class VX_InsertBlurParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_InsertBlurParameterSet")

    VX_InsertBlurParameterSet();
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_InsertBlurParameterSet(VX_InsertBlurParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_InsertBlurParameterSet & operator=(VX_InsertBlurParameterSet const & other);

    /// Multiplies "FocusBlur" by `fXScale` in every view; heights do not count. Nothing else follows a change of frame
    /// size, and the form for one view does nothing.
    void rescale(float fXScale, float fYScale) override;
    using VX::ClipBoundParameterSet::rescale;

    /// Clears a reference to the old clip. It never follows to the new one, which was not smoothed.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

    // clang-format off
    ClipReference smoothedInsertClipId {row("SmoothedInsertClipID"), STATIC, 0, HELD, HOLD};
    Switch applyAntialiasing           {row("ApplyAntialiasing"), KEYED, true, false, true, HELD, HOLD};
    Amount antialiasingGain            {row("AntialiasingGain"), KEYED, 1.0f, 0.5f, 3.0f, LINEAR, HOLD};
    Switch applyFocusBlur              {row("ApplyFocusBlur"), KEYED, false, false, true, HELD, HOLD};
    Amount focusBlur                   {row("FocusBlur"), KEYED, 0.5f, 0.1f, 100.0f, LINEAR, HOLD}; ///< Pixels.
    Switch applyMotionBlur             {row("ApplyMotionBlur"), KEYED, false, false, true, HELD, HOLD};
    Amount motionBlur                  {row("MotionBlur"), KEYED, 0.25f, 0.0f, 10.0f, LINEAR, HOLD};
    Switch applyEdgeEnhancement        {row("ApplyEdgeEnhancement"), KEYED, false, false, true, HELD, HOLD};
    Amount edgeEnhancement             {row("EdgeEnhancement"), KEYED, 0.25f, 0.0f, 10.0f, LINEAR, HOLD};
    Kyn::Parameter<float> antialiasingMaskDeviationX {row("AntialiasingMaskStandardDeviationX"), KEYED, 0.0f, HELD, HOLD};
    Kyn::Parameter<float> antialiasingMaskDeviationY {row("AntialiasingMaskStandardDeviationY"), KEYED, 0.0f, HELD, HOLD};
    // clang-format on
};
