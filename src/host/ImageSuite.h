#pragma once

#include "geometry/gandalf/ImageFormat.h"
#include "geometry/gandalf/Type.h"

#include <QStringList>

#include <boost/shared_ptr.hpp>

class QSize;
struct Gan_Image;
struct Gan_ImageHeaderInfo;

namespace VX {

class ImageSaveContext;
class ImageSaveOptions;

/// Image files, for drawing code. An application implements it on its image library; this library calls none of it.
///
/// An image that comes back owns its pixels, and is null where there can be none. What went wrong is for the
/// application to tell, such as by a VX_BadFile.
class ImageSuite {
public:
    virtual ~ImageSuite();

    /// The endings of file names that can be read and written, in lower case and without the dot.
    virtual QStringList loadFormats() const = 0;
    virtual QStringList saveFormats() const = 0;

    /// The size in pixels, and what else a file says of itself, without reading its pixels.
    virtual bool bReadHeader(QString const & file, QSize & size, Gan_ImageHeaderInfo & header) const = 0;
    /// In the channels and numbers that come closest to the file's.
    virtual boost::shared_ptr<Gan_Image> load(QString const & file) const = 0;
    /// Not larger than a square of that many pixels, in the file's proportions; a smaller picture is not enlarged.
    virtual boost::shared_ptr<Gan_Image> thumbnail(QString const & file, unsigned int side) const = 0;
    /// True once the whole file is written.
    virtual bool bSave(Gan_Image const & image, QString const & file, VX::ImageSaveOptions const & options,
                       VX::ImageSaveContext const & context) const = 0;

    /// All zero.
    virtual boost::shared_ptr<Gan_Image> create(Gan_ImageFormat format, Gan_Type type, unsigned int width,
                                                unsigned int height) const = 0;
    /// The same picture in other channels or numbers. Whole numbers stand for 0 to 1 over their whole range.
    virtual boost::shared_ptr<Gan_Image> convert(Gan_Image const & image, Gan_ImageFormat format,
                                                 Gan_Type type) const = 0;
};

} // namespace VX
