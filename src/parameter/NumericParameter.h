#pragma once

#include "parameter/CustomModes.h"
#include "parameter/Parameter.h"

namespace Kyn {

/// A parameter of numbers: computes values between and beyond keys, and has a lower and an upper limit.
///
/// The limits hold on reading and on writing, the upper first, then the lower, so that of crossed limits the lower one
/// wins and what is not a number becomes the minimum. Stored values never change when limits do; keys read by index,
/// script text and mementos are not limited. A parameter without limits has the extremes of its type.
///
/// Values between keys are computed in double. In an integer type the result is cut towards zero, saturates beyond the
/// type's range and is 0 where it is not a number; a bool is true for anything but 0.0.
template <class T>
class NumericParameter : public Parameter<T>, public NumericParameterWithoutType {
public:
    using Parameter<T>::extrapolate;
    using Parameter<T>::interpolate;

    /// Limits are the type's extremes: for floating types the lowest and the largest finite number.
    NumericParameter(bool bAnimatable, char const * name);
    NumericParameter(bool bAnimatable, QString const & name, T const & defaultValue, T const & minimum,
                     T const & maximum, Interpolation defaultInterpolation, Extrapolation extrapolation);
    NumericParameter(ParameterSet::Row const & row, bool bAnimatable, T const & defaultValue, T const & minimum,
                     T const & maximum, Interpolation defaultInterpolation, Extrapolation extrapolation);

    /// Copies limits and custom modes as well; the modes themselves are shared.
    NumericParameter(NumericParameter const & other);
    NumericParameter & operator=(NumericParameter const & other);
    ~NumericParameter() override;

    T value(Context const & context) const override;
    unsigned int setValue(T const & value, Context const & context) override;
    T interpolate(BoundingKeyframes const & keys, Context const & context) const override;
    T extrapolate(BoundingKeyframes const & keys, Context const & context) const override;
    /// The answer of the custom extrapolator after the last key; false without one.
    bool bValueWithoutKeyframes() const override;
    /// Handles a tenth of the way along the straight line between the keys, for BEZIER alone. The difference of two
    /// integer values is formed in their own arithmetic: of two unsigned values 3 - 5 is 4294967294.
    InterpolationData defaultInterpolationData(Keyframe<T> const & key, Keyframe<T> const & next,
                                               Interpolation type) const override;

    virtual T minimum() const { return minimum_; }
    virtual T maximum() const { return maximum_; }
    /// Nothing stored changes; readers see the new limit at once.
    virtual void setMinimum(T const & minimum) { minimum_ = minimum; }
    virtual void setMaximum(T const & maximum) { maximum_ = maximum; }

    /// As in Kyn::Parameter, the value limited first.
    unsigned int moveChangeKeyframe(T const & value, Context const & from, Time const & to);
    void assignFrom(ParameterWithoutType const & other) override;

    double dValue(Context const & context) const override;
    double dKeyframeValue(KeyframeIndex const & key) const override;
    void vSetValue(double value, Context const & context) override;
    int iMoveChangeKeyframe(double value, Context const & key, double time) override;
    Tov::CompositeCommand & valueCommand(double value, Context const & context,
                                         Tov::CompositeCommand & composite) override;
    Tov::CompositeCommand & moveChangeCommand(double value, Context const & key, double time,
                                              Tov::CompositeCommand & composite) override;
    double dMinimum() const override;
    double dMaximum() const override;
    bool bIsIntegral() const override;
    double dToDisplay(double stored, Context const & context) const override;
    double dFromDisplay(double shown, Context const & context) const override;
    bool bHasCustomInterpolators() const override;
    bool bHasCustomExtrapolators() const override;
    QVector<QString> const & customInterpolatorNames() const override;
    QVector<QString> const & customExtrapolatorNames() const override;
    unsigned int uiInterpolationFromIndex(unsigned int index) const override;
    unsigned int uiExtrapolationFromIndex(unsigned int index) const override;
    CustomInterpolator<T> const * customInterpolator(unsigned int mode) const override;
    CustomExtrapolator<T> const * customExtrapolator(unsigned int mode) const override;

    /// Offers a further mode under a name, and returns its mode number. Copies of the parameter share the object. A key
    /// whose mode number has no object here evaluates to zero. Null is refused and gives mode 0.
    Interpolation addCustomInterpolator(QString const & name,
                                        boost::shared_ptr<CustomInterpolator<T> const> const & interpolator);
    Extrapolation addCustomExtrapolator(QString const & name,
                                        boost::shared_ptr<CustomExtrapolator<T> const> const & extrapolator);

private:
    /// Made with the first custom mode: no parameter of this library has one.
    struct CustomModes {
        QVector<QString> interpolatorNames;
        QVector<QString> extrapolatorNames;
        QVector<boost::shared_ptr<CustomInterpolator<T> const>> interpolators;
        QVector<boost::shared_ptr<CustomExtrapolator<T> const>> extrapolators;
    };

    T limited(T value) const;
    CustomModes & customModes();

    T minimum_;
    T maximum_;
    std::unique_ptr<CustomModes> customModes_;
};

} // namespace Kyn

#define VX_EXTERN_NUMERIC_PARAMETER(T) extern template class Kyn::NumericParameter<T>;
VX_FOR_EACH_NUMERIC_TYPE(VX_EXTERN_NUMERIC_PARAMETER)
#undef VX_EXTERN_NUMERIC_PARAMETER
