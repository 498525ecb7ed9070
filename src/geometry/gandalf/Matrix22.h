#pragma once

/// A general 2 by 2 matrix in row order: xy is row x, column y.
struct Gan_Matrix22 {
    double xx, xy;
    double yx, yy;
};
