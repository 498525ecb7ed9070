#include "parameter/ParameterBody.h"
#include "parameter/ParameterEditsBody.h"

VX_INSTANTIATE_PARAMETER(Kyn::View)
VX_INSTANTIATE_PARAMETER(_TrackModel)
