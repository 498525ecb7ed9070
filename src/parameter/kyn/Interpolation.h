#pragma once

#include <QString>

namespace Kyn {

/// How a curve runs from a key to the next. Stored as any 32 bits: values from INTERPOLATION_CUSTOM on name a custom
/// interpolator, number value - INTERPOLATION_CUSTOM, that the application registers with its parameter.
enum Interpolation : unsigned int {
    INTERPOLATION_NONE = 0,     ///< Zero, not a key's value.
    INTERPOLATION_CONSTANT = 1, ///< The left key's value up to the next key.
    INTERPOLATION_LINEAR = 2,   ///< A straight line to the next key.
    INTERPOLATION_BEZIER = 3,   ///< A cubic through the segment's two handles.
    INTERPOLATION_CUSTOM = 4    ///< The first custom interpolator.
};

/// How a curve goes on before its first and after its last key. Values from EXTRAPOLATION_CUSTOM on are custom.
enum Extrapolation : unsigned int {
    EXTRAPOLATION_NONE = 0,     ///< Zero, not the end key's value.
    EXTRAPOLATION_CONSTANT = 1, ///< The end key's value.
    EXTRAPOLATION_LINEAR = 2,   ///< The direction of the end segment.
    EXTRAPOLATION_CUSTOM = 3    ///< The first custom extrapolator.
};

/// The script words: "None", "Constant", "Linear", "Bezier", then "Custom0", "Custom1" and so on.
QString qstrInterpolationTypeString(Interpolation type);
QString qstrExtrapolationTypeString(Extrapolation mode);

/// The number of a script word, told exactly, case included. False for an unknown word; the result is left alone.
bool bStringToInterpolationType(QString const & word, Interpolation & type);
bool bStringToExtrapolationType(QString const & word, Extrapolation & mode);

/// The same for a reader that holds only a piece of a line.
bool bStringToInterpolationType(QStringView word, Interpolation & type);
bool bStringToExtrapolationType(QStringView word, Extrapolation & mode);

} // namespace Kyn
