#include "clip/ClipBoundParameterSet.h"

#include "parameter/Parameter.h"
#include "parameter/kyn/ParameterPairs.h"

namespace VX {

void ClipBoundParameterSet::rescale(float, float, Kyn::View const &) {}

void ClipBoundParameterSet::rescale(float, float) {}

void ClipBoundParameterSet::removeReferencesToClip(unsigned int, unsigned int) {}

void ClipBoundParameterSet::forgetClip(Kyn::Parameter<unsigned int> & parameter, unsigned int uiOldClip,
                                       unsigned int uiNewClip) {
    Kyn::View const view(Kyn::View::defaultViewId());
    if (uiOldClip != 0 && parameter.staticValue(view) != uiOldClip)
        return;
    parameter.setStaticValue(uiNewClip != 0 ? uiNewClip : parameter.defaultValue(), view);
}

void ClipBoundParameterSet::copySettings(ClipBoundParameterSet const & other) {
    copyMembers(other);
    Kyn::forEachPair(*this, other, [](Kyn::ParameterWithoutType & own, Kyn::ParameterWithoutType const & source) {
        own.hide(own.isHidden() || source.isHidden());
    });
}

void ClipBoundParameterSet::forgetClips(unsigned int uiOldClip, unsigned int uiNewClip, References following,
                                        References cleared) {
    for (Kyn::Parameter<unsigned int> * reference : following)
        forgetClip(*reference, uiOldClip, uiNewClip);
    for (Kyn::Parameter<unsigned int> * reference : cleared)
        forgetClip(*reference, uiOldClip, 0);
}

} // namespace VX
