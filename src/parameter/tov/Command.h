#pragma once

namespace Tov {

/// Something that can be done and taken back.
class AbstractCommand {
public:
    /// Carries the command out, the first time and again after undo. False when it was refused.
    virtual bool redo() = 0;
    virtual void undo() = 0;
    virtual ~AbstractCommand() = default;
};

/// A command of its own identity: never copied, owned by the composite it is pushed on.
class Command : public AbstractCommand {
public:
    Command() = default;
    Command(Command const &) = default;
    Command & operator=(Command const &) = default;
};

} // namespace Tov
