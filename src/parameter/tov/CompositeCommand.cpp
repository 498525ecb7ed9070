#include "parameter/tov/CompositeCommand.h"

namespace Tov {

void CompositeCommand::push_back(Command * command) {
    std::unique_ptr<Command> owned(command);
    if (owned)
        commands_.push_back(std::move(owned));
}

bool CompositeCommand::redo() {
    bool all = true;
    for (std::unique_ptr<Command> const & command : commands_)
        all &= command->redo();
    return all;
}

void CompositeCommand::undo() {
    for (auto command = commands_.rbegin(); command != commands_.rend(); ++command)
        (*command)->undo();
}

} // namespace Tov
