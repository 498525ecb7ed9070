#include "parameter/VirtualParameter.h"

namespace Kyn {

template <class T>
void VirtualParameter<T>::setValue(T const & value) {
    *target_ = value;
}

template <class T>
T VirtualParameter<T>::value() const {
    return *target_;
}

} // namespace Kyn

#define VX_INSTANTIATE_VIRTUAL_PARAMETER(T) template class Kyn::VirtualParameter<T>;
VX_FOR_EACH_STATIC_TYPE(VX_INSTANTIATE_VIRTUAL_PARAMETER)
