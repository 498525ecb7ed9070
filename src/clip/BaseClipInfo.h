#pragma once

#include "clip/ImageFormat.h"
#include "foundation/Colour.h"
#include "parameter/kyn/ParameterSet.h"
#include "parameter/kyn/ProxyScale.h"

#include <limits>

namespace VX {

/// The values of a VX_BaseClipInfo. Plain fields: whoever writes one tells nobody, and nothing follows from it.
struct BaseClipFields {
    /// A place in the viewer that was never set.
    static constexpr float NEVER_SET = std::numeric_limits<float>::max();

    // Pixels, as the frames are stored: with the interlace modes 1 and 2 the height is that of one field.
    unsigned int frameWidth = 0;
    unsigned int frameHeight = 0;
    unsigned int cropTop = 0;
    unsigned int cropLeft = 0;
    unsigned int cropRight = 0;
    unsigned int cropBottom = 0;
    VX_INTERLACE_MODE interlaceMode = VX_INTERLACE_MODE_PROGRESSIVE;
    float frameRate = 0.0f; ///< Frames per second.
    unsigned int masterTimelineClipId = 0;
    int firstFrameOffset = 0; ///< Frames.
    VX::FilmType filmType;    ///< A copy: it follows no table.
    double aspectRatio = 0.0; ///< Width over height of the film back, as of the last setFilmType().
    double pixelAspectRatio = 0.0;
    Kyn::ProxyScale::Enum proxyScale = Kyn::ProxyScale::FULL;
    float viewOriginX = NEVER_SET; ///< Where the viewer last stood.
    float viewOriginY = NEVER_SET;
    float viewZoom = NEVER_SET;

protected:
    VX::Colour3<unsigned char> displayColour_ = {0, 0, 0};
};

} // namespace VX

/// What a clip is as pictures, wherever its frames come from: their size and crop, how they lie in files, the film
/// back, and how the interface shows the clip. None of it is keyframed or differs from view to view; where the frames
/// lie is said by VX_ClipInfo, which goes by the same script name, "Core".
///
/// The script and the fields are two doors to the same storage: a line that sets "FilmType" changes the name and looks
/// nothing up.
class VX_BaseClipInfo : public Kyn::ParameterSet, public VX::BaseClipFields {
public:
    VX_DECLARE_TRANSLATION("VX_BaseClipInfo")

    VX_BaseClipInfo();
    /// Takes all values. The names are those of a new record.
    VX_BaseClipInfo(VX_BaseClipInfo const & other);
    /// Takes all values and the names.
    VX_BaseClipInfo & operator=(VX_BaseClipInfo const & other);

    /// What VX::bIsInterlaced and its kin say of the interlace mode.
    bool bIsInterlaced() const;
    bool bIs32Pulldown() const;
    bool bIsUpperFieldFirst() const;
    bool bIsLowerFieldFirst() const;
    bool bHasFields() const;

    VX::Colour3<unsigned char> const & displayColour() const { return displayColour_; }
    void setDisplayColour(VX::Colour3<unsigned char> const & colour) { displayColour_ = colour; }

    /// Frame size, film back and interlace mode by value. Sizes above 2147483647 are cut to that.
    VX::ImageFormat format() const;

    /// Takes over a film back, and from it and the frame the two ratios: width over height of the film back, and that
    /// of a pixel, doubled for the modes 1 and 2. Set frame size and interlace mode first; the ratios do not follow
    /// when these change. A frame without a width gives a pixel aspect ratio that is not finite.
    void setFilmType(VX::FilmType const & film);

    /// How many files a number of frames takes up: VX::pulldownFileFromFrame of that number.
    unsigned int uiGetNumberOfPulldownFiles(unsigned int uiFrames) const;

private:
    void init();
};
