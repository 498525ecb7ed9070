#pragma once

#include "parameter/kyn/BasicParameter.h"
#include "parameter/kyn/Context.h"

#include <QString>

#include <variant>

namespace vxproject {

/// A member's value as a table holds it, whatever the parameter's type: enumerations and views are their numbers,
/// file names their text.
typedef std::variant<double, float, qint64, bool, QString> ParameterValue;

/// In which unit a value is asked for.
enum class Unit {
    Stored,
    Display, ///< As the parameter shows it to a user.
};

/// A plain field has the same value at every context.
ParameterValue valueOf(Kyn::BasicParameter const & parameter, Kyn::Context const & context, Unit unit);

/// Whether a path fits a pattern in which each '*' stands for any text, the empty one too, and all else for itself.
bool matchesPattern(QStringView path, QStringView pattern);

} // namespace vxproject
