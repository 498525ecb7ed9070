#include "modules/StabilizeParameterSet.h"

#include "foundation/Strings.h"

VX_StabilizeParameterSet::VX_StabilizeParameterSet(VX_BaseClipInfoContainer *, boost::function<int(void)> frameOffset)
    : VX::ClipBoundParameterSet(QString::fromUtf8(VX::Strings::ModuleName::STABILIZE), nullptr),
      frameOffset_(frameOffset) {
    addMovedParameter(boost::make_shared<Kyn::MovedParameter>(QStringLiteral("Render")));
}

VX_StabilizeParameterSet::VX_StabilizeParameterSet(VX_StabilizeParameterSet const & other)
    : VX_StabilizeParameterSet(nullptr, other.frameOffset_) {
    copySettings(other);
}

VX_StabilizeParameterSet & VX_StabilizeParameterSet::operator=(VX_StabilizeParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

void VX_StabilizeParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {&inputClipId, &stabilizeClipId}, {&outputClipId});
}
