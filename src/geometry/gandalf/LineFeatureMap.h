#pragma once

#include "geometry/gandalf/Vector2.h"

#include <cstddef>
#include <vector>

/// A line that is straight in the scene, as points along its picture in the order they were drawn. Pixels, y down.
struct Gan_LineFeature {
    std::vector<Gan_Vector2> points; ///< two or more
};

/// The lines that a person has drawn on one frame.
struct Gan_LineFeatureMap {
    std::vector<Gan_LineFeature> lines;
};

extern "C" {
/// A map without lines. The caller owns it and frees it with gan_line_feature_map_free; so too for a copy.
Gan_LineFeatureMap * gan_line_feature_map_alloc();

/// Adds a line through `count` points and returns 1. Returns 0, with the map untouched, for fewer than two points and
/// for a coordinate that is not finite; the reason goes on the error trace.
int gan_line_feature_map_add(Gan_LineFeatureMap * map, Gan_Vector2 const * points, std::size_t count);

/// A new map with the same lines, which shares nothing with the first. A null pointer gives a null pointer.
Gan_LineFeatureMap * gan_line_feature_map_copy(Gan_LineFeatureMap const * map);

/// Frees a map and its lines. A null pointer is left alone.
void gan_line_feature_map_free(Gan_LineFeatureMap * map);
}
