#pragma once

namespace VX {
/// Red, green and blue. With float components a computed colour, with unsigned char ones a colour of the interface.
///
///     VX::Colour3<unsigned char> const orange{255, 128, 0};
template <class T>
struct Colour3 {
    T red;
    T green;
    T blue;
};

/// Red, green, blue and alpha, in no fixed range.
class Colour4 {
public:
    /// Sets nothing: components must be set before they are read.
    Colour4() = default;
    Colour4(float r, float g, float b, float a) : red(r), green(g), blue(b), alpha(a) {}
    Colour4(Colour3<float> const & rgb, float a) : Colour4(rgb.red, rgb.green, rgb.blue, a) {}
    Colour4(float grey, float a) : Colour4(grey, grey, grey, a) {}

    float red;
    float green;
    float blue;
    float alpha;
};
} // namespace VX
