#pragma once

#include "parameter/Keyframe.h"

#include <QStringView>

/// The lines of a parameter's script, as far as they do not depend on its type.
namespace Kyn::detail {

/// The kinds of line, in the order in which their keys are tried. The keys are told without regard to case, and each
/// also takes longer keys that begin with it.
enum class LineKind { Keyframe, Value, Hidden, Before, After, Master, Unknown };

/// The kind of a line whose view prefix has been taken off.
LineKind kindOfLine(QStringView line);

/// The text behind the first "=" to the end of the line: a value may hold further ones.
QStringView valueField(QStringView line);

/// The text between the first "=" and the second.
QStringView secondField(QStringView line);

/// The numbers of a key line.
struct PlainKeyLine {
    double time = 0.0;
    double value = 0.0;
    InterpolationData data;
};

/// Reads a key line, view prefix taken off, that stands letter by letter in the form in which real numbers are written:
/// "keyframes.append( Key( 1, 0.5, Linear ) )". False for any other, and where the time does not fit a float.
bool scanPlainKeyLine(QStringView line, PlainKeyLine & key);

/// Throws std::runtime_error with the message, %1 in it replaced by the line.
[[noreturn]] void refuseKeyframe(char const * message, QStringView line);

} // namespace Kyn::detail
