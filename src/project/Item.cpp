#include "project/Item.h"

#include "project/Clip.h"
#include "project/Layer.h"

#include <algorithm>

namespace vxproject {

namespace {

template <class Kind>
std::unique_ptr<Item> make() {
    return std::make_unique<Kind>();
}

/// The order is that of the file.
constexpr ItemKind KINDS[] = {
    {"Clip", &make<Clip>},
    {"Layer", &make<Layer>},
};

} // namespace

QString ItemKey::toString() const {
    return QStringLiteral("%1[%2]").arg(QLatin1String(kind->key)).arg(id);
}

ItemKind const & clipKind() {
    return *findItemKind(u"Clip");
}

ItemKind const & layerKind() {
    return *findItemKind(u"Layer");
}

ItemKind const * findItemKind(QStringView key) {
    auto const * const found = std::find_if(std::begin(KINDS), std::end(KINDS),
                                            [&](ItemKind const & kind) { return key == QLatin1String(kind.key); });
    return found == std::end(KINDS) ? nullptr : found;
}

} // namespace vxproject
