#include "project/ClipContainer.h"

#include "project/Clip.h"
#include "project/Project.h"

#include <algorithm>

namespace vxproject {

namespace {

Clip const * findClip(Project const & project, unsigned int id) {
    return id == 0 ? nullptr : project.findClip(id);
}

} // namespace

QVector<unsigned int> ClipContainer::clipIds() const {
    QVector<unsigned int> ids;
    for (auto const & [key, item] : project_.items())
        if (key.kind == &clipKind() && key.id != 0)
            ids.append(key.id);
    return ids;
}

VX_BaseClipInfo const * ClipContainer::pcGetBaseClipInfo(unsigned int uiClipId) const {
    Clip const * const clip = findClip(project_, uiClipId);
    return clip ? &clip->picture : nullptr;
}

VX_ClipInfo const * ClipContainer::pcGetClipInfo(unsigned int uiClipId) const {
    Clip const * const clip = findClip(project_, uiClipId);
    return clip ? &clip->source : nullptr;
}

QString ClipContainer::clipName(unsigned int uiClipId) const {
    Clip const * const clip = findClip(project_, uiClipId);
    return clip ? clip->name.staticValue(Kyn::View()) : QString();
}

unsigned int ClipContainer::clipIdOfName(QString const & name) const {
    QVector<unsigned int> const ids = clipIds();
    auto const found = std::find_if(ids.begin(), ids.end(), [&](unsigned int id) { return clipName(id) == name; });
    return found == ids.end() ? 0 : *found;
}

} // namespace vxproject
