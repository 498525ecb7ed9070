#pragma once

#include "host/ImageSuite.h"

/// Image files by Qt's image plugins.
class QtImageSuite : public VX::ImageSuite {
public:
    QStringList loadFormats() const override;
    QStringList saveFormats() const override;

    bool bReadHeader(QString const & file, QSize & size, Gan_ImageHeaderInfo & header) const override;
    boost::shared_ptr<Gan_Image> load(QString const & file) const override;
    boost::shared_ptr<Gan_Image> thumbnail(QString const & file, unsigned int side) const override;
    /// The whole file or none: the old one stands until the new one is written.
    bool bSave(Gan_Image const & image, QString const & file, VX::ImageSaveOptions const & options,
               VX::ImageSaveContext const & context) const override;

    boost::shared_ptr<Gan_Image> create(Gan_ImageFormat format, Gan_Type type, unsigned int width,
                                        unsigned int height) const override;
    boost::shared_ptr<Gan_Image> convert(Gan_Image const & image, Gan_ImageFormat format, Gan_Type type) const override;
};
