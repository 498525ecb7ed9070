#include "modules/ColourFilterParameterSet.h"

VX_ColourFilterParameterSet::VX_ColourFilterParameterSet()
    : VX::ClipBoundParameterSet(QStringLiteral("ColourFilter"), nullptr) {}

VX_ColourFilterParameterSet::VX_ColourFilterParameterSet(VX_ColourFilterParameterSet const & other)
    : VX_ColourFilterParameterSet() {
    copySettings(other);
}

VX_ColourFilterParameterSet & VX_ColourFilterParameterSet::operator=(VX_ColourFilterParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

void VX_ColourFilterParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {}, {&filledClipId});
}
