#pragma once

#include "geometry/gandalf/Matrix33.h"

/// q = w + x i + y j + z k. The rotation by an angle about an axis of length 1 is w = cos(angle / 2) and
/// (x, y, z) = sin(angle / 2) axis; -q is the same rotation.
struct Gan_Quaternion {
    double w, x, y, z;
};

/// In which form a rotation is held.
enum Gan_Rot3DType : unsigned int {
    GAN_ROT3D_QUATERNION = 0,
    GAN_ROT3D_ANGLE_AXIS = 1,
    GAN_ROT3D_MATRIX = 3,
};

/// A rotation in space, in one of three forms; only the members of the form that `type` names are read. Angles are in
/// radians and turn by the right hand about the axis.
struct Gan_Rot3D {
    Gan_Rot3DType type;
    Gan_Quaternion quaternion; ///< of any length but 0: its length is divided out
    double angle;
    Gan_Vector3 axis;    ///< of length 1
    Gan_Matrix33 matrix; ///< acts on columns; taken as it is, so it is up to the caller that it is a rotation
};

extern "C" {
/// The rotation by an angle about an axis of any length but 0, in angle and axis form. An axis of length 0, and what is
/// not finite, gives the rotation by 0 about (0, 0, 1) and a note on the error trace.
Gan_Rot3D gan_rot3D_build_angle_axis(double angle, Gan_Vector3 const * axis);

/// The same rotation in another form; members of other forms are zero. Angles come out between 0 and pi. Exact to a few
/// roundings in each direction, half a turn included. A quaternion of length 0, an axis of length 0, a type without a
/// name and numbers that are not finite give the identity and a note on the error trace.
Gan_Rot3D gan_rot3D_convert_s(Gan_Rot3D const * rotation, Gan_Rot3DType type);

/// The vector turned by the rotation: for the matrix form, the matrix times the vector.
Gan_Vector3 gan_rot3D_apply_v3_s(Gan_Rot3D const * rotation, Gan_Vector3 const * vector);
}
