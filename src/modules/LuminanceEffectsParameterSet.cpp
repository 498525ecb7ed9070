#include "modules/LuminanceEffectsParameterSet.h"

VX_LuminanceEffectsParameterSet::VX_LuminanceEffectsParameterSet()
    : VX::ClipBoundParameterSet(QStringLiteral("Luminance"), nullptr) {}

VX_LuminanceEffectsParameterSet::VX_LuminanceEffectsParameterSet(VX_LuminanceEffectsParameterSet const & other)
    : VX_LuminanceEffectsParameterSet() {
    copySettings(other);
}

VX_LuminanceEffectsParameterSet &
VX_LuminanceEffectsParameterSet::operator=(VX_LuminanceEffectsParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

void VX_LuminanceEffectsParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {},
                {&luminanceReferenceClipId, &luminanceClipId, &shadowClipId, &highlightClipId, &filterClipId});
}
