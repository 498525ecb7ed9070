#include "foundation/EnumerationText.h"

namespace VX::detail {
QTextStream & readAsInt(QTextStream & stream, std::uint32_t & bits) {
    int number = 0;
    stream >> number;
    bits = static_cast<std::uint32_t>(number);
    return stream;
}

QTextStream & readAsUnsigned(QTextStream & stream, std::uint32_t & bits) {
    unsigned int number = 0;
    stream >> number;
    bits = number;
    return stream;
}

QTextStream & writeAsInt(QTextStream & stream, std::uint32_t bits) {
    return stream << static_cast<int>(bits);
}

QTextStream & writeAsUnsigned(QTextStream & stream, std::uint32_t bits) {
    return stream << static_cast<unsigned int>(bits);
}
} // namespace VX::detail
