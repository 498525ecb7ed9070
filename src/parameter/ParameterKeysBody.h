#pragma once

// Part of ParameterBody.h: finding and changing keys. Every change is sent after the data has changed.

namespace Kyn {

// Making keys

template <class T>
unsigned int Parameter<T>::insertKey(ViewData<T> & data, int index, Keyframe<T> const & key,
                                     InterpolationData const & record) {
    data.bUnordered = data.bUnordered || std::isnan(key.time.toDouble());
    data.keys.insert(index, key);
    data.interpolation.insert(index, record);
    return static_cast<unsigned int>(index);
}

/// Puts a key and its record behind the last. Behind all records: after a move out of place there are more of them than
/// keys.
template <class T>
unsigned int Parameter<T>::appendKey(ViewData<T> & data, Keyframe<T> const & key, InterpolationData const & record) {
    data.bUnordered = data.bUnordered || std::isnan(key.time.toDouble());
    data.keys.append(key);
    data.interpolation.append(record);
    return static_cast<unsigned int>(data.keys.size() - 1);
}

/// Puts a key behind the last. While a script is read the handles of the key before stay as they were read; otherwise
/// they are rebuilt for the new segment.
template <class T>
unsigned int Parameter<T>::appendKey(ViewData<T> & data, Keyframe<T> const & key) {
    int const count = static_cast<int>(data.keys.size());
    if (count > 0 && !bLoading_) {
        InterpolationData & last = data.interpolation[count - 1];
        last = defaultInterpolationData(data.keys.at(count - 1), key, last.eType);
    }
    return appendKey(data, key, withoutHandles(eDefaultInterpolation_));
}

/// Makes a key where there is none. It takes the type of the key it is put before.
template <class T>
unsigned int Parameter<T>::writeKey(ViewData<T> & data, Keyframe<T> const & key) {
    int const later = detail::placeAfter(data, key.time);
    if (later == data.keys.size())
        return appendKey(data, key);
    Interpolation const type = data.interpolation.at(later).eType;
    return insertKey(data, later, key, defaultInterpolationData(key, data.keys.at(later), type));
}

template <class T>
inline void Parameter<T>::sendValueWritten(unsigned int index, View const & asked) {
    if (this->mayBeHeard())
        ParameterChange::keyframeChangedValue(*this, index, writtenView(asked));
}

template <class T>
unsigned int Parameter<T>::setValue(T const & value, Context const & context) {
    if (bAnimatable_)
        return setKey(value, context);
    ViewData<T> & data = write(context.view());
    if (!(data.value == value)) {
        data.value = value;
        sendValueWritten(ParameterChange::STATIC_VALUE, context.view());
    }
    return NO_KEYFRAME;
}

template <class T>
unsigned int Parameter<T>::setKey(T const & value, Context const & context) {
    ViewData<T> & data = write(context.view());
    int const existing = detail::keyAt(data, context.time());
    if (existing < 0) {
        unsigned int const index = writeKey(data, {context.time(), value});
        ParameterChange::keyframeAdded(*this, index, writtenView(context.view()));
        sendValueWritten(index, context.view());
        return index;
    }
    unsigned int const index = static_cast<unsigned int>(existing);
    if (!(data.keys.at(existing).value == value)) {
        data.keys[existing].value = value;
        sendValueWritten(index, context.view());
    }
    return index;
}

template <class T>
unsigned int Parameter<T>::addKeyframe(Context const & context) {
    if (!bAnimatable_)
        return NO_KEYFRAME;
    if (detail::keyAt(write(context.view()), context.time()) >= 0)
        return NO_KEYFRAME;
    // Asked after the view was made: a new view starts from the default value, and this is the value of the key.
    Keyframe<T> const key{context.time(), value(context)};
    ViewData<T> & data = write(context.view());
    int const later = detail::placeAfter(data, key.time);
    unsigned int index = 0;
    if (later == data.keys.size()) {
        index = appendKey(data, key);
    } else {
        // Unlike setValue(), the type of the key before.
        Interpolation const type = later > 0 ? data.interpolation.at(later - 1).eType : eDefaultInterpolation_;
        index = insertKey(data, later, key, defaultInterpolationData(key, data.keys.at(later), type));
    }
    ParameterChange::keyframeAdded(*this, index, writtenView(context.view()));
    return index;
}

template <class T>
void Parameter<T>::addKeyframeAtFrame(Frame const & frame, std::vector<View> const & views) {
    if (!bAnimatable_)
        return;
    for (View const view : views)
        addKeyframe(Context(frame, view, ProxyScale::NONE));
}

/// A key from a script: as setValue(), setInterpolation() and setInterpolationData() would leave it one after the
/// other, but past the limits. Keys that come in order of time are appended at once.
template <class T>
void Parameter<T>::pasteRead(View const & view, Keyframe<T> const & key, InterpolationData const & record) {
    ViewData<T> & data = write(view);
    if (!bAnimatable_) {
        data.value = key.value;
        return;
    }
    // More records than keys, as a move leaves them, take the long way.
    if (!data.bUnordered && data.interpolation.size() == data.keys.size() &&
        (data.keys.isEmpty() || data.keys.constLast().time < key.time)) {
        appendKey(data, key, record);
        return;
    }
    int index = detail::keyAt(data, key.time);
    if (index >= 0)
        data.keys[index].value = key.value;
    else
        index = static_cast<int>(writeKey(data, key));
    data.interpolation[index] = record;
}

// Deleting keys

template <class T>
void Parameter<T>::deleteKeyframe(Context const & context) {
    if (hidesView(context.view()))
        return;
    ViewData<T> & data = write(context.view());
    int const index = detail::keyAt(data, context.time());
    if (index < 0)
        return;
    if (data.keys.size() == 1)
        data.value = data.keys.at(0).value; // The value does not jump when the last key goes.
    data.keys.removeAt(index);
    data.interpolation.removeAt(index);
    ParameterChange::keyframeRemoved(*this, static_cast<unsigned int>(index), writtenView(context.view()));
}

template <class T>
void Parameter<T>::deleteAllKeyframes(View const & view) {
    if (hidesView(view))
        return;
    ViewData<T> & data = write(view);
    if (data.keys.isEmpty() && data.interpolation.isEmpty())
        return;
    data.keys.clear();
    data.interpolation.clear();
    data.bUnordered = false;
    ParameterChange change(ParameterChange::AllKeyframesRemoved, *this, 0);
    this->emitChange(change);
}

template <class T>
void Parameter<T>::resetToDefault(Context const & context) {
    View const & view = context.view();
    if (hidesView(view) || store_.read(writtenView(view)).keys.isEmpty()) {
        write(view).value = defaultValue();
        ParameterChange::viewReset(*this, writtenView(view));
        return;
    }
    deleteKeyframe(context); // Only a key exactly there; the others stay.
}

// Moving keys

template <class T>
unsigned int Parameter<T>::moveChangeKeyframe(T const & value, Context const & from, Time const & to) {
    ViewData<T> & data = write(from.view());
    int const index = detail::keyAt(data, from.time());
    if (index < 0)
        return NO_KEYFRAME;
    int const last = static_cast<int>(data.keys.size()) - 1;
    bool const inPlace =
        (index == 0 || to >= data.keys.at(index - 1).time) && (index == last || data.keys.at(index + 1).time >= to);
    if (inPlace) {
        data.keys[index] = {to, value};
        data.bUnordered = data.bUnordered || std::isnan(to.toDouble());
        ParameterChange::keyframeChangedTimeValue(*this, static_cast<unsigned int>(index), writtenView(from.view()));
        return static_cast<unsigned int>(index);
    }
    // The record stays behind: from here on the view has one more record than keys.
    data.keys.removeAt(index);
    bool const blocked = this->blockSignals(true);
    unsigned int const moved = setValue(value, Context(to, View(View::defaultViewId()), ProxyScale::NONE));
    this->blockSignals(blocked);
    QList<unsigned int> places{static_cast<unsigned int>(index), moved};
    ParameterChange::keyframeMoved(*this, places, from.view());
    return moved;
}

// Modes and records

template <class T>
void Parameter<T>::setExtrapolationBefore(Extrapolation mode) {
    if (!bAnimatable_)
        return;
    eExtrapolationBefore_ = mode;
    ParameterChange::changedExtrapolationBefore(*this);
}

template <class T>
void Parameter<T>::setExtrapolationAfter(Extrapolation mode) {
    if (!bAnimatable_)
        return;
    eExtrapolationAfter_ = mode;
    ParameterChange::changedExtrapolationAfter(*this);
}

template <class T>
void Parameter<T>::setDefaultInterpolation(Interpolation type) {
    eDefaultInterpolation_ = type;
}

template <class T>
void Parameter<T>::setInterpolation(Interpolation type, Context const & context) {
    if (!bAnimatable_)
        return;
    ViewData<T> & data = write(context.view());
    int const index = detail::keyAt(data, context.time());
    if (index < 0)
        return;
    data.interpolation[index].eType = type;
    if (index + 1 < data.keys.size())
        data.interpolation[index] = defaultInterpolationData(data.keys.at(index), data.keys.at(index + 1), type);
    ParameterChange::keyframeChangedInterpolation(*this, static_cast<unsigned int>(index), writtenView(context.view()));
}

template <class T>
void Parameter<T>::setInterpolationData(InterpolationData const & record, unsigned int index, View const & view) {
    if (!bAnimatable_)
        return;
    ViewData<T> & data = write(view);
    if (index >= static_cast<unsigned int>(data.keys.size()))
        return;
    data.interpolation[static_cast<int>(index)] = record;
    ParameterChange::keyframeChangedInterpolation(*this, index, writtenView(view));
}

template <class T>
Extrapolation Parameter<T>::extrapolationBefore() const {
    if (master_)
        return master_->extrapolationBefore();
    return bAnimatable_ ? eExtrapolationBefore_ : EXTRAPOLATION_CONSTANT;
}

template <class T>
Extrapolation Parameter<T>::extrapolationAfter() const {
    if (master_)
        return master_->extrapolationAfter();
    return bAnimatable_ ? eExtrapolationAfter_ : EXTRAPOLATION_CONSTANT;
}

template <class T>
Interpolation Parameter<T>::interpolation(KeyframeIndex const & key) const {
    if (!bAnimatable_)
        return INTERPOLATION_CONSTANT;
    ViewData<T> const & data = store_.read(key.view);
    if (key.index >= static_cast<unsigned int>(data.keys.size()))
        return INTERPOLATION_CONSTANT;
    return data.interpolation[static_cast<int>(key.index)].eType;
}

template <class T>
Interpolation Parameter<T>::interpolation(Context const & context) const {
    if (master_)
        return master_->interpolation(context);
    if (!bAnimatable_)
        return INTERPOLATION_CONSTANT;
    ViewData<T> const & data = store_.read(context.view());
    if (data.keys.isEmpty())
        return eDefaultInterpolation_;
    int const exact = detail::keyAt(data, context.time());
    int const inForce = exact >= 0 ? exact : std::max(0, detail::placeAtOrAfter(data, context.time()) - 1);
    return data.interpolation[inForce].eType;
}

template <class T>
InterpolationData Parameter<T>::interpolationData(KeyframeIndex const & key) const {
    if (master_)
        return master_->interpolationData(key);
    if (!bAnimatable_)
        return withoutHandles(INTERPOLATION_CONSTANT);
    ViewData<T> const & data = store_.read(key.view);
    if (key.index >= static_cast<unsigned int>(data.keys.size()))
        return withoutHandles(eDefaultInterpolation_);
    return data.interpolation[static_cast<int>(key.index)];
}

// Finding keys

template <class T>
unsigned int Parameter<T>::numKeyframes(View const & view) const {
    return hidesView(view) ? 0 : static_cast<unsigned int>(store_.read(view).keys.size());
}

template <class T>
Context Parameter<T>::keyframeContext(unsigned int index, View const & view) const {
    ViewData<T> const & data = store_.read(view);
    bool const found = index < static_cast<unsigned int>(data.keys.size());
    return Context(found ? data.keys[static_cast<int>(index)].time : Time(0.0), view, ProxyScale::NONE);
}

template <class T>
bool Parameter<T>::isKeyframe(Context const & context) const {
    return !hidesView(context.view()) && detail::keyAt(store_.read(context.view()), context.time()) >= 0;
}

template <class T>
bool Parameter<T>::bNearestKeyframeIndex(Context const & context, unsigned int & index) const {
    if (hidesView(context.view()))
        return false;
    ViewData<T> const & data = store_.read(context.view());
    int const count = static_cast<int>(data.keys.size());
    if (count == 0)
        return false;
    int place = detail::placeAfter(data, context.time());
    if (place == count) {
        place = count - 1;
    } else if (place > 0) {
        double const time = context.time().toDouble();
        double const toNext = data.keys[place].time.toDouble() - time;
        double const toPrevious = time - data.keys[place - 1].time.toDouble();
        if (toNext > toPrevious) // A tie goes to the later key.
            --place;
    }
    index = static_cast<unsigned int>(place);
    return true;
}

template <class T>
bool Parameter<T>::bNearestKeyframeTime(Context const & context, Time & time) const {
    unsigned int index = 0;
    if (!bNearestKeyframeIndex(context, index))
        return false;
    time = store_.read(context.view()).keys.at(static_cast<int>(index)).time; // at(): keys stay shared with copies.
    return true;
}

template <class T>
bool Parameter<T>::bPreviousKeyframe(Context const & context, Context & found) const {
    if (hidesView(context.view()))
        return false;
    int const place = detail::placeAtOrAfter(store_.read(context.view()), context.time());
    if (place == 0)
        return false;
    found = keyframeContext(static_cast<unsigned int>(place - 1), context.view());
    return true;
}

template <class T>
bool Parameter<T>::bNextKeyframe(Context const & context, Context & found) const {
    if (hidesView(context.view()))
        return false;
    ViewData<T> const & data = store_.read(context.view());
    int const count = static_cast<int>(data.keys.size());
    int place = detail::placeAtOrAfter(data, context.time());
    if (place < count && data.keys[place].time == context.time())
        ++place;
    if (place == count)
        return false;
    found = keyframeContext(static_cast<unsigned int>(place), context.view());
    return true;
}

// Undoable forms

template <class T>
Tov::CompositeCommand & Parameter<T>::valueCommand(T const & value, Context const & context,
                                                   Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterValueEdit<T>(*this, value, context));
    return composite;
}

