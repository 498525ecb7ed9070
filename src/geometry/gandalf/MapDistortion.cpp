#include "geometry/gandalf/MapDistortion.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {
using VX::detail::DistortedPoint;
using VX::detail::MapDistortion;
using VX::detail::UndistortedPoint;

struct Offset {
    float x, y;
};

Offset offsetAt(Gan_Image const & image, int column, int row) {
    auto const * const pixel = static_cast<unsigned char const *>(image.pixels) +
                               static_cast<std::size_t>(row) * image.stride +
                               static_cast<std::size_t>(column) * sizeof(Offset);
    Offset offset;
    std::memcpy(&offset, pixel, sizeof offset);
    return offset;
}

int lastColumn(Gan_Image const & image) {
    return static_cast<int>(image.width) - 1;
}

int lastRow(Gan_Image const & image) {
    return static_cast<int>(image.height) - 1;
}

// The cell between pixel centres that a coordinate lies in: -1 before the first centre, `last` from the last one on.
int cellAt(double coordinate, int last) {
    return static_cast<int>(std::floor(std::clamp(coordinate - 0.5, -1.0, static_cast<double>(last))));
}

// The offsets of a cell carried on over the whole plane. A cell beyond the edge has the edge's pixels on either side,
// so that across it nothing changes.
DistortedPoint distortedByCell(Gan_Image const & image, int column, int row, double x, double y) {
    int const left = std::max(column, 0);
    int const top = std::max(row, 0);
    int const right = std::min(column + 1, lastColumn(image));
    int const bottom = std::min(row + 1, lastRow(image));
    Offset const o00 = offsetAt(image, left, top);
    Offset const o10 = offsetAt(image, right, top);
    Offset const o01 = offsetAt(image, left, bottom);
    Offset const o11 = offsetAt(image, right, bottom);
    double const fx = x - 0.5 - column;
    double const fy = y - 0.5 - row;
    auto const bilinear = [=](float v00, float v10, float v01, float v11) {
        double const a = v00;
        double const b = static_cast<double>(v10) - a;
        double const c = static_cast<double>(v01) - a;
        double const d = static_cast<double>(v11) - v01 - b;
        struct {
            double value, byX, byY;
        } const result{a + b * fx + c * fy + d * fx * fy, b + d * fy, c + d * fx};
        return result;
    };
    double const width = image.width;
    auto const offsetX = bilinear(o00.x, o10.x, o01.x, o11.x);
    auto const offsetY = bilinear(o00.y, o10.y, o01.y, o11.y);
    DistortedPoint point{
        x + width * offsetX.value,
        y + width * offsetY.value,
        {1.0 + width * offsetX.byX, width * offsetX.byY, width * offsetY.byX, 1.0 + width * offsetY.byY},
        false};
    point.bOneToOne = VX::detail::determinant(point.derivative) > 0.0;
    return point;
}

// The point of one cell that goes to (x, y). Within a cell the distortion is bilinear, and where it is one-to-one a few
// steps of Newton's method from the middle find it.
UndistortedPoint foundInCell(Gan_Image const & image, int column, int row, double x, double y) {
    double px = column + 1.0;
    double py = row + 1.0;
    UndistortedPoint const none{x, y, {}, false};
    double size = 0.0;
    for (int i = 0; i < 8; ++i) {
        DistortedPoint const here = distortedByCell(image, column, row, px, py);
        if (!here.bOneToOne)
            return none;
        Gan_Matrix22 const back = VX::detail::inverse(here.derivative);
        double const stepX = back.xx * (x - here.x) + back.xy * (y - here.y);
        double const stepY = back.yx * (x - here.x) + back.yy * (y - here.y);
        px += stepX;
        py += stepY;
        size = std::hypot(stepX, stepY);
        if (!(size > 1e-9))
            break;
    }
    // Neighbours share their edge: a point on it may be found a rounding outside either.
    constexpr double slack = 1e-9;
    auto const isIn = [](double coordinate, int cell, int last) {
        double const place = coordinate - 0.5;
        return (cell < 0 || place >= cell - slack) && (cell >= last || place <= cell + 1.0 + slack);
    };
    if (!(size <= 1e-9) || !isIn(px, column, lastColumn(image)) || !isIn(py, row, lastRow(image)))
        return none;
    DistortedPoint const here = distortedByCell(image, column, row, px, py);
    return {px, py, here.derivative, here.bOneToOne};
}

// The cells around a point, ring by ring.
UndistortedPoint foundAround(Gan_Image const & image, double startX, double startY, double x, double y) {
    int const column = cellAt(startX, lastColumn(image));
    int const row = cellAt(startY, lastRow(image));
    for (int ring = 0; ring <= 32; ++ring) {
        for (int j = std::max(row - ring, -1); j <= std::min(row + ring, lastRow(image)); ++j) {
            bool const bWholeRow = std::abs(j - row) == ring;
            int const stride = bWholeRow || ring == 0 ? 1 : 2 * ring;
            for (int i = column - ring; i <= column + ring; i += stride) {
                if (i < -1 || i > lastColumn(image))
                    continue;
                UndistortedPoint const point = foundInCell(image, i, j, x, y);
                if (point.bFound)
                    return point;
            }
        }
    }
    return {x, y, {}, false};
}
} // namespace

namespace VX::detail {
bool isDistortionMap(Gan_Image const * image) {
    constexpr unsigned int largest = 1u << 30;
    return image && image->pixels && image->format == GAN_IMAGE_FORMAT_VECTOR_2 && image->type == GAN_TYPE_FLOAT &&
           image->width > 0 && image->width <= largest && image->height > 0 && image->height <= largest &&
           image->stride >= image->width * sizeof(Offset);
}

DistortedPoint MapDistortion::operator()(double x, double y) const {
    if (!std::isfinite(x) || !std::isfinite(y))
        return {x, y, {}, false};
    return distortedByCell(*image, cellAt(x, lastColumn(*image)), cellAt(y, lastRow(*image)), x, y);
}

UndistortedPoint undistorted(MapDistortion const & map, double x, double y) {
    // Below this step the next would be one of rounding, also across the edge of a cell.
    constexpr double tolerance = 1e-12;
    UndistortedPoint const point = undistortedFrom({x, y, {}, false}, map, x, y, tolerance);
    if (point.bFound || !std::isfinite(x) || !std::isfinite(y))
        return point;
    UndistortedPoint const nearby = foundAround(*map.image, x, y, x, y);
    if (nearby.bFound || !std::isfinite(point.x) || !std::isfinite(point.y))
        return nearby;
    return foundAround(*map.image, point.x, point.y, x, y);
}
} // namespace VX::detail
