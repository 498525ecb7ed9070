#pragma once

#include "parameter/NumericParameter.h"

namespace Kyn {

/// Multiplies a parameter that holds an amount of pixels, as a project moves to another frame size.
///
/// Each key's limited value is multiplied in double, cut towards zero for integers and written back, limited again. The
/// view's static value is multiplied as it is stored and stored without limits; ValueChanged is sent for `view` where
/// it changed, even if keys hide it. Times stay. Signals of key writes are those of setValue.
template <class T>
void rescale(NumericParameter<T> & parameter, double factor, View const & view);

/// The same for every view that has data, first to last.
template <class T>
void rescale(NumericParameter<T> & parameter, double factor);

} // namespace Kyn
