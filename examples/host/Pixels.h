#pragma once

#include "geometry/gandalf/Image.h"

#include <QImage>

#include <boost/shared_ptr.hpp>

// Between the model's images and Qt's.

/// Qt's name for such pixels; QImage::Format_Invalid where it has none.
QImage::Format qtFormatOf(Gan_ImageFormat format, Gan_Type type);

/// The same picture as Qt sees it, over the same memory, which must outlive it. Null where Qt has no such pixels.
QImage viewOf(Gan_Image const & image);

/// An image that owns its pixels: four channels of 16 bits where the picture has more than 8, otherwise of 8. Null for
/// a null picture.
boost::shared_ptr<Gan_Image> imageOf(QImage const & picture);

/// The same, in a format that Qt has. Null where it has none.
boost::shared_ptr<Gan_Image> imageOf(QImage const & picture, Gan_ImageFormat format, Gan_Type type);

/// Copies a picture's top left part into an image, in the image's format. False, and nothing is written, where the
/// picture is smaller or the format is none of Qt's.
bool copyInto(Gan_Image & image, QImage const & picture);
