#pragma once

#include "modules/ModuleTable.h"

/// A keyed adjustment of where an insert lies: translation, rotation, scale, shear and perspective in the picture, a
/// scale taken from the track, and depth and tilt in space.
///
/// "OffsetShearY" starts at 1, which leaves the picture alone, where "OffsetShearX" does so at 0. "TrackingScale"
/// starts at 0, so whoever switches "ApplyTrackingScale" on has to give a scale too. Nothing follows a change of frame
/// size.
class VX_InsertOffsetParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_InsertOffsetParameterSet")

    /// A rotation in radians, shown in degrees with the sign reversed: pi / 2 is shown as -90.
    class RotationParameter : public Kyn::NumericParameter<double> {
    public:
        using Kyn::NumericParameter<double>::NumericParameter;
        RotationParameter(RotationParameter const & other);
        RotationParameter & operator=(RotationParameter const & other);

        double toDisplay(double stored, Kyn::Context const & context) const override;
        double fromDisplay(double shown, Kyn::Context const & context) const override;
    };

    VX_InsertOffsetParameterSet();
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_InsertOffsetParameterSet(VX_InsertOffsetParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_InsertOffsetParameterSet & operator=(VX_InsertOffsetParameterSet const & other);

    // clang-format off
    Level translationX                {row("OffsetTranslationX").shown("Translation X"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, HOLD};
    Level translationY                {row("OffsetTranslationY").shown("Translation Y"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, HOLD};
    RotationParameter rotationZ       {row("OffsetRotationZ").shown("Rotation Z"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, HOLD};
    Level scale                       {row("OffsetScale").shown("Scale"), KEYED, 1.0, -LIMITLESS, LIMITLESS, LINEAR, HOLD};
    Level shearX                      {row("OffsetShearX").shown("Shear X"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, HOLD};
    Level shearY                      {row("OffsetShearY").shown("Shear Y"), KEYED, 1.0, -LIMITLESS, LIMITLESS, LINEAR, HOLD};
    Level elationX                    {row("OffsetElationX").shown("Perspective X"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, HOLD};
    Level elationY                    {row("OffsetElationY").shown("Perspective Y"), KEYED, 0.0, -LIMITLESS, LIMITLESS, LINEAR, HOLD};
    Switch applyTrackingScale         {row("ApplyTrackingScale").shown("Apply Tracking Scale"), KEYED, false, false, true, HELD, HOLD};
    Amount trackingScale              {row("TrackingScale").shown("Tracking Scale"), KEYED, 0.0f, 0.0f, LIMITLESS_AMOUNT, LINEAR, HOLD};
    Count trackingScaleReferenceFrame {row("TrackingScaleReferenceFrame").shown("Tracking Scale Reference Frame"), KEYED, 0, 0, 1000000, HELD, HOLD};
    Switch apply3DDepthEffect         {row("Apply3DDepthEffect").shown("Apply 3D Offset"), KEYED, false, false, true, HELD, HOLD};
    Amount cornerDepth                {row("CornerDepth").shown("3D Offset Depth"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
    Amount cornerAxisZ                {row("CornerAxisZ").shown("3D Offset Rotation Z"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
    Amount cornerTiltXY               {row("CornerTiltXY").shown("3D Offset Tilt XY"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
    // clang-format on

private:
    QString translated(char const * text) const override { return tr(text); }
};
