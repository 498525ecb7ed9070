#include "parameter/kyn/Context.h"

#include "foundation/Saturation.h"

#include <QTextStream>

#include <limits>

namespace Kyn {

const double Time::INVALID_TIME_VALUE = std::numeric_limits<double>::lowest();
const unsigned int Frame::INVALID_FRAME_VALUE = 0xFFFFFFFFu;

VX_ENUMERATION_TEXT_DEFINITION(ProxyScale::Enum, Int, Int)

QTextStream & operator<<(QTextStream & stream, Frame const & frame) {
    return stream << frame.toUInt();
}

Frame Context::toFrame() const {
    return Frame(VX::detail::saturated<unsigned int>(time_.toDouble()));
}

} // namespace Kyn