template <class T>
Tov::CompositeCommand & Parameter<T>::moveChangeCommand(T const & value, Context const & key, Time const & time,
                                                        Tov::CompositeCommand & composite) {
    composite.push_back(new MoveChangeKeyframeEdit<T>(*this, value, key, time));
    return composite;
}

template <class T>
Tov::CompositeCommand & Parameter<T>::setInterpolationCommand(Interpolation type, Context const & context,
                                                              Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterInterpolationEdit<T>(*this, type, context));
    return composite;
}

template <class T>
Tov::CompositeCommand & Parameter<T>::setInterpolationDataCommand(InterpolationData const & data,
                                                                  KeyframeIndex const & key,
                                                                  Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterInterpolationDataEdit<T>(*this, data, key));
    return composite;
}

template <class T>
Tov::CompositeCommand & Parameter<T>::setExtrapolationBeforeCommand(Extrapolation mode,
                                                                    Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterExtrapolationBeforeEdit<T>(*this, mode));
    return composite;
}

template <class T>
Tov::CompositeCommand & Parameter<T>::setExtrapolationAfterCommand(Extrapolation mode,
                                                                   Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterExtrapolationAfterEdit<T>(*this, mode));
    return composite;
}

template <class T>
Tov::CompositeCommand & Parameter<T>::addKeyframeCommand(Frame const & frame, std::vector<View> const & views,
                                                         Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterAddKeyEdit<T>(*this, frame, views));
    return composite;
}

template <class T>
Tov::CompositeCommand & Parameter<T>::addKeyframeCommand(Context const & context, Tov::CompositeCommand & composite) {
    return addKeyframeCommand(context.toFrame(), std::vector<View>{context.view()}, composite);
}

template <class T>
Tov::CompositeCommand & Parameter<T>::deleteKeyframeCommand(Frame const & frame, std::vector<View> const & views,
                                                            Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterDeleteKeyEdit<T>(*this, frame, views));
    return composite;
}

template <class T>
Tov::CompositeCommand & Parameter<T>::deleteKeyframeCommand(Context const & context,
                                                            Tov::CompositeCommand & composite) {
    return deleteKeyframeCommand(context.toFrame(), std::vector<View>{context.view()}, composite);
}

template <class T>
Tov::CompositeCommand & Parameter<T>::deleteAllKeyframesCommand(View const & view, Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterDeleteAllKeysEdit<T>(*this, view));
    return composite;
}

template <class T>
Tov::CompositeCommand & Parameter<T>::addConstrainedParameterCommand(ParameterWithoutType * constrained,
                                                                     Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterAddConstrainedParameterEdit<T>(*this, dynamic_cast<Parameter *>(constrained)));
    return composite;
}

} // namespace Kyn
