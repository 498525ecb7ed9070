#include "clip/InterlaceMode.h"

#include "foundation/Saturation.h"

#include <QSize>

namespace VX {
namespace {
bool isBetween(VX_INTERLACE_MODE first, VX_INTERLACE_MODE eMode, VX_INTERLACE_MODE last) {
    return first <= eMode && eMode <= last;
}
} // namespace

bool bIsInterlaced(VX_INTERLACE_MODE eMode) {
    return isBetween(VX_INTERLACE_MODE_UPPER_FIELD_FIRST, eMode, VX_INTERLACE_MODE_LOWER_FIELD_FIRST);
}

bool bIs32Pulldown(VX_INTERLACE_MODE eMode) {
    return isBetween(VX_INTERLACE_MODE_PULLDOWN_UPPER_1, eMode, VX_INTERLACE_MODE_PULLDOWN_LOWER_5);
}

bool bIsUpperFieldFirst(VX_INTERLACE_MODE eMode) {
    return eMode == VX_INTERLACE_MODE_UPPER_FIELD_FIRST ||
           isBetween(VX_INTERLACE_MODE_PULLDOWN_UPPER_1, eMode, VX_INTERLACE_MODE_PULLDOWN_UPPER_5);
}

bool bIsLowerFieldFirst(VX_INTERLACE_MODE eMode) {
    return eMode == VX_INTERLACE_MODE_LOWER_FIELD_FIRST ||
           isBetween(VX_INTERLACE_MODE_PULLDOWN_LOWER_1, eMode, VX_INTERLACE_MODE_PULLDOWN_LOWER_5);
}

bool bHasFields(VX_INTERLACE_MODE eMode) {
    return eMode != VX_INTERLACE_MODE_PROGRESSIVE;
}

QSize frameSizeOfField(QSize const & field) {
    return QSize(field.width(), detail::saturated<int>(2.0 * field.height()));
}
} // namespace VX
