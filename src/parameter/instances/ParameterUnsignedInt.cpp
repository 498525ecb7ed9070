#include "parameter/NumericParameterBody.h"

VX_INSTANTIATE_PARAMETER(unsigned int)
VX_INSTANTIATE_NUMERIC_PARAMETER(unsigned int)
