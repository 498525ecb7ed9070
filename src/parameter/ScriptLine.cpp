#include "parameter/ScriptLine.h"

#include "parameter/PlainNumber.h"

#include <QString>

#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace Kyn::detail {

LineKind kindOfLine(QStringView line) {
    struct Rule {
        QLatin1String key;
        LineKind kind;
    };
    static constexpr Rule RULES[] = {
        {QLatin1String("keyframes"), LineKind::Keyframe}, {QLatin1String("value"), LineKind::Value},
        {QLatin1String("hidden"), LineKind::Hidden},      {QLatin1String("before"), LineKind::Before},
        {QLatin1String("after"), LineKind::After},        {QLatin1String("MasterParameterId"), LineKind::Master},
    };
    for (Rule const & rule : RULES)
        if (line.startsWith(rule.key, Qt::CaseInsensitive))
            return rule.kind;
    return LineKind::Unknown;
}

QStringView valueField(QStringView line) {
    qsizetype const equals = line.indexOf(QLatin1Char('='));
    return equals < 0 ? QStringView() : line.mid(equals + 1);
}

QStringView secondField(QStringView line) {
    QStringView const field = valueField(line);
    qsizetype const equals = field.indexOf(QLatin1Char('='));
    return equals < 0 ? field : field.left(equals);
}

namespace {

/// Moves behind a text that must stand next.
template <std::size_t N>
bool skip(char16_t const *& at, char16_t const * end, char16_t const (&text)[N]) {
    std::size_t const length = N - 1;
    if (static_cast<std::size_t>(end - at) < length || std::memcmp(at, text, length * sizeof(char16_t)) != 0)
        return false;
    at += length;
    return true;
}

bool scanHandles(char16_t const *& at, char16_t const * end, InterpolationData & data) {
    data.eType = INTERPOLATION_BEZIER;
    return scanPlainReal(at, end, data.dOutTime) && skip(at, end, u", ") && scanPlainReal(at, end, data.dOutValue) &&
           skip(at, end, u", ") && scanPlainReal(at, end, data.dInTime) && skip(at, end, u", ") &&
           scanPlainReal(at, end, data.dInValue) && skip(at, end, u" ) )");
}

bool scanWord(char16_t const *& at, char16_t const * end, Interpolation & type) {
    type = INTERPOLATION_LINEAR;
    if (skip(at, end, u"Linear ) )"))
        return true;
    type = INTERPOLATION_CONSTANT;
    return skip(at, end, u"Constant ) )");
}

} // namespace

bool scanPlainKeyLine(QStringView line, PlainKeyLine & key) {
    char16_t const * at = line.utf16();
    char16_t const * const end = at + line.size();
    if (!skip(at, end, u"keyframes.append( "))
        return false;
    bool const bezier = skip(at, end, u"Bezier");
    if (!skip(at, end, u"Key( ") || !scanPlainReal(at, end, key.time) || !skip(at, end, u", ") ||
        !scanPlainReal(at, end, key.value) || !skip(at, end, u", "))
        return false;
    if (!(bezier ? scanHandles(at, end, key.data) : scanWord(at, end, key.data.eType)))
        return false;
    return at == end && std::fabs(key.time) <= static_cast<double>(std::numeric_limits<float>::max());
}

void refuseKeyframe(char const * message, QStringView line) {
    throw std::runtime_error(QString::fromLatin1(message).arg(line).toStdString());
}

} // namespace Kyn::detail
