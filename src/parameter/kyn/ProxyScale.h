#pragma once

#include "foundation/EnumerationText.h"

namespace Kyn {

/// The proxy resolution of a request.
class ProxyScale {
public:
    enum Enum : int { FULL = 0, HALF = 1, QUARTER = 2 };

    /// One above the largest enumerator: names no scale. Contexts that parameter code builds for itself carry it.
    static constexpr Enum NONE = static_cast<Enum>(3);

    constexpr ProxyScale(Enum scale = NONE) : scale_(scale) {}
    constexpr operator Enum() const { return scale_; }

private:
    Enum scale_;
};

VX_ENUMERATION_TEXT(ProxyScale::Enum)

} // namespace Kyn

VX_ENUMERATION_LIMIT(Kyn::ProxyScale::Enum, 2)
