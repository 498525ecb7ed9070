#include "parameter/NumericParameterBody.h"

VX_INSTANTIATE_PARAMETER(bool)
VX_INSTANTIATE_NUMERIC_PARAMETER(bool)
