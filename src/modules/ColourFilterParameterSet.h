#pragma once

#include "modules/ModuleTable.h"

/// Two filters that cut parts out of an insert and fill them in: one by brightness, below the black level or above the
/// white one, and one for each channel by a threshold. Each grows its region by a dilation in pixels, which does not
/// follow a change of frame size, and smooths its fill by a level from 0 to 1.
///
/// The keys of the channel filter are spelt as every script spells them.
class VX_ColourFilterParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_ColourFilterParameterSet")

    VX_ColourFilterParameterSet();
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_ColourFilterParameterSet(VX_ColourFilterParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_ColourFilterParameterSet & operator=(VX_ColourFilterParameterSet const & other);

    /// Clears a reference to the old clip. It never follows to the new one, which holds no fill.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

    // clang-format off
    ClipReference filledClipId                                 {row("FilledClipID"), STATIC, 0, HELD, HOLD};
    Switch applyBlackFilter                                    {row("ApplyBlackFilter"), STATIC, false, false, true, HELD, HOLD};
    Switch applyWhiteFilter                                    {row("ApplyWhiteFilter"), STATIC, false, false, true, HELD, HOLD};
    Amount blackLuminanceLevel                                 {row("BlackLuminanceLevel"), KEYED, 0.1f, 0.0f, 1.0f, LINEAR, HOLD};
    Amount whiteLuminanceLevel                                 {row("WhiteLuminanceLevel"), KEYED, 0.9f, 0.0f, 1.0f, LINEAR, HOLD};
    Count brightnessDilation                                   {row("BrightnessDilation"), KEYED, 0, 0, 1000, LINEAR, HOLD};
    Kyn::Parameter<VX_FILL_ALGORITHM> brightnessFillAlgorithm  {row("BrightnessFillAlgorithm"), STATIC, {}, HELD, HOLD};
    Amount brightnessSmoothingLevel                            {row("BrightnessSmoothingLevel"), KEYED, 0.1f, 0.0f, 1.0f, LINEAR, HOLD};
    Switch applyBallBustingRed                                 {row("ApplyBallBustingRed"), STATIC, false, false, true, HELD, HOLD};
    Switch applyBallBustingGreen                               {row("ApplyBallBustingGreen"), STATIC, false, false, true, HELD, HOLD};
    Switch applyBallBustingBlue                                {row("ApplyBallBustingBlue"), STATIC, false, false, true, HELD, HOLD};
    Amount ballBustingThresholdRed                             {row("BallBustingThresholdRed"), KEYED, 0.1f, 0.0f, 1.0f, LINEAR, HOLD};
    Amount ballBustingThresholdGreen                           {row("BallBustingThresholdGreen"), KEYED, 0.1f, 0.0f, 1.0f, LINEAR, HOLD};
    Amount ballBustingThresholdBlue                            {row("BallBustingThresholdBlue"), KEYED, 0.1f, 0.0f, 1.0f, LINEAR, HOLD};
    Count ballBustingDilation                                  {row("BallBustingDilation"), KEYED, 1, 0, 1000, LINEAR, HOLD};
    Kyn::Parameter<VX_FILL_ALGORITHM> ballBustingFillAlgorithm {row("BallBustingFillAlgorithm"), STATIC, {}, HELD, HOLD};
    Amount ballBustingSmoothingLevel                           {row("BallBustingSmoothingLevel"), KEYED, 0.1f, 0.0f, 1.0f, LINEAR, HOLD};
    Switch applyFillOnlyInRenderedArea                         {row("ApplyFillOnlyInRenderedArea"), STATIC, false, false, true, HELD, HOLD};
    Flag lastApplyFillOnlyInRenderedArea                       {row("LastApplyFillOnlyInRenderedArea"), KEYED, false, HELD, HOLD};
    // clang-format on
};
