#pragma once

/// One pixel of four floats. Lies in memory as the four, without padding.
struct Gan_RGBAPixel_f {
    float R;
    float G;
    float B;
    float A;
};
