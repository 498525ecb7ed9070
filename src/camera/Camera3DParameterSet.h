#pragma once

#include "camera/NullObject3DParameterSet.h"

/// A camera of the solved 3D scene: a null with a focal length, in the unit that the application chooses.
class VX_Camera3DParameterSet : public VX_NullObject3DParameterSet {
public:
    VX_DECLARE_TRANSLATION("VX_Camera3DParameterSet")

    /// Named "Camera".
    VX_Camera3DParameterSet();
    explicit VX_Camera3DParameterSet(QString const & name);
    VX_Camera3DParameterSet(VX_Camera3DParameterSet const & other);
    /// From a stereo rig too, whose own additions then stay behind.
    VX_Camera3DParameterSet & operator=(VX_Camera3DParameterSet const & other);

protected:
    typedef Kyn::NumericParameter<float> Number;
    static constexpr bool KEYED = true;
    static constexpr bool STATIC = false;
    static constexpr float LOWEST = std::numeric_limits<float>::lowest();
    static constexpr float HIGHEST = std::numeric_limits<float>::max();
    static constexpr Kyn::Interpolation HELD = Kyn::INTERPOLATION_CONSTANT;
    static constexpr Kyn::Interpolation LINEAR = Kyn::INTERPOLATION_LINEAR;
    static constexpr Kyn::Extrapolation HOLD = Kyn::EXTRAPOLATION_CONSTANT;

private:
    QString translated(char const * text) const override { return tr(text); }

public:
    Number focalLength{row("FocalLength").shown("Focal Length"), KEYED, 0.0f, LOWEST, HIGHEST, LINEAR, HOLD};
};
