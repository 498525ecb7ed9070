#pragma once

#include "foundation/Colour.h"
#include "foundation/Texcoord2.h"
#include "foundation/Vector2.h"

namespace VX {
/// One vertex for an application's renderer: eight floats, in the order of the members.
///
/// Only the constructor that is given a colour sets it. Whoever draws with vertex colours must use that one: with all
/// others the colour holds anything.
class VertexInfo {
public:
    VertexInfo() : VertexInfo(0.0f, 0.0f) {}
    VertexInfo(float x, float y) : position(x, y) {}
    VertexInfo(float x, float y, Colour4 const & drawn) : position(x, y), colour(drawn) {}
    VertexInfo(float x, float y, float u, float v) : position(x, y), textureCoordinate(u, v) {}
    /// Narrows to single precision.
    VertexInfo(QPointF const & point) : position(point) {}

    Vector2 position;
    Colour4 colour;
    Texcoord2 textureCoordinate;
};
} // namespace VX
