#pragma once

#include "geometry/gandalf/Vector3.h"

/// A general 3 by 3 matrix in row order: xy is row x, column y. It acts on column vectors. A homography is one of
/// these, defined up to a factor.
struct Gan_Matrix33 {
    double xx, xy, xz;
    double yx, yy, yz;
    double zx, zy, zz;
};

extern "C" {
Gan_Matrix33 gan_mat33_ident_s();

/// The product `left` `right`: `right` acts first.
Gan_Matrix33 gan_mat33_multm33_s(Gan_Matrix33 const * left, Gan_Matrix33 const * right);

Gan_Vector3 gan_mat33_multv3_s(Gan_Matrix33 const * matrix, Gan_Vector3 const * vector);

/// The determinant; infinite or 0 where its size leaves the range of a double. Here and in the inversion, a product of
/// elements that is below 1e-307 once the largest element is brought to about 1 counts as 0.
double gan_mat33_determinant_s(Gan_Matrix33 const * matrix);

/// Writes the inverse and returns 1. Returns 0, with `inverse` untouched, for a matrix with an element that is not
/// finite, for one that is singular, and where the inverse leaves the range of a double.
///
/// A matrix is singular here when its determinant is lost in the rounding of its products: at most 16 units of relative
/// rounding error (2^-53) of the sum of their absolute values. That judgement does not depend on how rows and columns
/// are scaled, so pixels and fractions of the frame get the same answer.
///
/// `inverse` may be `matrix`. `error`, where it is not null, takes 0 for success and 1 for failure. A failure goes on
/// the error trace.
int gan_mat33_invert(Gan_Matrix33 const * matrix, Gan_Matrix33 * inverse, int * error);
}
