#include "camera/Camera.h"

#include "clip/BaseClipInfo.h"

namespace VX {

namespace {

/// The second of a frame's two fields; false where the mode has none.
bool bIsSecondField(VX_INTERLACE_MODE eMode, unsigned int uiFrame) {
    bool const bOdd = uiFrame % 2 == 1;
    return (eMode == VX_INTERLACE_MODE_UPPER_FIELD_FIRST && bOdd) ||
           (eMode == VX_INTERLACE_MODE_LOWER_FIELD_FIRST && !bOdd);
}

/// Calls with each pair of a relative term and the camera's term that a model has, in order.
template <class Relative, class Distortion, class Visit>
void forEachTerm(Relative & relative, Distortion & distortion, Visit visit) {
    switch (relative.eType) {
    case GAN_CAMERA_RADIAL_1:
    case GAN_CAMERA_RADIAL_1_INVERSE:
        visit(relative.fRadialK1, distortion[0]);
        break;
    case GAN_CAMERA_RADIAL_2:
        visit(relative.fRadialK1, distortion[0]);
        visit(relative.fRadialK2, distortion[1]);
        break;
    case GAN_CAMERA_ANAMORPHIC:
        visit(relative.fCXX, distortion[0]);
        visit(relative.fCXY, distortion[1]);
        visit(relative.fCYX, distortion[2]);
        visit(relative.fCYY, distortion[3]);
        break;
    case GAN_CAMERA_LINEAR:
    case GAN_CAMERA_RADIAL_3:
    case GAN_CAMERA_BSPLINE:
    case GAN_CAMERA_BSPLINE_INVERSE:
    case GAN_CAMERA_RADIAL_2_INVERSE:
    case GAN_CAMERA_DISTORTION_MAP:
        break;
    }
}

} // namespace

Gan_Camera Camera::toGanCamera(QSize const & size, double dFilmBackWidth, double dPixelAspect, bool bField,
                               bool bSecondField) const {
    double const width = size.width();
    double const height = size.height();
    Gan_Camera camera{};
    camera.type = bDistortionActive ? eType : GAN_CAMERA_LINEAR;
    camera.x0 = width * static_cast<double>(fImageCentreX);
    camera.y0 = height * static_cast<double>(fImageCentreY);
    camera.fx = width * static_cast<double>(fFocalDistance) / dFilmBackWidth;
    camera.fy = camera.fx * dPixelAspect;
    camera.zh = width * 0.5;
    if (bDistortionActive) {
        forEachTerm(*this, camera.distortion,
                    [](float relative, double & term) { term = static_cast<double>(relative); });
        if (eType == GAN_CAMERA_DISTORTION_MAP) {
            camera.directMap = pDirectMap.get();
            camera.inverseMap = pInverseMap.get();
        }
    }
    if (bField) {
        camera.fy *= 0.5;
        if (bSecondField)
            camera.y0 += 0.5;
    }
    gan_camera_internalize(&camera);
    return camera;
}

Gan_Camera Camera::toGanCamera(Kyn::Frame const & frame, VX_BaseClipInfo const & clip) const {
    ImageFormat const format = clip.format();
    return toGanCamera(format.size, format.filmType.filmBackWidth, format.par(), clip.bIsInterlaced(),
                       bIsSecondField(clip.interlaceMode, frame.toUInt()));
}

void Camera::update(Gan_Camera * camera, unsigned int uiFrame, VX_BaseClipInfo const * clip) {
    double const width = clip->frameWidth;
    double const y0 = bIsSecondField(clip->interlaceMode, uiFrame) ? camera->y0 - 0.5 : camera->y0;
    fImageCentreX = static_cast<float>(camera->x0 / width);
    fImageCentreY = static_cast<float>(y0 / clip->frameHeight);
    fFocalDistance = static_cast<float>(clip->filmType.filmBackWidth * camera->fx / width);
    if (bDistortionActive)
        forEachTerm(*this, camera->distortion,
                    [](float & relative, double term) { relative = static_cast<float>(term); });
}

} // namespace VX
