#pragma once

#include "modules/ModuleTable.h"

/// How an insert is laid over its background: which alpha channels and layer matte count, the gain of each channel and
/// the erosion of alpha, which does not follow a change of frame size.
///
/// The key "invertLayerMatte" begins in lower case, as every script has it.
class VX_InsertCompositeParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_InsertCompositeParameterSet")

    VX_InsertCompositeParameterSet();
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_InsertCompositeParameterSet(VX_InsertCompositeParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_InsertCompositeParameterSet & operator=(VX_InsertCompositeParameterSet const & other);

    /// Clears a reference to the old clip. It never follows to the new one.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

    // clang-format off
    ClipReference layerClipId      {row("LayerClipID"), STATIC, 0, HELD, HOLD};
    Switch applyAlphaOfInsert      {row("ApplyAlphaOfInsert"), STATIC, true, false, true, HELD, HOLD};
    Switch invertAlphaOfInsert     {row("InvertAlphaOfInsert"), STATIC, false, false, true, HELD, HOLD};
    Switch applyAlphaOfBackground  {row("ApplyAlphaOfBackground"), STATIC, false, false, true, HELD, HOLD};
    Switch invertAlphaOfBackground {row("InvertAlphaOfBackground"), STATIC, false, false, true, HELD, HOLD};
    Switch applyLayerMatte         {row("ApplyLayerMatte"), STATIC, false, false, true, HELD, HOLD};
    Switch invertLayerMatte        {row("invertLayerMatte"), STATIC, false, false, true, HELD, HOLD};
    Amount intensityAll            {row("IntensityAll").shown("Gain"), KEYED, 1.0f, 0.0f, 100.0f, LINEAR, HOLD};
    Amount intensityRed            {row("IntensityRed"), KEYED, 1.0f, 0.0f, 100.0f, LINEAR, HOLD};
    Amount intensityGreen          {row("IntensityGreen"), KEYED, 1.0f, 0.0f, 100.0f, LINEAR, HOLD};
    Amount intensityBlue           {row("IntensityBlue"), KEYED, 1.0f, 0.0f, 100.0f, LINEAR, HOLD};
    Amount intensityAlpha          {row("IntensityAlpha").shown("Opacity"), KEYED, 1.0f, 0.0f, 100.0f, LINEAR, HOLD};
    Amount erodeAlpha              {row("ErodeAlpha"), KEYED, 0.0f, 0.0f, 100.0f, LINEAR, HOLD};
    // clang-format on

private:
    QString translated(char const * text) const override { return tr(text); }
};
