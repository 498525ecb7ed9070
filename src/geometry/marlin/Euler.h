#pragma once

#include "geometry/gandalf/Rot3D.h"

/// Euler angles (x, y, z) mean R = Rz(z) Ry(y) Rx(x), each by the right hand about its axis: x acts first. On the way
/// in they are radians, on the way out degrees, which is what a scene's rotations are stored in.

/// The unit quaternion of three angles in radians. What is not finite comes through as not a number.
Gan_Quaternion sfm_euler2quaternion(Gan_Vector3 const & radians);

/// The angles of a rotation matrix in degrees: y from -90 to 90, x and z from -180 to 180. With R multiplied out,
///
///     R31 = -sin y,   (R11, R21) = cos y (cos z, sin z),
///
/// which gives y and z. x is then read off Rz(-z) R = Ry Rx, so that the three always make the same rotation, where y
/// is near a right angle too: there x and z are not settled one by one, and z is 0 at the right angle itself.
Gan_Vector3 eulerFromMatrix(Gan_Matrix33 const & rotation);

Gan_Vector3 & operator*=(Gan_Vector3 & vector, double factor);
Gan_Vector3 & operator+=(Gan_Vector3 & vector, Gan_Vector3 const & other);
