#include "modules/InsertCompositeParameterSet.h"

VX_InsertCompositeParameterSet::VX_InsertCompositeParameterSet()
    : VX::ClipBoundParameterSet(QStringLiteral("Composite"), nullptr) {}

VX_InsertCompositeParameterSet::VX_InsertCompositeParameterSet(VX_InsertCompositeParameterSet const & other)
    : VX_InsertCompositeParameterSet() {
    copySettings(other);
}

VX_InsertCompositeParameterSet &
VX_InsertCompositeParameterSet::operator=(VX_InsertCompositeParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

void VX_InsertCompositeParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {}, {&layerClipId});
}
