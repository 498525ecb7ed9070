#pragma once

#include "parameter/StaticParameter.h"

namespace Kyn {

/// A script name for a variable that lives elsewhere: usually a plain field of the class whose set this parameter
/// stands in. Whoever owns the variable reads and writes it directly; both see the same value.
template <class T>
class VirtualParameter : public StaticParameter<T> {
public:
    /// The target is not owned, must not be null and must outlive the parameter.
    VirtualParameter(QString const & scriptName, T * target) : StaticParameter<T>(scriptName), target_(target) {}

    void setValue(T const & value) override;
    T value() const override;

private:
    T * target_;
};

} // namespace Kyn

#define VX_EXTERN_VIRTUAL_PARAMETER(T) extern template class Kyn::VirtualParameter<T>;
VX_FOR_EACH_STATIC_TYPE(VX_EXTERN_VIRTUAL_PARAMETER)
#undef VX_EXTERN_VIRTUAL_PARAMETER
