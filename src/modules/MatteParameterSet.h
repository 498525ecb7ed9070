#pragma once

#include "modules/ModuleTable.h"

/// How the matte module separates foreground from background: its clips, smoothness and thresholds of the colour
/// separation, the constants of its solver, and how the edge that comes out is traced into splines.
///
/// Widths and radii are in pixels and do not follow a change of frame size. The constants, levels and counts without
/// limits are taken as they stand; the solver judges them.
class VX_MatteParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_MatteParameterSet")

    VX_MatteParameterSet();
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_MatteParameterSet(VX_MatteParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_MatteParameterSet & operator=(VX_MatteParameterSet const & other);

    /// The input clip follows to the new clip; the others are cleared in either case.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

    // clang-format off
    ClipReference inputClipId                     {row("InputClipID"), STATIC, 0, HELD, HOLD};
    ClipReference backgroundClipId                {row("BackgroundClipID"), STATIC, 0, HELD, HOLD};
    ClipReference cleanplateClipId                {row("CleanplateClipID"), STATIC, 0, HELD, HOLD};
    ClipReference outputClipId                    {row("OutputClipID"), STATIC, 0, HELD, HOLD};
    ClipReference compositeBackgroundClipId       {row("CompositeBackgroundClipID"), STATIC, 0, HELD, HOLD};
    Level smoothnessHueSat                        {row("SmoothnessHueSat"), KEYED, 2.0, 0.0, LIMITLESS, LINEAR, HOLD};
    Level smoothnessRGB                           {row("SmoothnessRGB"), KEYED, 0.4, 0.0, LIMITLESS, LINEAR, HOLD};
    Level smoothnessAlpha                         {row("SmoothnessAlpha"), KEYED, 0.01, 0.0, LIMITLESS, LINEAR, HOLD};
    Level thresholdForeground                     {row("ThresholdForeground"), KEYED, 0.5, 0.0, LIMITLESS, LINEAR, HOLD};
    Level thresholdBackground                     {row("ThresholdBackground"), KEYED, 0.5, 0.0, LIMITLESS, LINEAR, HOLD};
    Flag autoEstimateColorThreshold               {row("AutoEstimateColorThreshold"), STATIC, true, HELD, HOLD};
    Kyn::Parameter<VX_MATTE_SUBTYPE> matteSubtype {row("MatteSubtype"), STATIC, {}, HELD, HOLD};
    Count borderWidth                             {row("BorderWidth"), KEYED, 1, 0, NO_LIMIT, LINEAR, HOLD};
    Count gaussRadius                             {row("GaussRadius"), KEYED, 0, 0, NO_LIMIT, LINEAR, HOLD};
    Flag useEdge                                  {row("UseEdge"), STATIC, false, HELD, HOLD};
    Level edgeMatteGlobalWidth                    {row("EdgeMatteGlobalWidth"), KEYED, 10.0, 0.0, LIMITLESS, LINEAR, HOLD};
    Constant maxDiscr                             {row("MaxDiscr"), STATIC, 0.0, HELD, HOLD};
    Constant a1                                   {row("A1"), STATIC, 1.0, HELD, HOLD};
    Constant a2                                   {row("A2"), STATIC, 2.0, HELD, HOLD};
    Constant a3                                   {row("A3"), STATIC, 0.4, HELD, HOLD};
    Constant lambdaStart                          {row("LambdaStart"), STATIC, 0.1, HELD, HOLD};
    Constant lambdaFactor                         {row("LambdaFactor"), STATIC, 0.1, HELD, HOLD};
    Setting noLevels                              {row("NoLevels"), STATIC, 5, HELD, HOLD};
    Setting noIterations                          {row("NoIterations"), STATIC, 10, HELD, HOLD};
    Setting minNumControlPointsInSpline           {row("MinNumControlPointsInSpline"), STATIC, 3, HELD, HOLD};
    Setting maxNumControlPointsInSpline           {row("MaxNumControlPointsInSpline"), STATIC, 20, HELD, HOLD};
    Kyn::Parameter<int> shrinkExpand              {row("ShrinkExpand"), STATIC, 0, HELD, HOLD};
    Setting edgeWidth                             {row("EdgeWidth"), STATIC, 3, HELD, HOLD};
    Flag colorCorrectRGBEdge                      {row("ColorCorrectRGBEdge"), STATIC, false, HELD, HOLD};
    Flag useCleanPlates                           {row("UseCleanPlates"), STATIC, true, HELD, HOLD};
    // clang-format on
};
