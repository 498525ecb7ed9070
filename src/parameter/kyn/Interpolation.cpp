#include "parameter/kyn/Interpolation.h"

#include "foundation/DecimalDigit.h"

#include <array>

namespace Kyn {

namespace {

constexpr char16_t const * INTERPOLATION_WORDS[] = {u"None", u"Constant", u"Linear", u"Bezier"};
constexpr char16_t const * EXTRAPOLATION_WORDS[] = {u"None", u"Constant", u"Linear"};
constexpr QLatin1String CUSTOM("Custom");

template <std::size_t N>
QString wordOf(unsigned int number, char16_t const * const (&words)[N]) {
    if (number < N)
        return QString::fromUtf16(words[number]);
    return CUSTOM + QString::number(number - static_cast<unsigned int>(N));
}

/// The number behind "Custom": digits only, without leading zeros, and small enough to name a mode.
bool customNumber(QStringView digits, quint64 builtIn, unsigned int & number) {
    if (digits.isEmpty() || digits.size() > 10 || (digits.size() > 1 && digits[0] == u'0'))
        return false;
    quint64 value = 0;
    for (QChar const digit : digits) {
        if (!VX::detail::isDecimalDigit(digit.unicode()))
            return false;
        value = value * 10 + (digit.unicode() - u'0');
    }
    if (value + builtIn > 0xFFFFFFFFu)
        return false;
    number = static_cast<unsigned int>(value + builtIn);
    return true;
}

template <std::size_t N>
bool numberOf(QStringView word, char16_t const * const (&words)[N], unsigned int & number) {
    for (std::size_t i = 0; i < N; ++i) {
        if (word == QStringView(words[i])) {
            number = static_cast<unsigned int>(i);
            return true;
        }
    }
    return word.startsWith(CUSTOM) && customNumber(word.mid(CUSTOM.size()), N, number);
}

} // namespace

QString qstrInterpolationTypeString(Interpolation type) {
    return wordOf(type, INTERPOLATION_WORDS);
}

QString qstrExtrapolationTypeString(Extrapolation mode) {
    return wordOf(mode, EXTRAPOLATION_WORDS);
}

bool bStringToInterpolationType(QStringView word, Interpolation & type) {
    unsigned int number = 0;
    if (!numberOf(word, INTERPOLATION_WORDS, number))
        return false;
    type = static_cast<Interpolation>(number);
    return true;
}

bool bStringToExtrapolationType(QStringView word, Extrapolation & mode) {
    unsigned int number = 0;
    if (!numberOf(word, EXTRAPOLATION_WORDS, number))
        return false;
    mode = static_cast<Extrapolation>(number);
    return true;
}

bool bStringToInterpolationType(QString const & word, Interpolation & type) {
    return bStringToInterpolationType(QStringView(word), type);
}

bool bStringToExtrapolationType(QString const & word, Extrapolation & mode) {
    return bStringToExtrapolationType(QStringView(word), mode);
}

} // namespace Kyn
