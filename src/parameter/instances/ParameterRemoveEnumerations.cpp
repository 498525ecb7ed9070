#include "parameter/ParameterBody.h"
#include "parameter/ParameterEditsBody.h"

VX_INSTANTIATE_PARAMETER(VX_REMOVESOURCE_MODE)
VX_INSTANTIATE_PARAMETER(VX_ILLUMINATION_MODEL)
