#include "camera/Layer3DParameterSet.h"

#include <boost/make_shared.hpp>

#include <utility>

VX_Layer3DParameterSet::VX_Layer3DParameterSet() : Kyn::ParameterSet(QStringLiteral("Nulls"), nullptr) {}

VX_Layer3DParameterSet::VX_Layer3DParameterSet(VX_Layer3DParameterSet const & other) : Kyn::ParameterSet(other) {
    share(other);
}

VX_Layer3DParameterSet & VX_Layer3DParameterSet::operator=(VX_Layer3DParameterSet const & other) {
    if (this == &other)
        return *this;
    clear();
    assignMembers(other); // The names: no null is listed at this moment.
    share(other);
    return *this;
}

VX_Layer3DParameterSet::~VX_Layer3DParameterSet() {
    clear();
}

/// Keys in script, and the order there, are those of the other layer.
void VX_Layer3DParameterSet::share(VX_Layer3DParameterSet const & other) {
    nulls_ = other.nulls_;
    held_ = other.held_;
    other.forEachSet([this](Kyn::ParameterSet * set, QString const & key) { addSet(*set, key); });
}

void VX_Layer3DParameterSet::deleteAllKeyframes() {
    for (VX_NullObject3DParameterSet * null : std::as_const(nulls_))
        null->deleteAllKeyframes();
}

VX_NullObject3DParameterSet * VX_Layer3DParameterSet::findNull(int iId) {
    return nulls_.value(static_cast<unsigned int>(iId), nullptr);
}

VX_NullObject3DParameterSet const * VX_Layer3DParameterSet::findNull(int iId) const {
    return nulls_.value(static_cast<unsigned int>(iId), nullptr);
}

VX_NullObject3DParameterSet * VX_Layer3DParameterSet::createNull(int iId, QString const & strName) {
    if (VX_NullObject3DParameterSet * const present = findNull(iId))
        return present;
    unsigned int const id = static_cast<unsigned int>(iId);
    auto const null = boost::make_shared<VX_NullObject3DParameterSet>(strName);
    QString key = strName;
    while (key.isEmpty() || findSet(key))
        key += QString::number(id);
    held_.insert(id, null);
    nulls_.insert(id, null.get());
    null->setScriptName(key); // Its own: it must not depend on which of the layers that share it goes first.
    addSet(*null);
    return null.get();
}

/// The list goes first: it must not name a null that is gone.
void VX_Layer3DParameterSet::clear() {
    clearAllLists();
    nulls_.clear();
    held_.clear();
}
