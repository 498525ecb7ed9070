#pragma once

#include "geometry/gandalf/Image.h"
#include "geometry/gandalf/PlaneDistortion.h"

namespace VX::detail {
/// Whether an image can serve as a distortion map: not null, with pixels, of the format GAN_IMAGE_FORMAT_VECTOR_2 and
/// the type GAN_TYPE_FLOAT, at least one pixel each way and at most 2^30, its rows not overlapping.
bool isDistortionMap(Gan_Image const * image);

/// Adds to a point the offset that a map has there. Points and offsets are in the map's own pixels from its top left
/// corner, so that the pixel at column i and row j has its centre at (i + 0.5, j + 0.5); an offset in the map is a
/// fraction of the map's width, in both of its channels. Between the centres offsets are bilinear, beyond the outermost
/// they stay what they are at the edge.
struct MapDistortion {
    Gan_Image const * image;

    /// One-to-one is taken to be where the derivative's determinant is positive.
    DistortedPoint operator()(double x, double y) const;
};

/// The point that the map takes to (x, y): by Newton's method and, where a fold between cells or a rough map defeats
/// it, by trying the cells up to 32 around (x, y) and around where Newton's method stopped. Not found where none of
/// them holds it.
UndistortedPoint undistorted(MapDistortion const & map, double x, double y);
} // namespace VX::detail
