#include "parameter/kyn/ParameterWithoutType.h"

#include "parameter/kyn/ConstraintEdits.h"
#include "parameter/kyn/ParameterSet.h"
#include "parameter/kyn/ParameterTree.h"
#include "parameter/kyn/ScopedSignalPermit.h"

#include <QMetaMethod>

#include <algorithm>

namespace Kyn {

BasicParameter::~BasicParameter() = default;

Context KeyframeIndex::toContext() const {
    return isNull() || !parameter ? Context() : parameter->keyframeContext(index, view);
}

ParameterWithoutType::ParameterWithoutType(bool hidden, bool reserved) : hidden_(hidden) {
    Q_UNUSED(reserved)
}

ParameterWithoutType::ParameterWithoutType(ParameterWithoutType const & other)
    : BasicParameter(),
      Tov::MementoUndoable(other),
      scriptName_(other.scriptName_),
      displayName_(other.displayName_),
      hidden_(other.hidden_) {
    if (!other.isConstrained())
        return;
    links().master = other.links_->master;
    links_->master->links().constrained.push_back(this);
}

ParameterWithoutType::~ParameterWithoutType() {
    leaveMaster();
    if (links_) {
        for (ParameterWithoutType * constrained : links_->constrained) {
            constrained->links_->master = nullptr;
            constrained->masterChanged(nullptr);
        }
    }
    if (owner_)
        owner_->forget(*this);
}

void ParameterWithoutType::assignNames(ParameterWithoutType const & other) {
    setScriptName(other.scriptName_);
    displayName_ = other.displayName_;
    hidden_ = other.hidden_;
}

bool ParameterWithoutType::setFromScriptString(QString const & line, StreamVersion const & version) {
    return setFromScriptString(line, version, SourceFilter());
}

QString const & ParameterWithoutType::scriptName() const {
    return scriptName_;
}

bool ParameterWithoutType::bReadMemberLine(QString const & line, StreamVersion const & version) {
    return setFromScriptString(line.mid(scriptName_.size() + 1), version);
}

void ParameterWithoutType::setDisplayName(QString const & name) {
    displayName_ = name;
}

void ParameterWithoutType::setScriptName(QString const & name) {
    scriptName_ = name;
    if (owner_)
        owner_->routesChanged();
}

Tov::CompositeCommand & ParameterWithoutType::bUnconstrainCommand(Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterUnconstrainEdit(this));
    return composite;
}

Tov::CompositeCommand & ParameterWithoutType::bRemoveConstrainedParameterCommand(ParameterWithoutType * constrained,
                                                                                 Tov::CompositeCommand & composite) {
    composite.push_back(new ParameterUnconstrainEdit(constrained, this));
    return composite;
}

QString ParameterWithoutType::extendedName() const {
    QString const path = owner_ ? owner_->extendedName() : QString();
    if (path.isEmpty())
        return scriptName_;
    return path + QLatin1Char('.') + scriptName_;
}

std::vector<ParameterWithoutType *> ParameterWithoutType::constrainedParameters() const {
    return links_ ? links_->constrained : std::vector<ParameterWithoutType *>();
}

bool ParameterWithoutType::bAddConstrainedParameter(ParameterWithoutType * constrained) {
    if (!constrained || constrained->isConstrained() || constrained->valueTypeInfo() != valueTypeInfo())
        return false;
    for (ParameterWithoutType const * master = this; master; master = master->masterParameter())
        if (master == constrained)
            return false;
    links().constrained.push_back(constrained);
    constrained->links().master = this;
    constrained->masterChanged(this);
    return true;
}

bool ParameterWithoutType::bUnconstrain() {
    if (!isConstrained())
        return false;
    leaveMaster();
    masterChanged(nullptr);
    return true;
}

void ParameterWithoutType::setPendingMasterName(QString const & name) {
    if (!name.isEmpty() || links_)
        links().pendingMaster = name;
}

ParameterWithoutType::Links & ParameterWithoutType::links() {
    if (!links_)
        links_ = std::make_unique<Links>();
    return *links_;
}

void ParameterWithoutType::leaveMaster() {
    if (!isConstrained())
        return;
    std::vector<ParameterWithoutType *> & fellows = links_->master->links_->constrained;
    fellows.erase(std::remove(fellows.begin(), fellows.end(), this), fellows.end());
    links_->master = nullptr;
}

bool ParameterWithoutType::bPasses(ParameterChange::ChangeType type) const {
    if (signalsBlocked()) {
        ScopedSignalPermit const * permit = permits_;
        while (permit && permit->type_ != type)
            permit = permit->outer_;
        if (!permit)
            return false;
    }
    if (heard_)
        return true;
    ParameterTree const * tree = owner_->tree();
    return tree && tree->isHeard();
}

void ParameterWithoutType::emitChange(ParameterChange & change) {
    if (!bHears(change.type()))
        return;
    if (!signalsBlocked()) {
        sendNow(change);
        return;
    }
    blockSignals(false); // A permit lets this one through.
    sendNow(change);
    blockSignals(true);
}

void ParameterWithoutType::sendNow(ParameterChange & change) {
    ParameterTree * tree = owner_ ? owner_->tree() : nullptr;
    Q_EMIT changed(change);
    if (tree)
        tree->passOn(change);
}

void ParameterWithoutType::connectNotify(QMetaMethod const & signal) {
    if (signal == QMetaMethod::fromSignal(&ParameterWithoutType::changed))
        heard_ = true;
}

} // namespace Kyn
