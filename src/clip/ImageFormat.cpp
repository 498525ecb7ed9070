#include "clip/ImageFormat.h"

#include "clip/InterlaceMode.h"

namespace VX {
ImageFormat::ImageFormat(QSize const & frameSize, FilmType const & film, VX_INTERLACE_MODE eMode)
    : size(frameSize), filmType(film), interlaceMode(eMode) {}

bool ImageFormat::isValid() const {
    return size.width() >= 1 && size.height() >= 1;
}

bool ImageFormat::isInterlaced() const {
    return bIsInterlaced(interlaceMode);
}

double ImageFormat::par() const {
    return filmType.pixelAspectRatio(size, isInterlaced());
}

QSize ImageFormat::displaySize() const {
    return isInterlaced() ? frameSizeOfField(size) : size;
}
} // namespace VX
