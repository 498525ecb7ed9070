#include "parameter/kyn/ParameterTree.h"

#include "parameter/kyn/ParameterSet.h"

#include <QHash>
#include <QMetaMethod>

#include <algorithm>

namespace Kyn {

ParameterTree::~ParameterTree() {
    for (ParameterSet * set : sets_)
        set->tree_ = nullptr;
}

void ParameterTree::add(ParameterSet & set, QString const & prefix) {
    if (set.tree_)
        set.tree_->remove(set);
    set.tree_ = this;
    set.treePrefix_ = prefix;
    sets_.push_back(&set);
}

void ParameterTree::remove(ParameterSet & set) {
    if (set.tree_ != this)
        return;
    set.tree_ = nullptr;
    sets_.erase(std::remove(sets_.begin(), sets_.end(), &set), sets_.end());
}

bool ParameterTree::isHeard() const {
    static QMetaMethod const signal = QMetaMethod::fromSignal(&ParameterTree::changed);
    return isSignalConnected(signal);
}

ParameterWithoutType * ParameterTree::find(QString const & extendedName) const {
    ParameterWithoutType * found = nullptr;
    for (ParameterSet const * set : sets_) {
        set->forEachParameter(
            [&](ParameterWithoutType * parameter) {
                if (!found && parameter->extendedName() == extendedName)
                    found = parameter;
            },
            true);
    }
    return found;
}

namespace {

/// Links a parameter to the master that its script named, in place of one it has. What is wrong with it, or nothing.
QString link(ParameterWithoutType & parameter, ParameterWithoutType * master) {
    if (!master)
        return QStringLiteral("there is no such parameter");
    if (master == &parameter)
        return QStringLiteral("a parameter cannot be its own master");
    if (master->valueTypeInfo() != parameter.valueTypeInfo())
        return QStringLiteral("the master holds values of another type");
    if (parameter.masterParameter() == master)
        return QString();
    for (ParameterWithoutType const * above = master; above; above = above->masterParameter())
        if (above == &parameter)
            return QStringLiteral("the masters form a circle");
    parameter.bUnconstrain();
    master->bAddConstrainedParameter(&parameter);
    return QString();
}

} // namespace

QList<ParameterTree::UnresolvedMaster> ParameterTree::resolveMasters() {
    QList<ParameterWithoutType *> pending;
    for (ParameterSet const * set : sets_) {
        set->forEachParameter(
            [&](ParameterWithoutType * parameter) {
                if (!parameter->pendingMasterName().isEmpty())
                    pending.append(parameter);
            },
            true);
    }
    QList<UnresolvedMaster> unresolved;
    if (pending.isEmpty())
        return unresolved;
    QHash<QString, ParameterWithoutType *> byName;
    for (ParameterSet const * set : sets_) {
        set->forEachParameter(
            [&](ParameterWithoutType * parameter) {
                QString const name = parameter->extendedName();
                if (!byName.contains(name))
                    byName.insert(name, parameter);
            },
            true);
    }
    for (ParameterWithoutType * parameter : pending) {
        QString const name = parameter->pendingMasterName();
        QString const wrong = link(*parameter, byName.value(name));
        if (!wrong.isEmpty())
            unresolved.append({parameter, name, wrong});
        parameter->setPendingMasterName(QString());
    }
    return unresolved;
}

} // namespace Kyn
