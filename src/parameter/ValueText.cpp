#include "parameter/ValueText.h"

#include "foundation/DecimalDigit.h"
#include "parameter/PlainNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace Kyn {

QTextStream & operator<<(QTextStream & stream, bool const & value) {
    return stream << QLatin1Char(value ? '1' : '0');
}

QTextStream & operator>>(QTextStream & stream, bool & value) {
    stream.skipWhiteSpace();
    qint64 const start = stream.pos();
    QString word;
    stream >> word;
    if (word.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) {
        value = true;
    } else if (word.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) {
        value = false;
    } else {
        double number = 0.0;
        stream.seek(start);
        stream >> number;
        value = number != 0.0;
    }
    return stream;
}

QTextStream & operator<<(QTextStream & stream, unsigned char const & value) {
    return stream << static_cast<unsigned int>(value);
}

QTextStream & operator>>(QTextStream & stream, unsigned char & value) {
    unsigned int number = 0;
    stream >> number;
    value = static_cast<unsigned char>(number & 0xFFu);
    return stream;
}

} // namespace Kyn

namespace Kyn::detail {

namespace {

constexpr int SIGNIFICANT = 6;

bool isPlainReal(QStringView text, double & number) {
    char16_t const * at = text.utf16();
    char16_t const * const end = at + text.size();
    return scanPlainReal(at, end, number) && at == end;
}

/// The shortest digits that bring a finite number back, and the power of ten of the first.
struct Digits {
    std::array<char, 24> digits;
    int count = 0;
    int exponent = 0;
};

Digits shortestDigits(double magnitude) {
    std::array<char, 40> text;
    char * const end =
        std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific).ptr;
    Digits found;
    char const * at = text.data();
    for (; *at != 'e'; ++at)
        if (*at != '.')
            found.digits[static_cast<std::size_t>(found.count++)] = *at;
    ++at;
    if (*at == '+')
        ++at;
    std::from_chars(at, end, found.exponent);
    return found;
}

/// Cuts to six digits. Rounding the shortest digits rounds the number itself: were a tie of six digits between the two,
/// it would be the shorter text. Only the tie itself is not settled here: false.
bool roundToSix(Digits & number) {
    if (number.count > SIGNIFICANT) {
        char const next = number.digits[SIGNIFICANT];
        if (next == '5' && number.count == SIGNIFICANT + 1)
            return false;
        number.count = SIGNIFICANT;
        if (next >= '5') {
            int at = SIGNIFICANT - 1;
            while (at >= 0 && number.digits[static_cast<std::size_t>(at)] == '9')
                --at;
            if (at < 0) {
                number.digits[0] = '1';
                number.count = 1;
                ++number.exponent;
                return true;
            }
            ++number.digits[static_cast<std::size_t>(at)];
            number.count = at + 1;
        }
    }
    while (number.count > 1 && number.digits[static_cast<std::size_t>(number.count - 1)] == '0')
        --number.count;
    return true;
}

int writeExponent(char * out, int exponent) {
    int length = 0;
    out[length++] = 'e';
    out[length++] = exponent < 0 ? '-' : '+';
    int const magnitude = std::abs(exponent);
    if (magnitude < 10)
        out[length++] = '0';
    return static_cast<int>(std::to_chars(out + length, out + length + 4, magnitude).ptr - out);
}

/// The 'g' form: fixed for exponents from -4 to 5, otherwise scientific; no zeros behind the last digit.
int writeGeneral(char * out, Digits const & number) {
    int length = 0;
    if (number.exponent < -4 || number.exponent >= SIGNIFICANT) {
        out[length++] = number.digits[0];
        if (number.count > 1)
            out[length++] = '.';
        for (int i = 1; i < number.count; ++i)
            out[length++] = number.digits[static_cast<std::size_t>(i)];
        return length + writeExponent(out + length, number.exponent);
    }
    if (number.exponent < 0) {
        out[length++] = '0';
        out[length++] = '.';
        for (int i = -1; i > number.exponent; --i)
            out[length++] = '0';
    }
    for (int i = 0; i < std::max(number.count, number.exponent + 1); ++i) {
        if (i > 0 && i == number.exponent + 1)
            out[length++] = '.';
        out[length++] = i < number.count ? number.digits[static_cast<std::size_t>(i)] : '0';
    }
    return length;
}

} // namespace

void TextBuffer::append(char const * ascii, int length) {
    qsizetype const start = buffer_.size();
    buffer_.resize(start + length);
    for (int i = 0; i < length; ++i)
        buffer_[start + i] = static_cast<unsigned char>(ascii[i]);
}

void TextBuffer::append(QStringView text) {
    buffer_.append(text.utf16(), text.size());
}

void TextBuffer::append(double number) {
    std::array<char, 40> text;
    int length = 0;
    if (number == 0.0) { // Qt writes no sign on a zero.
        append("0");
        return;
    }
    if (std::isnormal(number)) { // The shortest digits of the smallest numbers are fewer than their six.
        Digits digits = shortestDigits(std::fabs(number));
        if (roundToSix(digits)) {
            if (number < 0.0)
                text[static_cast<std::size_t>(length++)] = '-';
            length += writeGeneral(text.data() + length, digits);
            append(text.data(), length);
            return;
        }
    }
    append(QStringView(QString::number(number, 'g', SIGNIFICANT)));
}

void TextBuffer::append(int number) {
    std::array<char, 16> text;
    append(text.data(),
           static_cast<int>(std::to_chars(text.data(), text.data() + text.size(), number).ptr - text.data()));
}

void TextBuffer::append(unsigned int number) {
    std::array<char, 16> text;
    append(text.data(),
           static_cast<int>(std::to_chars(text.data(), text.data() + text.size(), number).ptr - text.data()));
}

double readReal(QStringView text) {
    double number = 0.0;
    return isPlainReal(text, number) ? number : readThroughStream<double>(text);
}

double wholeToDouble(QStringView text) {
    double number = 0.0;
    return isPlainReal(text, number) ? number : text.toDouble();
}

float wholeToFloat(QStringView text) {
    double number = 0.0;
    bool const fits =
        isPlainReal(text, number) && std::fabs(number) <= static_cast<double>(std::numeric_limits<float>::max());
    float const narrow = fits ? static_cast<float>(number) : 0.0f;
    return narrow != 0.0f ? narrow : text.toFloat(); // Zeros, too: Qt drops the sign of what is too small.
}

bool isPlainInteger(QStringView text, int & number) {
    constexpr qsizetype MOST_DIGITS = 9;
    bool const negative = text.startsWith(QLatin1Char('-'));
    QStringView const digits = negative ? text.mid(1) : text;
    if (digits.isEmpty() || digits.size() > MOST_DIGITS || (digits.size() > 1 && digits[0] == u'0'))
        return false;
    int value = 0;
    for (QChar const c : digits) {
        if (!VX::detail::isDecimalDigit(c.unicode()))
            return false;
        value = value * 10 + (c.unicode() - u'0');
    }
    number = negative ? -value : value;
    return true;
}

QStringView withoutQuotes(QStringView text) {
    bool const quoted = text.startsWith(QLatin1Char('"')) && text.endsWith(QLatin1Char('"'));
    if (!quoted)
        return text;
    return text.size() < 2 ? QStringView() : text.mid(1, text.size() - 2);
}

} // namespace Kyn::detail
