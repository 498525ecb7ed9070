#pragma once

#include "foundation/Translation.h"
#include "parameter/VirtualParameter.h"
#include "parameter/kyn/MovedParameter.h"
#include "parameter/kyn/ParameterWithoutType.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QHash>
#include <QString>

#include <map>
#include <memory>
#include <vector>

namespace Kyn {

class ParameterTree;

/// A named group of parameters and nested sets, the unit that writes and reads script text.
///
/// A derived set's header is its table: each member parameter names the set in its first argument (see row()) and so
/// registers itself where it stands, hence in the order of the script. From that one list come writing, routing,
/// copying, assignment and every walk over the members.
///
/// Members are not owned: they are direct members of the derived class. What is registered must live as long as it is
/// registered; parameters and sets that are destroyed take themselves off.
class ParameterSet {
public:
    VX_DECLARE_TRANSLATION("ParameterSet")

    /// How one member registers itself with its set: the first argument of a parameter that is a row of a set.
    class Row {
    public:
        Row(ParameterSet & set, char const * scriptName) : set_(&set), scriptName_(scriptName) {}

        /// Hidden from the interface after construction and after copying.
        Row hidden() const;
        /// Shown under a display name, which goes through the set's own translation.
        Row shown(char const * displayName) const;
        /// May hold data of its own for each view.
        Row splittable(View const & boundView = View::INVALID()) const;

        /// The UTF-8 script name.
        char const * scriptName() const { return scriptName_; }
        void enter(ParameterWithoutType & parameter) const;

    private:
        friend class ParameterSet;

        void apply(ParameterWithoutType & parameter) const;

        ParameterSet * set_;
        char const * scriptName_;
        char const * displayName_ = nullptr;
        bool hidden_ = false;
        bool splittable_ = false;
        View boundView_ = View(-1);
    };

    /// `tree` may be null; otherwise the set is added to it without a prefix.
    ParameterSet(QString const & name, ParameterTree * tree);
    /// Copies the names. Lists, parent and tree are not copied: members register themselves.
    ParameterSet(ParameterSet const & other);
    /// Assigns nothing: what a set has are its members, which the derived class assigns.
    ParameterSet & operator=(ParameterSet const & other);
    virtual ~ParameterSet();

    /// The two display strings: a full one and a short one. The one-argument form sets the first.
    virtual void setDisplayName(QString const & name, QString const & shortName);
    virtual void setDisplayName(QString const & name);
    virtual void setScriptName(QString const & name);

    /// Writes every member: parameters and virtual parameters in order of registration, then nested sets. Each line
    /// opens with `prefix` and, where it is not empty, the set's script name and "."; the flag changes nothing.
    /// A nested set goes by the name that its owner gave it.
    virtual bool bStreamOut(QTextStream & stream, QString const & prefix, bool bUseName);

    /// Gives a line to the member that its key names, the key being the text before the first ".". The set's own
    /// prefix and name have been taken off. False if no member takes it; then nothing has changed.
    virtual bool bStreamIn(QString const & line, StreamVersion const & version);

    /// Says that a script is read from its start. Needed only by sets with two members under one key: their lines go
    /// to the first again until a line opens the next one's block.
    void beginReading();

    QString const & scriptName() const { return scriptName_; }
    QString const & displayName() const { return displayName_; }
    QString const & shortDisplayName() const { return shortDisplayName_; }

    /// Registers a member; the order of registration is the order of the script. A member stands in one set.
    void addParameter(ParameterWithoutType & parameter);
    /// Registers a member that may hold data of its own for each view. `boundView` is kept with it for the
    /// application, see boundView(); an invalid view names none.
    void addSplittableParameter(ParameterWithoutType & parameter, View const & boundView);
    /// Registers a member that stands for a plain field.
    void addVirtualParameter(BasicParameter & parameter);
    /// Nests a set under its own script name, or under another key. Under that name it is written and read from then
    /// on, whatever its script name becomes.
    void addSet(ParameterSet & set);
    void addSet(ParameterSet & set, QString const & key);
    /// Keeps an old key readable. Copies of a set share the object.
    void addMovedParameter(boost::shared_ptr<MovedParameter> const & moved);

