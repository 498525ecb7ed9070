#pragma once

#include "camera/Camera.h"
#include "camera/LineParameters.h"
#include "clip/BaseClipInfo.h"
#include "clip/ClipBoundParameterSet.h"
#include "clip/ParameterTable.h"
#include "parameter/kyn/Context.h"
#include "parameter/tov/Hash.h"

#include <boost/function.hpp>

#include <QMap>

/// A lens: its model and terms as keyed values, the clips that it is calibrated with, and the lines drawn for that.
///
/// getCameraDefinition() gives the lens at a moment, getCamera() the camera for a clip's frames, through a cache. The
/// set calibrates nothing: "Algorithm", "VariableImageCentre", "EquidistantLines" and "LineLengthThreshold" are for the
/// application's solver. No parameter differs from view to view.
///
/// This header is the set's table, in order of registration, which is the order of the script.
class VX_CameraParameterSet : public VX::ClipBoundParameterSet, protected VX::ParameterTable {
public:
    VX_CameraParameterSet();
    /// Takes over all values, keys and lines; names and limits of the parameters as well. The set's own names are those
    /// of a new one, "FocalDistance" is hidden, the image loader and both caches are empty.
    VX_CameraParameterSet(VX_CameraParameterSet const & other);
    /// Takes over less than the copy constructor: the eight "SceneToCamera" values and "LineLengthThreshold" of this
    /// set stay as they were, as do the image loader and both caches. The set's own names are taken over. Nothing on
    /// self-assignment.
    VX_CameraParameterSet & operator=(VX_CameraParameterSet const & other);

    /// The lens at a context. The map model has its centre at 0.5, 0.5, whatever "ImageCentreX" and "ImageCentreY" say,
    /// and loads both maps where there is an image loader.
    VX::Camera getCameraDefinition(Kyn::Context::Explicit const & context) const;

    /// The camera of the lens for a clip's frame at the context's time. It asks every value on every call, and makes
    /// the lens anew only where something has changed since the last call at that time.
    ///
    /// A lens does not vary while each of "FocalDistance", "ImageCentreX", "ImageCentreY", "DistortionActive",
    /// "RadialK1", "RadialK2", "CXX", "CXY", "CYX" and "CYY" has fewer than two keys of its own in the context's view.
    /// It is then asked at time 0 for every time; on a clip of interlace mode 1 or 2 at 0 or 1, the frame's parity.
    /// That holds for the image loader's context too, and for values that follow a master: the master's keys do not
    /// count.
    ///
    /// The camera points to the maps that the cache holds. They live until the lens is asked at that time again and has
    /// changed, or the set goes. Where a time counts that is negative or not a number, the caches are left alone, the
    /// frame is 0, and the maps live until the next such call.
    ///
    /// Writes the caches though it is const, without a lock: one set must not be asked by two threads at once.
    /// Allocates nothing itself after the first call at a time.
    Gan_Camera getCamera(Kyn::Context::Explicit context, VX_BaseClipInfo const & clip) const;

    /// The user's lines on a frame. Without any, null; or, with `bCreate`, a fresh record. It belongs to the set and
    /// stays where it is until the set is assigned to or goes.
    VX_LineParameters * getLineParameters(unsigned int uiFrame, bool bCreate);

    /// The input and the calibration clip follow to the new clip. The four clips that the application generates from
    /// the lens are only ever forgotten.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

