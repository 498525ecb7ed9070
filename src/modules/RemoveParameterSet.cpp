#include "modules/RemoveParameterSet.h"

#include "foundation/Strings.h"

VX_RemoveParameterSet::VX_RemoveParameterSet(VX_BaseClipInfoContainer *, boost::function<int(void)> frameOffset)
    : VX::ClipBoundParameterSet(QString::fromUtf8(VX::Strings::ModuleName::REMOVE), nullptr),
      frameOffset_(frameOffset) {
    notSet.setScriptName(QString());
    addMovedParameter(boost::make_shared<Kyn::MovedParameter>(QStringLiteral("Render")));
}

VX_RemoveParameterSet::VX_RemoveParameterSet(VX_RemoveParameterSet const & other)
    : VX_RemoveParameterSet(nullptr, other.frameOffset_) {
    copySettings(other);
    notSet = other.notSet;
}

VX_RemoveParameterSet & VX_RemoveParameterSet::operator=(VX_RemoveParameterSet const & other) {
    if (this == &other)
        return *this;
    assignMembers(other);
    notSet = other.notSet;
    return *this;
}

void VX_RemoveParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {&inputClipId}, {&cleanplateClipId, &outputClipId});
}
