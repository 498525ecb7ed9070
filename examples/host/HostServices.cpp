#include "HostServices.h"

#include "Failure.h"
#include "Pixels.h"

#include "geometry/gandalf/ImageHeaderInfo.h"
#include "host/ImageSaveOptions.h"

#include <QSize>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include <unistd.h>

namespace {

/// A cache never takes more, whatever the machine has.
constexpr uint64_t LARGEST_CACHE_KILOBYTES = 1048576;

VX_STATUS statusOf(bool isDone) {
    return isDone ? VX_STATUS_DONE : VX_STATUS_FAILED;
}

HostServices & hostOf(void * context) {
    return *static_cast<HostServices *>(context);
}

// The progress box has no context: there is one terminal. It shows where a person looks at it, and nowhere else.

bool isWatched() {
    return isatty(STDERR_FILENO) == 1;
}

void showText(char const * text) {
    if (isWatched())
        std::fprintf(stderr, "\r%s\x1b[K", text);
}

void showPercent(unsigned int done) {
    if (isWatched())
        std::fprintf(stderr, " %u %%", done);
}

void hideProgress() {
    showText("");
}

uint64_t physicalMemory(void *) {
    long const pages = sysconf(_SC_PHYS_PAGES);
    long const bytes = sysconf(_SC_PAGE_SIZE);
    return pages > 0 && bytes > 0 ? static_cast<uint64_t>(pages) * static_cast<uint64_t>(bytes) : 0;
}

/// All that names a picture, in one text.
QString cacheKey(QString const & key, unsigned int clip, Kyn::Context::Explicit const & context,
                 Kyn::ProxyScale::Enum scale, unsigned int variant) {
    return QStringLiteral("%1|%2|%3|%4|%5|%6")
        .arg(clip)
        .arg(context.time.toDouble(), 0, 'g', 17)
        .arg(context.view.id())
        .arg(static_cast<int>(scale))
        .arg(variant)
        .arg(key); // last: it may hold anything
}

} // namespace

/// The entries of the table. None throws: what goes wrong is a status, since a caller may be in another language.
struct HostServices::Callbacks {
    static VX_STATUS clipInfo(VXI_ImageIO_Router * router, char const * file, bool, unsigned int * width,
                              unsigned int * height, VX_INTERLACE_MODE * interlace, float *,
                              VX::ColourspaceParameters const &) {
        QSize size;
        Gan_ImageHeaderInfo header;
        if (!router->images.bReadHeader(QString::fromUtf8(file), size, header))
            return VX_STATUS_FAILED;
        *width = static_cast<unsigned int>(size.width());
        *height = static_cast<unsigned int>(size.height());
        *interlace = VX_INTERLACE_MODE_PROGRESSIVE; // still pictures tell of no fields and no rate
        return VX_STATUS_DONE;
    }

    static VX_STATUS imageInfo(VXI_ImageIO_Router * router, char const * file, VX_BOOL, unsigned int,
                               unsigned int * width, unsigned int * height, Gan_ImageFormat * format, Gan_Type * type,
                               Gan_ImageFileFormat *, Gan_ImageHeaderInfo * header, VX::ColourspaceParameters const &) {
        QSize size;
        if (!router->images.bReadHeader(QString::fromUtf8(file), size, *header))
            return VX_STATUS_FAILED;
        *width = static_cast<unsigned int>(size.width());
        *height = static_cast<unsigned int>(size.height());
        *format = header->format;
        *type = header->type;
        return VX_STATUS_DONE;
    }

    static VX_STATUS load(VXI_ImageIO_Router * router, Gan_Image * image, char const * file, VX_BOOL,
                          VX::FootageContext const &, VX_INTERLACE_MODE, bool, Gan_ImageFileFormat *,
                          Gan_ImageHeaderInfo *, VX::ColourspaceParameters const &, Gan_Image *, Gan_Image *) {
        boost::shared_ptr<Gan_Image> const loaded = router->images.load(QString::fromUtf8(file));
        return statusOf(loaded && loaded->width == image->width && loaded->height == image->height &&
                        copyInto(*image, viewOf(*loaded)));
    }

