#pragma once

#include "parameter/kyn/View.h"

#include <QList>

namespace Kyn {

class ParameterWithoutType;

/// One notification that a parameter has changed. Built on the stack, sent at once on the caller's thread, destroyed.
/// The parameter has its new state when the change is sent.
class ParameterChange {
public:
    /// The kinds of change, named after their emitters.
    enum ChangeType : int {
        ValueChanged = 0,
        ViewAdded = 1,
        ViewRemoved = 2,
        ViewReset = 3,
        KeyframeAdded = 4,
        KeyframeRemoved = 5,
        KeyframeChangedValue = 6,
        KeyframeChangedTimeValue = 7,
        KeyframeChangedInterpolation = 8,
        AllKeyframesRemoved = 9, ///< All keys of one view are gone; view and index are those of the null change: 0.
        KeyframeMoved = 10,
        ChangedExtrapolationBefore = 11,
        ChangedExtrapolationAfter = 12,
        ParameterCopied = 13,
        ScriptRead = 15 ///< The one type let through while a script line is read. Nothing in this library sends it.
    };

    /// The index of a change that concerns a view's static value.
    static constexpr unsigned int STATIC_VALUE = 0xFFFFFFFFu;

    ParameterChange(ChangeType type, ParameterWithoutType & parameter, unsigned int index);

    ChangeType type() const { return type_; }
    ParameterWithoutType & parameter() const { return *parameter_; }

    /// The view that was written. A parameter that cannot hold views of its own names view 0 whatever was asked.
    /// KeyframeMoved names the view of the key that was to move, and the ValueChanged of a rescaling the view asked
    /// for.
    View view() const { return view_; }

    /// The place of the key, STATIC_VALUE for the static value; 0 where neither is meant.
    unsigned int index() const { return index_; }

    /// For KeyframeMoved the old place, then the new; otherwise empty.
    QList<unsigned int> const & indices() const { return indices_; }

    /// Each builds a change and sends it.
    static void valueChanged(ParameterWithoutType & parameter, View const & view);
    static void viewAdded(ParameterWithoutType & parameter, View const & view);
    static void viewRemoved(ParameterWithoutType & parameter, View const & view);
    static void viewReset(ParameterWithoutType & parameter, View const & view);
    static void keyframeAdded(ParameterWithoutType & parameter, unsigned int index, View const & view);
    static void keyframeRemoved(ParameterWithoutType & parameter, unsigned int index, View const & view);
    static void keyframeChangedValue(ParameterWithoutType & parameter, unsigned int index, View const & view);
    static void keyframeChangedTimeValue(ParameterWithoutType & parameter, unsigned int index, View const & view);
    static void keyframeChangedInterpolation(ParameterWithoutType & parameter, unsigned int index, View const & view);
    static void keyframeMoved(ParameterWithoutType & parameter, QList<unsigned int> & indices, View const & view);
    static void changedExtrapolationBefore(ParameterWithoutType & parameter);
    static void changedExtrapolationAfter(ParameterWithoutType & parameter);
    static void parameterCopied(ParameterWithoutType & parameter);

private:
    static void send(ChangeType type, ParameterWithoutType & parameter, unsigned int index, View const & view);

    ChangeType type_;
    unsigned int index_;
    View view_;
    ParameterWithoutType * parameter_;
    QList<unsigned int> indices_;
};

} // namespace Kyn