    // clang-format off
    ClipReference inputClipId            {row("InputClipID"), STATIC, 0, HELD, HOLD};
    ClipReference calibrationClipId      {row("CalibrationClipID"), STATIC, 0, HELD, HOLD};
    ClipReference undistortedClipId      {row("UndistortedClipID"), STATIC, 0, HELD, HOLD}; ///< Generated, as the next three.
    ClipReference distortedClipId        {row("DistortedClipID"), STATIC, 0, HELD, HOLD};
    ClipReference directSTMapClipId      {row("directSTMapClipID"), STATIC, 0, HELD, HOLD};
    ClipReference inverseSTMapClipId     {row("inverseSTMapClipID"), STATIC, 0, HELD, HOLD};
    Kyn::Parameter<Gan_CameraType> type  {row("Type"), STATIC, GAN_CAMERA_LINEAR, HELD, HOLD};
    Amount focalDistance                 {row("FocalDistance").hidden(), KEYED, 25.0f, 0.001f, 10000000.0f, LINEAR, GO_ON};
    Amount imageCentreX                  {row("ImageCentreX"), KEYED, 0.5f, -10.0f, 10.0f, LINEAR, GO_ON};
    Amount imageCentreY                  {row("ImageCentreY"), KEYED, 0.5f, -10.0f, 10.0f, LINEAR, GO_ON};
    Flag applyDistortion                 {row("ApplyDistortion"), STATIC, false, HELD, HOLD};
    Flag distortionActive                {row("DistortionActive"), STATIC, true, HELD, HOLD};
    Amount radialK1                      {row("RadialK1"), KEYED, 0.0f, -100.0f, 100.0f, LINEAR, GO_ON};
    Amount radialK2                      {row("RadialK2"), KEYED, 0.0f, -100.0f, 100.0f, LINEAR, GO_ON};
    Amount cxx                           {row("CXX"), KEYED, 0.0f, -100.0f, 100.0f, LINEAR, GO_ON};
    Amount cxy                           {row("CXY"), KEYED, 0.0f, -100.0f, 100.0f, LINEAR, GO_ON};
    Amount cyx                           {row("CYX"), KEYED, 0.0f, -100.0f, 100.0f, LINEAR, GO_ON};
    Amount cyy                           {row("CYY"), KEYED, 0.0f, -100.0f, 100.0f, LINEAR, GO_ON};
    // Held between keys, unlike the values of a VX::HomographyParams.
    Constant   sceneToCameraTranslationX {row("SceneToCamera Translation X"), KEYED, 0.0, HELD, HOLD};
    Constant   sceneToCameraTranslationY {row("SceneToCamera Translation Y"), KEYED, 0.0, HELD, HOLD};
    Constant   sceneToCameraRotation     {row("SceneToCamera Rotation"), KEYED, 0.0, HELD, HOLD};
    Constant   sceneToCameraScale        {row("SceneToCamera Scale"), KEYED, 1.0, HELD, HOLD};
    Constant   sceneToCameraShearX       {row("SceneToCamera Shear X"), KEYED, 0.0, HELD, HOLD};
    Constant   sceneToCameraShearY       {row("SceneToCamera Shear Y"), KEYED, 1.0, HELD, HOLD};
    Constant   sceneToCameraPerspectiveX {row("SceneToCamera Perspective X"), KEYED, 0.0, HELD, HOLD};
    Constant   sceneToCameraPerspectiveY {row("SceneToCamera Perspective Y"), KEYED, 0.0, HELD, HOLD};
    Kyn::Parameter<_DISTORTION_ALGORITHM> algorithm{row("Algorithm"), STATIC, _DISTORTION_ALGORITHM(), HELD, HOLD}; ///< 0 to 2.
    Flag variableImageCentre             {row("VariableImageCentre"), STATIC, false, HELD, HOLD};
    Flag equidistantLines                {row("EquidistantLines"), STATIC, false, HELD, HOLD};
    Kyn::Parameter<unsigned int> lineLengthThreshold{row("LineLengthThreshold"), STATIC, 20, HELD, HOLD};
    // clang-format on

    QMap<unsigned int, VX_LineParameters> lineParameters; ///< By frame. Not part of the script.

    /// Gives the image of a distortion map's clip, or null; set by the application. The two integers are always 0
    /// and 3.
    boost::function<boost::shared_ptr<Gan_Image>(unsigned int, Kyn::Context::Explicit, int, int)> imageLoader;

    /// @name The cache, by time: what the lens was made of, and the lens. Nothing takes entries out.
    /// @{
    mutable QMap<double, Tov::Hash> hashCache;
    mutable QMap<double, VX::Camera> definitionCache;
    /// @}

private:
    bool bVaries(Kyn::View const & view) const;
    bool bIsKeptOnAssignment(Kyn::ParameterWithoutType const & parameter) const;
    boost::shared_ptr<Gan_Image> loadMap(ClipReference const & clip, Kyn::Context::Explicit const & context) const;
    void takeFingerprint(Kyn::Context::Explicit const & context, VX_BaseClipInfo const & clip) const;
    VX::Camera const & definition(Kyn::Context::Explicit const & context, VX_BaseClipInfo const & clip) const;

    mutable Tov::Hash fingerprint_;  ///< Kept so that asking allocates nothing.
    mutable VX::Camera beyondCache_; ///< The lens at a time that the cache cannot hold.
};
