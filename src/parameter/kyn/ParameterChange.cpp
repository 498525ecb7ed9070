#include "parameter/kyn/ParameterChange.h"

#include "parameter/kyn/ParameterWithoutType.h"
#include "parameter/kyn/ScopedSignalPermit.h"

namespace Kyn {

ParameterChange::ParameterChange(ChangeType type, ParameterWithoutType & parameter, unsigned int index)
    : type_(type), index_(index), parameter_(&parameter) {}

void ParameterChange::send(ChangeType type, ParameterWithoutType & parameter, unsigned int index, View const & view) {
    if (!parameter.bHears(type))
        return;
    ParameterChange change(type, parameter, index);
    change.view_ = view;
    parameter.emitChange(change);
}

void ParameterChange::valueChanged(ParameterWithoutType & parameter, View const & view) {
    send(ValueChanged, parameter, STATIC_VALUE, view);
}

void ParameterChange::viewAdded(ParameterWithoutType & parameter, View const & view) {
    send(ViewAdded, parameter, 0, view);
}

void ParameterChange::viewRemoved(ParameterWithoutType & parameter, View const & view) {
    send(ViewRemoved, parameter, 0, view);
}

void ParameterChange::viewReset(ParameterWithoutType & parameter, View const & view) {
    send(ViewReset, parameter, STATIC_VALUE, view);
}

void ParameterChange::keyframeAdded(ParameterWithoutType & parameter, unsigned int index, View const & view) {
    send(KeyframeAdded, parameter, index, view);
}

void ParameterChange::keyframeRemoved(ParameterWithoutType & parameter, unsigned int index, View const & view) {
    send(KeyframeRemoved, parameter, index, view);
}

void ParameterChange::keyframeChangedValue(ParameterWithoutType & parameter, unsigned int index, View const & view) {
    send(KeyframeChangedValue, parameter, index, view);
}

void ParameterChange::keyframeChangedTimeValue(ParameterWithoutType & parameter, unsigned int index,
                                               View const & view) {
    send(KeyframeChangedTimeValue, parameter, index, view);
}

void ParameterChange::keyframeChangedInterpolation(ParameterWithoutType & parameter, unsigned int index,
                                                   View const & view) {
    send(KeyframeChangedInterpolation, parameter, index, view);
}

void ParameterChange::keyframeMoved(ParameterWithoutType & parameter, QList<unsigned int> & indices,
                                    View const & view) {
    if (!parameter.bHears(KeyframeMoved))
        return;
    ParameterChange change(KeyframeMoved, parameter, indices.value(1));
    change.view_ = view;
    change.indices_ = indices;
    parameter.emitChange(change);
}

void ParameterChange::changedExtrapolationBefore(ParameterWithoutType & parameter) {
    send(ChangedExtrapolationBefore, parameter, 0, View());
}

void ParameterChange::changedExtrapolationAfter(ParameterWithoutType & parameter) {
    send(ChangedExtrapolationAfter, parameter, 0, View());
}

void ParameterChange::parameterCopied(ParameterWithoutType & parameter) {
    send(ParameterCopied, parameter, 0, View());
}

ScopedSignalPermit::ScopedSignalPermit(ParameterWithoutType & parameter, ParameterChange::ChangeType type)
    : parameter_(parameter), type_(type), outer_(parameter.permits_) {
    parameter.permits_ = this;
}

ScopedSignalPermit::~ScopedSignalPermit() {
    parameter_.permits_ = outer_;
}

} // namespace Kyn
