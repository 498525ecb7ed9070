#pragma once

#include "parameter/kyn/ParameterChange.h"

namespace Kyn {

/// While one lives, changes of one type still pass for a parameter although its signals are blocked.
/// Permits of one parameter end in the reverse order of their making, as scopes do. The parameter outlives the permit.
class ScopedSignalPermit {
public:
    ScopedSignalPermit(ParameterWithoutType & parameter, ParameterChange::ChangeType type);
    ~ScopedSignalPermit();

    ScopedSignalPermit(ScopedSignalPermit const &) = delete;
    ScopedSignalPermit & operator=(ScopedSignalPermit const &) = delete;

private:
    friend class ParameterWithoutType;

    ParameterWithoutType & parameter_;
    ParameterChange::ChangeType type_;
    ScopedSignalPermit const * outer_;
};

} // namespace Kyn
