#pragma once

#include "parameter/NumericParameter.h"
#include "parameter/support/At.h"
#include "parameter/support/MemberTypes.h"

#include <algorithm>

namespace Test {

/// The `n`th of a series of values that a parameter may hold. Of a number that has limits: a whole number where
/// possible, and so far inside that it may be multiplied by four.
template <class T>
T nthValue(Kyn::Parameter<T> const & parameter, std::size_t n) {
    auto const number = dynamic_cast<Kyn::NumericParameter<T> const *>(&parameter);
    if constexpr (std::is_same_v<T, bool>) {
        return (n % 2 == 0) != parameter.defaultValue();
    } else if constexpr (std::is_arithmetic_v<T>) {
        double const lowest = number ? std::max(number->dMinimum(), 0.0) : 0.0;
        double const room = number ? std::min(number->dMaximum() - lowest, 1000.0) : 1000.0;
        double const share = 0.0625 * static_cast<double>(1 + n % 3);
        T const value = static_cast<T>(lowest + room * share);
        return n == 0 && value == parameter.defaultValue() ? static_cast<T>(lowest + room * 0.25) : value;
    } else {
        std::vector<T> const values = sampleValues<T>();
        std::size_t const start = values[0] == parameter.defaultValue() ? 1 : 0;
        return values[(start + n) % values.size()];
    }
}

/// Changes a parameter in every way that it allows: static values, keys of three types, modes beyond the ends, a
/// second view with data of its own.
template <class T>
void disturb(Kyn::Parameter<T> & parameter, std::size_t n) {
    std::vector<Kyn::View> views{Kyn::View(0)};
    if (parameter.isSplittable())
        views.push_back(Kyn::View(2));
    for (Kyn::View const & view : views) {
        parameter.setValue(nthValue(parameter, n), at(0, view.id()));
        if (!parameter.isAnimatable())
            continue;
        double time = 1;
        for (Kyn::Interpolation const type :
             {Kyn::INTERPOLATION_LINEAR, Kyn::INTERPOLATION_BEZIER, Kyn::INTERPOLATION_CONSTANT}) {
            parameter.setValue(nthValue(parameter, ++n), at(time, view.id()));
            parameter.setInterpolation(type, at(time, view.id()));
            time *= 2.5;
        }
        parameter.setStaticValue(nthValue(parameter, n), view);
    }
    parameter.setExtrapolationAfter(Kyn::EXTRAPOLATION_LINEAR);
}

/// The same for one whose type is not known.
inline void disturb(Kyn::ParameterWithoutType & parameter, std::size_t n) {
#define VX_DISTURB(T)                                                                                                  \
    if (auto const typed = dynamic_cast<Kyn::Parameter<T> *>(&parameter))                                              \
        return disturb(*typed, n);
    VX_FOR_EACH_PARAMETER_TYPE(VX_DISTURB)
#undef VX_DISTURB
}

/// And for all members of a set and of the sets nested in it.
inline void disturb(Kyn::ParameterSet const & set) {
    set.forEachParameter([](Kyn::ParameterWithoutType * parameter) { disturb(*parameter, 0); }, true);
}

} // namespace Test
