#pragma once

#include "host/Renderable.h"

namespace VX {

/// Draws nothing, where something has to be given.
class NullRenderable : public Renderable {
public:
    void render() const override;
};

} // namespace VX
