#pragma once

#include "QtImageSuite.h"

#include "host/CallbackStruct.h"

#include <QByteArray>
#include <QCache>

#include <map>

struct Gan_Image;

/// The application's image router: what the image entries of the callback table are given first.
class VXI_ImageIO_Router {
public:
    QtImageSuite images;
};

/// The picture that is wanted of a clip.
class VX::FootageContext {
public:
    Kyn::Context::Explicit context;
};

/// What the program does for the code above the model: image files, a cache of pictures, buffers, and a line of
/// progress on the terminal. Whoever wants any of it is given the table.
class HostServices {
public:
    HostServices();
    HostServices(HostServices const &) = delete;
    HostServices & operator=(HostServices const &) = delete;

    VX_CallbackStruct const & table() const { return table_; }
    /// What the entries of the table want as their first argument.
    VXI_ImageIO_Router * router() { return &router_; }
    void * context() { return this; }

private:
    struct Callbacks;

    VX_CallbackStruct table_;
    VXI_ImageIO_Router router_;
    QCache<QString, QByteArray>
        cache_; ///< Rows without padding, by all that names a picture; its limit is in kilobytes.
    std::map<Gan_Image *, boost::shared_ptr<Gan_Image>> buffers_;
};

/// A buffer of the table that goes back when this does.
class HostBuffer {
public:
    /// VX_BadAlloc if there is none.
    HostBuffer(HostServices & host, Gan_ImageFormat format, Gan_Type type, unsigned int width, unsigned int height);
    HostBuffer(HostBuffer const &) = delete;
    HostBuffer & operator=(HostBuffer const &) = delete;
    ~HostBuffer();

    Gan_Image & image() { return *image_; }

private:
    HostServices & host_;
    Gan_Image * image_;
};
