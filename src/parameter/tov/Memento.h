#pragma once

#include <boost/shared_ptr.hpp>

namespace Tov {

/// An opaque saved state. Nothing in it points back to its source; it may be kept and restored any number of times.
class MementoBase {
public:
    virtual ~MementoBase() = default;
};

/// A thing that saves and restores its state.
class MementoUndoable {
public:
    virtual ~MementoUndoable() = default;

    /// A memento of the present state. Never null.
    virtual boost::shared_ptr<MementoBase> exportState() const = 0;
    /// Restores a state that a thing of the same class exported. A memento of another class is refused with an
    /// exception that the class names, as is a null one, and nothing changes.
    virtual void importState(boost::shared_ptr<MementoBase> memento) = 0;
};

} // namespace Tov
