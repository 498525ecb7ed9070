#include "modules/InsertParameterSet.h"

#include "foundation/Strings.h"
#include "parameter/kyn/ParameterPairs.h"

VX_InsertParameterSet::VX_InsertParameterSet(VX_BaseClipInfoContainer * clips,
                                             boost::shared_ptr<Kyn::MovedParameter> const & render)
    : VX::ClipBoundParameterSet(QString::fromUtf8(VX::Strings::ModuleName::INSERT), nullptr),
      clips_(clips),
      render_(render),
      roi(&insertClipId, clips) {
    addMovedParameter(render_);
}

VX_InsertParameterSet::VX_InsertParameterSet(VX_BaseClipInfoContainer * clips)
    : VX_InsertParameterSet(clips, boost::make_shared<Kyn::MovedParameter>(QStringLiteral("Render"))) {
    nestChildren();
}

VX_InsertParameterSet::VX_InsertParameterSet(VX_InsertParameterSet const & other)
    : VX_InsertParameterSet(other.clips_, other.render_) {
    copySettings(other); // The children are not listed yet, and so are left out.
    nestChildren();
}

VX_InsertParameterSet & VX_InsertParameterSet::operator=(VX_InsertParameterSet const & other) {
    if (this == &other)
        return *this;
    Kyn::forEachPair(*this, other, [](Kyn::ParameterWithoutType & own, Kyn::ParameterWithoutType const & source) {
        own.assignFrom(source);
    });
    setDisplayName(other.displayName(), other.shortDisplayName());
    setScriptName(other.scriptName());
    return *this;
}

void VX_InsertParameterSet::nestChildren() {
    for (VX::ClipBoundParameterSet * child : children())
        addSet(*child);
}

void VX_InsertParameterSet::rescale(float fXScale, float fYScale) {
    for (VX::ClipBoundParameterSet * child : children())
        child->rescale(fXScale, fYScale);
}

void VX_InsertParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(
        uiOldClip, uiNewClip, {&inputClipId},
        {&insertClipId, &matteClipId, &surfaceMatteClipId, &alphaInputClipId, &alphaInsertClipId, &outputClipId});
    for (VX::ClipBoundParameterSet * child : children())
        child->removeReferencesToClip(uiOldClip, uiNewClip);
}
