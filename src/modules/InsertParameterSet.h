#pragma once

#include "modules/ColourFilterParameterSet.h"
#include "modules/InsertBlurParameterSet.h"
#include "modules/InsertCompositeParameterSet.h"
#include "modules/InsertEdgeParameterSet.h"
#include "modules/InsertOffsetParameterSet.h"
#include "modules/InsertROIParameterSet.h"
#include "modules/LuminanceEffectsParameterSet.h"

#include <array>

/// The settings of the insert module, which lays an insert clip into a background clip: the clips, and a child set for
/// each side of the work. Its script name is that of the module, in Chinese.
///
/// Copying and assigning leave the child sets out: a copy has children with their defaults, an assigned set keeps those
/// it had. Whoever means them assigns them one by one. Mind that assigning "ROI" makes it look at the other's insert
/// clip.
class VX_InsertParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_InsertParameterSet")

    /// `clips` is where the region finds the insert clip's size. Not owned, may be null, and must outlive the set.
    explicit VX_InsertParameterSet(VX_BaseClipInfoContainer * clips);
    /// Takes over the set's own values, keys and hidden states, and the clips; the names and all of the child sets are
    /// those of a new set.
    VX_InsertParameterSet(VX_InsertParameterSet const & other);
    /// Takes over names, hidden states and limits as well. The child sets and the clips stay. Nothing on
    /// self-assignment.
    VX_InsertParameterSet & operator=(VX_InsertParameterSet const & other);

    /// The child sets' amounts. The form for one view does nothing.
    void rescale(float fXScale, float fYScale) override;
    using VX::ClipBoundParameterSet::rescale;

    /// The input clip follows to the new clip; the other references are cleared in either case. Then each child set
    /// does what it does.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

    // clang-format off
    ClipReference inputClipId        {row("InputClipID"), STATIC, 0, HELD, HOLD};
    ClipReference insertClipId       {row("InsertClipID"), STATIC, 0, HELD, HOLD};
    Switch insertPremultiplied       {row("InsertPremultiplied"), KEYED, false, false, true, HELD, HOLD};
    ClipReference matteClipId        {row("MatteClipID"), STATIC, 0, HELD, HOLD};
    Flag renderSurfaceMatte          {row("RenderSurfaceMatte"), STATIC, false, HELD, HOLD};
    ClipReference surfaceMatteClipId {row("SurfaceMatteClipID"), STATIC, 0, HELD, HOLD};
    ClipReference alphaInputClipId   {row("AlphaInputClipID"), STATIC, 0, HELD, HOLD};
    ClipReference alphaInsertClipId  {row("AlphaInsertClipID"), STATIC, 0, HELD, HOLD};
    ClipReference outputClipId       {row("OutputClipID"), STATIC, 0, HELD, HOLD};
    // Keys of this one are made without a mode, unlike those of any other row.
    Flag rendered                    {row("Rendered"), KEYED, true, Kyn::INTERPOLATION_NONE, Kyn::EXTRAPOLATION_NONE};
    Flag trackOnRender               {row("TrackOnRender"), KEYED, false, HELD, HOLD};
    Kyn::Parameter<QString> url      {row("URL"), KEYED, QString(), HELD, HOLD};
    // clang-format on

private:
    VX_BaseClipInfoContainer * clips_;
    boost::shared_ptr<Kyn::MovedParameter> render_; ///< Old scripts carry the key "Render". Shared by copies.

public:
    VX_InsertROIParameterSet roi;
    VX_InsertCompositeParameterSet composite;
    VX_InsertBlurParameterSet blur;
    VX_InsertOffsetParameterSet offset;
    VX_InsertEdgeParameterSet edge;
    VX_LuminanceEffectsParameterSet luminance;
    VX_ColourFilterParameterSet colourFilter;

private:
    VX_InsertParameterSet(VX_BaseClipInfoContainer * clips, boost::shared_ptr<Kyn::MovedParameter> const & render);

    void nestChildren();
    /// In the order of the script.
    std::array<VX::ClipBoundParameterSet *, 7> children() {
        return {&roi, &composite, &blur, &offset, &edge, &luminance, &colourFilter};
    }
};
