#include "geometry/gandalf/BSplineDistortion.h"

namespace {
constexpr int gridSize = static_cast<int>(GAN_BSPLINE_GRID_SIZE);

// The four pieces of the cubic B-spline that reach a place, and their slopes; `first` is the grid index of the first.
struct Pieces {
    int first;
    double value[4];
    double slope[4];
};

// `place` is in grid steps and between -4 and 21.
Pieces piecesAt(double place) {
    double const cell = std::floor(place);
    double const t = place - cell;
    double const u = 1.0 - t;
    return {static_cast<int>(cell) - 1,
            {u * u * u / 6.0, (4.0 + t * t * (3.0 * t - 6.0)) / 6.0, (4.0 + u * u * (3.0 * u - 6.0)) / 6.0,
             t * t * t / 6.0},
            {-0.5 * u * u, t * (1.5 * t - 2.0), -u * (1.5 * u - 2.0), 0.5 * t * t}};
}

bool isNearGrid(double place) {
    return place > -3.0 && place < gridSize + 2.0;
}
} // namespace

namespace VX::detail {
DistortedPoint BSplineDistortion::operator()(double x, double y) const {
    constexpr double stepsPerUnit = 7.0;
    constexpr double middle = 8.0;
    double const column = middle + stepsPerUnit * scale * x;
    double const row = middle + stepsPerUnit * scale * y;
    DistortedPoint result{x, y, {1.0, 0.0, 0.0, 1.0}, true};
    if (!std::isfinite(column) || !std::isfinite(row)) {
        result.bOneToOne = false;
        return result;
    }
    if (!isNearGrid(column) || !isNearGrid(row))
        return result;
    Pieces const across = piecesAt(column);
    Pieces const down = piecesAt(row);
    double const slopeUnit = stepsPerUnit * scale;
    for (int n = 0; n < 4; ++n) {
        int const i = down.first + n;
        for (int k = 0; k < 4; ++k) {
            int const j = across.first + k;
            if (i < 0 || i >= gridSize || j < 0 || j >= gridSize)
                continue;
            double const * const weight = &weights->element[2 * (gridSize * i + j)];
            double const value = across.value[k] * down.value[n];
            double const byX = slopeUnit * across.slope[k] * down.value[n];
            double const byY = slopeUnit * across.value[k] * down.slope[n];
            result.x += weight[0] * value;
            result.y += weight[1] * value;
            result.derivative.xx += weight[0] * byX;
            result.derivative.xy += weight[0] * byY;
            result.derivative.yx += weight[1] * byX;
            result.derivative.yy += weight[1] * byY;
        }
    }
    result.bOneToOne = determinant(result.derivative) > 0.0;
    return result;
}
} // namespace VX::detail
