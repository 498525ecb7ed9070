#include "project/Item.h"

#include "project/Clip.h"
#include "project/Layer.h"
#include "project/Lens.h"
#include "project/Scene.h"

#include <algorithm>

namespace vxproject {

namespace {

template <class Kind>
std::unique_ptr<Item> make(VX_BaseClipInfoContainer & clips, quint32 id) {
    if constexpr (std::is_default_constructible_v<Kind>)
        return std::make_unique<Kind>();
    else
        return std::make_unique<Kind>(clips, id);
}

/// The order is that of the file.
constexpr ItemKind KINDS[] = {
    {"Clip", true, &make<Clip>},
    {"Layer", true, &make<Layer>},
    {"Lens", true, &make<Lens>},
    {"Scene", false, &make<Scene>},
};

} // namespace

QString ItemKey::toString() const {
    if (!kind->isNumbered)
        return QString::fromLatin1(kind->key);
    return QStringLiteral("%1[%2]").arg(QLatin1String(kind->key)).arg(id);
}

ItemKind const & clipKind() {
    return *findItemKind(u"Clip");
}

ItemKind const & layerKind() {
    return *findItemKind(u"Layer");
}

ItemKind const & lensKind() {
    return *findItemKind(u"Lens");
}

ItemKind const & sceneKind() {
    return *findItemKind(u"Scene");
}

std::vector<ItemKind const *> itemKinds() {
    std::vector<ItemKind const *> kinds;
    for (ItemKind const & kind : KINDS)
        kinds.push_back(&kind);
    return kinds;
}

ItemKind const * findItemKind(QStringView key) {
    auto const * const found = std::find_if(std::begin(KINDS), std::end(KINDS),
                                            [&](ItemKind const & kind) { return key == QLatin1String(kind.key); });
    return found == std::end(KINDS) ? nullptr : found;
}

} // namespace vxproject
