#pragma once

#include "clip/ColourspaceParameters.h"

#include <vector>

namespace Test {

/// All tables of some settings, by one pow or log of the library for each entry, step by step as the curves are
/// defined: what the library's tables are held to, bit for bit.
struct PlainTables {
    explicit PlainTables(VX::ColourspaceParameters const & settings);

    std::vector<float> halfToLinear32;
    std::vector<unsigned short> clip16ToLinear16;
    std::vector<unsigned short> linear16ToClip16;
    std::vector<unsigned short> clip8ToLinear16;
    std::vector<unsigned char> linear16ToClip8;

    std::vector<float> clip16ToLinear;
    std::vector<unsigned short> linearToClip16;
    std::vector<float> clip8ToLinear;
    std::vector<unsigned char> linearToClip8;
    /// Low scale and offset, split, high scale and offset.
    std::vector<float> lookup16;
    std::vector<float> lookup8;
};

} // namespace Test
