#include "host/ImageSaveContext.h"

namespace VX {

ImageSaveContext::~ImageSaveContext() = default;

Gan_Image * ImageSaveContext::secondField() const {
    return nullptr;
}

Gan_Image * ImageSaveContext::temporaryImage() const {
    return nullptr;
}

QString ImageSaveContext::nameForView(Kyn::View const &) const {
    return QString();
}

} // namespace VX
