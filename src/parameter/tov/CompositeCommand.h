#pragma once

#include "parameter/tov/Command.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Tov {

/// A sequence of commands that runs and undoes as one. redo runs them all in order, also behind one that was refused,
/// and tells whether all were carried out; undo runs them backwards.
class CompositeCommand : public Command {
public:
    CompositeCommand() = default;
    CompositeCommand(CompositeCommand const &) = delete;
    CompositeCommand & operator=(CompositeCommand const &) = delete;

    /// Takes ownership. Null is ignored.
    void push_back(Command * command);

    bool redo() override;
    void undo() override;

    std::size_t size() const { return commands_.size(); }
    bool empty() const { return commands_.empty(); }

private:
    std::vector<std::unique_ptr<Command>> commands_;
};

} // namespace Tov
