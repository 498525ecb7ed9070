#pragma once

#include "parameter/kyn/ParameterSet.h"
#include "project/KeptLines.h"

#include <memory>
#include <vector>

class VX_BaseClipInfoContainer;

namespace vxproject {

/// What a project file calls by one key, such as "Layer[3]": a nameless root set, into which a kind of item nests the
/// sets that it is made of. The key is no name of the set; it is the prefix under which the project adds it to its
/// tree.
class Item : public Kyn::ParameterSet {
public:
    Item() : Kyn::ParameterSet(QString(), nullptr) {}
    Item(Item const &) = delete;
    Item & operator=(Item const &) = delete;

    /// Brings the list of members in line with their values, where that depends on them, and gives the lines that stand
    /// behind the members, without the item's key. Writing begins with it. std::runtime_error, with what it speaks of,
    /// for a value that no line can hold.
    virtual QStringList settle() { return QStringList(); }

    /// Makes what a line names that comes with the lines that name it; the item's key has been taken off. Reading
    /// offers each line here first.
    virtual void expect(QStringView line) { Q_UNUSED(line) }

    /// What stood among the item's lines and is no member's.
    KeptLines kept;
};

/// A kind of item, and how one is made. Of a kind without numbers there is one item, with the id 0.
struct ItemKind {
    char const * key;
    bool isNumbered;
    /// The clips are those of the project, for sets that look clips up, and must outlive the item.
    std::unique_ptr<Item> (*make)(VX_BaseClipInfoContainer & clips, quint32 id);
};

/// Names one item. Items are written by kind, in the order of the table of kinds, and then by id.
struct ItemKey {
    ItemKind const * kind;
    quint32 id;

    /// "Layer[3]", or "Scene"
    QString toString() const;

    friend bool operator<(ItemKey const & a, ItemKey const & b) {
        return a.kind != b.kind ? a.kind < b.kind : a.id < b.id;
    }
};

ItemKind const & clipKind();
ItemKind const & layerKind();
ItemKind const & lensKind();
ItemKind const & sceneKind();

/// The kinds, in the order of the file.
std::vector<ItemKind const *> itemKinds();
/// The kind of a key without its brackets; null for a word that is none.
ItemKind const * findItemKind(QStringView key);

} // namespace vxproject
