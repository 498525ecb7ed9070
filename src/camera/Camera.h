#pragma once

#include "geometry/gandalf/Camera.h"
#include "parameter/kyn/Frame.h"

#include <boost/shared_ptr.hpp>

#include <QSize>

class VX_BaseClipInfo;

namespace VX {

/// What a lens amounts to at one moment, in terms relative to the picture and so independent of its resolution.
///
/// toGanCamera() makes of it a camera for frames of a real size, which carries points; update() takes a camera that was
/// solved for such frames back into relative terms. A plain value; copies share the maps.
class Camera {
public:
    /// The camera for stored frames of `size` pixels, ready to use. With w and h the size: fx is w times the focal
    /// distance over the film back's width, fy that times the pixel aspect, the axis lies at the centre's part of w and
    /// h, and zh is w / 2. A field has half of fy, and a second field lies half a line lower.
    ///
    /// An inactive distortion gives the linear model without terms. The map model points to this value's maps, which
    /// must outlive the camera. A film back of 0, or a frame of 0 by 0, gives a camera that refuses every point.
    Gan_Camera toGanCamera(QSize const & size, double dFilmBackWidth, double dPixelAspect, bool bField,
                           bool bSecondField) const;
    /// The same for a frame of a clip, by its size, film back and interlace mode. Modes 1 and 2 are the two orders of
    /// fields: the second field is the odd frame in mode 1, the even frame in mode 2. All other modes have no fields
    /// here. The pixel aspect comes from the film back, not from the clip's own record of it.
    Gan_Camera toGanCamera(Kyn::Frame const & frame, VX_BaseClipInfo const & clip) const;

    /// Takes centre, focal distance and, where the distortion is active, the terms of this value's own model from a
    /// camera for that frame of the clip. Model, maps and whether the distortion is active stay as they are, whatever
    /// the camera says. Neither pointer may be null. A clip without a width gives terms that are not finite.
    void update(Gan_Camera * camera, unsigned int uiFrame, VX_BaseClipInfo const * clip);

    Gan_CameraType eType = GAN_CAMERA_LINEAR;
    float fFocalDistance = 0.0f; ///< In the unit of the film back, which is millimetres for the known ones.
    float fImageCentreX = 0.0f;  ///< Part of the frame's width.
    float fImageCentreY = 0.0f;  ///< Part of the frame's height.
    bool bDistortionActive = false;
    float fRadialK1 = 0.0f;
    float fRadialK2 = 0.0f;
    float fCXX = 0.0f;
    float fCXY = 0.0f;
    float fCYX = 0.0f;
    float fCYY = 0.0f;
    boost::shared_ptr<Gan_Image> pDirectMap; ///< Null for none, as the other.
    boost::shared_ptr<Gan_Image> pInverseMap;
};

} // namespace VX
