#pragma once

#include "geometry/gandalf/CameraType.h"
#include "geometry/gandalf/CubicBSplineWeights.h"
#include "geometry/gandalf/Image.h"
#include "geometry/gandalf/Matrix22.h"
#include "geometry/gandalf/Vector3.h"

struct Gan_Camera;

/// Why a camera could not carry a point.
enum Gan_CameraFailure : unsigned int {
    GAN_CAMERA_NO_FAILURE = 0,
    GAN_CAMERA_ZERO_DEPTH = 1,         ///< the point's third coordinate is 0: it is at infinity, or beside the camera
    GAN_CAMERA_OUTSIDE_ONE_TO_ONE = 2, ///< where the distortion folds the picture, or beyond: there is no one answer
    GAN_CAMERA_NOT_FINITE = 3,         ///< the point, the camera or the result; or a focal length or zh of 0
};

extern "C" {
/// Carries a point and returns 1, or returns 0 with `to` and `derivative` untouched. `from` and `to` may be the same.
///
/// `derivative` and `failure` may be null, and are so where only the point is wanted. `failure` takes the reason, or
/// GAN_CAMERA_NO_FAILURE. `derivative` takes, for project, that of the image point in pixels by the ray (X/Z, Y/Z); for
/// backproject that of the ray by the image point.
typedef int Gan_CameraPointFunction(Gan_Camera const * camera, Gan_Vector3 const * from, Gan_Vector3 * to,
                                    Gan_Matrix22 * derivative, Gan_CameraFailure * failure);
}

/// A camera with its lens. A plain value: copies share the weights and the maps that it points to, which must outlive
/// them all, and own nothing. A camera of zeros has no point functions.
///
/// Geometry. A scene point (X, Y, Z) is seen along the ray (x, y) = (X/Z, Y/Z), in front of the camera or behind it.
/// The lens moves it to (x', y'), and the image point is (fx x' + x0, fy y' + y0, zh): pixels, y down, and a third
/// homogeneous coordinate of its own. An image point whose third coordinate is not zh is brought to it first.
///
/// Lenses. With r^2 = x^2 + y^2, ki and c from `distortion` in their order:
///
/// | type | terms | (x', y') |
/// |---|---|---|
/// | linear | | (x, y) |
/// | radial 1, 2, 3 | k1, k2, k3 | (x, y) (1 + k1 r^2 + k2 r^4 + k3 r^6) |
/// | radial 1, 2 inverse | k1, k2 | (x, y) = (x', y') (1 + k1 r'^2 + k2 r'^4) |
/// | anamorphic | cxx, cxy, cyx, cyy | (x (1 + cxx x^2 + cxy y^2), y (1 + cyx x^2 + cyy y^2)) |
/// | B-spline | `weight` | (x, y) + S(x, y), BSplineDistortion.h |
/// | B-spline inverse | `weight` | (x, y) = (x', y') + S(x', y') |
/// | distortion map | `directMap`, `inverseMap` | offsets from the images, see below |
///
/// Inversion and range. Radial models are inverted along the branch that begins at the axis; where it ends is known in
/// closed form (RadialDistortion.h). The anamorphic and spline models, and maps, are inverted by Newton's method
/// (PlaneDistortion.h). All functions fail where the distortion is not one-to-one, and on anything that is not finite.
/// backproject undoes project to 1e-10 of a pixel, and project backproject, wherever the Jacobian of the distortion is
/// at least 0.05 of its value on the axis.
///
/// Maps. A map's pixel holds an offset as a fraction of the frame's width, x then y, as floats (MapDistortion.h). The
/// map covers the frame's width 2 zh, with pixels of the shape of the frame's, and its middle is the axis (x0, y0).
/// `directMap` says where an undistorted image point goes to, and serves project; `inverseMap` where a distorted one
/// came from, and serves backproject. Two maps are two functions, and undo each other only as well as they were made.
/// With one map alone the other direction inverts it. Without a map that can be read, the model is linear.
struct Gan_Camera {
    Gan_CameraType type;
    double zh;     ///< third homogeneous coordinate of image points; half of the frame's width where maps or splines
                   ///< are to cover the frame
    double fx, fy; ///< focal length in pixels across and down
    double x0, y0; ///< the axis in the image, pixels
    double distortion[4];
    Gan_CubicBSplineWeights * weight; ///< of the spline models
    void * weightOwner;               ///< whom the weights were borrowed from, for the caller's own use; not followed
    Gan_Image const * directMap;      ///< of the map model
    Gan_Image const * inverseMap;

    // Derived by gan_camera_internalize; stale once a member above is written, except zh, fx, fy, x0, y0 and the terms
    // of the models with one term or four.
    Gan_CameraPointFunction * project;     ///< a scene point to the image; the third coordinate of the result is zh
    Gan_CameraPointFunction * backproject; ///< an image point to the scene; the third coordinate of the result is 1
    double branchEnd; ///< radial models with two or three terms: squared radius at which the polynomial turns back
    double imageEnd;  ///< the squared radius that it makes of that
};

extern "C" {
/// Sets up the derived members by the others and returns 1. Returns 0 where the model falls back to the linear one, for
/// a type without a name, a spline without weights and maps of which neither can be read; `type` stays as it is.
/// Focal lengths, zh and terms are judged for each point, not here. Allocates nothing.
int gan_camera_internalize(Gan_Camera * camera);
}
