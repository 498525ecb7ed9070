#pragma once

#include "geometry/gandalf/Matrix33.h"

/// A homography as eight values that a person can read and a curve can interpolate:
///
///     H = [1 0 tx]   [cos r  -sin r  0]   [s 0 0]   [1 shearX 0]   [1  0  0]
///         [0 1 ty] . [sin r   cos r  0] . [0 s 0] . [0 shearY 0] . [0  1  0]
///         [0 0  1]   [  0       0    1]   [0 0 1]   [0    0   1]   [px py 1]
///
/// The neutral record (0, 0, 0, 1, 0, 1, 0, 0) is the identity: Shear Y rests at 1. A mirror has a negative shearY.
/// Translations are in the unit of the coordinates that H acts on, perspectives in its reciprocal.
///
/// Derivation. Let A be the upper left 2 by 2 block of the middle three factors and p = (px, py). Multiplied out,
///
///     H = [A + t p^T   t]
///         [   p^T      1]
///
/// so that with h33 divided out, t is the last column and p the last row, and A is the rest minus t p^T, whose elements
/// are the 2 by 2 minors (h11 h33 - h13 h31) / h33^2 and so on. The columns of A are s R (1, 0) and
/// s R (shearX, shearY): the first gives s as its length and r as its direction, the second, turned back by r and
/// divided by s, the two shears. Each matrix that has an inverse and whose h33 is not 0 has exactly one such record
/// with s > 0 and r from -pi to pi.
///
/// The field order is fixed, and is not the order in which VX::HomographyParams declares its parameters.
struct HomographyDecomposition {
    double dRotation; ///< radians, from the x axis towards the y axis
    double dTranslationX;
    double dTranslationY;
    double dScale;
    double dShearX;
    double dShearY;
    double dPerspectiveX;
    double dPerspectiveY;
};

extern "C" {
/// The matrix of a record, with h33 = 1. Returns 1, or 0 with `result` untouched when a value of the record, or an
/// element of its matrix, is not finite. A scale of 0 or below is taken as it is. `dReserved` is not looked at.
int bReconstructHomography(HomographyDecomposition const * record, double dReserved, Gan_Matrix33 * result);

/// The record of a homography, which is taken up to any factor, negative ones too. Returns 1; or 0, and the neutral
/// record, for a matrix that gan_mat33_invert refuses, one with h33 = 0 (it sends the origin to infinity), and one
/// whose values do not fit a double. `dReserved` is not looked at.
///
/// The two functions undo each other to rounding, relative to the terms that add up: an element of A + t p^T that
/// nearly cancels is no more exact than t p^T. h33 near 0 makes all of it so.
int bDecomposeHomography(Gan_Matrix33 const * homography, double dReserved, HomographyDecomposition * record);
}

Gan_Matrix33 operator*(Gan_Matrix33 const & left, Gan_Matrix33 const & right);
Gan_Vector3 operator*(Gan_Matrix33 const & matrix, Gan_Vector3 const & vector);
