#include "project/PixelCoordinates.h"

#include "geometry/gandalf/MatrixElements.h"
#include "geometry/marlin/Homography.h"

#include <cmath>

namespace vxproject {

namespace {

Gan_Matrix33 mapFromPixels(FrameSize const & size) {
    double const unit = size.width;
    return {1.0 / unit, 0.0, -0.5, 0.0, 1.0 / unit, -0.5 * size.height / unit, 0.0, 0.0, 1.0};
}

Gan_Matrix33 mapToPixels(FrameSize const & size) {
    double const unit = size.width;
    return {unit, 0.0, 0.5 * size.width, 0.0, unit, 0.5 * size.height, 0.0, 0.0, 1.0};
}

} // namespace

Gan_Matrix33 homographyFromPixels(Gan_Matrix33 const & pixels, FrameSize const & size) {
    return mapFromPixels(size) * pixels * mapToPixels(size);
}

Gan_Matrix33 homographyToPixels(Gan_Matrix33 const & project, FrameSize const & size) {
    return mapToPixels(size) * project * mapFromPixels(size);
}

bool mapPoint(Gan_Matrix33 const & homography, Gan_Vector2 const & point, Gan_Vector2 & mapped) {
    Gan_Vector3 const image = homography * Gan_Vector3{point.x, point.y, 1.0};
    Gan_Vector2 const found{image.x / image.z, image.y / image.z};
    if (!std::isfinite(found.x) || !std::isfinite(found.y))
        return false;
    mapped = found;
    return true;
}

Gan_Matrix33 normalised(Gan_Matrix33 const & homography) {
    Gan_Matrix33 divided = homography;
    if (homography.zz != 0.0)
        VX::detail::forEachElement(divided, [&](double & element) { element /= homography.zz; });
    return divided;
}

} // namespace vxproject
