#include "geometry/gandalf/LineFeatureMap.h"

#include "geometry/gandalf/ErrorTrace.h"

#include <algorithm>
#include <cmath>

extern "C" {
Gan_LineFeatureMap * gan_line_feature_map_alloc() {
    return new Gan_LineFeatureMap;
}

int gan_line_feature_map_add(Gan_LineFeatureMap * map, Gan_Vector2 const * points, std::size_t count) {
    bool const bLine = count >= 2 && std::all_of(points, points + count, [](Gan_Vector2 const & point) {
                           return std::isfinite(point.x) && std::isfinite(point.y);
                       });
    if (!bLine) {
        gan_err_register("gan_line_feature_map_add", "a line needs two or more finite points");
        return 0;
    }
    map->lines.push_back({{points, points + count}});
    return 1;
}

Gan_LineFeatureMap * gan_line_feature_map_copy(Gan_LineFeatureMap const * map) {
    return map ? new Gan_LineFeatureMap(*map) : nullptr;
}

void gan_line_feature_map_free(Gan_LineFeatureMap * map) {
    delete map;
}
}
