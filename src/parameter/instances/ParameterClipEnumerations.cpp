#include "parameter/ParameterBody.h"
#include "parameter/ParameterEditsBody.h"

VX_INSTANTIATE_PARAMETER(VX_STEREO_MODE)
VX_INSTANTIATE_PARAMETER(VX_CLIP_MODE)
VX_INSTANTIATE_PARAMETER(Gan_CameraType)
