#include "parameter/kyn/ParameterSet.h"

#include "parameter/kyn/ParameterTree.h"

#include <algorithm>

namespace Kyn {

ParameterSet::Row ParameterSet::Row::hidden() const {
    Row row(*this);
    row.hidden_ = true;
    return row;
}

ParameterSet::Row ParameterSet::Row::shown(char const * displayName) const {
    Row row(*this);
    row.displayName_ = displayName;
    return row;
}

ParameterSet::Row ParameterSet::Row::splittable(View const & boundView) const {
    Row row(*this);
    row.splittable_ = true;
    row.boundView_ = boundView;
    return row;
}

void ParameterSet::Row::enter(ParameterWithoutType & parameter) const {
    set_->enter(parameter, &parameter, *this);
}

void ParameterSet::Row::apply(ParameterWithoutType & parameter) const {
    parameter.hide(hidden_);
    if (displayName_)
        parameter.setDisplayName(set_->translated(displayName_));
}

ParameterSet::ParameterSet(QString const & name, ParameterTree * tree)
    : scriptName_(name), displayName_(name), shortDisplayName_(name) {
    if (tree)
        tree->add(*this, QString());
}

ParameterSet::ParameterSet(ParameterSet const & other)
    : scriptName_(other.scriptName_), displayName_(other.displayName_), shortDisplayName_(other.shortDisplayName_) {}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): there is nothing that it assigns.
ParameterSet & ParameterSet::operator=(ParameterSet const &) {
    return *this;
}

ParameterSet::~ParameterSet() {
    clearAllLists();
    if (parent_)
        parent_->forget(*this);
    if (tree_)
        tree_->remove(*this);
}

void ParameterSet::setDisplayName(QString const & name, QString const & shortName) {
    displayName_ = name;
    shortDisplayName_ = shortName;
}

void ParameterSet::setDisplayName(QString const & name) {
    displayName_ = name;
}

void ParameterSet::setScriptName(QString const & name) {
    scriptName_ = name;
}

void ParameterSet::assignName(QString const & name) {
    scriptName_ = name;
    displayName_ = name;
}

QString ParameterSet::translated(char const * text) const {
    return tr(text);
}

// Writing

bool ParameterSet::bStreamOut(QTextStream & stream, QString const & prefix, bool) {
    QString const name = keyInScript();
    QString const opening = name.isEmpty() ? prefix : prefix + name + QLatin1Char('.');
    for (Member const & member : members_)
        member.parameter->bStreamOut(stream, opening, true);
    for (Nested const & nested : sets_)
        nested.set->bStreamOut(stream, opening, true);
    return true;
}

// Reading

void ParameterSet::beginReading() {
    for (Route & route : routes_) {
        route.turn = 0;
        route.opened = false;
    }
    for (Nested const & nested : sets_)
        nested.set->beginReading();
}

void ParameterSet::buildRoutes() {
    for (Member const & member : members_)
        if (!member.parameter->scriptName().isEmpty())
            routes_[member.parameter->scriptName()].members.push_back(member.parameter);
    for (Nested const & nested : sets_)
        routes_[nested.key].set = nested.set;
    for (boost::shared_ptr<MovedParameter> const & moved : moved_)
        routes_[moved->scriptName()].moved = moved.get();
}

BasicParameter & ParameterSet::nextMember(Route & route, QStringView rest) {
    bool const opens =
        rest.startsWith(QLatin1String("views")) || rest.startsWith(QLatin1String("value"), Qt::CaseInsensitive);
    if (opens && route.members.size() > 1) {
        if (route.opened)
            route.turn = (route.turn + 1) % route.members.size();
        route.opened = true;
    }
    return *route.members[route.turn];
}

bool ParameterSet::bStreamIn(QString const & line, StreamVersion const & version) {
    if (routes_.isEmpty())
        buildRoutes();
    qsizetype const dot = line.indexOf(QLatin1Char('.'));
    if (dot < 0)
        return false;
    auto const found = routes_.find(QString::fromRawData(line.constData(), dot));
    if (found == routes_.end())
        return false;
    Route & route = *found;
    if (!route.members.empty())
        return nextMember(route, QStringView(line).mid(dot + 1)).bReadMemberLine(line, version);
    if (route.set)
        return route.set->bStreamIn(line.mid(dot + 1), version);
    return route.moved->bReadMemberLine(line, version);
}

// Members

void ParameterSet::enter(BasicParameter & parameter, ParameterWithoutType * typed, Row const & row) {
    members_.push_back({&parameter, typed, row});
    routesChanged();
    if (!typed)
        return;
    typed->owner_ = this;
    if (row.splittable_)
        typed->setSplittable(true);
    if (row.scriptName_)
        row.apply(*typed);
}

void ParameterSet::addParameter(ParameterWithoutType & parameter) {
    enter(parameter, &parameter, Row(*this, nullptr));
}

void ParameterSet::addSplittableParameter(ParameterWithoutType & parameter, View const & boundView) {
    enter(parameter, &parameter, Row(*this, nullptr).splittable(boundView));
}

void ParameterSet::addVirtualParameter(BasicParameter & parameter) {
    enter(parameter, nullptr, Row(*this, nullptr));
}

void ParameterSet::addSet(ParameterSet & set) {
    addSet(set, set.scriptName_);
}

