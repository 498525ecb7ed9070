#pragma once

#include "parameter/NumericParameter.h"
#include "parameter/support/At.h"
#include "parameter/support/ChangeRecorder.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <type_traits>
#include <vector>

/// What most tests of parameters start from.
namespace Test {

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

typedef std::vector<int> Ids;
typedef std::vector<double> Times;

inline Ids idsOf(Kyn::ParameterWithoutType const & parameter) {
    Ids ids;
    for (Kyn::View const view : parameter.views())
        ids.push_back(view.id());
    return ids;
}

inline Times timesOf(Kyn::ParameterWithoutType const & parameter, int view = 0) {
    Times times;
    for (unsigned int i = 0; i < parameter.numKeyframes(Kyn::View(view)); ++i)
        times.push_back(parameter.keyframeContext(i, Kyn::View(view)).time().toDouble());
    return times;
}

inline Kyn::InterpolationData recordOf(Kyn::ParameterWithoutType const & parameter, unsigned int index, int view = 0) {
    return parameter.interpolationData({const_cast<Kyn::ParameterWithoutType *>(&parameter), Kyn::View(view), index});
}

/// Sets keys that are worth their times.
inline void setKeys(Kyn::Parameter<double> & parameter, std::initializer_list<double> times, int view = 0) {
    for (double const time : times)
        parameter.setValue(time, at(time, view));
}

/// One value of a type for each number, as far as the type has so many.
template <class T>
T valueOf(int number) {
    if constexpr (std::is_same_v<T, QString>)
        return QString::number(number);
    else if constexpr (std::is_same_v<T, bool>)
        return number % 2 != 0;
    else if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(number) * T(0.5) - T(2);
    else
        return static_cast<T>(number);
}

} // namespace Test
