#pragma once

#include "parameter/ValueText.h"
#include "parameter/kyn/BasicParameter.h"

#include <QStringList>
#include <QStringView>

#include <cmath>
#include <optional>
#include <typeinfo>

namespace vxproject {

/// Compares what the text of a value looks like with what a parameter's own reader makes of it, and appends what is
/// wrong. The result is the number that is read, for limits; nothing for a value that is none.
typedef std::optional<double> (*ValueRule)(QStringView text, QStringList & findings);

/// The rule for the values of a typed parameter.
ValueRule valueRuleOf(std::type_info const & type);

/// Judges the line of a plain field, the name and "." taken off. A field takes any line that begins with "value".
void checkFieldLine(Kyn::BasicParameter const & field, QStringView line, QStringList & findings);

/// The key of a line must be the word itself: a longer one that begins with it is read as it.
void checkWord(QLatin1String word, QStringView text, QLatin1Char end, QStringList & findings);

/// "'TEXT' reads as READ"
QString readsAs(QStringView text, QString const & read);

/// Whether a text is, as a whole, the finite number that was read from it. A number that came out as 0 although it is
/// none is one that was too small.
template <class Real>
bool looksLike(QStringView text, Real read) {
    if (!std::isfinite(read))
        return false;
    double const whole = Kyn::detail::wholeToDouble(text);
    if (whole != 0.0)
        return static_cast<Real>(whole) == read;
    bool isNumber = false;
    double const zero = text.trimmed().toDouble(&isNumber);
    return isNumber && static_cast<Real>(zero) == read;
}

} // namespace vxproject
