#pragma once

// The template bodies of Kyn::NumericParameter, for the files that instantiate it. Nobody else includes this.

#include "parameter/NumericParameter.h"
#include "parameter/ParameterBody.h"
#include "parameter/ParameterEditsBody.h"
#include "parameter/Scaling.h"

#include <limits>

namespace Kyn {

namespace detail {

/// Upper limit first, then lower: with crossed limits the lower one wins, and what is not a number becomes the minimum.
/// std::clamp would be undefined there.
template <class T>
T limited(T value, T minimum, T maximum) {
    T const below = value > maximum ? maximum : value;
    return below > minimum ? below : minimum;
}

/// The difference of two values as a double: of integers in their own arithmetic, which wraps.
template <class T>
double difference(T a, T b) {
    if constexpr (std::is_same_v<T, int>)
        return static_cast<double>(static_cast<int>(static_cast<unsigned int>(a) - static_cast<unsigned int>(b)));
    else if constexpr (std::is_integral_v<T>)
        return static_cast<double>(a - b);
    else
        return static_cast<double>(a) - static_cast<double>(b);
}

} // namespace detail

template <class T>
NumericParameter<T>::NumericParameter(bool bAnimatable, char const * name)
    : Parameter<T>(bAnimatable, name),
      minimum_(std::numeric_limits<T>::lowest()),
      maximum_(std::numeric_limits<T>::max()) {}

template <class T>
NumericParameter<T>::NumericParameter(bool bAnimatable, QString const & name, T const & defaultValue, T const & minimum,
                                      T const & maximum, Interpolation defaultInterpolation,
                                      Extrapolation extrapolation)
    : Parameter<T>(bAnimatable, name, defaultValue, defaultInterpolation, extrapolation),
      minimum_(minimum),
      maximum_(maximum) {}

template <class T>
NumericParameter<T>::NumericParameter(ParameterSet::Row const & row, bool bAnimatable, T const & defaultValue,
                                      T const & minimum, T const & maximum, Interpolation defaultInterpolation,
                                      Extrapolation extrapolation)
    : Parameter<T>(row, bAnimatable, defaultValue, defaultInterpolation, extrapolation),
      minimum_(minimum),
      maximum_(maximum) {}

template <class T>
NumericParameter<T>::NumericParameter(NumericParameter const & other)
    : ParameterWithoutType(other),
      Parameter<T>(other),
      NumericParameterWithoutType(other),
      minimum_(other.minimum_),
      maximum_(other.maximum_),
      customModes_(other.customModes_ ? std::make_unique<CustomModes>(*other.customModes_) : nullptr) {}

template <class T>
NumericParameter<T> & NumericParameter<T>::operator=(NumericParameter const & other) {
    if (this == &other)
        return *this;
    minimum_ = other.minimum_;
    maximum_ = other.maximum_;
    customModes_ = other.customModes_ ? std::make_unique<CustomModes>(*other.customModes_) : nullptr;
    Parameter<T>::operator=(other);
    return *this;
}

template <class T>
NumericParameter<T>::~NumericParameter() = default;

template <class T>
void NumericParameter<T>::assignFrom(ParameterWithoutType const & other) {
    if (auto const source = dynamic_cast<NumericParameter const *>(&other))
        *this = *source;
}

template <class T>
T NumericParameter<T>::limited(T value) const {
    return detail::limited(value, minimum_, maximum_);
}

template <class T>
T NumericParameter<T>::value(Context const & context) const {
    // A subclass may have its own interpolate() and extrapolate(), which are then asked. What is no subclass, nearly
    // every parameter, is spared the two calls and what they are told.
    if (&typeid(*this) != &typeid(NumericParameter))
        return limited(Parameter<T>::value(context));
    return limited(this->plainValue(
        context,
        [&](ViewData<T> const & data, int place) {
            Keyframe<T> const * const next = data.keys.constData() + place;
            InterpolationData const & record = data.interpolation.constData()[place - 1];
            return record.eType < INTERPOLATION_CUSTOM
                       ? detail::valueBetween(next[-1], *next, record, record.eType, context.time())
                       : Parameter<T>::value(context);
        },
        [&](ViewData<T> const & data, int place) {
            Extrapolation const mode = place == 0 ? this->ownExtrapolationBefore() : this->ownExtrapolationAfter();
            return mode < EXTRAPOLATION_CUSTOM
                       ? detail::extrapolated(data, mode, context.time(),
                                              place == 0 ? detail::Side::Before : detail::Side::After)
                       : Parameter<T>::value(context);
        }));
}

template <class T>
unsigned int NumericParameter<T>::setValue(T const & value, Context const & context) {
    return Parameter<T>::setValue(limited(value), context);
}

template <class T>
T NumericParameter<T>::interpolate(BoundingKeyframes const & keys, Context const & context) const {
    ViewData<T> const & data = this->viewData(keys.before.view);
    int const index = static_cast<int>(keys.before.index);
    Interpolation const type =
        index < data.interpolation.size() ? data.interpolation.constData()[index].eType : INTERPOLATION_NONE;
    if (type < INTERPOLATION_CUSTOM)
        return detail::interpolated(data, type, context.time(), index);
    CustomInterpolator<T> const * const custom = customInterpolator(type);
    return custom ? custom->evaluate(*this, context.time(), keys, context.view()) : T(0);
}

template <class T>
T NumericParameter<T>::extrapolate(BoundingKeyframes const & keys, Context const & context) const {
    // Without keys, too, it is the mode before the first key that answers, although the one after the last was asked
    // whether it would.
    bool const before = keys.before.isNull();
    Extrapolation const mode = before ? this->ownExtrapolationBefore() : this->ownExtrapolationAfter();
    if (mode >= EXTRAPOLATION_CUSTOM) {
        CustomExtrapolator<T> const * const custom = customExtrapolator(mode);
        return custom ? custom->evaluate(*this, context.time(), keys, context.view()) : T(0);
    }
    if (keys.isNull())
        return T(0);
    KeyframeIndex const & end = before ? keys.after : keys.before;
    return detail::extrapolated(this->viewData(end.view), mode, context.time(),
                                before ? detail::Side::Before : detail::Side::After);
}

template <class T>
bool NumericParameter<T>::bValueWithoutKeyframes() const {
    if (this->ownExtrapolationAfter() < EXTRAPOLATION_CUSTOM)
        return false;
    CustomExtrapolator<T> const * const custom = customExtrapolator(this->ownExtrapolationAfter());
    return custom && custom->bValueWithoutKeyframes();
}

template <class T>
InterpolationData NumericParameter<T>::defaultInterpolationData(Keyframe<T> const & key, Keyframe<T> const & next,
                                                                Interpolation type) const {
    InterpolationData data = withoutHandles(type);
    if (type != INTERPOLATION_BEZIER)
        return data;
    data.dOutTime = (next.time.toDouble() - key.time.toDouble()) * 0.1;
    data.dOutValue = detail::difference(next.value, key.value) * 0.1;
    data.dInTime = -data.dOutTime;
    data.dInValue = -data.dOutValue;
    return data;
}

template <class T>
unsigned int NumericParameter<T>::moveChangeKeyframe(T const & value, Context const & from, Time const & to) {
    return Parameter<T>::moveChangeKeyframe(limited(value), from, to);
}

// The untyped face

template <class T>
double NumericParameter<T>::dValue(Context const & context) const {
    return static_cast<double>(this->value(context));
}

template <class T>
double NumericParameter<T>::dKeyframeValue(KeyframeIndex const & key) const {
    return static_cast<double>(this->keyframeValue(key.index, key.view));
}

template <class T>
void NumericParameter<T>::vSetValue(double value, Context const & context) {
    this->setValue(detail::toMember<T>(value), context);
}

template <class T>
int NumericParameter<T>::iMoveChangeKeyframe(double value, Context const & key, double time) {
    return static_cast<int>(moveChangeKeyframe(detail::toMember<T>(value), key, Time(time)));
}

template <class T>
Tov::CompositeCommand & NumericParameter<T>::valueCommand(double value, Context const & context,
                                                          Tov::CompositeCommand & composite) {
    return Parameter<T>::valueCommand(limited(detail::toMember<T>(value)), context, composite);
}

template <class T>
Tov::CompositeCommand & NumericParameter<T>::moveChangeCommand(double value, Context const & key, double time,
                                                               Tov::CompositeCommand & composite) {
    return Parameter<T>::moveChangeCommand(limited(detail::toMember<T>(value)), key, Time(time), composite);
}

template <class T>
double NumericParameter<T>::dMinimum() const {
    return static_cast<double>(minimum());
}

template <class T>
double NumericParameter<T>::dMaximum() const {
    return static_cast<double>(maximum());
}

template <class T>
bool NumericParameter<T>::bIsIntegral() const {
    return std::is_integral_v<T>;
}

template <class T>
double NumericParameter<T>::dToDisplay(double stored, Context const & context) const {
    return static_cast<double>(this->toDisplay(detail::toMember<T>(stored), context));
}

template <class T>
double NumericParameter<T>::dFromDisplay(double shown, Context const & context) const {
    return static_cast<double>(this->fromDisplay(detail::toMember<T>(shown), context));
}

// Custom modes

template <class T>
typename NumericParameter<T>::CustomModes & NumericParameter<T>::customModes() {
    if (!customModes_)
        customModes_ = std::make_unique<CustomModes>();
    return *customModes_;
}

namespace detail {

inline QVector<QString> const & noNames() {
    static QVector<QString> const names;
    return names;
}

} // namespace detail

template <class T>
bool NumericParameter<T>::bHasCustomInterpolators() const {
    return customModes_ && !customModes_->interpolators.isEmpty();
}

template <class T>
bool NumericParameter<T>::bHasCustomExtrapolators() const {
    return customModes_ && !customModes_->extrapolators.isEmpty();
}

template <class T>
QVector<QString> const & NumericParameter<T>::customInterpolatorNames() const {
    return customModes_ ? customModes_->interpolatorNames : detail::noNames();
}

template <class T>
QVector<QString> const & NumericParameter<T>::customExtrapolatorNames() const {
    return customModes_ ? customModes_->extrapolatorNames : detail::noNames();
}

template <class T>
unsigned int NumericParameter<T>::uiInterpolationFromIndex(unsigned int index) const {
    return index + INTERPOLATION_CUSTOM;
}

template <class T>
unsigned int NumericParameter<T>::uiExtrapolationFromIndex(unsigned int index) const {
    return index + EXTRAPOLATION_CUSTOM;
}

template <class T>
CustomInterpolator<T> const * NumericParameter<T>::customInterpolator(unsigned int mode) const {
    if (!customModes_ || mode < INTERPOLATION_CUSTOM)
        return nullptr;
    return customModes_->interpolators.value(static_cast<qsizetype>(mode) - INTERPOLATION_CUSTOM).get();
}

template <class T>
CustomExtrapolator<T> const * NumericParameter<T>::customExtrapolator(unsigned int mode) const {
    if (!customModes_ || mode < EXTRAPOLATION_CUSTOM)
        return nullptr;
    return customModes_->extrapolators.value(static_cast<qsizetype>(mode) - EXTRAPOLATION_CUSTOM).get();
}

template <class T>
Interpolation
NumericParameter<T>::addCustomInterpolator(QString const & name,
                                           boost::shared_ptr<CustomInterpolator<T> const> const & interpolator) {
    if (!interpolator)
        return INTERPOLATION_NONE;
    customModes().interpolatorNames.append(name);
    customModes().interpolators.append(interpolator);
    return static_cast<Interpolation>(
        uiInterpolationFromIndex(static_cast<unsigned int>(customModes().interpolators.size()) - 1));
}

template <class T>
Extrapolation
NumericParameter<T>::addCustomExtrapolator(QString const & name,
                                           boost::shared_ptr<CustomExtrapolator<T> const> const & extrapolator) {
    if (!extrapolator)
        return EXTRAPOLATION_NONE;
    customModes().extrapolatorNames.append(name);
    customModes().extrapolators.append(extrapolator);
    return static_cast<Extrapolation>(
        uiExtrapolationFromIndex(static_cast<unsigned int>(customModes().extrapolators.size()) - 1));
}

// Scaling

template <class T>
void rescale(NumericParameter<T> & parameter, double factor, View const & view) {
    auto const scaled = [factor](T value) { return detail::toMember<T>(static_cast<double>(value) * factor); };
    unsigned int const count = parameter.numKeyframes(view);
    for (unsigned int i = 0; i < count; ++i) {
        Context const key = parameter.keyframeContext(i, view);
        parameter.setValue(scaled(parameter.value(key)), key);
    }
    parameter.setStaticValue(scaled(parameter.staticValue(view)), view);
}

template <class T>
void rescale(NumericParameter<T> & parameter, double factor) {
    std::vector<View> const views = parameter.views();
    for (View const view : views)
        rescale(parameter, factor, view);
}

} // namespace Kyn

#define VX_INSTANTIATE_NUMERIC_PARAMETER(T)                                                                            \
    template class Kyn::NumericParameter<T>;                                                                           \
    template void Kyn::rescale(Kyn::NumericParameter<T> &, double, Kyn::View const &);                                 \
    template void Kyn::rescale(Kyn::NumericParameter<T> &, double);
