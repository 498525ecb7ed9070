#include "geometry/marlin/Homography.h"

#include "foundation/ExactArithmetic.h"
#include "geometry/gandalf/MatrixElements.h"

#include <cmath>

using VX::detail::differenceOfProducts;

namespace {
constexpr HomographyDecomposition neutral{0.0, 0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 0.0};

bool isFinite(HomographyDecomposition const & r) {
    return std::isfinite(r.dRotation) && std::isfinite(r.dTranslationX) && std::isfinite(r.dTranslationY) &&
           std::isfinite(r.dScale) && std::isfinite(r.dShearX) && std::isfinite(r.dShearY) &&
           std::isfinite(r.dPerspectiveX) && std::isfinite(r.dPerspectiveY);
}

// `h` has an inverse and its h33 is not 0.
HomographyDecomposition decomposed(Gan_Matrix33 const & h) {
    auto const minor = [&h](double element, double column, double row) {
        return differenceOfProducts(element, h.zz, column, row) / h.zz / h.zz;
    };
    double const axx = minor(h.xx, h.xz, h.zx);
    double const axy = minor(h.xy, h.xz, h.zy);
    double const ayx = minor(h.yx, h.yz, h.zx);
    double const ayy = minor(h.yy, h.yz, h.zy);

    double const scale = std::hypot(axx, ayx);
    double const cosine = axx / scale;
    double const sine = ayx / scale;
    HomographyDecomposition record = neutral;
    record.dRotation = std::atan2(ayx, axx);
    record.dTranslationX = h.xz / h.zz;
    record.dTranslationY = h.yz / h.zz;
    record.dScale = scale;
    record.dShearX = differenceOfProducts(cosine, axy, -sine, ayy) / scale;
    record.dShearY = differenceOfProducts(cosine, ayy, sine, axy) / scale;
    record.dPerspectiveX = h.zx / h.zz;
    record.dPerspectiveY = h.zy / h.zz;
    return record;
}

bool hasInverse(Gan_Matrix33 const & matrix) {
    Gan_Matrix33 inverse;
    return gan_mat33_invert(&matrix, &inverse, nullptr) != 0;
}
} // namespace

extern "C" {
int bReconstructHomography(HomographyDecomposition const * record, double, Gan_Matrix33 * result) {
    if (!isFinite(*record))
        return 0;
    HomographyDecomposition const & r = *record;
    double const cosine = std::cos(r.dRotation);
    double const sine = std::sin(r.dRotation);
    double const axx = r.dScale * cosine;
    double const ayx = r.dScale * sine;
    double const axy = r.dScale * differenceOfProducts(cosine, r.dShearX, sine, r.dShearY);
    double const ayy = r.dScale * differenceOfProducts(sine, r.dShearX, -cosine, r.dShearY);
    Gan_Matrix33 const h{
        std::fma(r.dTranslationX, r.dPerspectiveX, axx),
        std::fma(r.dTranslationX, r.dPerspectiveY, axy),
        r.dTranslationX,
        std::fma(r.dTranslationY, r.dPerspectiveX, ayx),
        std::fma(r.dTranslationY, r.dPerspectiveY, ayy),
        r.dTranslationY,
        r.dPerspectiveX,
        r.dPerspectiveY,
        1.0,
    };
    if (!VX::detail::isFinite(h))
        return 0;
    *result = h;
    return 1;
}

int bDecomposeHomography(Gan_Matrix33 const * homography, double, HomographyDecomposition * record) {
    *record = neutral;
    if (homography->zz == 0.0 || !hasInverse(*homography))
        return 0;
    // A factor of a power of two changes no digit and keeps the products of the minors in range.
    HomographyDecomposition const candidate =
        decomposed(VX::detail::scaledByPowerOfTwo(*homography, VX::detail::balancingExponent(*homography)));
    if (!isFinite(candidate) || !(candidate.dScale > 0.0) || candidate.dShearY == 0.0)
        return 0;
    *record = candidate;
    return 1;
}
}

Gan_Matrix33 operator*(Gan_Matrix33 const & left, Gan_Matrix33 const & right) {
    return gan_mat33_multm33_s(&left, &right);
}

Gan_Vector3 operator*(Gan_Matrix33 const & matrix, Gan_Vector3 const & vector) {
    return gan_mat33_multv3_s(&matrix, &vector);
}
