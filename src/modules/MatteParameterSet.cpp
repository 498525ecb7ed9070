#include "modules/MatteParameterSet.h"

VX_MatteParameterSet::VX_MatteParameterSet() : VX::ClipBoundParameterSet(QStringLiteral("Matte"), nullptr) {
    addMovedParameter(boost::make_shared<Kyn::MovedParameter>(QStringLiteral("Render")));
}

VX_MatteParameterSet::VX_MatteParameterSet(VX_MatteParameterSet const & other) : VX_MatteParameterSet() {
    copySettings(other);
}

VX_MatteParameterSet & VX_MatteParameterSet::operator=(VX_MatteParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

void VX_MatteParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {&inputClipId},
                {&backgroundClipId, &cleanplateClipId, &outputClipId, &compositeBackgroundClipId});
}
