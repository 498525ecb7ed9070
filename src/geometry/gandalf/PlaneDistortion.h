#pragma once

#include "geometry/gandalf/Matrix22.h"

#include <cmath>

/// Distortions of the plane that are no function of the radius alone, and how they are undone.
namespace VX::detail {
/// What a distortion makes of a point.
struct DistortedPoint {
    double x, y;
    Gan_Matrix22 derivative; ///< of (x, y) by the point that was distorted
    bool bOneToOne;          ///< whether that point lies where the distortion has one way back
};

inline double determinant(Gan_Matrix22 const & m) {
    return m.xx * m.yy - m.xy * m.yx;
}

/// The matrix's inverse; with elements that are not finite where there is none.
inline Gan_Matrix22 inverse(Gan_Matrix22 const & m) {
    double const det = determinant(m);
    return {m.yy / det, -m.xy / det, -m.yx / det, m.xx / det};
}

/// A point that a distortion takes to a given one, and the derivative of the distortion there.
struct UndistortedPoint {
    double x, y;
    Gan_Matrix22 derivative;
    bool bFound;
};

/// One run of Newton's method towards the point that `distort`, a function of (x, y) that gives a DistortedPoint, takes
/// to (x, y), from `start`. A step that would leave the one-to-one range, or not lessen what is left, is halved. Ends
/// when a step is below `tolerance` times sqrt(1 + x^2 + y^2), after which what is left is of the size of the step's
/// square; and without a result after 50 evaluations.
template <class Distort>
UndistortedPoint undistortedFrom(UndistortedPoint const & start, Distort const & distort, double x, double y,
                                 double tolerance) {
    UndistortedPoint point{start.x, start.y, {}, false};
    DistortedPoint here = distort(point.x, point.y);
    int evaluations = 1;
    auto const squaredMiss = [=](DistortedPoint const & p) { return (x - p.x) * (x - p.x) + (y - p.y) * (y - p.y); };
    while (here.bOneToOne && evaluations < 50) {
        Gan_Matrix22 const back = inverse(here.derivative);
        double const stepX = back.xx * (x - here.x) + back.xy * (y - here.y);
        double const stepY = back.yx * (x - here.x) + back.yy * (y - here.y);
        double const squaredStep = stepX * stepX + stepY * stepY;
        if (!std::isfinite(squaredStep))
            break;
        bool const bLast = squaredStep <= tolerance * tolerance * (1.0 + point.x * point.x + point.y * point.y);
        DistortedPoint next{};
        double part = 2.0;
        do {
            part *= 0.5;
            next = distort(point.x + part * stepX, point.y + part * stepY);
            ++evaluations;
        } while (!bLast && evaluations < 50 && !(next.bOneToOne && squaredMiss(next) < squaredMiss(here)));
        point.x += part * stepX;
        point.y += part * stepY;
        here = next;
        if (bLast) {
            point.derivative = here.derivative;
            point.bFound = here.bOneToOne;
            break;
        }
    }
    return point;
}

/// Undoes a distortion by Newton's method from the linear solution, (x, y) itself. Where that fails, by as many runs as
/// it takes to walk the image in sixteen steps from the axis to (x, y), each from where the last one ended: on that way
/// the point stays on the branch of the axis. Not found where neither ends there.
template <class Distort>
UndistortedPoint undistorted(Distort const & distort, double x, double y, double tolerance) {
    UndistortedPoint point = undistortedFrom({x, y, {}, false}, distort, x, y, tolerance);
    if (point.bFound || !std::isfinite(x) || !std::isfinite(y))
        return point;
    DistortedPoint const axis = distort(0.0, 0.0);
    UndistortedPoint walker{0.0, 0.0, {}, true};
    constexpr int steps = 16;
    for (int i = 1; i <= steps && walker.bFound; ++i) {
        double const part = static_cast<double>(i) / steps;
        walker =
            undistortedFrom(walker, distort, axis.x + part * (x - axis.x), axis.y + part * (y - axis.y), tolerance);
    }
    return walker.bFound ? walker : point;
}

/// x (1 + cxx x^2 + cxy y^2), y (1 + cyx x^2 + cyy y^2).
///
/// Along the line from the axis to (x, y), at the part t of the way, the derivative's determinant is
/// 1 + (A + D) t^2 + (A D - 4 cxy cyx x^2 y^2) t^4 with A = 3 cxx x^2 + cxy y^2 and D = cyx x^2 + 3 cyy y^2. The
/// one-to-one range is where it stays above 0 all the way: beyond a fold it may be positive again, on a sheet that lies
/// over the picture. Terms of mixed sign that come to more than about 0.5 at the picture's corner may lay two points of
/// that range over one another all the same; one of them is then the answer for both.
struct AnamorphicDistortion {
    double cxx, cxy, cyx, cyy;

    DistortedPoint operator()(double x, double y) const {
        double const xx = x * x;
        double const yy = y * y;
        double const factorX = cxx * xx + cxy * yy;
        double const factorY = cyx * xx + cyy * yy;
        double const a = factorX + 2.0 * cxx * xx;
        double const d = factorY + 2.0 * cyy * yy;
        double const linear = a + d;
        double const square = a * d - 4.0 * cxy * cyx * xx * yy;
        bool const bEndPositive = 1.0 + linear + square > 0.0;
        bool const bDipsBelow =
            square > 0.0 && linear < 0.0 && -linear < 2.0 * square && linear * linear >= 4.0 * square;
        return {x + x * factorX,
                y + y * factorY,
                {1.0 + a, 2.0 * cxy * x * y, 2.0 * cyx * x * y, 1.0 + d},
                bEndPositive && !bDipsBelow};
    }
};
} // namespace VX::detail
