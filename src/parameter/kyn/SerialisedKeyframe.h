#pragma once

#include "parameter/kyn/Context.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>

namespace Kyn {

/// One keyframe as text, for the clipboard: written by one parameter, pasted into another of the same value type.
class SerialisedKeyframe {
public:
    virtual ~SerialisedKeyframe() = default;

    virtual Context context() const = 0;
    /// Moves the keyframe by a number of frames. The scale of its context becomes the one that names none.
    virtual void vShiftTime(float delta) = 0;
    /// The key line without the parameter's prefix.
    virtual QString toString() const = 0;
    /// Reads such a line; std::runtime_error if it is none, and the keyframe is then unchanged.
    virtual void fromString(QString const & line) = 0;
};

namespace detail {

/// The fields of a key line as pieces of it, blanks around them taken off.
struct KeyframeDeclaration {
    static constexpr int MAX_FIELDS = 6;

    std::array<QStringView, MAX_FIELDS> fields;
    int count = 0;
};

/// Splits a key line, view prefix taken off, into its fields in the order of the text: time, value, then the type word
/// of a "Key" or the four handles of a "BezierKey". The time ends at the first comma; the word or the handles are
/// counted from the right; all between is the value, whatever commas, brackets or quotes it holds. A line with too few
/// commas gives as many fields as it has. Anything that contains "BezierKey" counts as one, even within a text value.
KeyframeDeclaration splitKeyframeDeclaration(QStringView line, bool bezier);
QStringList parseKeyframeDeclaration(QString line);

} // namespace detail

} // namespace Kyn
