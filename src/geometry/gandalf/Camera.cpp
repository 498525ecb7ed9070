#include "geometry/gandalf/Camera.h"

#include "geometry/gandalf/BSplineDistortion.h"
#include "geometry/gandalf/MapDistortion.h"
#include "geometry/gandalf/RadialDistortion.h"

#include <limits>
#include <type_traits>

using namespace VX::detail;

namespace {
constexpr Gan_CameraFailure none = GAN_CAMERA_NO_FAILURE;
constexpr Gan_CameraFailure outside = GAN_CAMERA_OUTSIDE_ONE_TO_ONE;

// A lens has two functions, distort and undistort. Each moves the ray (x, y) in place, puts the derivative of the
// result by the ray in `derivative` where it is not null, and says whether it could.

struct LinearLens {
    static Gan_CameraFailure distort(Gan_Camera const &, double &, double &, Gan_Matrix22 * derivative) {
        if (derivative)
            *derivative = {1.0, 0.0, 0.0, 1.0};
        return none;
    }

    static Gan_CameraFailure undistort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        return distort(camera, x, y, derivative);
    }
};

template <class Lens>
struct InverseLens {
    static Gan_CameraFailure distort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        return Lens::undistort(camera, x, y, derivative);
    }

    static Gan_CameraFailure undistort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        return Lens::distort(camera, x, y, derivative);
    }
};

// Of (x, y) w(x^2 + y^2), with w' the slope of w: w times the identity, and 2 w' times (x, y) by itself.
Gan_Matrix22 radialDerivative(double x, double y, double factor, double factorSlope) {
    double const twice = 2.0 * factorSlope;
    return {factor + twice * x * x, twice * x * y, twice * x * y, factor + twice * y * y};
}

struct OneTermLens {
    static Gan_CameraFailure distort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        double const k1 = camera.distortion[0];
        double const a = k1 * (x * x + y * y);
        if (!(a > -1.0 / 3.0))
            return outside;
        if (derivative)
            *derivative = radialDerivative(x, y, 1.0 + a, k1);
        x *= 1.0 + a;
        y *= 1.0 + a;
        return none;
    }

    static Gan_CameraFailure undistort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        double const k1 = camera.distortion[0];
        double const ratio = radialRatio(k1 * (x * x + y * y));
        if (!(ratio > 0.0))
            return outside;
        x *= ratio;
        y *= ratio;
        if (derivative)
            *derivative = inverse(radialDerivative(x, y, 1.0 + k1 * (x * x + y * y), k1));
        return none;
    }
};

// The terms that a model does not have are 0 at compile time.
template <int terms>
struct RadialLens {
    static double k2(Gan_Camera const & camera) { return terms >= 2 ? camera.distortion[1] : 0.0; }
    static double k3(Gan_Camera const & camera) { return terms >= 3 ? camera.distortion[2] : 0.0; }

    static Gan_Matrix22 derivativeAt(Gan_Camera const & camera, double x, double y) {
        double const k1 = camera.distortion[0];
        double const s = x * x + y * y;
        return radialDerivative(x, y, radialFactor(k1, k2(camera), k3(camera), s),
                                k1 + s * (2.0 * k2(camera) + s * 3.0 * k3(camera)));
    }

    static Gan_CameraFailure distort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        double const s = x * x + y * y;
        if (!(s < camera.branchEnd))
            return outside;
        if (derivative)
            *derivative = derivativeAt(camera, x, y);
        double const factor = radialFactor(camera.distortion[0], k2(camera), k3(camera), s);
        x *= factor;
        y *= factor;
        return none;
    }

    static Gan_CameraFailure undistort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        double const s = x * x + y * y;
        if (!(s < camera.imageEnd))
            return outside;
        double const end = std::sqrt(camera.branchEnd / s);
        double const ratio = radialRatio(camera.distortion[0] * s, k2(camera) * s * s, k3(camera) * s * s * s, end);
        if (!(ratio > 0.0))
            return outside;
        x *= ratio;
        y *= ratio;
        if (derivative)
            *derivative = inverse(derivativeAt(camera, x, y));
        return none;
    }
};

// The answer of a distortion or, as an UndistortedPoint, of its way back, whose derivative is the inverse one.
template <class Point>
Gan_CameraFailure applied(Point const & point, double & x, double & y, Gan_Matrix22 * derivative) {
    auto const & [toX, toY, distortion, bThere] = point;
    if (!bThere)
        return outside;
    x = toX;
    y = toY;
    if (derivative)
        *derivative = std::is_same_v<Point, UndistortedPoint> ? inverse(distortion) : distortion;
    return none;
}

AnamorphicDistortion anamorphicOf(Gan_Camera const & camera) {
    double const * const c = camera.distortion;
    return {c[0], c[1], c[2], c[3]};
}

