#pragma once

#include "parameter/kyn/KeyframeIndex.h"
#include "parameter/kyn/NumericParameterWithoutType.h"

namespace Kyn {

template <class T>
class NumericParameter;

/// An application's way to run from a key to the next. Registered with a parameter, which then offers it as a further
/// interpolation mode. Asked for times between two keys, and for a time exactly on a key of a linked view.
template <class T>
class CustomInterpolator : public CustomMode {
public:
    /// The value at `time`; `keys` are the keys around it, `view` the view of the query. The parameter limits it.
    virtual T evaluate(NumericParameter<T> const & parameter, Time time, BoundingKeyframes const & keys,
                       View const & view) const = 0;
};

/// An application's way to go on beyond the ends. One of the two keys is null, or both without keys.
template <class T>
class CustomExtrapolator : public CustomMode {
public:
    virtual T evaluate(NumericParameter<T> const & parameter, Time time, BoundingKeyframes const & keys,
                       View const & view) const = 0;
    /// Whether it also gives the values of a view without keys, in place of the static value. Only the mode after the
    /// last key is asked.
    virtual bool bValueWithoutKeyframes() const { return false; }
};

} // namespace Kyn
