#include "parameter/NumericParameterBody.h"

VX_INSTANTIATE_PARAMETER(int)
VX_INSTANTIATE_NUMERIC_PARAMETER(int)
