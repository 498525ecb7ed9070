#pragma once

#include "camera/Camera3DParameterSet.h"

#include <boost/shared_ptr.hpp>

/// A stereo rig of the solved 3D scene, named "StereoCamera": the camera in the middle between two eyes, and how far
/// they stand apart and are turned.
class VX_StereoCamera3DParameterSet : public VX_Camera3DParameterSet {
public:
    VX_DECLARE_TRANSLATION("VX_StereoCamera3DParameterSet")

    VX_StereoCamera3DParameterSet();
    VX_StereoCamera3DParameterSet(VX_StereoCamera3DParameterSet const & other);
    VX_StereoCamera3DParameterSet & operator=(VX_StereoCamera3DParameterSet const & other);

    /// A new camera for one eye, view 0 being the left and view 1 the right one; for another view it is moved and
    /// turned by nothing. It is the rig's camera, then
    ///
    ///     at each key of Position x:  Position += R^-1 (s interaxialDistance, 0, 0)
    ///     at each key of Rotation x:  Rotation  = the angles of R A(s convergenceAngle)
    ///
    /// with s = -1/2 on the left and +1/2 on the right, R the rotation of the moment and A the one about (0, 1, 0).
    ///
    /// What this means for callers:
    /// - Only keys of the x components, in the default view, count. A rig without them gives two eyes that stand where
    ///   the rig stands, whatever its interaxial distance; a key of y or z alone is passed by.
    /// - Each such moment is written whole, so that y and z gain keys there. Where they had none, the next moment
    ///   already sees the key of the one before: what is added to y and z of a turned rig adds up along the keys. Key
    ///   all three components to be safe from that.
    /// - The convergence angle goes in as it is stored, in radians, while all rotations are degrees.
    /// - Offsets of vertical alignment and the stereo mode play no part.
    boost::shared_ptr<VX_Camera3DParameterSet> buildViewCamera(Kyn::View const & view) const;

private:
    QString translated(char const * text) const override { return tr(text); }

public:
    // clang-format off
    Amount interaxialDistance    {row("InteraxialDistance").shown("Interaxial Distance"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
    // Users read of an offset, scripts of an alignment.
    Amount leftVerticalAlignment {row("LeftVerticalAlignment").shown("Left Vertical Offset"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
    Amount rightVerticalAlignment{row("RightVerticalAlignment").shown("Right Vertical Offset"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
    Amount convergenceAngle      {row("ConvergenceAngle").shown("Convergence Angle"), KEYED, 0.0f, -LIMITLESS_AMOUNT, LIMITLESS_AMOUNT, LINEAR, HOLD};
    Kyn::Parameter<VX_STEREO_MODE> stereoMode{row("StereoMode").shown("Stereo Mode"), STATIC, VX_STEREO_MODE(), HELD, HOLD};
    // clang-format on
};
