#pragma once

#include "parameter/kyn/ParameterEdit.h"

namespace Kyn {

/// Cuts a parameter from its master. redo is false where it has none; undo then does nothing.
class ParameterUnconstrainEdit : public ParameterEdit {
public:
    /// From whatever master it has when the edit runs, or from `onlyFrom` alone. A null `constrained` is refused by
    /// redo.
    explicit ParameterUnconstrainEdit(ParameterWithoutType * constrained, ParameterWithoutType * onlyFrom = nullptr)
        : constrained_(constrained), onlyFrom_(onlyFrom) {}

    bool redo() override;
    void undo() override;
    ParameterWithoutType * edited() const override { return constrained_; }

private:
    ParameterWithoutType * constrained_;
    ParameterWithoutType * onlyFrom_;
    ParameterWithoutType * master_ = nullptr; ///< The master at the last redo; must outlive the edit.
};

} // namespace Kyn
