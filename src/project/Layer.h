#pragma once

#include "parameter/Parameter.h"
#include "project/Item.h"
#include "track/TrackingParameterSet.h"

namespace vxproject {

/// A layer: its name for the user, and its sets. A further set is a member here and a word in the constructor's list.
class Layer : public Item {
public:
    Layer() {
        for (Kyn::ParameterSet * set : {&tracking})
            addSet(*set);
    }

    /// Any text without a line break.
    Kyn::Parameter<QString> name{row("Name"), false, QString(), Kyn::INTERPOLATION_CONSTANT,
                                 Kyn::EXTRAPOLATION_CONSTANT};
    VX_TrackingParameterSet tracking;
};

} // namespace vxproject
