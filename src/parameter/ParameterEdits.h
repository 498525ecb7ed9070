#pragma once

#include "parameter/Parameter.h"
#include "parameter/kyn/ParameterEdit.h"

#include <QVector>

#include <vector>

/// The undoable edits of a parameter. Each captures at its first redo what undo needs, applies, and restores. None is
/// ever merged with another: a drag that sends fifty values leaves fifty edits. All but MoveChangeKeyframeEdit can be
/// run either way any number of times.
namespace Kyn {

/// A parameter's edit that knows the value type. It holds the parameter in that type alone, so that a million edits
/// stay small: the untyped face follows from it.
template <class T>
class TypedEdit : public ParameterEdit {
public:
    ParameterWithoutType * edited() const override { return typed_; }

protected:
    explicit TypedEdit(Parameter<T> & parameter) : typed_(&parameter) {}

    Parameter<T> & parameter() const { return *typed_; }

private:
    Parameter<T> * typed_;
};

/// Writes a value at a context. A key that the write made is deleted by undo; the old value is written back first, so
/// an only key leaves it as the static value. A view that the write made stays.
template <class T>
class ParameterValueEdit : public TypedEdit<T> {
public:
    ParameterValueEdit(Parameter<T> & parameter, T const & value, Context const & context);
    bool redo() override;
    void undo() override;

private:
    // The context's scale is not kept: values never depend on it.
    Context context() const { return Context(time_, view_, ProxyScale::NONE); }

    T newValue_;
    T oldValue_ = T();
    Time time_;
    View view_;
    bool keyframeExisted_ = false;
};

/// Moves a key and changes its value. redo carries the move out once in the edit's life: after an undo it does nothing,
/// while every further undo runs the move back again. The old value is the one in force when the edit was built.
template <class T>
class MoveChangeKeyframeEdit : public TypedEdit<T> {
public:
    MoveChangeKeyframeEdit(Parameter<T> & parameter, T const & value, Context const & key, Time const & time);
    bool redo() override;
    void undo() override;

private:
    Context key_;
    Time newTime_;
    T newValue_;
    T oldValue_;
};

/// Sets the type of the key at a context. The old type comes back, and with it that type's default handles: handles set
/// by hand are not kept.
template <class T>
class ParameterInterpolationEdit : public TypedEdit<T> {
public:
    ParameterInterpolationEdit(Parameter<T> & parameter, Interpolation type, Context const & context);
    bool redo() override;
    void undo() override;

private:
    Context context_;
    Interpolation oldType_ = INTERPOLATION_NONE;
    Interpolation newType_;
};

/// Replaces a key's whole record.
template <class T>
class ParameterInterpolationDataEdit : public TypedEdit<T> {
public:
    ParameterInterpolationDataEdit(Parameter<T> & parameter, InterpolationData const & data, KeyframeIndex const & key);
    bool redo() override;
    void undo() override;

private:
    KeyframeIndex key_;
    InterpolationData oldData_;
    InterpolationData newData_;
};

template <class T>
class ParameterExtrapolationBeforeEdit : public TypedEdit<T> {
public:
    ParameterExtrapolationBeforeEdit(Parameter<T> & parameter, Extrapolation mode);
    bool redo() override;
    void undo() override;

private:
    Extrapolation oldMode_ = EXTRAPOLATION_NONE;
    Extrapolation newMode_;
};

template <class T>
class ParameterExtrapolationAfterEdit : public TypedEdit<T> {
public:
    ParameterExtrapolationAfterEdit(Parameter<T> & parameter, Extrapolation mode);
    bool redo() override;
    void undo() override;

private:
    Extrapolation oldMode_ = EXTRAPOLATION_NONE;
    Extrapolation newMode_;
};

/// Which of an edit's views it really touches: places in its list, so that both may move.
typedef std::vector<std::size_t> AffectedViews;

/// Makes keys of the values in force on a whole frame, in those of the views that have none there. A constrained
/// parameter gets none. Undo deletes them; rebuilt handles of a key before an appended one stay rebuilt.
template <class T>
class ParameterAddKeyEdit : public TypedEdit<T> {
public:
    ParameterAddKeyEdit(Parameter<T> & parameter, Frame const & frame, std::vector<View> const & views);
    bool redo() override;
    void undo() override;

private:
    Frame frame_;
    std::vector<View> views_;
    AffectedViews affected_;
};

/// Deletes the keys on a whole frame. Undo brings time and value back; type and handles are those of a new key.
template <class T>
class ParameterDeleteKeyEdit : public TypedEdit<T> {
public:
    ParameterDeleteKeyEdit(Parameter<T> & parameter, Frame const & frame, std::vector<View> const & views);
    bool redo() override;
    void undo() override;

private:
    Frame frame_;
    std::vector<View> views_;
    QVector<T> savedValues_; ///< One for each affected view.
    AffectedViews affected_;
};

/// Deletes the keys of a view one by one, on their whole frames: a key between two frames is left alone. Undo brings
/// them back first to last, not backwards, so that they come back in order of time.
template <class T>
class ParameterDeleteAllKeysEdit : public TypedEdit<T> {
public:
    ParameterDeleteAllKeysEdit(Parameter<T> & parameter, View const & view);
    bool redo() override;
    void undo() override;

private:
    QVector<ParameterDeleteKeyEdit<T>> edits_;
    View view_;
};

/// Constrains a parameter to a master of its own type. redo is false where the master refuses; undo then does nothing.
template <class T>
class ParameterAddConstrainedParameterEdit : public TypedEdit<T> {
public:
    /// `slave` may be null, as the cast of a parameter of another type is; it is then refused.
    ParameterAddConstrainedParameterEdit(Parameter<T> & master, Parameter<T> * slave);
    bool redo() override;
    void undo() override;

private:
    bool failed_ = false;
    Parameter<T> * slave_;
    Parameter<T> snapshot_;
};

} // namespace Kyn

#define VX_EXTERN_PARAMETER_EDITS(T)                                                                                   \
    extern template class Kyn::ParameterValueEdit<T>;                                                                  \
    extern template class Kyn::MoveChangeKeyframeEdit<T>;                                                              \
    extern template class Kyn::ParameterInterpolationEdit<T>;                                                          \
    extern template class Kyn::ParameterInterpolationDataEdit<T>;                                                      \
    extern template class Kyn::ParameterExtrapolationBeforeEdit<T>;                                                    \
    extern template class Kyn::ParameterExtrapolationAfterEdit<T>;                                                     \
    extern template class Kyn::ParameterAddKeyEdit<T>;                                                                 \
    extern template class Kyn::ParameterDeleteKeyEdit<T>;                                                              \
    extern template class Kyn::ParameterDeleteAllKeysEdit<T>;                                                          \
    extern template class Kyn::ParameterAddConstrainedParameterEdit<T>;
VX_FOR_EACH_PARAMETER_TYPE(VX_EXTERN_PARAMETER_EDITS)
#undef VX_EXTERN_PARAMETER_EDITS
