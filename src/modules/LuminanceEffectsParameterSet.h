#pragma once

#include "modules/ModuleTable.h"

/// How an insert takes on the light of the plate it goes into: the clips that luminance, shadows and highlights are
/// taken from or rendered to, the filters over space and time, and the strength of each channel.
///
/// Filter sizes are in pixels of the clips and windows in frames; neither follows a change of frame size. Highlights
/// have a strength for alpha, shadows have none.
class VX_LuminanceEffectsParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_LuminanceEffectsParameterSet")

    VX_LuminanceEffectsParameterSet();
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_LuminanceEffectsParameterSet(VX_LuminanceEffectsParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_LuminanceEffectsParameterSet & operator=(VX_LuminanceEffectsParameterSet const & other);

    /// Clears references to the old clip. None follows to the new one: what was measured or rendered from one clip says
    /// nothing about another.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

    // clang-format off
    ClipReference luminanceReferenceClipId            {row("LuminanceReferenceClipID"), STATIC, 0, HELD, HOLD};
    ClipReference luminanceClipId                     {row("LuminanceClipID"), STATIC, 0, HELD, HOLD};
    ClipReference shadowClipId                        {row("ShadowClipID"), STATIC, 0, HELD, HOLD};
    ClipReference highlightClipId                     {row("HighlightClipID"), STATIC, 0, HELD, HOLD};
    ClipReference filterClipId                        {row("FilterClipID"), STATIC, 0, HELD, HOLD};
    Switch applyLuminanceEffect                       {row("ApplyLuminanceEffect"), STATIC, false, false, true, HELD, HOLD};
    Switch buildColourLuminanceMap                    {row("BuildColourLuminanceMap"), STATIC, false, false, true, HELD, HOLD};
    Count luminanceMedianFilterSize                   {row("LuminanceMedianFilterSize"), KEYED, 1, 0, 51, LINEAR, HOLD};
    Amount referenceLuminanceLevel                    {row("ReferenceLuminanceLevel"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Amount luminanceEffectOffset                      {row("LuminanceEffectOffset"), KEYED, 0.0f, 0.0f, 1.0f, LINEAR, HOLD};
    Switch generateLuminanceClips                     {row("GenerateLuminanceClips"), STATIC, false, false, true, HELD, HOLD};
    Switch referenceFilteredImages                    {row("ReferenceFilteredImages"), STATIC, false, false, true, HELD, HOLD};
    Switch buildEveryFilteredFrame                    {row("BuildEveryFilteredFrame"), STATIC, false, false, true, HELD, HOLD};
    Flag filteredFrames                               {row("FilteredFrames"), KEYED, false, HELD, HOLD};
    Count filterWindowSizeBackwards                   {row("FilterWindowSizeBackwards"), KEYED, 0, 0, 30, LINEAR, HOLD};
    Count filterWindowSizeForwards                    {row("FilterWindowSizeForwards"), KEYED, 0, 0, 30, LINEAR, HOLD};
    Count filterMedianFilterSize                      {row("FilterMedianFilterSize"), KEYED, 0, 0, 51, LINEAR, HOLD};
    Kyn::Parameter<VX_LUMINANCE_MODEL> luminanceModel {row("LuminanceModel"), STATIC, {}, HELD, HOLD};
    Amount shadowIntensityAll                         {row("ShadowIntensityAll"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Amount shadowIntensityRed                         {row("ShadowIntensityRed"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Amount shadowIntensityGreen                       {row("ShadowIntensityGreen"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Amount shadowIntensityBlue                        {row("ShadowIntensityBlue"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Amount highlightIntensityAll                      {row("HighlightIntensityAll"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Amount highlightIntensityRed                      {row("HighlightIntensityRed"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Amount highlightIntensityGreen                    {row("HighlightIntensityGreen"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Amount highlightIntensityBlue                     {row("HighlightIntensityBlue"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Amount highlightIntensityAlpha                    {row("HighlightIntensityAlpha"), KEYED, 1.0f, 0.0f, 10.0f, LINEAR, HOLD};
    Switch referenceColourSamples                     {row("ReferenceColourSamples"), STATIC, false, false, true, HELD, HOLD};
    Id selectedColour                                 {row("SelectedColour"), STATIC, 0, HELD, HOLD};
    Id selectedSample                                 {row("SelectedSample"), STATIC, 0, HELD, HOLD};
    // clang-format on
};
