#pragma once

#include "parameter/tov/Command.h"

namespace Kyn {

class ParameterWithoutType;

/// The base of all undoable edits of a parameter. An edit holds nothing about the old state until its first redo:
/// so edits can be built ahead of each other in one composite, each seeing what those before it have done.
/// The parameter must outlive the edit.
class ParameterEdit : public Tov::Command {
public:
    /// The edited parameter.
    virtual ParameterWithoutType * edited() const = 0;

protected:
    bool bCaptured = false; ///< Set by the first redo: what undo needs has been recorded.
};

} // namespace Kyn
