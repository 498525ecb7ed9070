#pragma once

#include <QSize>
#include <QString>

#include <array>
#include <cstdint>

namespace VX {
/// A film back: the size of a camera's gate, and up to three frame sizes at which it is commonly scanned.
///
/// VX_FilmTypeFactory has the known ones, in millimetres. A film back that was built because none of those fits is in
/// pixels: then only its aspect means something.
class FilmType {
public:
    /// Not valid: no name, all numbers 0.
    FilmType() = default;
    FilmType(QString const & filmName, double backWidth, double backHeight, int width1, int width2, int width3,
             int height1, int height2, int height3, bool bAnamorphic);
    /// A film back named "Custom", without frame sizes.
    FilmType(double backWidth, double backHeight);

    /// Width over height of the film back; not a number for a film back of 0 by 0.
    double getFilmBackAspectRatio() const;

    /// Width over height of one pixel of a frame that fills the film back. Not finite for a frame of width 0.
    double pixelAspectRatio(QSize const & size) const;
    /// The same for a frame that may be one of the two fields of an interlaced one, which doubles it.
    double pixelAspectRatio(QSize const & size, bool interlaced) const;
    /// The same for the first of the common frame sizes; 0.0 without one.
    double defPixelAspectRatio() const;

    /// Whether neither side of the film back is 0.
    bool isValid() const;
    /// Whether the name is "Custom". That is true of the table's own row of that name, too.
    bool isCustom() const;

    /// The frame size at an index from 0 to 2, with 0 for an absent one; 0 by 0 for any other index.
    QSize uiSize(uint64_t index) const;

    QString name;
    double filmBackWidth = 0.0;
    double filmBackHeight = 0.0;
    /// Frame sizes in pixels: widths[i] belongs to heights[i]; 0 where absent. A width without a height stands in the
    /// table for film that is scanned at that width and no certain height.
    std::array<int, 3> widths = {};
    std::array<int, 3> heights = {};
    bool anamorphic = false;
};
} // namespace VX
