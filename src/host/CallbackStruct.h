#pragma once

#include "foundation/Enumerations.h"
#include "geometry/gandalf/Bool.h"
#include "geometry/gandalf/ImageFileFormat.h"
#include "geometry/gandalf/Pixel.h"
#include "host/HostEnumerations.h"
#include "parameter/kyn/Context.h"

#include <QString>

#include <cstdint>

struct Gan_Camera;
struct Gan_Image;
struct Gan_ImageHeaderInfo;
struct Gan_Matrix33;
class VX_TimeCode;
class VXI_ImageIO_Router;

namespace VX {
class ColourspaceParameters;
class FootageContext;
class FrameWarp;
class ImageSaveContext;
class ImageSaveOptions;
struct Rectangle;
} // namespace VX

/// Two machine words, as a reserved entry returns them.
struct VX_TwoWords {
    std::uintptr_t first;
    std::uintptr_t second;
};

/// What an application does for the code that runs on top of this library: image files, a frame cache, drawing, a
/// progress box, threads. A table of plain function pointers. It has no owner: the application fills it, completes it
/// with vCheckCallbackStruct(), and keeps it alive as long as anyone holds it; from then on any thread may read it. The
/// library keeps no copy, calls none of the entries, and adds no lock.
///
///     VX_CallbackStruct table;
///     table.eLoadImage = &loadImage;
///     vCheckCallbackStruct(&table);
///
/// The order of the 48 entries is the one that host and library agree on, and the compiler holds it to the numbers
/// given here. Numbers without a name are reserved: nobody sets or calls those.
///
/// An entry that the application leaves out gets a stand-by, which ignores its arguments, does nothing, and answers
/// VX_STATUS_NOT_SUPPLIED, 0 or null. But not every entry does:
///
/// | entries | filled by | null unless the application sets them |
/// |---|---|---|
/// | 4, 6, 7, 10, 11, 20, 21, 28 to 32 | vCheckCallbackStruct() | before that call |
/// | 17, 18 | the constructor, and vCheckCallbackStruct() again | never behind that call |
/// | 14, 15, 16, 47 | the constructor alone | only if someone sets them to null, and then they stay so |
/// | 1 to 3, 5, 8, 9, 19, 33 to 38 | nobody | always: look before calling, or set the entry's stand-by |
/// | 12, 13, 22 to 27, 39 to 46, 48 | nobody | always |
///
/// The stand-bys of all entries have names of their own, see host/CallbackStandBys.h.
///
/// The first argument of the image entries is the application's image router, which nobody else looks into; that of
/// the cache, the buffers, the threads and the semaphores is the application's own context pointer. Texts are UTF-8.
/// The names of numeric and truth arguments are proposals: caller and application settle them between themselves.
struct VX_CallbackStruct {
    /// All entries null but the six that the table above names.
    VX_CallbackStruct();

    // clang-format off

    /// @name Image files
    /// @{
    /// 1: Whether a file's format can hold the two fields of a frame apart.
    VX_BOOL (*bGetFieldIOSupport)(VXI_ImageIO_Router * router, char const * file) = nullptr;
    /// 2: Whether an image of that format and type, with that header, can be written to the file.
    bool (*bGetImageIOSupport)(VXI_ImageIO_Router * router, char const * file, Gan_ImageFormat format, Gan_Type type,
                               Gan_ImageHeaderInfo const * header) = nullptr;
    /// 3: The time code of a frame of the file.
    VX_BOOL (*bGetTimeCode)(VXI_ImageIO_Router * router, char const * file, unsigned int frame,
                            VX_INTERLACE_MODE interlace, VX_TimeCode * timeCode) = nullptr;
    /// 4: What a clip's first file says of the whole clip: pixels across and down, fields, frames per second.
    VX_STATUS (*eGetClipInfo)(VXI_ImageIO_Router * router, char const * file, bool isMovie, unsigned int * width,
                              unsigned int * height, VX_INTERLACE_MODE * interlace, float * frameRate,
                              VX::ColourspaceParameters const & colourspace) = nullptr;
    /// 5: What a file says of one frame, without its pixels.
    VX_STATUS (*eGetImageInfo)(VXI_ImageIO_Router * router, char const * file, VX_BOOL isMovie, unsigned int frame,
                               unsigned int * width, unsigned int * height, Gan_ImageFormat * format, Gan_Type * type,
                               Gan_ImageFileFormat * fileFormat, Gan_ImageHeaderInfo * header,
                               VX::ColourspaceParameters const & colourspace) = nullptr;
    /// 6: Reads a picture. The image has a size, a format and a type, and pixels to take the picture.
    VX_STATUS (*eLoadImage)(VXI_ImageIO_Router * router, Gan_Image * image, char const * file, VX_BOOL isMovie,
                            VX::FootageContext const & context, VX_INTERLACE_MODE interlace, bool upperField,
                            Gan_ImageFileFormat * fileFormat, Gan_ImageHeaderInfo * header,
                            VX::ColourspaceParameters const & colourspace, Gan_Image * alpha,
                            Gan_Image * temporary) = nullptr;
    /// 7: Writes a picture.
    VX_STATUS (*eSaveImage)(VXI_ImageIO_Router * router, Gan_Image & image, QString const & file,
                            VX::ImageSaveOptions const & options, VX::ImageSaveContext const & context) = nullptr;
    /// @}