BSplineDistortion splineOf(Gan_Camera const & camera) {
    return {camera.weight, camera.fx / camera.zh};
}

template <auto distortionOf>
struct PlaneLens {
    static Gan_CameraFailure distort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        return applied(distortionOf(camera)(x, y), x, y, derivative);
    }

    static Gan_CameraFailure undistort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        constexpr double tolerance = 1e-9;
        return applied(undistorted(distortionOf(camera), x, y, tolerance), x, y, derivative);
    }
};

// From rays to the pixels of a map and back: the map lies about the axis and covers the frame's width.
struct MapFrame {
    MapFrame(Gan_Camera const & camera, Gan_Image const & map)
        : scaleX(camera.fx * map.width / (2.0 * camera.zh)),
          scaleY(camera.fy * map.width / (2.0 * camera.zh)),
          middleX(0.5 * map.width),
          middleY(0.5 * map.height) {}

    // The point that an answer in map pixels stands for, with the derivative by rays.
    template <class Point>
    Point inRays(Point point) const {
        point.x = (point.x - middleX) / scaleX;
        point.y = (point.y - middleY) / scaleY;
        point.derivative.xy *= scaleY / scaleX;
        point.derivative.yx *= scaleX / scaleY;
        return point;
    }

    double scaleX, scaleY, middleX, middleY;
};

Gan_CameraFailure lookUp(Gan_Camera const & camera, Gan_Image const & map, double & x, double & y,
                         Gan_Matrix22 * derivative) {
    MapFrame const frame(camera, map);
    DistortedPoint const point =
        MapDistortion{&map}(x * frame.scaleX + frame.middleX, y * frame.scaleY + frame.middleY);
    return applied(frame.inRays(point), x, y, derivative);
}

Gan_CameraFailure lookUpBackwards(Gan_Camera const & camera, Gan_Image const & map, double & x, double & y,
                                  Gan_Matrix22 * derivative) {
    MapFrame const frame(camera, map);
    UndistortedPoint const point =
        undistorted(MapDistortion{&map}, x * frame.scaleX + frame.middleX, y * frame.scaleY + frame.middleY);
    return applied(frame.inRays(point), x, y, derivative);
}

// A lens of one map: the one for this direction, or the other one inverted.
template <Gan_Image const * Gan_Camera::*forDistorting, Gan_Image const * Gan_Camera::*forUndistorting>
struct MapLens {
    static Gan_CameraFailure distort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        if constexpr (forDistorting != nullptr)
            return lookUp(camera, *(camera.*forDistorting), x, y, derivative);
        else
            return lookUpBackwards(camera, *(camera.*forUndistorting), x, y, derivative);
    }

    static Gan_CameraFailure undistort(Gan_Camera const & camera, double & x, double & y, Gan_Matrix22 * derivative) {
        if constexpr (forUndistorting != nullptr)
            return lookUp(camera, *(camera.*forUndistorting), x, y, derivative);
        else
            return lookUpBackwards(camera, *(camera.*forDistorting), x, y, derivative);
    }
};

int refused(Gan_CameraFailure reason, Gan_CameraFailure * failure) {
    if (failure)
        *failure = reason;
    return 0;
}

