#pragma once

#include "clip/FilmType.h"
#include "foundation/Enumerations.h"

namespace VX {
/// What describes the frames of a clip as pictures: their size in pixels as they are stored, their film back, and how
/// they lie in files. With the modes 1 and 2 the stored size is that of one field.
class ImageFormat {
public:
    /// Not valid: a size of -1 by -1, no film back, progressive.
    ImageFormat() = default;
    ImageFormat(QSize const & frameSize, FilmType const & film, VX_INTERLACE_MODE eMode);

    /// Whether both sides are at least 1.
    bool isValid() const;
    /// Mode 1 or 2, not the pulldown modes.
    bool isInterlaced() const;
    /// Width over height of a pixel as it is shown: for modes 1 and 2, twice what the stored size gives.
    double par() const;
    /// The size of the whole frame: for modes 1 and 2, twice as high as it is stored.
    QSize displaySize() const;

    QSize size;
    FilmType filmType;
    VX_INTERLACE_MODE interlaceMode = VX_INTERLACE_MODE_PROGRESSIVE;
};
} // namespace VX