    /// Walks the typed parameters in order of registration, with the flag those of nested sets too.
    void forEachParameter(boost::function<void(ParameterWithoutType *)> visit, bool nested) const;
    /// The same over all members, plain and virtual.
    void forEachMember(boost::function<void(BasicParameter *)> visit, bool nested) const;
    void forEachSet(boost::function<void(ParameterSet *, QString const &)> visit) const;

    /// The member of a script name, the first where two share one; null if there is none.
    BasicParameter * findMember(QString const & scriptName) const;
    ParameterWithoutType * findParameter(QString const & scriptName) const;
    ParameterSet * findSet(QString const & scriptName) const;

    /// The view that a splittable member was bound to at registration; invalid where there was none.
    View boundView(ParameterWithoutType const & parameter) const;

    /// The names from the root to this set, joined by "."; empty for a nameless root.
    QString extendedName() const;
    ParameterTree * tree() const;

protected:
    virtual void assignName(QString const & name);

    /// The name that opens this set's lines: the one its owner gave it, or its own.
    QString keyInScript() const { return parent_ ? nameInParent() : scriptName_; }

    /// Forgets all registered members. They are untouched and may be registered again.
    void clearAllLists();

    /// Lists a plain field of the derived class under a script name, as a virtual parameter that the set owns. Listing
    /// the field again after clearAllLists() lists the same object again: pointers to it live as long as the set.
    template <class T>
    void addField(char const * scriptName, T & field);

    /// A row of this set's table, for a member's first argument.
    Row row(char const * scriptName) { return Row(*this, scriptName); }

    /// Takes over the state of another set of the same class, member by member, nested sets too: what copying a set
    /// does. Afterwards hidden flags and display names are again those of the rows.
    void copyMembers(ParameterSet const & other);
    /// The same for operator=: hidden flags and names are the source's, the set's own names too.
    void assignMembers(ParameterSet const & other);

private:
    friend class ParameterTree;
    friend class ParameterWithoutType;

    struct Member {
        BasicParameter * parameter;
        ParameterWithoutType * typed; ///< Null for a virtual parameter.
        Row row;
    };
    struct Nested {
        ParameterSet * set;
        QString key;
    };
    /// Where the lines of one key go. Two members under one key take turns, see bStreamIn.
    struct Route {
        std::vector<BasicParameter *> members;
        ParameterSet * set = nullptr;
        MovedParameter * moved = nullptr;
        std::size_t turn = 0;
        bool opened = false;
    };

    virtual QString translated(char const * text) const;

    void enter(BasicParameter & parameter, ParameterWithoutType * typed, Row const & row);
    void forget(ParameterWithoutType const & parameter);
    void forget(ParameterSet const & set);
    void routesChanged() { routes_.clear(); }
    void buildRoutes();
    BasicParameter & nextMember(Route & route, QStringView rest);
    QString nameInParent() const;

    QString scriptName_;
    QString displayName_;
    QString shortDisplayName_;
    ParameterTree * tree_ = nullptr;
    ParameterSet * parent_ = nullptr;
    QString treePrefix_;
    std::vector<Member> members_;
    std::vector<Nested> sets_;
    std::vector<boost::shared_ptr<MovedParameter>> moved_;
    QHash<QString, Route> routes_;                                   ///< Built at the first line that is read.
    std::map<void const *, std::unique_ptr<BasicParameter>> fields_; ///< By the field's address.
};

template <class T>
void ParameterSet::addField(char const * scriptName, T & field) {
    std::unique_ptr<BasicParameter> & parameter = fields_[&field];
    if (!parameter)
        parameter = std::make_unique<VirtualParameter<T>>(QString::fromUtf8(scriptName), &field);
    addVirtualParameter(*parameter);
}

} // namespace Kyn
