#pragma once

#include "foundation/Enumerations.h"
#include "geometry/gandalf/ImageHeaderInfo.h"
#include "parameter/kyn/Context.h"

#include <QString>

namespace VX {

/// How an image is to be saved. A plain value, which only the application's save code reads; what is said here of the
/// text, the flag and the number is a proposal.
class ImageSaveOptions {
public:
    /// Note that the order is not that of the members.
    ImageSaveOptions(QString const & fileFormat, Kyn::Context::Explicit saved, float percent,
                     VX_INTERLACE_MODE imageMode, Gan_ImageHeaderInfo const & imageHeader, bool withAlpha)
        : format(fileFormat),
          context(saved),
          keepAlpha(withAlpha),
          quality(percent),
          interlaceMode(imageMode),
          header(imageHeader) {}
    ImageSaveOptions() = default;

    QString format; ///< Of the file, such as "png"; empty to go by the ending of its name.
    /// What is being saved.
    Kyn::Context::Explicit context{Kyn::Time(0.0), Kyn::View(), Kyn::ProxyScale::NONE};
    bool keepAlpha = false; ///< Off, the file gets the colours alone.
    float quality = 0.0f;   ///< 1 to 100 for formats that lose something; 0 for the writer's own.
    VX_INTERLACE_MODE interlaceMode = VX_INTERLACE_MODE_PROGRESSIVE; ///< Of the image.
    Gan_ImageHeaderInfo header{};                                    ///< To be written along with the image.
};

} // namespace VX
