#include "project/LayerWarp.h"

#include "clip/BaseClipInfo.h"
#include "geometry/marlin/Homography.h"
#include "project/Clip.h"
#include "project/Layer.h"
#include "project/Lens.h"
#include "project/Project.h"
#include "project/TrackComparison.h"

#include <cmath>

namespace vxproject {

namespace {

/// Project coordinates of the point that a ray meets: u = (fx X/Z + x0 - w/2) / w, v = (fy Y/Z + y0 - h/2) / w.
Gan_Matrix33 projectFromRay(Gan_Camera const & camera, FrameSize const & size) {
    double const w = size.width;
    double const h = size.height;
    Gan_Matrix33 matrix = {};
    matrix.xx = camera.fx / w;
    matrix.xz = (camera.x0 - w / 2) / w;
    matrix.yy = camera.fy / w;
    matrix.yz = (camera.y0 - h / 2) / w;
    matrix.zz = 1.0;
    return matrix;
}

/// S^-1 H S
Gan_Matrix33 onRays(Gan_Matrix33 const & track, Gan_Camera const & camera, FrameSize const & size) {
    Gan_Matrix33 const toProject = projectFromRay(camera, size);
    Gan_Matrix33 fromProject = {};
    gan_mat33_invert(&toProject, &fromProject, nullptr);
    return fromProject * track * toProject;
}

/// A mapping that fails leaves its point as it was. So the point goes in at twice its scale, at which none comes out.
Gan_Vector3 markedPoint(Gan_Vector2 const & pixel, double zh) {
    return {2.0 * pixel.x, 2.0 * pixel.y, 2.0 * zh};
}

std::optional<Gan_Vector2> unlessMarked(Gan_Vector3 const & point, double zh) {
    if (point.z != zh || !std::isfinite(point.x) || !std::isfinite(point.y))
        return std::nullopt;
    return Gan_Vector2{point.x, point.y};
}

/// From one camera's picture to another's.
std::optional<Gan_Vector2> through(Gan_Camera const & from, Gan_Camera const & to, Gan_Vector2 const & pixel) {
    Gan_Vector3 point{pixel.x, pixel.y, from.zh};
    if (!from.backproject(&from, &point, &point, nullptr, nullptr) ||
        !to.project(&to, &point, &point, nullptr, nullptr))
        return std::nullopt;
    return Gan_Vector2{point.x, point.y};
}

Gan_Camera withoutDistortion(Gan_Camera camera) {
    camera.type = GAN_CAMERA_LINEAR;
    gan_camera_internalize(&camera);
    return camera;
}

} // namespace

Gan_Camera undistortedCamera(FrameSize const & size) {
    Gan_Camera camera = {};
    camera.type = GAN_CAMERA_LINEAR;
    camera.fx = camera.fy = size.width;
    camera.x0 = size.width * 0.5;
    camera.y0 = size.height * 0.5;
    camera.zh = size.width * 0.5;
    gan_camera_internalize(&camera);
    return camera;
}

Gan_Camera cameraAt(Lens const & lens, Kyn::Context const & context, VX_BaseClipInfo const & picture) {
    return lens.camera.getCamera(context, picture);
}

bool isUsable(Gan_Camera const & camera) {
    return std::isfinite(camera.fx) && std::isfinite(camera.fy) && camera.fx != 0.0 && camera.fy != 0.0;
}

std::optional<Gan_Vector2> distorted(Gan_Camera const & camera, Gan_Vector2 const & pixel) {
    return through(withoutDistortion(camera), camera, pixel);
}

std::optional<Gan_Vector2> undistorted(Gan_Camera const & camera, Gan_Vector2 const & pixel) {
    return through(camera, withoutDistortion(camera), pixel);
}

LayerWarp::LayerWarp(Gan_Matrix33 const & track, Gan_Camera const & camera, FrameSize const & size, unsigned int clip) {
    warp_.vSetAttributes(clip, 0, static_cast<unsigned int>(size.width), static_cast<unsigned int>(size.height), true,
                         camera, nullptr, onRays(track, camera, size), true, camera, nullptr);
}

std::optional<LayerWarp> LayerWarp::at(Project const & project, Layer const & layer, Kyn::Context const & context,
                                       std::optional<FrameSize> const & size) {
    unsigned int const id = layer.tracking.inputClipId.staticValue(Kyn::View());
    Lens const * const lens = project.lensOfClip(id);
    VX_BaseClipInfo const * const picture = project.clips().pcGetBaseClipInfo(id);
    bool const hasLens = lens && picture;
    std::optional<FrameSize> const frame = size && !hasLens ? size : project.frameSizeOf(layer);
    std::optional<Gan_Matrix33> const track = homographyAt(layer.tracking.track, context, std::nullopt);
    if (!frame || !track)
        return std::nullopt;
    Gan_Camera const camera = hasLens ? cameraAt(*lens, context, *picture) : undistortedCamera(*frame);
    if (!isUsable(camera))
        return std::nullopt;
    return LayerWarp(*track, camera, *frame, id);
}

std::optional<Gan_Vector2> LayerWarp::warp(Gan_Vector2 const & pixel) const {
    Gan_Vector3 point = markedPoint(pixel, warp_.cgcGetBackprojectionCamera().zh);
    warp_.vWarpPoint(point);
    return unlessMarked(point, warp_.cgcGetProjectionCamera().zh);
}

std::optional<Gan_Vector2> LayerWarp::unwarp(Gan_Vector2 const & pixel) const {
    Gan_Vector3 point = markedPoint(pixel, warp_.cgcGetProjectionCamera().zh);
    warp_.vUnwarpPoint(point);
    return unlessMarked(point, warp_.cgcGetBackprojectionCamera().zh);
}

} // namespace vxproject
