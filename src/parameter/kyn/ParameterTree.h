#pragma once

#include "parameter/kyn/ParameterChange.h"

#include <QList>
#include <QObject>
#include <QString>

#include <vector>

namespace Kyn {

class ParameterSet;

/// The root of a hierarchy of sets: one connection hears all changes below it, and the names of masters that scripts
/// mention are resolved here once the whole script is read. Sets are not owned.
class ParameterTree : public QObject {
    Q_OBJECT

public:
    /// A master that a script names and that could not be linked.
    struct UnresolvedMaster {
        ParameterWithoutType * parameter;
        QString masterName;
        QString reason;
    };

    ParameterTree() = default;
    ~ParameterTree() override;

    /// Adds a root set; the names of its members open with `prefix` where it is not empty. A set stands in one tree.
    void add(ParameterSet & set, QString const & prefix);
    void remove(ParameterSet & set);

    /// The parameter of an extended name; null if there is none. Of two under one name the first.
    ParameterWithoutType * find(QString const & extendedName) const;

    /// Links every parameter whose script named a master. What leads nowhere, to itself, to another value type or round
    /// in a circle stays unlinked and is reported. Either way the pending names are gone afterwards.
    QList<UnresolvedMaster> resolveMasters();

    /// Whether anybody listens.
    bool isHeard() const;

Q_SIGNALS:
    /// Any change of any parameter in the tree.
    void changed(Kyn::ParameterChange const & change);

private:
    friend class ParameterSet;
    friend class ParameterWithoutType;

    void passOn(ParameterChange const & change) { Q_EMIT changed(change); }

    std::vector<ParameterSet *> sets_;
};

} // namespace Kyn
