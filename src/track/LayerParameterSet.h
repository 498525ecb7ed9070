#pragma once

#include "clip/ClipBoundParameterSet.h"
#include "clip/ParameterTable.h"

class VX_BaseClipInfoContainer;

/// The basic settings of a layer: whether it is active, how its selection follows a track, the frames it lives on, how
/// it blends, the region it fills and how its matte is blurred by motion.
///
/// It refers to no clip and holds nothing that follows a change of frame size. Whether keys of other views count may
/// differ from view to view; nothing else does. Five of the keys hold blanks.
class VX_LayerParameterSet : public VX::ClipBoundParameterSet, protected VX::ParameterTable {
public:
    VX_DECLARE_TRANSLATION("VX_LayerParameterSet")

    static constexpr float SHUTTER_PHASE_MIN = -180.0f; ///< Degrees, as the next two.
    static constexpr float SHUTTER_PHASE_MAX = 180.0f;
    static constexpr float SHUTTER_PHASE_DEFAULT = 0.0f;
    static constexpr float MOTION_BLUR_SAMPLES_MIN = 0.0f;
    static constexpr float MOTION_BLUR_SAMPLES_MAX = 5.0f;
    static constexpr float MOTION_BLUR_SAMPLES_DEFAULT = 0.25f;

    static constexpr unsigned int NO_POINT = NO_LIMIT; ///< In and out point of a layer that has none.

    /// `clips` is not kept. The fill index is the default of "regionFillIndex": one above 65535 is stored and written
    /// as it is, and reads 65535.
    VX_LayerParameterSet(VX_BaseClipInfoContainer * clips, unsigned int uiRegionFillIndex);
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_LayerParameterSet(VX_LayerParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_LayerParameterSet & operator=(VX_LayerParameterSet const & other);

private:
    unsigned int const regionFillIndex_; ///< For the row below.

public:
    // clang-format off
    Switch active                           {row("Active"), KEYED, true, false, true, HELD, HOLD};
    Flag linkToTracker                      {row("LinkToTracker").hidden(), STATIC, true, HELD, HOLD};
    Kyn::NumericParameter<int> selectionLinkedToTrack{row("SelectionLinkedToTrack").hidden(), STATIC, -1, -1, 2147483647, HELD, HOLD}; ///< -1: none.
    Flag linkToAdjustedTrack                {row("LinkToAdjustedTrack").hidden(), STATIC, false, HELD, HOLD};
    Amount edgeWidthToApply                 {row("EdgeWidthToApply").hidden(), STATIC, 3.0f, -100.0f, 100.0f, HELD, HOLD};
    Count inPoint                           {row("In Point").hidden(), STATIC, NO_POINT, 0, NO_LIMIT, HELD, HOLD};
    Count outPoint                          {row("Out Point").hidden(), STATIC, NO_POINT, 0, NO_LIMIT, HELD, HOLD};
    Kyn::Parameter<VX_BlendMode> blendMode  {row("BlendMode").hidden(), STATIC, {}, HELD, HOLD};
    Flag invert                             {row("Invert").hidden(), STATIC, false, HELD, HOLD};
    Count regionFillIndex                   {row("regionFillIndex").hidden(), STATIC, regionFillIndex_, 0, 65535, HELD, HOLD};
    Flag affectedByOtherViewKeyframes       {row("AffectedByOtherViewKeyframes").splittable(), STATIC, true, HELD, HOLD};
    Switch motionBlurMatte                  {row("MotionBlurMatte"), KEYED, false, false, true, HELD, HOLD};
    Amount shutterAngle                     {row("Shutter angle"), KEYED, 180.0f, 0.0f, 360.0f, LINEAR, HOLD}; ///< Degrees, as the phase.
    Amount shutterPhase                     {row("Shutter phase"), KEYED, SHUTTER_PHASE_DEFAULT, SHUTTER_PHASE_MIN, SHUTTER_PHASE_MAX, LINEAR, HOLD};
    Amount motionBlurQuality                {row("Motion blur quality"), KEYED, MOTION_BLUR_SAMPLES_DEFAULT, MOTION_BLUR_SAMPLES_MIN, MOTION_BLUR_SAMPLES_MAX, LINEAR, HOLD};
    // clang-format on

private:
    QString translated(char const * text) const override { return tr(text); }
};
