#include "parameter/NumericParameterBody.h"

VX_INSTANTIATE_PARAMETER(double)
VX_INSTANTIATE_NUMERIC_PARAMETER(double)
