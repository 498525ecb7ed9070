#pragma once

#include "camera/CameraParameterSet.h"
#include "camera/StereoCamera3DParameterSet.h"
#include "modules/InsertParameterSet.h"
#include "modules/MatteParameterSet.h"
#include "modules/RemoveParameterSet.h"
#include "modules/StabilizeParameterSet.h"
#include "modules/WarperParameterSet.h"
#include "track/LayerParameterSet.h"
#include "track/TrackingParameterSet.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace Test {

/// A class of sets, for laws that hold for all of them. `assign` and `copy` take sets of this class only.
struct SetKind {
    std::string name;
    std::function<std::unique_ptr<Kyn::ParameterSet>()> make;
    std::function<std::unique_ptr<Kyn::ParameterSet>(Kyn::ParameterSet const &)> copy;
    std::function<void(Kyn::ParameterSet &, Kyn::ParameterSet const &)> assign;
};

inline void PrintTo(SetKind const & kind, std::ostream * out) {
    *out << kind.name;
}

/// The class whose new sets are made with `arguments`.
template <class Set, class... Arguments>
SetKind kindOf(char const * name, Arguments... arguments) {
    return {name, [=] { return std::make_unique<Set>(arguments...); },
            [](Kyn::ParameterSet const & set) { return std::make_unique<Set>(dynamic_cast<Set const &>(set)); },
            [](Kyn::ParameterSet & set, Kyn::ParameterSet const & other) {
                dynamic_cast<Set &>(set) = dynamic_cast<Set const &>(other);
            }};
}

/// Every class of sets that a project's modules, layers and lenses are made of. A new one is one line here.
inline std::vector<SetKind> allSets() {
    VX_BaseClipInfoContainer * const noClips = nullptr;
    Kyn::Parameter<unsigned int> * const noClipId = nullptr;
    auto const offset = [] { return 100; };
    return {
        kindOf<VX_CameraParameterSet>("Camera"),
        kindOf<VX_StereoCamera3DParameterSet>("StereoCamera3D"),
        kindOf<VX_TrackingParameterSet>("Tracking"),
        kindOf<VX_LayerParameterSet>("Layer", noClips, 3u),
        kindOf<VX_InsertParameterSet>("Insert", noClips),
        kindOf<VX_InsertROIParameterSet>("InsertROI", noClipId, noClips),
        kindOf<VX_InsertCompositeParameterSet>("InsertComposite"),
        kindOf<VX_InsertBlurParameterSet>("InsertBlur"),
        kindOf<VX_InsertOffsetParameterSet>("InsertOffset"),
        kindOf<VX_InsertEdgeParameterSet>("InsertEdge"),
        kindOf<VX_LuminanceEffectsParameterSet>("LuminanceEffects"),
        kindOf<VX_ColourFilterParameterSet>("ColourFilter"),
        kindOf<VX_WarperParameterSet>("Warper"),
        kindOf<VX_StabilizeParameterSet>("Stabilize", noClips, offset),
        kindOf<VX_RemoveParameterSet>("Remove", noClips, offset),
        kindOf<VX_MatteParameterSet>("Matte"),
    };
}

} // namespace Test