    static VX_STATUS save(VXI_ImageIO_Router * router, Gan_Image & image, QString const & file,
                          VX::ImageSaveOptions const & options, VX::ImageSaveContext const & context) {
        return statusOf(router->images.bSave(image, file, options, context));
    }

    static VX_STATUS loadFromCache(void * context, Gan_Image * image, QString const & key, unsigned int clip,
                                   Kyn::Context::Explicit const & moment, Kyn::ProxyScale::Enum scale,
                                   unsigned int variant) {
        QByteArray const * const kept = hostOf(context).cache_.object(cacheKey(key, clip, moment, scale, variant));
        if (!kept || static_cast<std::size_t>(kept->size()) != image->stride * image->height)
            return VX_STATUS_FAILED;
        std::memcpy(image->pixels, kept->constData(), static_cast<std::size_t>(kept->size()));
        return VX_STATUS_DONE;
    }

    static VX_STATUS saveToCache(void * context, Gan_Image * image, QString const & key, unsigned int clip,
                                 Kyn::Context::Explicit const & moment, Kyn::ProxyScale::Enum scale,
                                 unsigned int variant) {
        std::size_t const bytes = image->stride * image->height;
        return statusOf(hostOf(context).cache_.insert(
            cacheKey(key, clip, moment, scale, variant),
            new QByteArray(static_cast<char const *>(image->pixels), static_cast<qsizetype>(bytes)),
            static_cast<qsizetype>(bytes) / 1024 + 1));
    }

    static VX_STATUS deleteFromCache(void * context, QString const & key, unsigned int clip,
                                     Kyn::Context::Explicit const & moment, Kyn::ProxyScale::Enum scale,
                                     unsigned int variant) {
        return statusOf(hostOf(context).cache_.remove(cacheKey(key, clip, moment, scale, variant)));
    }

    static Gan_Image * buffer(void * context, Gan_ImageFormat format, Gan_Type type, unsigned int width,
                              unsigned int height, VX_BOOL) {
        HostServices & host = hostOf(context);
        boost::shared_ptr<Gan_Image> const made = host.router_.images.create(format, type, width, height);
        if (made)
            host.buffers_[made.get()] = made;
        return made.get();
    }

    static VX_STATUS freeBuffer(void * context, Gan_Image * image) {
        return statusOf(hostOf(context).buffers_.erase(image) == 1);
    }
};

HostServices::HostServices() {
    table_.eGetClipInfo = &Callbacks::clipInfo;
    table_.eGetImageInfo = &Callbacks::imageInfo;
    table_.eLoadImage = &Callbacks::load;
    table_.eSaveImage = &Callbacks::save;
    table_.eLoadFromCache = &Callbacks::loadFromCache;
    table_.eSaveToCache = &Callbacks::saveToCache;
    table_.eDeleteFromCache = &Callbacks::deleteFromCache;
    table_.pgiGetBuffer = &Callbacks::buffer;
    table_.eFreeBuffer = &Callbacks::freeBuffer;
    table_.vProgressBoxHide = &hideProgress;
    table_.vProgressBoxSetText = &showText;
    table_.vProgressBoxSetStatus = &showPercent;
    table_.uiGetPhysicalMemory = &physicalMemory;
    vCheckCallbackStruct(&table_);

    uint64_t const quarter = table_.uiGetPhysicalMemory(this) / 4 / 1024;
    cache_.setMaxCost(static_cast<qsizetype>(std::min(quarter, LARGEST_CACHE_KILOBYTES)));
}

HostBuffer::HostBuffer(HostServices & host, Gan_ImageFormat format, Gan_Type type, unsigned int width,
                       unsigned int height)
    : host_(host), image_(host.table().pgiGetBuffer(host.context(), format, type, width, height, VX_TRUE)) {
    if (!image_)
        HOST_FAIL(VX_BadAlloc, "no buffer of " + std::to_string(width) + " by " + std::to_string(height) + " pixels",
                  "There is no memory for a picture.");
}

HostBuffer::~HostBuffer() {
    host_.table().eFreeBuffer(host_.context(), image_);
}