void ParameterSet::addSet(ParameterSet & set, QString const & key) {
    set.parent_ = this;
    sets_.push_back({&set, key});
    routesChanged();
}

void ParameterSet::addMovedParameter(boost::shared_ptr<MovedParameter> const & moved) {
    moved_.push_back(moved);
    routesChanged();
}

void ParameterSet::clearAllLists() {
    for (Member const & member : members_)
        if (member.typed)
            member.typed->owner_ = nullptr;
    for (Nested const & nested : sets_)
        nested.set->parent_ = nullptr;
    members_.clear();
    sets_.clear();
    moved_.clear();
    routesChanged();
}

void ParameterSet::forget(ParameterWithoutType const & parameter) {
    // Members are destroyed last to first, so the search from the end is short.
    auto const found = std::find_if(members_.rbegin(), members_.rend(),
                                    [&](Member const & member) { return member.typed == &parameter; });
    if (found == members_.rend())
        return;
    members_.erase(std::next(found).base());
    routesChanged();
}

void ParameterSet::forget(ParameterSet const & set) {
    sets_.erase(std::remove_if(sets_.begin(), sets_.end(), [&](Nested const & nested) { return nested.set == &set; }),
                sets_.end());
    routesChanged();
}

void ParameterSet::copyMembers(ParameterSet const & other) {
    std::size_t const count = std::min(members_.size(), other.members_.size());
    for (std::size_t i = 0; i < count; ++i) {
        ParameterWithoutType * const own = members_[i].typed;
        ParameterWithoutType * const source = other.members_[i].typed;
        if (!own || !source)
            continue;
        own->assignFrom(*source);
        if (source->isConstrained())
            source->links_->master->bAddConstrainedParameter(own);
        if (members_[i].row.splittable_)
            own->setSplittable(true);
        if (members_[i].row.scriptName_)
            members_[i].row.apply(*own);
    }
    for (std::size_t i = 0; i < std::min(sets_.size(), other.sets_.size()); ++i)
        sets_[i].set->copyMembers(*other.sets_[i].set);
}

void ParameterSet::assignMembers(ParameterSet const & other) {
    std::size_t const count = std::min(members_.size(), other.members_.size());
    for (std::size_t i = 0; i < count; ++i)
        if (members_[i].typed && other.members_[i].typed)
            members_[i].typed->assignFrom(*other.members_[i].typed);
    for (std::size_t i = 0; i < std::min(sets_.size(), other.sets_.size()); ++i)
        sets_[i].set->assignMembers(*other.sets_[i].set);
    displayName_ = other.displayName_;
    shortDisplayName_ = other.shortDisplayName_;
    setScriptName(other.scriptName_);
}

// Walks

void ParameterSet::forEachParameter(boost::function<void(ParameterWithoutType *)> visit, bool nested) const {
    for (Member const & member : members_)
        if (member.typed)
            visit(member.typed);
    if (!nested)
        return;
    for (Nested const & inner : sets_)
        inner.set->forEachParameter(visit, nested);
}

void ParameterSet::forEachMember(boost::function<void(BasicParameter *)> visit, bool nested) const {
    for (Member const & member : members_)
        visit(member.parameter);
    if (!nested)
        return;
    for (Nested const & inner : sets_)
        inner.set->forEachMember(visit, nested);
}

void ParameterSet::forEachSet(boost::function<void(ParameterSet *, QString const &)> visit) const {
    for (Nested const & nested : sets_)
        visit(nested.set, nested.key);
}

BasicParameter * ParameterSet::findMember(QString const & scriptName) const {
    auto const found = std::find_if(members_.begin(), members_.end(), [&](Member const & member) {
        return member.parameter->scriptName() == scriptName;
    });
    return found == members_.end() ? nullptr : found->parameter;
}

ParameterWithoutType * ParameterSet::findParameter(QString const & scriptName) const {
    auto const found = std::find_if(members_.begin(), members_.end(), [&](Member const & member) {
        return member.typed && member.parameter->scriptName() == scriptName;
    });
    return found == members_.end() ? nullptr : found->typed;
}

ParameterSet * ParameterSet::findSet(QString const & scriptName) const {
    auto const found =
        std::find_if(sets_.begin(), sets_.end(), [&](Nested const & nested) { return nested.key == scriptName; });
    return found == sets_.end() ? nullptr : found->set;
}

View ParameterSet::boundView(ParameterWithoutType const & parameter) const {
    auto const found = std::find_if(members_.begin(), members_.end(),
                                    [&](Member const & member) { return member.typed == &parameter; });
    return found == members_.end() ? View::INVALID() : found->row.boundView_;
}

// The tree

QString ParameterSet::nameInParent() const {
    auto const found = std::find_if(parent_->sets_.begin(), parent_->sets_.end(),
                                    [&](Nested const & nested) { return nested.set == this; });
    return found->key;
}

QString ParameterSet::extendedName() const {
    QString const path = parent_ ? parent_->extendedName() : treePrefix_;
    QString const name = keyInScript();
    if (path.isEmpty() || name.isEmpty())
        return path + name;
    return path + QLatin1Char('.') + name;
}

ParameterTree * ParameterSet::tree() const {
    ParameterSet const * root = this;
    while (root->parent_)
        root = root->parent_;
    return root->tree_;
}

} // namespace Kyn
