#include "foundation/Rectangle.h"

#include "foundation/Saturation.h"

namespace VX {
namespace {
int cut(float edge) {
    return detail::saturated<int>(static_cast<double>(edge));
}
} // namespace

Rectangle::operator QRect() const {
    return QRect(QPoint(cut(left), cut(top)), QPoint(cut(right), cut(bottom)));
}
} // namespace VX
