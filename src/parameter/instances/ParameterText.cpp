#include "parameter/ParameterBody.h"
#include "parameter/ParameterEditsBody.h"

VX_INSTANTIATE_PARAMETER(QString)
VX_INSTANTIATE_PARAMETER(Tov::FSPercentEscapedString)
