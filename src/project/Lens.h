#pragma once

#include "camera/CameraParameterSet.h"
#include "project/Item.h"

namespace vxproject {

/// A lens: its name for the user, and the lens set, which names its clips by their ids.
///
///     Lens[1].Camera.InputClipID.value=1
///     Lens[1].Camera.RadialK1.value=-0.12
class Lens : public Item {
public:
    Lens() { addSet(camera); }

    /// Any text without a line break.
    Kyn::Parameter<QString> name{row("Name"), false, QString(), Kyn::INTERPOLATION_CONSTANT,
                                 Kyn::EXTRAPOLATION_CONSTANT};
    VX_CameraParameterSet camera;
};

} // namespace vxproject
