#pragma once

#include <QString>

namespace VX {
/// The fixed display names of the processing modules, and the names that generated clips begin with. All UTF-8.
class Strings {
public:
    /// Display names of the modules, the same in every locale; set names in scripts are built from them.
    class ModuleName {
    public:
        static char const * const CLIP;
        static char const * const CAMERA;
        static char const * const LENS;
        static char const * const TRACK2D;
        static char const * const ADJUSTTRACK;
        static char const * const REMOVE;
        static char const * const STABILIZE;
        static char const * const INSERT;
        static char const * const WARPER;
        static char const * const CAMERASOLVE;
        static char const * const ROTOLP;
    };

    /// "Matte for %1": %1 takes the name of a clip, through QString::arg.
    static char const * const MATTE_CLIP_PREFIX_FORMAT;

    enum ClipNamePrefix : int {
        LAYER = 0,
        FILLED,
        FILTER,
        LUMINANCE,
        SHADOW,
        HIGHLIGHT,
        RENDERMATTE,
        WARPED,
        COMPOSITE,
        REMOVE,
    };

    /// The prefix in the user's language: translation context "VX_Strings". A value outside the enumeration is the
    /// caller's fault; nothing checks it.
    static QString tr(ClipNamePrefix prefix);
};
} // namespace VX
