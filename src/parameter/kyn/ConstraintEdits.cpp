#include "parameter/kyn/ConstraintEdits.h"

#include "parameter/kyn/ParameterWithoutType.h"

namespace Kyn {

bool ParameterUnconstrainEdit::redo() {
    bCaptured = true;
    master_ = constrained_ ? const_cast<ParameterWithoutType *>(constrained_->masterParameter()) : nullptr;
    if (onlyFrom_ && master_ != onlyFrom_)
        master_ = nullptr;
    return master_ && constrained_->bUnconstrain();
}

void ParameterUnconstrainEdit::undo() {
    if (master_)
        master_->bAddConstrainedParameter(constrained_);
}

} // namespace Kyn
