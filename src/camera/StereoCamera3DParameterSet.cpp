#include "camera/StereoCamera3DParameterSet.h"

#include "geometry/gandalf/Rot3D.h"
#include "geometry/marlin/Euler.h"
#include "geometry/marlin/Homography.h"

#include <boost/make_shared.hpp>

namespace {

/// The share of the rig's distance and convergence that an eye gets.
double eyeSign(Kyn::View const & view) {
    switch (view.id()) {
    case 0:
        return -0.5;
    case 1:
        return 0.5;
    }
    return 0.0;
}

/// The matrix form of a stored rotation.
Gan_Rot3D rotationAt(VX_XYZParameterSet const & rotation, Kyn::Context const & context) {
    Gan_Vector3 angles = rotation.value(context);
    angles *= 0.017453292519943295;
    angles.y = -angles.y;
    Gan_Rot3D quaternion{};
    quaternion.type = GAN_ROT3D_QUATERNION;
    quaternion.quaternion = sfm_euler2quaternion(angles);
    return gan_rot3D_convert_s(&quaternion, GAN_ROT3D_MATRIX);
}

Gan_Matrix33 turnAboutY(double angle) {
    Gan_Vector3 const axis{0.0, 1.0, 0.0};
    Gan_Rot3D const turn = gan_rot3D_build_angle_axis(angle, &axis);
    return gan_rot3D_convert_s(&turn, GAN_ROT3D_MATRIX).matrix;
}

/// Calls with the context of each key of x in the default view. `visit` may write at the context.
template <class Visit>
void atKeysOfX(VX_XYZParameterSet const & triple, Visit visit) {
    unsigned int const count = triple.x()->numKeyframes(Kyn::View());
    for (unsigned int i = 0; i < count; ++i)
        visit(triple.x()->keyframeContext(i, Kyn::View()));
}

} // namespace

VX_StereoCamera3DParameterSet::VX_StereoCamera3DParameterSet()
    : VX_Camera3DParameterSet(QStringLiteral("StereoCamera")) {}

VX_StereoCamera3DParameterSet::VX_StereoCamera3DParameterSet(VX_StereoCamera3DParameterSet const & other)
    : VX_Camera3DParameterSet(other) {
    copyMembers(other);
}

VX_StereoCamera3DParameterSet & VX_StereoCamera3DParameterSet::operator=(VX_StereoCamera3DParameterSet const & other) {
    VX_Camera3DParameterSet::operator=(other);
    return *this;
}

boost::shared_ptr<VX_Camera3DParameterSet>
VX_StereoCamera3DParameterSet::buildViewCamera(Kyn::View const & view) const {
    double const sign = eyeSign(view);
    boost::shared_ptr<VX_Camera3DParameterSet> const camera = boost::make_shared<VX_Camera3DParameterSet>();
    QString const name = camera->scriptName();
    *camera = *this;
    camera->setScriptName(name); // An eye is no rig, whose name came with the rest.
    camera->setDisplayName(name, name);

    atKeysOfX(camera->position, [&](Kyn::Context const & context) {
        Gan_Vector3 const eye{sign * static_cast<double>(interaxialDistance.value(context)), 0.0, 0.0};
        Gan_Rot3D turn = rotationAt(camera->rotation, context);
        gan_mat33_invert(&turn.matrix, &turn.matrix, nullptr);
        Gan_Vector3 place = camera->position.value(context);
        place += gan_rot3D_apply_v3_s(&turn, &eye);
        camera->position.setValue(place, context);
    });
    // After the positions, which are turned by the rig's rotation and not by the eye's.
    atKeysOfX(camera->rotation, [&](Kyn::Context const & context) {
        double const angle = sign * static_cast<double>(convergenceAngle.value(context));
        Gan_Vector3 angles = eulerFromMatrix(rotationAt(camera->rotation, context).matrix * turnAboutY(angle));
        angles.y = -angles.y;
        camera->rotation.setValue(angles, context);
    });
    return camera;
}
