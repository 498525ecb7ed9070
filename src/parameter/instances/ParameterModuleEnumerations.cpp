#include "parameter/ParameterBody.h"
#include "parameter/ParameterEditsBody.h"

VX_INSTANTIATE_PARAMETER(VX_LUMINANCE_MODEL)
VX_INSTANTIATE_PARAMETER(VX_FILL_ALGORITHM)
