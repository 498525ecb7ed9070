#pragma once

/// A point or direction in a plane.
struct Gan_Vector2 {
    double x;
    double y;
};
