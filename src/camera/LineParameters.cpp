#include "camera/LineParameters.h"

#include "geometry/gandalf/LineFeatureMap.h"

#include <utility>

VX_LineParameters::VX_LineParameters(VX_LineParameters const & other)
    : pLines(gan_line_feature_map_copy(other.pLines)), iIdentifier(other.iIdentifier) {}

VX_LineParameters & VX_LineParameters::operator=(VX_LineParameters const & other) {
    VX_LineParameters copy(other);
    std::swap(pLines, copy.pLines);
    iIdentifier = copy.iIdentifier;
    return *this;
}

VX_LineParameters::~VX_LineParameters() {
    gan_line_feature_map_free(pLines);
}
