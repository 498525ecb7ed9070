#pragma once

#include "clip/ClipBoundParameterSet.h"
#include "clip/ParameterTable.h"
#include "parameter/FrameOffset.h"

#include <boost/make_shared.hpp>

class VX_BaseClipInfoContainer;

namespace VX {

/// What the tables of the modules' sets are written in.
struct ModuleTable : ParameterTable {
    typedef Setting Id; ///< A number that names something other than a clip.
};

} // namespace VX
