#include "geometry/gandalf/Matrix33.h"

#include "foundation/ExactArithmetic.h"
#include "geometry/gandalf/ErrorTrace.h"
#include "geometry/gandalf/MatrixElements.h"

#include <cfloat>
#include <cmath>

using VX::detail::balancingExponent;
using VX::detail::differenceOfProducts;
using VX::detail::isFinite;
using VX::detail::scaledByPowerOfTwo;

namespace {
Gan_Matrix33 adjugate(Gan_Matrix33 const & m) {
    return {
        differenceOfProducts(m.yy, m.zz, m.yz, m.zy), differenceOfProducts(m.xz, m.zy, m.xy, m.zz),
        differenceOfProducts(m.xy, m.yz, m.xz, m.yy), differenceOfProducts(m.yz, m.zx, m.yx, m.zz),
        differenceOfProducts(m.xx, m.zz, m.xz, m.zx), differenceOfProducts(m.xz, m.yx, m.xx, m.yz),
        differenceOfProducts(m.yx, m.zy, m.yy, m.zx), differenceOfProducts(m.xy, m.zx, m.xx, m.zy),
        differenceOfProducts(m.xx, m.yy, m.xy, m.yx),
    };
}

// Expansion along the first row.
double determinant(Gan_Matrix33 const & m, Gan_Matrix33 const & adjugate) {
    return m.xx * adjugate.xx + m.xy * adjugate.yx + m.xz * adjugate.zx;
}

// The sum of the absolute values of the determinant's six products.
double sumOfProducts(Gan_Matrix33 const & m) {
    return std::fabs(m.xx) * (std::fabs(m.yy * m.zz) + std::fabs(m.yz * m.zy)) +
           std::fabs(m.xy) * (std::fabs(m.yx * m.zz) + std::fabs(m.yz * m.zx)) +
           std::fabs(m.xz) * (std::fabs(m.yx * m.zy) + std::fabs(m.yy * m.zx));
}

bool invert(Gan_Matrix33 const & matrix, Gan_Matrix33 & inverse) {
    if (!isFinite(matrix))
        return false;
    int const exponent = balancingExponent(matrix);
    Gan_Matrix33 const balanced = scaledByPowerOfTwo(matrix, exponent);
    Gan_Matrix33 const cofactors = adjugate(balanced);
    double const det = determinant(balanced, cofactors);
    constexpr double roundingUnits = 16.0 * 0.5 * DBL_EPSILON;
    if (!(std::fabs(det) > roundingUnits * sumOfProducts(balanced)))
        return false;
    auto const over = [det](double cofactor) { return cofactor / det; };
    Gan_Matrix33 const & c = cofactors;
    Gan_Matrix33 const result = scaledByPowerOfTwo(
        {over(c.xx), over(c.xy), over(c.xz), over(c.yx), over(c.yy), over(c.yz), over(c.zx), over(c.zy), over(c.zz)},
        exponent);
    if (!isFinite(result))
        return false;
    inverse = result;
    return true;
}
} // namespace

extern "C" {
Gan_Matrix33 gan_mat33_ident_s() {
    return {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
}

Gan_Matrix33 gan_mat33_multm33_s(Gan_Matrix33 const * left, Gan_Matrix33 const * right) {
    Gan_Matrix33 const & l = *left;
    Gan_Matrix33 const & r = *right;
    return {
        l.xx * r.xx + l.xy * r.yx + l.xz * r.zx, l.xx * r.xy + l.xy * r.yy + l.xz * r.zy,
        l.xx * r.xz + l.xy * r.yz + l.xz * r.zz, l.yx * r.xx + l.yy * r.yx + l.yz * r.zx,
        l.yx * r.xy + l.yy * r.yy + l.yz * r.zy, l.yx * r.xz + l.yy * r.yz + l.yz * r.zz,
        l.zx * r.xx + l.zy * r.yx + l.zz * r.zx, l.zx * r.xy + l.zy * r.yy + l.zz * r.zy,
        l.zx * r.xz + l.zy * r.yz + l.zz * r.zz,
    };
}

Gan_Vector3 gan_mat33_multv3_s(Gan_Matrix33 const * matrix, Gan_Vector3 const * vector) {
    Gan_Matrix33 const & m = *matrix;
    Gan_Vector3 const & v = *vector;
    return {m.xx * v.x + m.xy * v.y + m.xz * v.z, m.yx * v.x + m.yy * v.y + m.yz * v.z,
            m.zx * v.x + m.zy * v.y + m.zz * v.z};
}

double gan_mat33_determinant_s(Gan_Matrix33 const * matrix) {
    if (!isFinite(*matrix))
        return determinant(*matrix, adjugate(*matrix));
    int const exponent = balancingExponent(*matrix);
    Gan_Matrix33 const balanced = scaledByPowerOfTwo(*matrix, exponent);
    return std::scalbn(determinant(balanced, adjugate(balanced)), -3 * exponent);
}

int gan_mat33_invert(Gan_Matrix33 const * matrix, Gan_Matrix33 * inverse, int * error) {
    bool const bInverted = invert(*matrix, *inverse);
    if (!bInverted)
        gan_err_register("gan_mat33_invert", "the matrix has no finite inverse");
    if (error)
        *error = bInverted ? 0 : 1;
    return bInverted ? 1 : 0;
}
}
