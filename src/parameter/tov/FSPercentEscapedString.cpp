#include "parameter/tov/FSPercentEscapedString.h"

namespace Tov {
namespace {
bool needsEscape(QChar character) {
    ushort const code = character.unicode();
    return code == '%' || code == '"' || code < 0x20 || code == 0x7f;
}

QString escaped(QString const & name) {
    constexpr char digits[] = "0123456789ABCDEF";
    QString text;
    text.reserve(name.size());
    for (QChar const character : name) {
        if (!needsEscape(character)) {
            text += character;
            continue;
        }
        ushort const code = character.unicode();
        text += QLatin1Char('%');
        text += QLatin1Char(digits[code / 16]);
        text += QLatin1Char(digits[code % 16]);
    }
    return text;
}

// 0 to 15, or -1 for what is no hexadecimal digit.
int hexadecimalValue(QChar character) {
    ushort const code = character.unicode();
    if (code >= '0' && code <= '9')
        return code - '0';
    if (code >= 'A' && code <= 'F')
        return code - 'A' + 10;
    if (code >= 'a' && code <= 'f')
        return code - 'a' + 10;
    return -1;
}
} // namespace

FSPercentEscapedString::FSPercentEscapedString(QString const & text, Safety const & safety)
    : m_text(safety == ESCAPE ? escaped(text) : text) {}

QString FSPercentEscapedString::unescaped() const {
    QString name;
    name.reserve(m_text.size());
    for (int i = 0; i < m_text.size(); ++i) {
        bool const bRoomForDigits = m_text.at(i) == QLatin1Char('%') && i + 2 < m_text.size();
        int const high = bRoomForDigits ? hexadecimalValue(m_text.at(i + 1)) : -1;
        int const low = bRoomForDigits ? hexadecimalValue(m_text.at(i + 2)) : -1;
        if (high < 0 || low < 0) {
            name += m_text.at(i);
            continue;
        }
        name += QChar(static_cast<ushort>(16 * high + low));
        i += 2;
    }
    return name;
}
} // namespace Tov
