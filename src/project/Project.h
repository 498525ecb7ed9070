#pragma once

#include "parameter/kyn/ParameterTree.h"
#include "project/ClipContainer.h"
#include "project/Finding.h"
#include "project/Item.h"
#include "project/PixelCoordinates.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <map>
#include <memory>
#include <optional>

struct Gan_Image;

namespace vxproject {

class Clip;
class Layer;
class Lens;
class Scene;

/// A project, as an application built on the library has one: items that hold parameter sets, one tree in which masters
/// are found and changes are heard, and one text file.
///
/// The file is UTF-8, one fact a line, LF written and CR LF read. Its first line names the format and the version of
/// its script lines, 1 or 2; 2 is written:
///
///     vxproject 2
///     # a comment
///     Clip[1].Picture.Core.FrameWidth.value=1920
///     Clip[1].Source.Core.ClipDirectory.value="/shots/s010"
///     Layer[1].Name.value="screen left"
///     Layer[1].跟踪.Translation X.keyframes.append( Key( 1, 0.5, Linear ) )
///
/// An item is made by the first line that names it; ids are decimal, 0 to 4294967295. Lines may stand in any order, and
/// later ones win.
///
/// Nothing is lost: a line that nobody takes is a finding, and is written back in its place among its item's lines, as
/// are comments and blank lines. A line that is taken but means something else than it looks like is a finding, too; it
/// is read as the parameters read it. Only a key whose time is not finite is not given to its parameter, whose keys
/// could not be ordered with it: it is kept as a line.
class Project {
public:
    /// The version of the lines that are written, and the newest that is read.
    static constexpr unsigned int NEWEST_VERSION = 2;

    Project() : clips_(*this) {}
    Project(Project const &) = delete;
    Project & operator=(Project const &) = delete;
    ~Project();

    /// Reads a project file. FileError, and no project, for what is no such file or cannot be read: see readFile() and
    /// decode(), a first line that is not the format's, and a newer version. All else is a finding.
    static std::unique_ptr<Project> read(QString const & path);
    /// The same for a text; `path` is for messages alone.
    static std::unique_ptr<Project> fromText(QByteArray const & text, QString const & path);

    /// What was wrong with the file, in order of its lines. Empty for a project that was not read.
    QList<Finding> const & findings() const { return findings_; }

    /// The whole file: items by kind and id, their members in order of registration. Numbers on value lines have the
    /// fewest digits, from 6 to 17, that read back equal; key lines have six.
    ///
    /// std::runtime_error, with the parameter's name in it, for a text value that holds a line break, a NUL or half a
    /// surrogate pair, and for a script name that could not be read back as one: empty, or with '.', '=', '[', ']' or a
    /// line break in it.
    QByteArray toText() const;

    /// Writes the file; the old one stands until the new one is whole on disk. FileError if that fails,
    /// std::runtime_error for what toText() refuses; the old file is then as it was.
    void save(QString const & path) const;

    /// One message for each parameter with keys at times that the six digits of a key line do not hold, such as frame
    /// 1000001, which is written 1e+06.
    QStringList lossesOfWriting() const;

    /// The item of a key, made if there is none yet.
    Item & item(ItemKey const & key);
    std::map<ItemKey, std::unique_ptr<Item>> const & items() const { return items_; }

    /// Takes an item out of the project, and puts it back: for edits. Null if there is none; the place must be free.
    std::unique_ptr<Item> takeItem(ItemKey const & key);
    void putItem(ItemKey const & key, std::unique_ptr<Item> item);

    /// The item of an id, made if there is none yet.
    Clip & clip(quint32 id);
    Layer & layer(quint32 id);
    Lens & lens(quint32 id);
    Scene & scene();
    /// Null if there is none.
    Clip * findClip(quint32 id) const;
    Layer * findLayer(quint32 id) const;
    Lens * findLens(quint32 id) const;
    Scene * findScene() const;

    /// The lens that a clip was shot through: the one of lowest id whose "InputClipID" names it. Null without one, and
    /// for the id 0.
    Lens * lensOfClip(unsigned int id) const;

    /// The size of the frames that a layer is tracked in, those of its input clip; nothing without such a clip, or if
    /// that has no size. Interlaced clips have the size of a field.
    std::optional<FrameSize> frameSizeOf(Layer const & layer) const;

    /// The clips by their ids, for the sets that refer to them. Id 0 names none, even if the file has an item Clip[0].
    VX_BaseClipInfoContainer const & clips() const { return clips_; }

    /// Calls with each member and its path, "Layer[1].跟踪.Translation X", in order of the file.
    void forEachMember(boost::function<void(Kyn::BasicParameter &, QString const &)> visit) const;
    /// The same without plain fields.
    void forEachParameter(boost::function<void(Kyn::ParameterWithoutType &, QString const &)> visit) const;

    /// All items stand in it, under their keys.
    Kyn::ParameterTree & tree() { return tree_; }

private:
    friend class Reader;

    Item * findItem(ItemKey const & key) const;
    boost::shared_ptr<Gan_Image> mapOfClip(unsigned int id, Kyn::Context const & context);

    Kyn::ParameterTree tree_;
    std::map<ItemKey, std::unique_ptr<Item>> items_;
    ClipContainer clips_;
    QStringList head_; ///< The lines between the first line and what belongs to an item.
    QStringList tail_;
    QList<Finding> findings_;
    std::map<QString, boost::shared_ptr<Gan_Image>> maps_; ///< Lens maps by file: a lens tells them apart by address.
};

} // namespace vxproject
