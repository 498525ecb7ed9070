#pragma once

#include "parameter/Parameter.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace Test {

/// Every type that a parameter may hold.
typedef testing::Types<double, float, int, unsigned int, bool, QString, Tov::FSPercentEscapedString, Kyn::View,
                       VX_STEREO_MODE, VX_CLIP_MODE, Gan_CameraType, _DISTORTION_ALGORITHM, VX_BlendMode,
                       VX_LUMINANCE_MODEL, VX_FILL_ALGORITHM, VX_REMOVESOURCE_MODE, VX_ILLUMINATION_MODEL,
                       VX_MATTE_SUBTYPE, _TrackModel>
    MemberTypes;

/// Values that their script text says in full, the awkward ones of the type among them. At least two.
template <class T>
std::vector<T> sampleValues() {
    if constexpr (std::is_same_v<T, bool>) {
        return {false, true};
    } else if constexpr (std::is_floating_point_v<T>) {
        return {T(0),           T(1),     T(-2.5),  T(0.1),         T(123456),
                T(1.23457e+06), T(1e-30), T(-1e30), T(1.17549e-38), std::numeric_limits<T>::infinity()};
    } else if constexpr (std::is_same_v<T, QString>) {
        return {"",      "plain",    "\"quoted\"",    "\"",          "a, b, Linear ) )",        "( Key( 1, 2, 3 )",
                "= a=b", " blanks ", "view[3].value", "%1 %2 %3 %4", QString::fromUtf8("片段"), "\\n"};
    } else if constexpr (std::is_same_v<T, Tov::FSPercentEscapedString>) {
        std::vector<T> names;
        for (QString const & text : sampleValues<QString>())
            names.push_back(T(text, T::ESCAPE));
        return names;
    } else if constexpr (std::is_same_v<T, Kyn::View>) {
        return {T(0), T(1), T(-1), T(2147483647)};
    } else if constexpr (std::is_enum_v<T>) {
        return {T(0), T(1), T(99), T(2147483647), static_cast<T>(static_cast<std::underlying_type_t<T>>(0xFFFFFFF0u))};
    } else {
        return {T(0), T(1), T(63), T(1000000000), std::numeric_limits<T>::max(), std::numeric_limits<T>::lowest()};
    }
}

} // namespace Test
