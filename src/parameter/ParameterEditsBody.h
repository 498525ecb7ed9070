#pragma once

// The template bodies of the edits, for the files that instantiate them. Nobody else includes this.

#include "parameter/ParameterEdits.h"

namespace Kyn {

// Value

template <class T>
ParameterValueEdit<T>::ParameterValueEdit(Parameter<T> & parameter, T const & value, Context const & context)
    : TypedEdit<T>(parameter), newValue_(value), time_(context.time()), view_(context.view()) {}

template <class T>
bool ParameterValueEdit<T>::redo() {
    Parameter<T> & parameter = this->parameter();
    if (!this->bCaptured) {
        keyframeExisted_ = parameter.isKeyframe(context());
        oldValue_ = parameter.value(context());
        this->bCaptured = true;
    }
    parameter.setValue(newValue_, context());
    return true;
}

template <class T>
void ParameterValueEdit<T>::undo() {
    Parameter<T> & parameter = this->parameter();
    parameter.setValue(oldValue_, context());
    if (!keyframeExisted_ && parameter.Parameter<T>::isAnimatable()) // Others have no key to delete: spares the call.
        parameter.deleteKeyframe(context());
}

// Move

template <class T>
MoveChangeKeyframeEdit<T>::MoveChangeKeyframeEdit(Parameter<T> & parameter, T const & value, Context const & key,
                                                  Time const & time)
    : TypedEdit<T>(parameter), key_(key), newTime_(time), newValue_(value), oldValue_(parameter.value(key)) {}

template <class T>
bool MoveChangeKeyframeEdit<T>::redo() {
    if (!this->bCaptured) {
        this->parameter().moveChangeKeyframe(newValue_, key_, newTime_);
        this->bCaptured = true;
    }
    return true;
}

template <class T>
void MoveChangeKeyframeEdit<T>::undo() {
    if (this->bCaptured)
        this->parameter().moveChangeKeyframe(oldValue_, key_.withTime(newTime_), key_.time());
}

// Interpolation type

template <class T>
ParameterInterpolationEdit<T>::ParameterInterpolationEdit(Parameter<T> & parameter, Interpolation type,
                                                          Context const & context)
    : TypedEdit<T>(parameter), context_(context), newType_(type) {}

template <class T>
bool ParameterInterpolationEdit<T>::redo() {
    if (!this->bCaptured) {
        oldType_ = this->parameter().interpolation(context_);
        this->bCaptured = true;
    }
    this->parameter().setInterpolation(newType_, context_);
    return true;
}

template <class T>
void ParameterInterpolationEdit<T>::undo() {
    this->parameter().setInterpolation(oldType_, context_);
}

// Interpolation record

template <class T>
ParameterInterpolationDataEdit<T>::ParameterInterpolationDataEdit(Parameter<T> & parameter,
                                                                  InterpolationData const & data,
                                                                  KeyframeIndex const & key)
    : TypedEdit<T>(parameter), key_(key), newData_(data) {}

template <class T>
bool ParameterInterpolationDataEdit<T>::redo() {
    if (!this->bCaptured) {
        oldData_ = this->parameter().interpolationData(key_);
        this->bCaptured = true;
    }
    this->parameter().setInterpolationData(newData_, key_.index, key_.view);
    return true;
}

template <class T>
void ParameterInterpolationDataEdit<T>::undo() {
    this->parameter().setInterpolationData(oldData_, key_.index, key_.view);
}

// Extrapolation

template <class T>
ParameterExtrapolationBeforeEdit<T>::ParameterExtrapolationBeforeEdit(Parameter<T> & parameter, Extrapolation mode)
    : TypedEdit<T>(parameter), newMode_(mode) {}

template <class T>
bool ParameterExtrapolationBeforeEdit<T>::redo() {
    if (!this->bCaptured) {
        oldMode_ = this->parameter().extrapolationBefore();
        this->bCaptured = true;
    }
    this->parameter().setExtrapolationBefore(newMode_);
    return true;
}

template <class T>
void ParameterExtrapolationBeforeEdit<T>::undo() {
    this->parameter().setExtrapolationBefore(oldMode_);
}

template <class T>
ParameterExtrapolationAfterEdit<T>::ParameterExtrapolationAfterEdit(Parameter<T> & parameter, Extrapolation mode)
    : TypedEdit<T>(parameter), newMode_(mode) {}

template <class T>
bool ParameterExtrapolationAfterEdit<T>::redo() {
    if (!this->bCaptured) {
        oldMode_ = this->parameter().extrapolationAfter();
        this->bCaptured = true;
    }
    this->parameter().setExtrapolationAfter(newMode_);
    return true;
}

template <class T>
void ParameterExtrapolationAfterEdit<T>::undo() {
    this->parameter().setExtrapolationAfter(oldMode_);
}

// Adding keys

template <class T>
ParameterAddKeyEdit<T>::ParameterAddKeyEdit(Parameter<T> & parameter, Frame const & frame,
                                            std::vector<View> const & views)
    : TypedEdit<T>(parameter), frame_(frame), views_(views) {}

template <class T>
bool ParameterAddKeyEdit<T>::redo() {
    Parameter<T> & parameter = this->parameter();
    if (!this->bCaptured) {
        for (std::size_t i = 0; i < views_.size(); ++i)
            if (!parameter.isKeyframe(Context(frame_, views_[i], ProxyScale::NONE)))
                affected_.push_back(i);
        this->bCaptured = true;
    }
    if (parameter.isConstrained())
        return true; // Quietly: a constrained parameter shows its master's keys.
    for (std::size_t const i : affected_)
        parameter.addKeyframe(Context(frame_, views_[i], ProxyScale::NONE));
    return true;
}

template <class T>
void ParameterAddKeyEdit<T>::undo() {
    for (std::size_t const i : affected_)
        this->parameter().deleteKeyframe(Context(frame_, views_[i], ProxyScale::NONE));
}

// Deleting keys

template <class T>
ParameterDeleteKeyEdit<T>::ParameterDeleteKeyEdit(Parameter<T> & parameter, Frame const & frame,
                                                  std::vector<View> const & views)
    : TypedEdit<T>(parameter), frame_(frame), views_(views) {}

template <class T>
bool ParameterDeleteKeyEdit<T>::redo() {
    Parameter<T> & parameter = this->parameter();
    if (!this->bCaptured) {
        for (std::size_t i = 0; i < views_.size(); ++i) {
            Context const context(frame_, views_[i], ProxyScale::NONE);
            if (!parameter.isKeyframe(context))
                continue;
            affected_.push_back(i);
            savedValues_.append(parameter.value(context));
        }
        this->bCaptured = true;
    }
    for (std::size_t const i : affected_)
        parameter.deleteKeyframe(Context(frame_, views_[i], ProxyScale::NONE));
    return true;
}

template <class T>
void ParameterDeleteKeyEdit<T>::undo() {
    Parameter<T> & parameter = this->parameter();
    for (std::size_t n = 0; n < affected_.size(); ++n) {
        Context const context(frame_, views_[affected_[n]], ProxyScale::NONE);
        parameter.addKeyframe(context);
        parameter.setValue(savedValues_.at(static_cast<int>(n)), context);
    }
}

template <class T>
ParameterDeleteAllKeysEdit<T>::ParameterDeleteAllKeysEdit(Parameter<T> & parameter, View const & view)
    : TypedEdit<T>(parameter), view_(view) {}

template <class T>
bool ParameterDeleteAllKeysEdit<T>::redo() {
    Parameter<T> & parameter = this->parameter();
    if (!this->bCaptured) {
        unsigned int const count = parameter.numKeyframes(view_);
        for (unsigned int i = 0; i < count; ++i) {
            Frame const frame = parameter.keyframeContext(i, view_).toFrame();
            edits_.append(ParameterDeleteKeyEdit<T>(parameter, frame, {view_}));
        }
        this->bCaptured = true;
    }
    for (ParameterDeleteKeyEdit<T> & edit : edits_)
        edit.redo();
    return true;
}

// Forwards, not backwards: keys come back in their order of time.
template <class T>
void ParameterDeleteAllKeysEdit<T>::undo() {
    for (ParameterDeleteKeyEdit<T> & edit : edits_)
        edit.undo();
}

// Constraining

template <class T>
ParameterAddConstrainedParameterEdit<T>::ParameterAddConstrainedParameterEdit(Parameter<T> & master,
                                                                              Parameter<T> * slave)
    : TypedEdit<T>(master), slave_(slave), snapshot_(true, "") {}

template <class T>
bool ParameterAddConstrainedParameterEdit<T>::redo() {
    if (!this->bCaptured)
        snapshot_.copyFrom(slave_);
    failed_ = !this->parameter().bAddConstrainedParameter(slave_);
    this->bCaptured = true;
    return !failed_;
}

template <class T>
void ParameterAddConstrainedParameterEdit<T>::undo() {
    if (!this->bCaptured || failed_)
        return;
    slave_->bUnconstrain();
    slave_->copyFrom(&snapshot_);
}

} // namespace Kyn

#define VX_INSTANTIATE_PARAMETER(T)                                                                                    \
    template class Kyn::ViewStore<T>;                                                                                  \
    template class Kyn::Parameter<T>;                                                                                  \
    template class Kyn::ParameterValueEdit<T>;                                                                         \
    template class Kyn::MoveChangeKeyframeEdit<T>;                                                                     \
    template class Kyn::ParameterInterpolationEdit<T>;                                                                 \
    template class Kyn::ParameterInterpolationDataEdit<T>;                                                             \
    template class Kyn::ParameterExtrapolationBeforeEdit<T>;                                                           \
    template class Kyn::ParameterExtrapolationAfterEdit<T>;                                                            \
    template class Kyn::ParameterAddKeyEdit<T>;                                                                        \
    template class Kyn::ParameterDeleteKeyEdit<T>;                                                                     \
    template class Kyn::ParameterDeleteAllKeysEdit<T>;                                                                 \
    template class Kyn::ParameterAddConstrainedParameterEdit<T>;
