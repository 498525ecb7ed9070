#pragma once

namespace VX {
/// A position in a texture. Lies in memory like a Vector2, yet starts at (0, 0).
class Texcoord2 {
public:
    Texcoord2() = default;
    Texcoord2(float across, float along) : u(across), v(along) {}

    float u = 0.0f;
    float v = 0.0f;
};
} // namespace VX
