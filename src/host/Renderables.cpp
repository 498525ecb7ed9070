#include "host/CompositeRenderable.h"
#include "host/NullRenderable.h"
#include "host/VertexGeometry.h"

#include <QPointF>

namespace VX {

Renderable::~Renderable() = default;

void NullRenderable::render() const {}

void CompositeRenderable::add(boost::shared_ptr<Renderable> const & renderable) {
    renderables_.append(renderable);
}

void CompositeRenderable::render() const {
    for (boost::shared_ptr<Renderable> const & renderable : renderables_)
        if (renderable)
            renderable->render();
}

VertexGeometry::~VertexGeometry() = default;

void VertexGeometry::addVertex(float x, float y) {
    addVertex(QPointF(static_cast<double>(x), static_cast<double>(y)));
}

} // namespace VX
