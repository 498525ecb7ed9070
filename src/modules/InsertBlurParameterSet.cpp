#include "modules/InsertBlurParameterSet.h"

#include "parameter/Scaling.h"

VX_InsertBlurParameterSet::VX_InsertBlurParameterSet() : VX::ClipBoundParameterSet(QStringLiteral("Blur"), nullptr) {}

VX_InsertBlurParameterSet::VX_InsertBlurParameterSet(VX_InsertBlurParameterSet const & other)
    : VX_InsertBlurParameterSet() {
    copySettings(other);
}

VX_InsertBlurParameterSet & VX_InsertBlurParameterSet::operator=(VX_InsertBlurParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

void VX_InsertBlurParameterSet::rescale(float fXScale, float) {
    Kyn::rescale(focusBlur, static_cast<double>(fXScale));
}

void VX_InsertBlurParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {}, {&smoothedInsertClipId});
}
