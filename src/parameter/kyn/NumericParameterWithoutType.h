#pragma once

#include "parameter/kyn/ParameterWithoutType.h"

#include <QVector>

namespace Kyn {

/// An application's way to run from key to key, or beyond the ends: the untyped root, see CustomModes.h.
class CustomMode {
public:
    virtual ~CustomMode() = default;
};

/// The type-free face of numeric parameters: all numbers as doubles, so that a curve editor can treat all alike.
/// A double that does not fit the parameter's own type saturates; one that is not a number becomes 0 in an integer.
class NumericParameterWithoutType : public virtual ParameterWithoutType {
public:
    NumericParameterWithoutType() = default;
    ~NumericParameterWithoutType() override = default;

    /// The value at a context, within the limits.
    virtual double dValue(Context const & context) const = 0;
    /// The stored value of a key, not limited; the last key's past the end, the view's static value without keys.
    virtual double dKeyframeValue(KeyframeIndex const & key) const = 0;
    virtual void vSetValue(double value, Context const & context) = 0;
    /// Moves the key exactly at `key` to `time` and gives it `value`, limited. Its new index; -1 without such a key.
    virtual int iMoveChangeKeyframe(double value, Context const & key, double time) = 0;

    virtual Tov::CompositeCommand & valueCommand(double value, Context const & context,
                                                 Tov::CompositeCommand & composite) = 0;
    virtual Tov::CompositeCommand & moveChangeCommand(double value, Context const & key, double time,
                                                      Tov::CompositeCommand & composite) = 0;

    virtual double dMinimum() const = 0;
    virtual double dMaximum() const = 0;
    virtual bool bIsIntegral() const = 0;

    /// Between the stored unit and the unit shown to a user.
    virtual double dToDisplay(double stored, Context const & context) const = 0;
    virtual double dFromDisplay(double shown, Context const & context) const = 0;

    virtual bool bHasCustomInterpolators() const = 0;
    virtual bool bHasCustomExtrapolators() const = 0;
    virtual QVector<QString> const & customInterpolatorNames() const = 0;
    virtual QVector<QString> const & customExtrapolatorNames() const = 0;
    /// The mode number of a custom interpolator or extrapolator: its place behind the built-in modes.
    virtual unsigned int uiInterpolationFromIndex(unsigned int index) const = 0;
    virtual unsigned int uiExtrapolationFromIndex(unsigned int index) const = 0;
    /// The custom mode of a mode number; null past the end.
    virtual CustomMode const * customInterpolator(unsigned int mode) const = 0;
    virtual CustomMode const * customExtrapolator(unsigned int mode) const = 0;

    /// Whether the custom mode after the last key also gives the values of a view without keys.
    virtual bool bValueWithoutKeyframes() const = 0;

protected:
    NumericParameterWithoutType(NumericParameterWithoutType const & other) : ParameterWithoutType(other) {}
    NumericParameterWithoutType & operator=(NumericParameterWithoutType const &) { return *this; }
};

} // namespace Kyn
