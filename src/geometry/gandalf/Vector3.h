#pragma once

/// A point or direction in space, or a point of a plane in homogeneous coordinates (z last).
struct Gan_Vector3 {
    double x;
    double y;
    double z;
};
