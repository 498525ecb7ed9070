#include "clip/ClipBoundParameterSet.h"

#include "parameter/Parameter.h"

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

} // namespace VX
