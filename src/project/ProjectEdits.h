#pragma once

#include "parameter/kyn/Interpolation.h"
#include "parameter/tov/CompositeCommand.h"
#include "project/ParameterValue.h"
#include "project/PixelCoordinates.h"
#include "project/Project.h"

#include <stdexcept>

/// Undoable changes of a project. Each function pushes onto a composite, which owns what it is given and runs nothing
/// until its redo; a project must outlive it. Values and keys of parameters are edited by the engine's own edits. What
/// has none of its own (plain fields, static values beside keys, clip references, frame sizes) is one command that
/// keeps the state before and after.
namespace vxproject {

/// A change that makes no sense. The message says why, and what was to be changed.
class EditError : public std::runtime_error {
public:
    explicit EditError(QString const & message) : std::runtime_error(message.toStdString()) {}
};

/// Any change of some members as one command: their state before and after the first redo is kept, and put back.
class StateCommand : public Tov::Command {
public:
    typedef std::vector<Kyn::BasicParameter *> Members;

    StateCommand(Members const & members, boost::function<void()> change) : members_(members), change_(change) {}

    bool redo() override;
    void undo() override;

private:
    /// One member's state: a typed parameter's own, or the line of a plain field.
    struct State {
        boost::shared_ptr<Tov::MementoBase> memento;
        QString line;
    };

    std::vector<State> states() const;
    void restore(std::vector<State> const & states);

    Members members_;
    boost::function<void()> change_;
    std::vector<State> before_;
    std::vector<State> after_;
};

/// When a value is to be written.
struct When {
    std::optional<double> frame; ///< Without one, the static value.
    Kyn::View view;
};

/// Writes a value, given as a text: a whole number, a number, 1, 0, true or false, or the text itself. With a frame, a
/// key is made or changed. EditError for text that is no value of the parameter, a frame on what takes no keys, and a
/// missing frame on what has keys. What lies beyond the limits is held within them when it is written.
void pushValue(Kyn::BasicParameter & member, QString const & path, QString const & text, When const & when, Unit unit,
               Tov::CompositeCommand & composite);

/// What is done with keys.
struct KeyEdit {
    enum class Kind { Add, Delete, Move, Clear, SetType };

    Kind kind;
    double frame = 0.0; ///< Of the key; unused by Clear.
    double to = 0.0;    ///< Move: the key's new frame.
    Kyn::View view = Kyn::View();
    std::optional<Kyn::Interpolation> type = std::nullopt; ///< Of the key from then on; required by SetType.
};

/// EditError for a parameter that takes no keys, and a key that is not there or stands there already.
void pushKeyEdit(Kyn::BasicParameter & member, QString const & path, KeyEdit const & edit,
                 Tov::CompositeCommand & composite);

/// Moves the project to another frame size: each clip's frame and crop, rounded to whole pixels; its ratios where it
/// has a film back; what the sets hold in pixels. Tracks stay, whose unit is the frame.
void pushRescale(Project & project, FrameSize const & from, FrameSize const & to, Tov::CompositeCommand & composite);

/// References to a clip go to another, as each set says; both clips stay. EditError unless both are there.
void pushReplaceClip(Project & project, quint32 oldClip, quint32 newClip, Tov::CompositeCommand & composite);

/// A clip leaves the project, and references to it are cleared. EditError if it is not there.
void pushRemoveClip(Project & project, quint32 clip, Tov::CompositeCommand & composite);

/// What every member of a project says of itself, by its path; to tell what an edit has changed.
std::map<QString, QString> textsOfMembers(Project const & project);

} // namespace vxproject
