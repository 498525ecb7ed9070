#pragma once

#include "camera/XYZParameterSet.h"

/// A point of the solved 3D scene, keyed: where it stands, how it is turned and how large it is.
///
/// Rotations are three angles in degrees; the angle about y counts against the right hand. Negated in y, they are the
/// Euler angles of geometry/marlin/Euler.h. A fresh null holds zeros, the scale included.
class VX_NullObject3DParameterSet : public Kyn::ParameterSet {
public:
    VX_DECLARE_TRANSLATION("VX_NullObject3DParameterSet")

    explicit VX_NullObject3DParameterSet(QString const & name);
    /// Takes over values, keys and the name.
    VX_NullObject3DParameterSet(VX_NullObject3DParameterSet const & other);
    /// Takes over values, keys and names. Nothing on self-assignment.
    VX_NullObject3DParameterSet & operator=(VX_NullObject3DParameterSet const & other);

    /// Takes the keys of the default view from all members: position, rotation and scale, then those that derived
    /// classes have added, in their order.
    virtual void deleteAllKeyframes();

    VX_XYZParameterSet position{QStringLiteral("Position")};
    VX_XYZParameterSet rotation{QStringLiteral("Rotation")};
    VX_XYZParameterSet scale{QStringLiteral("Scale")};

private:
    void init();
};
