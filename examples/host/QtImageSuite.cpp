#include "QtImageSuite.h"

#include "Pixels.h"

#include "geometry/gandalf/ImageHeaderInfo.h"
#include "host/ImageSaveOptions.h"

#include <QImageReader>
#include <QImageWriter>
#include <QSaveFile>

#include <cmath>

namespace {

QStringList textsOf(QList<QByteArray> const & formats) {
    QStringList texts;
    for (QByteArray const & format : formats)
        texts.append(QString::fromLatin1(format).toLower());
    return texts;
}

/// The ending of the name, unless the options say otherwise.
QByteArray formatOf(QString const & file, VX::ImageSaveOptions const & options) {
    QString const format = options.format.isEmpty() ? file.section(QLatin1Char('.'), -1) : options.format;
    return format.toLower().toLatin1();
}

} // namespace

QStringList QtImageSuite::loadFormats() const {
    return textsOf(QImageReader::supportedImageFormats());
}

QStringList QtImageSuite::saveFormats() const {
    return textsOf(QImageWriter::supportedImageFormats());
}

bool QtImageSuite::bReadHeader(QString const & file, QSize & size, Gan_ImageHeaderInfo & header) const {
    QImageReader reader(file);
    if (!reader.canRead() || reader.size().isEmpty())
        return false;
    size = reader.size();
    bool const isDeep = reader.imageFormat() == QImage::Format_RGBA64 ||
                        reader.imageFormat() == QImage::Format_RGBX64 ||
                        reader.imageFormat() == QImage::Format_Grayscale16;
    gan_initialise_image_header_info(GAN_IMAGE_FORMAT_RGB_ALPHA,
                                     isDeep ? GAN_TYPE_UNSIGNED_SHORT : GAN_TYPE_UNSIGNED_CHAR, &header);
    return true;
}

boost::shared_ptr<Gan_Image> QtImageSuite::load(QString const & file) const {
    return imageOf(QImageReader(file).read());
}

boost::shared_ptr<Gan_Image> QtImageSuite::thumbnail(QString const & file, unsigned int side) const {
    QImage const picture = QImageReader(file).read();
    int const longest = std::max(picture.width(), picture.height());
    if (longest <= static_cast<int>(side))
        return imageOf(picture);
    double const factor = static_cast<double>(side) / longest;
    return imageOf(picture.scaled(std::max(1, static_cast<int>(std::lround(picture.width() * factor))),
                                  std::max(1, static_cast<int>(std::lround(picture.height() * factor))),
                                  Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

bool QtImageSuite::bSave(Gan_Image const & image, QString const & file, VX::ImageSaveOptions const & options,
                         VX::ImageSaveContext const &) const {
    QImage picture = viewOf(image);
    if (picture.isNull())
        return false;
    if (!options.keepAlpha)
        picture = picture.convertToFormat(image.type == GAN_TYPE_UNSIGNED_CHAR ? QImage::Format_RGB888
                                                                               : QImage::Format_RGBX64);
    QSaveFile output(file);
    if (!output.open(QIODevice::WriteOnly))
        return false;
    QImageWriter writer(&output, formatOf(file, options));
    if (options.quality > 0.0f && writer.format().startsWith("jp")) // to a lossless one it means less compression
        writer.setQuality(static_cast<int>(options.quality));
    return writer.write(picture) && output.commit();
}

boost::shared_ptr<Gan_Image> QtImageSuite::create(Gan_ImageFormat format, Gan_Type type, unsigned int width,
                                                  unsigned int height) const {
    QImage picture(static_cast<int>(width), static_cast<int>(height), qtFormatOf(format, type));
    picture.fill(0);
    return imageOf(picture, format, type);
}

boost::shared_ptr<Gan_Image> QtImageSuite::convert(Gan_Image const & image, Gan_ImageFormat format,
                                                   Gan_Type type) const {
    return imageOf(viewOf(image), format, type);
}
