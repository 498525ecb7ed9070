#include "project/ValueCheck.h"

#include "parameter/Parameter.h"
#include "parameter/ScriptLine.h"
#include "parameter/VirtualParameter.h"
#include "project/Finding.h"
#include "project/NumberText.h"

#include <algorithm>
#include <limits>

namespace vxproject {

namespace {

template <class Real>
std::optional<double> checkReal(QStringView text, QStringList & findings) {
    Real const read = Kyn::detail::readValue<Real>(text);
    if (!std::isfinite(read))
        findings.append(quoted(text) + QStringLiteral(" is not a finite number"));
    else if (!looksLike(text, read) && !looksLike(text.trimmed(), read))
        findings.append(readsAs(text, shortestText(read)));
    return static_cast<double>(read);
}

/// The text as a whole as a decimal number.
bool isWholeNumber(QStringView text, qint64 expected) {
    bool isNumber = false;
    qint64 const number = text.trimmed().toLongLong(&isNumber, 10);
    return isNumber && number == expected;
}

template <class Integer>
std::optional<double> checkInteger(QStringView text, QStringList & findings) {
    Integer const read = Kyn::detail::readValue<Integer>(text);
    if (!isWholeNumber(text, static_cast<qint64>(read)))
        findings.append(readsAs(text, QString::number(read)));
    return static_cast<double>(read);
}

std::optional<double> checkFlag(QStringView text, QStringList & findings) {
    static constexpr QLatin1String WORDS[] = {QLatin1String("0"), QLatin1String("1"), QLatin1String("true"),
                                              QLatin1String("false")};
    bool const known = std::any_of(std::begin(WORDS), std::end(WORDS), [&](QLatin1String word) {
        return text.trimmed().compare(word, Qt::CaseInsensitive) == 0;
    });
    if (!known)
        findings.append(readsAs(text, Kyn::detail::readValue<bool>(text) ? QStringLiteral("1") : QStringLiteral("0")));
    return std::nullopt;
}

std::optional<double> checkText(QStringView text, QStringList & findings) {
    constexpr QLatin1Char QUOTE('"');
    bool const opened = text.startsWith(QUOTE);
    bool const closed = text.size() > 1 && text.endsWith(QUOTE);
    if (opened != closed)
        findings.append(quoted(text) +
                        QStringLiteral(" has a double quote at one end only, which reads as part of it"));
    return std::nullopt;
}

/// The largest value that a file may hold: the numeric limit, or what lies beyond it and has a meaning all the same.
template <class Enumeration>
constexpr Enumeration largestStored() {
    if constexpr (std::is_same_v<Enumeration, VX_INTERLACE_MODE>)
        return VX_INTERLACE_MODE_FIELDS_WITHOUT_ORDER;
    else if constexpr (std::is_same_v<Enumeration, Gan_ImageFormat>)
        return GAN_IMAGE_FORMAT_NONE;
    else if constexpr (std::is_same_v<Enumeration, Gan_Type>)
        return GAN_TYPE_NONE;
    else if constexpr (std::is_same_v<Enumeration, VX::FrameWarpType>) // Its values have no names.
        return static_cast<Enumeration>(std::numeric_limits<std::underlying_type_t<Enumeration>>::max());
    else
        return std::numeric_limits<Enumeration>::max();
}

template <class Enumeration>
std::optional<double> checkEnumeration(QStringView text, QStringList & findings) {
    auto const read = static_cast<std::underlying_type_t<Enumeration>>(Kyn::detail::readValue<Enumeration>(text));
    auto const top = static_cast<std::underlying_type_t<Enumeration>>(largestStored<Enumeration>());
    if (!isWholeNumber(text, static_cast<qint64>(read)))
        findings.append(readsAs(text, QString::number(read)));
    if (std::is_signed_v<decltype(read)> ? read < 0 || read > top : read > top)
        findings.append(QStringLiteral("%1 is none of its values, which go from 0 to %2").arg(read).arg(top));
    return std::nullopt;
}

template <class T>
std::optional<double> checkValueOf(QStringView text, QStringList & findings) {
    if constexpr (std::is_same_v<T, bool>)
        return checkFlag(text, findings);
    else if constexpr (std::is_floating_point_v<T>)
        return checkReal<T>(text, findings);
    else if constexpr (std::is_integral_v<T>)
        return checkInteger<T>(text, findings);
    else if constexpr (std::is_enum_v<T>)
        return checkEnumeration<T>(text, findings);
    else if constexpr (std::is_same_v<T, Kyn::View>)
        return checkInteger<int>(text, findings);
    else
        return checkText(text, findings);
}

struct TypeRule {
    std::type_info const * type;
    ValueRule check;
};

#define VX_VALUE_RULE(T) {&typeid(T), &checkValueOf<T>},
TypeRule const PARAMETER_RULES[] = {VX_FOR_EACH_PARAMETER_TYPE(VX_VALUE_RULE)};
#undef VX_VALUE_RULE

/// Null for a member that is no field of that type.
template <class T>
ValueRule ruleIfField(Kyn::BasicParameter const & member) {
    return dynamic_cast<Kyn::StaticParameter<T> const *>(&member) ? &checkValueOf<T> : nullptr;
}

ValueRule ruleOfField(Kyn::BasicParameter const & member) {
    ValueRule rule = nullptr;
#define VX_TRY(T) (rule = ruleIfField<T>(member)) ||
    static_cast<void>(VX_FOR_EACH_STATIC_TYPE(VX_TRY) false);
#undef VX_TRY
    return rule ? rule : &checkText;
}

} // namespace

QString readsAs(QStringView text, QString const & read) {
    return quoted(text) + QStringLiteral(" reads as ") + read;
}

ValueRule valueRuleOf(std::type_info const & type) {
    auto const * const rule = std::find_if(std::begin(PARAMETER_RULES), std::end(PARAMETER_RULES),
                                           [&](TypeRule const & one) { return *one.type == type; });
    return rule == std::end(PARAMETER_RULES) ? &checkText : rule->check;
}

void checkWord(QLatin1String word, QStringView text, QLatin1Char end, QStringList & findings) {
    qsizetype const length = text.indexOf(end);
    if (length < 0)
        findings.append(QStringLiteral("%1 reads as '%2' although there is no '%3'").arg(quoted(text), word).arg(end));
    else if (length != word.size())
        findings.append(readsAs(text.left(length), QLatin1Char('\'') + word + QLatin1Char('\'')));
}

void checkFieldLine(Kyn::BasicParameter const & field, QStringView line, QStringList & findings) {
    constexpr QLatin1String VALUE("value");
    if (!line.startsWith(VALUE, Qt::CaseInsensitive)) {
        findings.append(QStringLiteral("'%1' does not take %2").arg(field.scriptName(), quoted(line)));
        return;
    }
    checkWord(VALUE, line, QLatin1Char('='), findings);
    ruleOfField(field)(Kyn::detail::valueField(line), findings);
}

} // namespace vxproject
