#pragma once

#include "host/Renderable.h"

class QPointF;

namespace VX {

/// Vertices that are drawn as one thing: dots, lines or an area, as whoever made it decides
/// (VX::RenderSuite::createGeometry).
class VertexGeometry : public Renderable {
public:
    void render() const override = 0;
    ~VertexGeometry() override;

    /// Forgets all vertices, so that the next frame's can be added.
    virtual void clear() = 0;
    virtual void addVertex(QPointF const & point) = 0;
    /// The same, widened to double. A subclass that overrides the other hides this one: it needs
    /// `using VX::VertexGeometry::addVertex`.
    void addVertex(float x, float y);
};

} // namespace VX
