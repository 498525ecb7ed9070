#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vxproject {

/// What one parameter of a set is, as the set itself made it.
struct SchemaRow {
    QString set;  ///< The set's class.
    QString name; ///< The script name.
    QString display;
    QString type; ///< The C++ type of its value.
    QString defaultValue;
    QString minimum; ///< Empty for what has no limits, as the next.
    QString maximum;
    bool isAnimatable = false;
    bool isSplittable = false;
    bool isHidden = false;
    QString interpolation; ///< The word of a script; empty for a plain field, as the next.
    QString extrapolation;
};

/// The names of the columns, in the order of the fields.
QStringList schemaColumns();

/// Every parameter of every set, in order of registration; each class of sets once. Made by looking at new sets, so
/// that it cannot differ from what they are.
std::vector<SchemaRow> schema();

} // namespace vxproject
