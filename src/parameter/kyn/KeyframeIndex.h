#pragma once

#include "parameter/kyn/Context.h"

namespace Kyn {

class ParameterWithoutType;

/// Names one keyframe: the key at place `index` (0 the first) in the key list of `view`.
struct KeyframeIndex {
    ParameterWithoutType * parameter = nullptr; ///< Not owned.
    View view = View(-1);
    unsigned int index = 0;

    /// The index that names no keyframe is told by its view, which is -1.
    bool isNull() const { return view.id() == -1; }

    /// The time and view of the keyframe, asked of the parameter; the default context for a null index.
    Context toContext() const;

    friend bool operator==(KeyframeIndex const & a, KeyframeIndex const & b) {
        return a.parameter == b.parameter && a.view == b.view && a.index == b.index;
    }
};

/// The keyframes before and after a time. Both are the same where the time falls on a key; one is null beyond the
/// first or the last key; both are null without keys.
class BoundingKeyframes {
public:
    BoundingKeyframes(KeyframeIndex const & beforeTime, KeyframeIndex const & afterTime)
        : before(beforeTime), after(afterTime) {}

    bool isNull() const { return before.isNull() && after.isNull(); }

    KeyframeIndex before;
    KeyframeIndex after;

private:
    template <class T>
    friend class Parameter;
    BoundingKeyframes() = default;
};

} // namespace Kyn
