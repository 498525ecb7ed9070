#pragma once

#include "host/Renderable.h"

#include <QList>

#include <boost/shared_ptr.hpp>

namespace VX {

/// Draws others, in the order in which they were added. Copies share what is drawn, and each has its own list.
///
/// One that holds itself, by whatever way, is the caller's fault: it draws without end, and is never freed.
class CompositeRenderable : public Renderable {
public:
    /// The same object may be added twice, and is then drawn twice. A null draws nothing.
    void add(boost::shared_ptr<Renderable> const & renderable);
    void render() const override;

private:
    QList<boost::shared_ptr<Renderable>> renderables_;
};

} // namespace VX