    /// @name Frame cache and image buffers
    /// @{
    /// 8: Copies a picture out of the cache. VX_STATUS_FAILED if it is not there.
    VX_STATUS (*eLoadFromCache)(void * host, Gan_Image * image, QString const & key, unsigned int clip,
                                Kyn::Context::Explicit const & context, Kyn::ProxyScale::Enum scale,
                                unsigned int variant) = nullptr;
    /// 9: Copies a picture into the cache.
    VX_STATUS (*eSaveToCache)(void * host, Gan_Image * image, QString const & key, unsigned int clip,
                              Kyn::Context::Explicit const & context, Kyn::ProxyScale::Enum scale,
                              unsigned int variant) = nullptr;
    /// 10: An image with pixels of that size; null if there is no memory. The application's own, until it is freed.
    Gan_Image * (*pgiGetBuffer)(void * host, Gan_ImageFormat format, Gan_Type type, unsigned int width,
                                unsigned int height, VX_BOOL clear) = nullptr;
    /// 11: Gives a buffer back.
    VX_STATUS (*eFreeBuffer)(void * host, Gan_Image * image) = nullptr;
    /// @}

    void (*reserved12)() = nullptr;
    void (*reserved13)() = nullptr;
    VX_TwoWords (*reserved14)() = nullptr; ///< The constructor's stand-by returns zeros.

    /// @name Drawing
    /// @{
    /// 15: Draws an image: out of a lens, by a homography, into a lens; or by a warp.
    void (*vGLImage)(Gan_Image * image, unsigned int texture, unsigned int width, unsigned int height, VX_BOOL flip,
                     Gan_Camera const * backprojection, Gan_Matrix33 const * homography, Gan_Camera const * projection,
                     VX::FrameWarp const * warp, VX::Rectangle const * region, Gan_RGBAPixel_f gain,
                     Gan_RGBAPixel_f offset, float gamma, bool interpolate, bool premultiplied,
                     Gan_Image * matte) = nullptr;
    /// 16: Which part of the window is drawn to, in pixels, and which rectangle of coordinates fills it.
    void (*vGLSetCanvas)(int x, int y, int width, int height, float left, float top, float right, float bottom,
                         double pixelAspect, VX_BOOL flip) = nullptr;
    void (*vGLClear)(_VX_BUFFER buffers) = nullptr;                               ///< 17
    void (*vGLColour)(float red, float green, float blue, float alpha) = nullptr; ///< 18: of what is drawn next.
    void (*vGLBlend)(_VX_FACTOR source, _VX_FACTOR destination) = nullptr;        ///< 19
    void (*vGLEnable)(_VX_RENDER_STYLE style) = nullptr;                          ///< 20
    void (*vGLDisable)(_VX_RENDER_STYLE style) = nullptr;                         ///< 21
    /// @}

    void (*reserved22)() = nullptr;
    void (*reserved23)() = nullptr;
    void (*reserved24)() = nullptr;
    void (*reserved25)() = nullptr;
    void (*reserved26)() = nullptr;
    void (*reserved27)() = nullptr;

    /// @name Progress box
    /// @{
    void (*vProgressBoxShow)() = nullptr;                       ///< 28
    void (*vProgressBoxHide)() = nullptr;                       ///< 29
    void (*vProgressBoxSetText)(char const * text) = nullptr;   ///< 30
    void (*vProgressBoxSetStatus)(unsigned int done) = nullptr; ///< 31: per cent.
    /// @}

    uint64_t (*uiGetPhysicalMemory)(void * host) = nullptr; ///< 32: bytes; 0 if it is not known.

    /// @name Threads and semaphores
    /// Handles are the application's numbers. GAN_TRUE is success.
    /// @{
    /// 33: Starts a thread that runs `run` with `argument`.
    Gan_Bool (*gbThreadCreate)(void * host, int * thread, unsigned int (*run)(void *), void * argument,
                               _VX_THREAD_PRIORITY priority, unsigned int stackBytes, long flags) = nullptr;
    Gan_Bool (*gbThreadDestroy)(void * host, int thread) = nullptr; ///< 34: waits for it to end.
    /// 35: A semaphore of a first and a greatest count.
    Gan_Bool (*gbSemCreate)(void * host, int * semaphore, long count, long greatest, char * name) = nullptr;
    Gan_Bool (*gbSemDestroy)(void * host, int semaphore) = nullptr; ///< 36
    Gan_Bool (*gbSemLock)(void * host, int semaphore) = nullptr;    ///< 37: takes one from the count; waits at 0.
    Gan_Bool (*gbSemUnlock)(void * host, int semaphore) = nullptr;  ///< 38
    /// @}

    void (*reserved39)() = nullptr;
    void (*reserved40)() = nullptr;
    void (*reserved41)() = nullptr;
    void (*reserved42)() = nullptr;
    void (*reserved43)() = nullptr;
    void (*reserved44)() = nullptr;
    void (*reserved45)() = nullptr;
    void (*reserved46)() = nullptr;

    /// 47: Takes a picture out of the cache.
    VX_STATUS (*eDeleteFromCache)(void * host, QString const & key, unsigned int clip,
                                  Kyn::Context::Explicit const & context, Kyn::ProxyScale::Enum scale,
                                  unsigned int variant) = nullptr;

    void (*reserved48)() = nullptr;

    // clang-format on
};

static_assert(sizeof(VX_CallbackStruct) == 48 * sizeof(void *), "48 entries of one pointer each");

/// Fills the holes of a table that an application has set its entries of, as the table above says. To be called once
/// before the table is used; again, it changes nothing. An entry that is set is never replaced. Null is let be.
void vCheckCallbackStruct(VX_CallbackStruct * table);
