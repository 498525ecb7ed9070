#pragma once

#include "parameter/kyn/ParameterSet.h"

#include <algorithm>
#include <vector>

namespace Kyn {

/// Visits the parameters of two sets of one class two by two, `visit(of the first, of the second)`, in order of
/// registration. Nested sets are left out. Where one set is longer, its last parameters are not visited.
template <class Visit>
void forEachPair(ParameterSet const & first, ParameterSet const & second, Visit const & visit) {
    auto const parametersOf = [](ParameterSet const & set) {
        std::vector<ParameterWithoutType *> parameters;
        set.forEachParameter([&](ParameterWithoutType * parameter) { parameters.push_back(parameter); }, false);
        return parameters;
    };
    std::vector<ParameterWithoutType *> const ofFirst = parametersOf(first);
    std::vector<ParameterWithoutType *> const ofSecond = parametersOf(second);
    for (std::size_t i = 0; i < std::min(ofFirst.size(), ofSecond.size()); ++i)
        visit(*ofFirst[i], *ofSecond[i]);
}

} // namespace Kyn
