#pragma once

#include "modules/InsertParameterSet.h"
#include "modules/MatteParameterSet.h"
#include "modules/RemoveParameterSet.h"
#include "modules/StabilizeParameterSet.h"
#include "modules/WarperParameterSet.h"
#include "parameter/Parameter.h"
#include "project/Item.h"
#include "track/LayerParameterSet.h"
#include "track/TrackingParameterSet.h"

namespace vxproject {

/// A layer: its name for the user, and its sets. A further set is a member here and a word in the constructor's list.
///
/// The region that it fills defaults to its id, or to the largest region for a larger id. Frames of the remove and
/// stabilize modules are shown in the numbers of their input clip, which begin at its first-frame offset, or at 0
/// without a clip.
class Layer : public Item {
public:
    /// The clips are where the sets look clips up. They must outlive the layer.
    Layer(VX_BaseClipInfoContainer & clips, quint32 id);

    /// Any text without a line break.
    Kyn::Parameter<QString> name{row("Name"), false, QString(), Kyn::INTERPOLATION_CONSTANT,
                                 Kyn::EXTRAPOLATION_CONSTANT};
    VX_LayerParameterSet basic;
    VX_TrackingParameterSet tracking;
    VX_InsertParameterSet insert;
    VX_RemoveParameterSet remove;
    VX_StabilizeParameterSet stabilize;
    VX_WarperParameterSet warper;
    VX_MatteParameterSet matte;
};

} // namespace vxproject
