#pragma once

// Part of ParameterBody.h: what a parameter is worth at a context.

#include <QVarLengthArray>

namespace Kyn {

/// The usual case, in which no view but view 0 has data and none other is asked for. What it is not, it leaves to
/// valueOfViews(), which answers every case. `between` gives the value of the segment that starts at a key, `beyond`
/// the value before or after all keys; both are told the view's data and the place of the first key later than the
/// time.
template <class T>
template <class Between, class Beyond>
T Parameter<T>::plainValue(Context const & context, Between const & between, Beyond const & beyond) const {
    if (master_)
        return master_->value(context);
    // The view that was asked for counts in all later steps, even where another view's data is read.
    if (!store_.holdsOnlyViewZero() || (bSplittable_ && context.view() != View(0)))
        return valueOfViews(context);
    ViewData<T> const & data = store_.first();
    int const count = static_cast<int>(data.keys.size());
    if (!bAnimatable_ || (count == 0 && eExtrapolationAfter_ < EXTRAPOLATION_CUSTOM))
        return data.value;
    double const time = context.time().toDouble();
    if (count == 0 || data.bUnordered)
        return valueOfViews(context);
    Keyframe<T> const * const keys = data.keys.constData();
    int const place = detail::firstKeyAtOrAfter(keys, count, time);
    if (place < count && keys[place].time.toDouble() == time)
        return keys[place].value;
    if (place > 0 && place < count)
        return between(data, place);
    return std::isnan(time) ? valueOfViews(context) : beyond(data, place);
}

template <class T>
T Parameter<T>::value(Context const & context) const {
    View const zero(0);
    return plainValue(
        context,
        [&](ViewData<T> const &, int place) {
            return interpolate({keyframeIndex(zero, place - 1), keyframeIndex(zero, place)}, context.withView(zero));
        },
        [&](ViewData<T> const &, int place) {
            KeyframeIndex const before = place > 0 ? keyframeIndex(zero, place - 1) : KeyframeIndex();
            KeyframeIndex const after = place > 0 ? KeyframeIndex() : keyframeIndex(zero, place);
            return extrapolate({before, after}, context.withView(zero));
        });
}

/// Every case: several views, linked views, a view without data of its own, keys that no order holds.
template <class T>
T Parameter<T>::valueOfViews(Context const & context) const {
    View const chosen = bSplittable_ ? context.view() : store_.views().front();
    if (!bAnimatable_)
        return store_.read(chosen).value;
    View searched = chosen;
    if (ViewData<T> const * own = store_.find(chosen)) {
        int const key = detail::keyAt(*own, context.time());
        if (key >= 0)
            return own->keys[key].value;
    } else {
        searched = store_.views().front();
    }
    BoundingKeyframes bounds = boundingKeyframes(context, searched);
    if (viewsAreLinked(context)) {
        std::vector<View> const views = store_.views();
        bounds = boundingKeyframes(context, views.front());
        for (std::size_t i = 1; i < views.size(); ++i)
            bounds = combined(bounds, boundingKeyframes(context, views[i]), context);
    }
    if (bounds.isNull() && (eExtrapolationAfter_ < EXTRAPOLATION_CUSTOM || !bValueWithoutKeyframes()))
        return store_.read(chosen).value;
    if (bounds.before.isNull() || bounds.after.isNull())
        return extrapolate(bounds, context.withView(chosen));
    bool const onKey = bounds.before == bounds.after;
    // A time exactly on a key of another view than the chosen one is interpolated: within a Bezier segment that gives
    // zero, since no root lies strictly inside.
    if (onKey && bounds.before.view == chosen)
        return keyframeValue(bounds.before.index, chosen);
    return interpolate(bounds, context.withView(chosen));
}

template <class T>
bool Parameter<T>::viewsAreLinked(Context const & context) const {
    if (!bSplittable_)
        return false;
    Parameter<bool> const * const flag = linkFlag();
    return flag && flag->value(context);
}

template <class T>
KeyframeIndex Parameter<T>::keyframeIndex(View view, int index) const {
    return {const_cast<Parameter *>(this), view, static_cast<unsigned int>(index)};
}

template <class T>
BoundingKeyframes Parameter<T>::boundingKeyframes(Context const & context, View searched) const {
    ViewData<T> const & data = store_.read(searched);
    BoundingKeyframes bounds;
    if (data.keys.isEmpty())
        return bounds;
    detail::Bounds const places = detail::boundsOf(data.keys, context.time());
    if (places.before >= 0)
        bounds.before = keyframeIndex(searched, places.before);
    if (places.after >= 0)
        bounds.after = keyframeIndex(searched, places.after);
    return bounds;
}

template <class T>
BoundingKeyframes Parameter<T>::combined(BoundingKeyframes const & a, BoundingKeyframes const & b,
                                         Context const & context) const {
    if (a.isNull())
        return b;
    if (b.isNull())
        return a;
    return {nearer(a.before, b.before, context), nearer(a.after, b.after, context)};
}

/// The nearer of two keys in time, distances compared in single precision; of two equally near the one in the context's
/// view if it is x, else y.
template <class T>
KeyframeIndex Parameter<T>::nearer(KeyframeIndex const & x, KeyframeIndex const & y, Context const & context) const {
    if (x.isNull())
        return y;
    if (y.isNull())
        return x;
    auto const distance = [&](KeyframeIndex const & key) {
        double const keyTime = store_.read(key.view).keys.at(key.index).time.toDouble();
        return static_cast<float>(std::fabs(context.time().toDouble() - keyTime));
    };
    float const dX = distance(x);
    float const dY = distance(y);
    if (dY > dX)
        return x;
    if (dX > dY)
        return y;
    return x.view == context.view() ? x : y;
}

template <class T>
T Parameter<T>::interpolate(BoundingKeyframes const & keys, Context const &) const {
    return keyframeValue(keys.before.index, keys.before.view);
}

template <class T>
T Parameter<T>::extrapolate(BoundingKeyframes const & keys, Context const &) const {
    KeyframeIndex const & end = keys.before.view.isValid() ? keys.before : keys.after;
    return keyframeValue(end.index, end.view);
}

template <class T>
bool Parameter<T>::bValueWithoutKeyframes() const {
    return false;
}

template <class T>
InterpolationData Parameter<T>::defaultInterpolationData(Keyframe<T> const &, Keyframe<T> const &,
                                                         Interpolation type) const {
    return withoutHandles(type);
}

template <class T>
T Parameter<T>::defaultValue() const {
    return store_.defaultValue();
}

template <class T>
void Parameter<T>::setDefaultValue(T const & value) {
    store_.setDefaultValue(value);
}

template <class T>
T Parameter<T>::keyframeValue(unsigned int index, View const & view) const {
    ViewData<T> const & data = store_.read(view);
    if (!bAnimatable_ || data.keys.isEmpty())
        return data.value;
    unsigned int const last = static_cast<unsigned int>(data.keys.size()) - 1;
    return data.keys[std::min(index, last)].value;
}

template <class T>
T Parameter<T>::toDisplay(T stored, Context const &) const {
    return stored;
}

template <class T>
T Parameter<T>::fromDisplay(T shown, Context const &) const {
    return shown;
}

} // namespace Kyn
