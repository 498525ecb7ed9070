#pragma once

namespace VX {

/// A thing that can be drawn. What it draws with, such as a VX::RenderSuite, it brings along.
class Renderable {
public:
    virtual void render() const = 0;
    virtual ~Renderable();
};

} // namespace VX
