#include "Pixels.h"

#include <boost/make_shared.hpp>

#include <cstring>

namespace {

struct FormatRow {
    Gan_ImageFormat format;
    Gan_Type type;
    QImage::Format qt;
};

constexpr FormatRow formatRows[] = {
    {GAN_IMAGE_FORMAT_GREY, GAN_TYPE_UNSIGNED_CHAR, QImage::Format_Grayscale8},
    {GAN_IMAGE_FORMAT_GREY, GAN_TYPE_UNSIGNED_SHORT, QImage::Format_Grayscale16},
    {GAN_IMAGE_FORMAT_RGB, GAN_TYPE_UNSIGNED_CHAR, QImage::Format_RGB888},
    {GAN_IMAGE_FORMAT_RGB_ALPHA, GAN_TYPE_UNSIGNED_CHAR, QImage::Format_RGBA8888},
    {GAN_IMAGE_FORMAT_RGB_ALPHA, GAN_TYPE_UNSIGNED_SHORT, QImage::Format_RGBA64},
    {GAN_IMAGE_FORMAT_RGB_ALPHA, GAN_TYPE_FLOAT, QImage::Format_RGBA32FPx4},
};

/// An image and the memory that it points into.
struct OwnedImage {
    QImage pixels;
    Gan_Image image;
};

std::size_t bytesInRow(QImage const & picture) {
    return (static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.depth()) + 7) / 8;
}

} // namespace

QImage::Format qtFormatOf(Gan_ImageFormat format, Gan_Type type) {
    for (FormatRow const & row : formatRows)
        if (row.format == format && row.type == type)
            return row.qt;
    return QImage::Format_Invalid;
}

QImage viewOf(Gan_Image const & image) {
    QImage::Format const format = qtFormatOf(image.format, image.type);
    if (!image.pixels || format == QImage::Format_Invalid)
        return QImage();
    return QImage(static_cast<uchar *>(image.pixels), static_cast<int>(image.width), static_cast<int>(image.height),
                  static_cast<qsizetype>(image.stride), format);
}

boost::shared_ptr<Gan_Image> imageOf(QImage const & picture) {
    bool const isDeep = picture.pixelFormat().redSize() > 8 || picture.format() == QImage::Format_Grayscale16;
    return imageOf(picture, GAN_IMAGE_FORMAT_RGB_ALPHA, isDeep ? GAN_TYPE_UNSIGNED_SHORT : GAN_TYPE_UNSIGNED_CHAR);
}

boost::shared_ptr<Gan_Image> imageOf(QImage const & picture, Gan_ImageFormat format, Gan_Type type) {
    QImage::Format const qt = qtFormatOf(format, type);
    if (picture.isNull() || qt == QImage::Format_Invalid)
        return nullptr;
    auto const owned = boost::make_shared<OwnedImage>();
    owned->pixels = picture.convertToFormat(qt);
    uchar * const pixels = owned->pixels.bits(); // takes the memory for this image alone
    owned->image = {format,
                    type,
                    static_cast<unsigned int>(picture.width()),
                    static_cast<unsigned int>(picture.height()),
                    static_cast<std::size_t>(owned->pixels.bytesPerLine()),
                    pixels};
    return boost::shared_ptr<Gan_Image>(owned, &owned->image);
}

bool copyInto(Gan_Image & image, QImage const & picture) {
    QImage const target = viewOf(image);
    if (target.isNull() || target.width() > picture.width() || target.height() > picture.height())
        return false;
    QImage const converted = picture.convertToFormat(target.format());
    for (int y = 0; y < target.height(); ++y)
        std::memcpy(static_cast<char *>(image.pixels) + static_cast<std::size_t>(y) * image.stride,
                    converted.constScanLine(y), bytesInRow(target));
    return true;
}
