#include "parameter/NumericParameterBody.h"

VX_INSTANTIATE_PARAMETER(float)
VX_INSTANTIATE_NUMERIC_PARAMETER(float)
