#include "camera/CameraParameterSet.h"

#include "foundation/Strings.h"
#include "parameter/kyn/ParameterPairs.h"

#include <algorithm>

namespace {

template <class T>
void add(Tov::Hash & hash, T const & value) {
    hash.update(&value, sizeof value);
}

} // namespace

VX_CameraParameterSet::VX_CameraParameterSet()
    : VX::ClipBoundParameterSet(QString::fromUtf8(VX::Strings::ModuleName::CAMERA), nullptr) {}

VX_CameraParameterSet::VX_CameraParameterSet(VX_CameraParameterSet const & other)
    : VX::ClipBoundParameterSet(QString::fromUtf8(VX::Strings::ModuleName::CAMERA), nullptr),
      lineParameters(other.lineParameters) {
    copySettings(other);
    // Records are handed out as pointers: shared until somebody writes, they would change hands.
    lineParameters.detach();
}

VX_CameraParameterSet & VX_CameraParameterSet::operator=(VX_CameraParameterSet const & other) {
    if (this == &other)
        return *this;
    VX::ClipBoundParameterSet::operator=(other);
    Kyn::forEachPair(*this, other, [this](Kyn::ParameterWithoutType & own, Kyn::ParameterWithoutType const & source) {
        if (!bIsKeptOnAssignment(own))
            own.assignFrom(source);
    });
    lineParameters = other.lineParameters;
    lineParameters.detach();
    setDisplayName(other.displayName(), other.shortDisplayName());
    setScriptName(other.scriptName());
    return *this;
}

/// How this lens stands to its scene, and how short a line it leaves out, stay when another lens is put into it.
bool VX_CameraParameterSet::bIsKeptOnAssignment(Kyn::ParameterWithoutType const & parameter) const {
    Kyn::ParameterWithoutType const * const kept[] = {
        &sceneToCameraTranslationX, &sceneToCameraTranslationY, &sceneToCameraRotation,
        &sceneToCameraScale,        &sceneToCameraShearX,       &sceneToCameraShearY,
        &sceneToCameraPerspectiveX, &sceneToCameraPerspectiveY, &lineLengthThreshold};
    return std::find(std::begin(kept), std::end(kept), &parameter) != std::end(kept);
}

boost::shared_ptr<Gan_Image> VX_CameraParameterSet::loadMap(ClipReference const & clip,
                                                            Kyn::Context::Explicit const & context) const {
    return imageLoader(clip.staticValue(Kyn::View(Kyn::View::defaultViewId())), context, 0, 3);
}

VX::Camera VX_CameraParameterSet::getCameraDefinition(Kyn::Context::Explicit const & context) const {
    VX::Camera lens;
    lens.eType = type.value(context);
    bool const bMapped = lens.eType == GAN_CAMERA_DISTORTION_MAP;
    lens.fFocalDistance = focalDistance.value(context);
    lens.fImageCentreX = bMapped ? 0.5f : imageCentreX.value(context);
    lens.fImageCentreY = bMapped ? 0.5f : imageCentreY.value(context);
    lens.bDistortionActive = distortionActive.value(context);
    lens.fRadialK1 = radialK1.value(context);
    lens.fRadialK2 = radialK2.value(context);
    lens.fCXX = cxx.value(context);
    lens.fCXY = cxy.value(context);
    lens.fCYX = cyx.value(context);
    lens.fCYY = cyy.value(context);
    if (bMapped && imageLoader) {
        lens.pDirectMap = loadMap(directSTMapClipId, context);
        lens.pInverseMap = loadMap(inverseSTMapClipId, context);
    }
    return lens;
}

bool VX_CameraParameterSet::bVaries(Kyn::View const & view) const {
    auto const hasCurve = [&view](auto const &... parameters) { return ((parameters.numKeyframes(view) >= 2) || ...); };
    return hasCurve(focalDistance, imageCentreX, imageCentreY, distortionActive, radialK1, radialK2, cxx, cxy, cyx,
                    cyy);
}

/// Everything that the camera is made of. Order and widths are fixed, so that digests may be compared wherever they
/// were made: 4 bytes for enumerations, integers and floats, 8 for doubles and pointers, 1 for the flag. The interlace
/// mode is in it twice.
void VX_CameraParameterSet::takeFingerprint(Kyn::Context::Explicit const & context,
                                            VX_BaseClipInfo const & clip) const {
    static Tov::Hash const empty;
    Tov::Hash & hash = fingerprint_;
    hash = empty;
    Gan_CameraType const eType = type.value(context);
    add(hash, eType);
    add(hash, clip.frameWidth);
    add(hash, clip.frameHeight);
    add(hash, clip.interlaceMode);
    add(hash, clip.filmType.filmBackWidth);
    add(hash, clip.filmType.filmBackHeight);
    add(hash, clip.interlaceMode);
    add(hash, clip.aspectRatio);
    add(hash, clip.pixelAspectRatio);
    for (Amount const * number : {&focalDistance, &imageCentreX, &imageCentreY})
        add(hash, number->value(context));
    add(hash, distortionActive.value(context));
    for (Amount const * number : {&radialK1, &radialK2, &cxx, &cxy, &cyx, &cyy})
        add(hash, number->value(context));
    if (eType == GAN_CAMERA_DISTORTION_MAP && imageLoader) {
        // By its pointer: an image that was loaded again is a lens that has changed.
        for (ClipReference const * map : {&directSTMapClipId, &inverseSTMapClipId})
            add(hash, loadMap(*map, context).get());
    }
}

VX::Camera const & VX_CameraParameterSet::definition(Kyn::Context::Explicit const & context,
                                                     VX_BaseClipInfo const & clip) const {
    double const time = context.time.toDouble();
    bool const bHasPlace = time >= 0.0; // Not so for what is not a number, which no order holds.
    if (!bHasPlace) {
        beyondCache_ = getCameraDefinition(context);
        return beyondCache_;
    }
    takeFingerprint(context, clip);
    auto const hash = hashCache.constFind(time);
    auto const lens = definitionCache.constFind(time);
    if (hash != hashCache.constEnd() && lens != definitionCache.constEnd() && *hash == fingerprint_)
        return *lens;
    VX::Camera const changed = getCameraDefinition(context);
    hashCache[time] = fingerprint_;
    return *definitionCache.insert(time, changed);
}

Gan_Camera VX_CameraParameterSet::getCamera(Kyn::Context::Explicit context, VX_BaseClipInfo const & clip) const {
    if (!bVaries(context.view)) {
        unsigned int const frame = Kyn::Context(context).toFrame().toUInt();
        context.time = Kyn::Time(clip.bIsInterlaced() && frame % 2 == 1 ? 1.0 : 0.0);
    }
    return definition(context, clip).toGanCamera(Kyn::Context(context).toFrame(), clip);
}

VX_LineParameters * VX_CameraParameterSet::getLineParameters(unsigned int uiFrame, bool bCreate) {
    auto const found = lineParameters.find(uiFrame);
    if (found != lineParameters.end())
        return &*found;
    return bCreate ? &*lineParameters.insert(uiFrame, VX_LineParameters()) : nullptr;
}

void VX_CameraParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {&inputClipId, &calibrationClipId},
                {&undistortedClipId, &distortedClipId, &directSTMapClipId, &inverseSTMapClipId});
}
