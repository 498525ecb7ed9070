#pragma once

/// Grid points in a row and in a column of the spline camera models.
constexpr unsigned int GAN_BSPLINE_GRID_SIZE = 17;

/// The offsets of a spline camera's 17 by 17 grid points, two for each: x, then y. Row i and column j stand at
/// 2 (17 i + j); rows go down the frame, columns across. Offsets are in units of X/Z and Y/Z. Camera.h says where the
/// grid points lie.
struct Gan_CubicBSplineWeights {
    double element[2 * GAN_BSPLINE_GRID_SIZE * GAN_BSPLINE_GRID_SIZE];
};
