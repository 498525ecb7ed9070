#include "clip/FilmType.h"

#include "clip/FilmTypeFactory.h"

namespace VX {
FilmType::FilmType(QString const & filmName, double backWidth, double backHeight, int width1, int width2, int width3,
                   int height1, int height2, int height3, bool bAnamorphic)
    : name(filmName),
      filmBackWidth(backWidth),
      filmBackHeight(backHeight),
      widths{width1, width2, width3},
      heights{height1, height2, height3},
      anamorphic(bAnamorphic) {}

FilmType::FilmType(double backWidth, double backHeight)
    : name(VX_FilmTypeFactory::names().custom), filmBackWidth(backWidth), filmBackHeight(backHeight) {}

double FilmType::getFilmBackAspectRatio() const {
    return filmBackWidth / filmBackHeight;
}

double FilmType::pixelAspectRatio(QSize const & size) const {
    return getFilmBackAspectRatio() * size.height() / size.width();
}

double FilmType::pixelAspectRatio(QSize const & size, bool interlaced) const {
    double const ratio = pixelAspectRatio(size);
    return interlaced ? 2.0 * ratio : ratio;
}

double FilmType::defPixelAspectRatio() const {
    if (widths[0] == 0 || heights[0] == 0)
        return 0.0;
    return pixelAspectRatio(uiSize(0));
}

bool FilmType::isValid() const {
    return filmBackWidth != 0.0 && filmBackHeight != 0.0;
}

bool FilmType::isCustom() const {
    return name == VX_FilmTypeFactory::names().custom;
}

QSize FilmType::uiSize(uint64_t index) const {
    if (index >= widths.size())
        return QSize(0, 0);
    return QSize(widths[index], heights[index]);
}
} // namespace VX
