#pragma once

#include "camera/NullObject3DParameterSet.h"

/// A camera of the solved 3D scene: a null with a focal length, in the unit that the application chooses.
class VX_Camera3DParameterSet : public VX_NullObject3DParameterSet, protected VX::ParameterTable {
public:
    VX_DECLARE_TRANSLATION("VX_Camera3DParameterSet")

    /// Named "Camera".
    VX_Camera3DParameterSet();
    explicit VX_Camera3DParameterSet(QString const & name);
    VX_Camera3DParameterSet(VX_Camera3DParameterSet const & other);
    /// From a stereo rig too, whose own additions then stay behind.
    VX_Camera3DParameterSet & operator=(VX_Camera3DParameterSet const & other);

private:
    QString translated(char const * text) const override { return tr(text); }

public:
    Amount focalLength{
        row("FocalLength").shown("Focal Length"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
};
