#pragma once

/// Which lens model a Gan_Camera applies between a ray and an image point.
///
/// 16 values, 0 to 15; any 32 bits may be stored, and a value without a name here is carried unchanged and maps as the
/// linear model. r is the distance from the axis at (X/Z, Y/Z).
enum Gan_CameraType : unsigned int {
    GAN_CAMERA_LINEAR = 0,            ///< no distortion
    GAN_CAMERA_RADIAL_1 = 1,          ///< times 1 + k1 r^2
    GAN_CAMERA_RADIAL_2 = 2,          ///< times 1 + k1 r^2 + k2 r^4
    GAN_CAMERA_RADIAL_3 = 3,          ///< times 1 + k1 r^2 + k2 r^4 + k3 r^6
    GAN_CAMERA_RADIAL_1_INVERSE = 4,  ///< the one-term polynomial, from distorted to undistorted
    GAN_CAMERA_ANAMORPHIC = 9,        ///< x (1 + cxx x^2 + cxy y^2), y (1 + cyx x^2 + cyy y^2)
    GAN_CAMERA_BSPLINE = 12,          ///< cubic B-spline offsets on a grid of 17 by 17
    GAN_CAMERA_BSPLINE_INVERSE = 13,  ///< the same grid, from distorted to undistorted
    GAN_CAMERA_RADIAL_2_INVERSE = 14, ///< the two-term polynomial, from distorted to undistorted
    GAN_CAMERA_DISTORTION_MAP = 15,   ///< offsets looked up in images, one for each direction
};
