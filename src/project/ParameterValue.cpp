#include "project/ParameterValue.h"

#include "parameter/Parameter.h"
#include "parameter/StaticParameter.h"

namespace vxproject {

namespace {

template <class T>
ParameterValue plain(T const & value) {
    if constexpr (std::is_same_v<T, Tov::FSPercentEscapedString>)
        return value.text();
    else if constexpr (std::is_same_v<T, Kyn::View>)
        return static_cast<qint64>(value.id());
    else if constexpr (std::is_enum_v<T>)
        return static_cast<qint64>(static_cast<std::underlying_type_t<T>>(value));
    else if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>)
        return static_cast<qint64>(value);
    else
        return value;
}

/// False unless the parameter is one of T.
template <class T>
bool take(Kyn::BasicParameter const & parameter, Kyn::Context const & context, Unit unit, ParameterValue & value) {
    auto const * const typed = dynamic_cast<Kyn::Parameter<T> const *>(&parameter);
    if (!typed)
        return false;
    T const stored = typed->value(context);
    value = plain(unit == Unit::Display ? typed->toDisplay(stored, context) : stored);
    return true;
}

template <class T>
bool takeField(Kyn::BasicParameter const & parameter, ParameterValue & value) {
    auto const * const field = dynamic_cast<Kyn::StaticParameter<T> const *>(&parameter);
    if (field)
        value = plain(field->value());
    return field != nullptr;
}

} // namespace

ParameterValue valueOf(Kyn::BasicParameter const & parameter, Kyn::Context const & context, Unit unit) {
    ParameterValue value;
#define VX_TRY(T) take<T>(parameter, context, unit, value) ||
    bool const taken = VX_FOR_EACH_PARAMETER_TYPE(VX_TRY) false;
#undef VX_TRY
#define VX_TRY_FIELD(T) takeField<T>(parameter, value) ||
    static_cast<void>(taken || VX_FOR_EACH_STATIC_TYPE(VX_TRY_FIELD) false);
#undef VX_TRY_FIELD
    return value;
}

bool matchesPattern(QStringView path, QStringView pattern) {
    qsizetype at = 0;
    qsizetype wanted = 0;
    qsizetype star = -1;     // the last '*' passed
    qsizetype starMatch = 0; // where the text behind it begins
    while (at < path.size()) {
        if (wanted < pattern.size() && pattern[wanted] == QLatin1Char('*')) {
            star = wanted++;
            starMatch = at;
        } else if (wanted < pattern.size() && pattern[wanted] == path[at]) {
            ++wanted;
            ++at;
        } else if (star >= 0) {
            wanted = star + 1;
            at = ++starMatch;
        } else {
            return false;
        }
    }
    while (wanted < pattern.size() && pattern[wanted] == QLatin1Char('*'))
        ++wanted;
    return wanted == pattern.size();
}

} // namespace vxproject
