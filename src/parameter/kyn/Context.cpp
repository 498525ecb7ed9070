#include "parameter/kyn/Context.h"

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
    double const time = time_.toDouble();
    if (!(time > 0.0))
        return Frame(0);
    if (time >= static_cast<double>(std::numeric_limits<unsigned int>::max()))
        return Frame(std::numeric_limits<unsigned int>::max());
    return Frame(static_cast<unsigned int>(time));
}

} // namespace Kyn