bool isFinite(Gan_Vector3 const & v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

// What went wrong with a point that a lens refused or that did not come out finite.
int refusedAt(Gan_Camera const & camera, Gan_Vector3 const & from, Gan_CameraFailure reason,
              Gan_CameraFailure * failure) {
    double const frame = camera.fx * camera.fy * camera.zh;
    double terms = 0.0;
    for (double const term : camera.distortion)
        terms += term;
    bool const bFinite = isFinite(from) && frame != 0.0 && std::isfinite(frame) && std::isfinite(terms);
    return refused(bFinite && reason != none ? reason : GAN_CAMERA_NOT_FINITE, failure);
}

// Neither is 0 or not finite. A product with 0 is 0 for a finite number only, and so is the sum of such.
bool isUsable(Gan_Camera const & camera, double x, double y) {
    double const frame = camera.fx * camera.fy * camera.zh;
    return frame != 0.0 && frame * 0.0 + x * 0.0 + y * 0.0 == 0.0;
}

template <class Lens>
int project(Gan_Camera const * camera, Gan_Vector3 const * from, Gan_Vector3 * to, Gan_Matrix22 * derivative,
            Gan_CameraFailure * failure) {
    if (from->z == 0.0)
        return refused(GAN_CAMERA_ZERO_DEPTH, failure);
    double x = from->x / from->z;
    double y = from->y / from->z;
    Gan_Matrix22 byRay;
    Gan_CameraFailure const reason = Lens::distort(*camera, x, y, derivative ? &byRay : nullptr);
    double const imageX = camera->fx * x + camera->x0;
    double const imageY = camera->fy * y + camera->y0;
    if (reason != none || !isUsable(*camera, imageX, imageY))
        return refusedAt(*camera, *from, reason, failure);
    *to = {imageX, imageY, camera->zh};
    if (derivative)
        *derivative = {camera->fx * byRay.xx, camera->fx * byRay.xy, camera->fy * byRay.yx, camera->fy * byRay.yy};
    if (failure)
        *failure = none;
    return 1;
}

template <class Lens>
int backproject(Gan_Camera const * camera, Gan_Vector3 const * from, Gan_Vector3 * to, Gan_Matrix22 * derivative,
                Gan_CameraFailure * failure) {
    double imageX = from->x;
    double imageY = from->y;
    if (from->z != camera->zh) {
        if (from->z == 0.0)
            return refused(GAN_CAMERA_ZERO_DEPTH, failure);
        imageX *= camera->zh / from->z;
        imageY *= camera->zh / from->z;
    }
    double x = (imageX - camera->x0) / camera->fx;
    double y = (imageY - camera->y0) / camera->fy;
    Gan_Matrix22 byRay;
    Gan_CameraFailure const reason = Lens::undistort(*camera, x, y, derivative ? &byRay : nullptr);
    if (reason != none || !isUsable(*camera, x, y))
        return refusedAt(*camera, *from, reason, failure);
    *to = {x, y, 1.0};
    if (derivative)
        *derivative = {byRay.xx / camera->fx, byRay.xy / camera->fy, byRay.yx / camera->fx, byRay.yy / camera->fy};
    if (failure)
        *failure = none;
    return 1;
}

template <class Lens>
void setLens(Gan_Camera & camera) {
    camera.project = project<Lens>;
    camera.backproject = backproject<Lens>;
}

void setBranch(Gan_Camera & camera, double k2, double k3) {
    double const k1 = camera.distortion[0];
    double const end = radialBranchEnd(k1, k2, k3);
    double const factor = radialFactor(k1, k2, k3, end);
    camera.branchEnd = end;
    camera.imageEnd = std::isinf(end) ? end : end * factor * factor;
}

bool setMaps(Gan_Camera & camera) {
    bool const bDirect = isDistortionMap(camera.directMap);
    bool const bInverse = isDistortionMap(camera.inverseMap);
    if (bDirect && bInverse)
        setLens<MapLens<&Gan_Camera::directMap, &Gan_Camera::inverseMap>>(camera);
    else if (bDirect)
        setLens<MapLens<&Gan_Camera::directMap, nullptr>>(camera);
    else if (bInverse)
        setLens<MapLens<nullptr, &Gan_Camera::inverseMap>>(camera);
    return bDirect || bInverse;
}

// Whether the camera's own model could be set up.
bool setModel(Gan_Camera & camera) {
    switch (camera.type) {
    case GAN_CAMERA_LINEAR:
        return true;
    case GAN_CAMERA_RADIAL_1:
        setLens<OneTermLens>(camera);
        return true;
    case GAN_CAMERA_RADIAL_2:
        setBranch(camera, camera.distortion[1], 0.0);
        setLens<RadialLens<2>>(camera);
        return true;
    case GAN_CAMERA_RADIAL_3:
        setBranch(camera, camera.distortion[1], camera.distortion[2]);
        setLens<RadialLens<3>>(camera);
        return true;
    case GAN_CAMERA_RADIAL_1_INVERSE:
        setLens<InverseLens<OneTermLens>>(camera);
        return true;
    case GAN_CAMERA_RADIAL_2_INVERSE:
        setBranch(camera, camera.distortion[1], 0.0);
        setLens<InverseLens<RadialLens<2>>>(camera);
        return true;
    case GAN_CAMERA_ANAMORPHIC:
        setLens<PlaneLens<anamorphicOf>>(camera);
        return true;
    case GAN_CAMERA_BSPLINE:
        if (camera.weight)
            setLens<PlaneLens<splineOf>>(camera);
        return camera.weight != nullptr;
    case GAN_CAMERA_BSPLINE_INVERSE:
        if (camera.weight)
            setLens<InverseLens<PlaneLens<splineOf>>>(camera);
        return camera.weight != nullptr;
    case GAN_CAMERA_DISTORTION_MAP:
        return setMaps(camera);
    }
    return false;
}
} // namespace

extern "C" {
int gan_camera_internalize(Gan_Camera * camera) {
    camera->branchEnd = std::numeric_limits<double>::infinity();
    camera->imageEnd = camera->branchEnd;
    setLens<LinearLens>(*camera);
    return setModel(*camera) ? 1 : 0;
}
}
