#include "clip/BaseClipInfo.h"

#include "clip/InterlaceMode.h"
#include "clip/Pulldown.h"
#include "foundation/Saturation.h"

#include <boost/make_shared.hpp>

namespace {

int pixels(unsigned int count) {
    return VX::detail::saturated<int>(static_cast<double>(count));
}

/// Film backs count pixels in int, the script in unsigned: the same 32 bits.
unsigned int & asUnsigned(int & count) {
    return reinterpret_cast<unsigned int &>(count);
}

} // namespace

VX_BaseClipInfo::VX_BaseClipInfo() : Kyn::ParameterSet(QStringLiteral("Core"), nullptr) {
    init();
}

VX_BaseClipInfo::VX_BaseClipInfo(VX_BaseClipInfo const & other)
    : Kyn::ParameterSet(QStringLiteral("Core"), nullptr), VX::BaseClipFields(other) {
    init();
}

VX_BaseClipInfo & VX_BaseClipInfo::operator=(VX_BaseClipInfo const & other) {
    if (this == &other)
        return *this;
    VX::BaseClipFields::operator=(other);
    assignMembers(other);
    return *this;
}

void VX_BaseClipInfo::init() {
    // These three once stood here and are per-view values of VX_ClipInfo today; old scripts still name them.
    for (char const * moved : {"ClipLength", "ClipModeBefore", "ClipModeAfter"})
        addMovedParameter(boost::make_shared<Kyn::MovedParameter>(QString::fromUtf8(moved)));
    addField("FrameWidth", frameWidth);
    addField("FrameHeight", frameHeight);
    addField("CropTop", cropTop);
    addField("CropLeft", cropLeft);
    addField("CropRight", cropRight);
    addField("CropBottom", cropBottom);
    addField("eInterlaceMode", interlaceMode); // The lower-case letter has always been part of the key.
    addField("FrameRate", frameRate);
    addField("MasterTimelineClipID", masterTimelineClipId);
    addField("FirstFrameOffset", firstFrameOffset);
    addField("FilmType", filmType.name);
    addField("FilmBackWidth", filmType.filmBackWidth);
    addField("FilmBackHeight", filmType.filmBackHeight);
    addField("FilmWidth1", asUnsigned(filmType.widths[0]));
    addField("FilmWidth2", asUnsigned(filmType.widths[1]));
    addField("FilmWidth3", asUnsigned(filmType.widths[2]));
    addField("FilmHeight1", asUnsigned(filmType.heights[0]));
    addField("FilmHeight2", asUnsigned(filmType.heights[1]));
    addField("FilmHeight3", asUnsigned(filmType.heights[2]));
    addField("变形", filmType.anamorphic); // The word stands in every project exactly so.
    addField("AspectRatio", aspectRatio);
    addField("PixelAspectRatio", pixelAspectRatio);
    addField("ProxyScale", proxyScale);
    addField("DisplayRed", displayColour_.red);
    addField("DisplayGreen", displayColour_.green);
    addField("DisplayBlue", displayColour_.blue);
    addField("ViewOriginX", viewOriginX);
    addField("ViewOriginY", viewOriginY);
    addField("ViewZoom", viewZoom);
}

bool VX_BaseClipInfo::bIsInterlaced() const {
    return VX::bIsInterlaced(interlaceMode);
}

bool VX_BaseClipInfo::bIs32Pulldown() const {
    return VX::bIs32Pulldown(interlaceMode);
}

bool VX_BaseClipInfo::bIsUpperFieldFirst() const {
    return VX::bIsUpperFieldFirst(interlaceMode);
}

bool VX_BaseClipInfo::bIsLowerFieldFirst() const {
    return VX::bIsLowerFieldFirst(interlaceMode);
}

bool VX_BaseClipInfo::bHasFields() const {
    return VX::bHasFields(interlaceMode);
}

VX::ImageFormat VX_BaseClipInfo::format() const {
    return VX::ImageFormat(QSize(pixels(frameWidth), pixels(frameHeight)), filmType, interlaceMode);
}

void VX_BaseClipInfo::setFilmType(VX::FilmType const & film) {
    filmType = film;
    pixelAspectRatio = filmType.pixelAspectRatio(QSize(pixels(frameWidth), pixels(frameHeight)), bIsInterlaced());
    aspectRatio = filmType.getFilmBackAspectRatio();
}

unsigned int VX_BaseClipInfo::uiGetNumberOfPulldownFiles(unsigned int uiFrames) const {
    return VX::pulldownFileFromFrame(uiFrames, interlaceMode);
}
