#include "camera/FrameWarp.h"

#include "camera/WarpPoints.h"
#include "foundation/Saturation.h"
#include "geometry/gandalf/Array.h"

#include <utility>

namespace VX {

namespace {

typedef std::unique_ptr<Gan_CubicBSplineWeights> Weights;

bool bReadsWeights(Gan_Camera const & camera) {
    return camera.type == GAN_CAMERA_BSPLINE || camera.type == GAN_CAMERA_BSPLINE_INVERSE;
}

void copyWeights(Gan_CubicBSplineWeights const & from, Gan_CubicBSplineWeights & to) {
    gan_copy_array_d(from.element, 1, 2 * std::size_t(gan_sqr_ui(GAN_BSPLINE_GRID_SIZE)), to.element, 1);
}

void pointTo(Gan_CubicBSplineWeights * weights, Gan_Camera & camera) {
    camera.weight = weights;
    camera.weightOwner = nullptr;
}

/// A camera as it was given, and the weights that it read then.
struct GivenCamera {
    explicit GivenCamera(Gan_Camera const & given) : camera(given), bHasWeights(bReadsWeights(given) && given.weight) {
        if (bHasWeights)
            copyWeights(*given.weight, weights);
    }

    Gan_Camera camera;
    bool bHasWeights;
    Gan_CubicBSplineWeights weights; ///< Set only where there are any: most cameras have none.
};

/// One stage anew. What it has held so far goes, unless it serves again.
void setStage(Gan_Camera & camera, Weights & held, GivenCamera const & given, Weights weights) {
    bool const bSpline = bReadsWeights(given.camera);
    bool const bGivenWeights = weights != nullptr;
    if (bGivenWeights || !bSpline)
        held = std::move(weights);
    camera = given.camera;
    if (!bSpline) {
        if (camera.weight != held.get())
            pointTo(nullptr, camera); // Not its own, and of no use to it.
        return;
    }
    if (!held)
        held = std::make_unique<Gan_CubicBSplineWeights>();
    if (given.bHasWeights)
        copyWeights(given.weights, *held);
    else if (!bGivenWeights)
        *held = {};
    pointTo(held.get(), camera);
}

/// A copied stage reads weights of its own, also where the source read somebody else's.
void copyStage(Gan_Camera & camera, Weights & held, Gan_Camera const & source, Weights const & sourceHeld) {
    camera = source;
    if (sourceHeld)
        held = std::make_unique<Gan_CubicBSplineWeights>(*sourceHeld);
    if (!source.weight)
        return;
    if (source.weight != sourceHeld.get()) {
        if (!bReadsWeights(source)) {
            pointTo(nullptr, camera);
            return;
        }
        if (!held)
            held = std::make_unique<Gan_CubicBSplineWeights>();
        copyWeights(*source.weight, *held);
    }
    pointTo(held.get(), camera);
}

} // namespace

FrameWarp::FrameWarp(FrameWarp const & other)
    : eReferenceClipID(other.eReferenceClipID),
      uiReferenceFrameWidth(other.uiReferenceFrameWidth),
      uiReferenceFrameHeight(other.uiReferenceFrameHeight),
      iSelectionID(other.iSelectionID),
      bUsingBackprojectionCamera(other.bUsingBackprojectionCamera),
      gmat33Homography(other.gmat33Homography),
      gmat33InverseHomography(other.gmat33InverseHomography),
      bUsingProjectionCamera(other.bUsingProjectionCamera),
      gmat33OriginalHomography(other.gmat33OriginalHomography) {
    copyStage(gcProjectionCamera, pstctProjectionWeight, other.gcProjectionCamera, other.pstctProjectionWeight);
    copyStage(gcBackprojectionCamera, pstctBackprojectionWeight, other.gcBackprojectionCamera,
              other.pstctBackprojectionWeight);
}

FrameWarp & FrameWarp::operator=(FrameWarp const & other) {
    if (this == &other)
        return *this;
    FrameWarp copy(other); // First: the other one's cameras may have been made to read weights of this object.
    eReferenceClipID = copy.eReferenceClipID;
    uiReferenceFrameWidth = copy.uiReferenceFrameWidth;
    uiReferenceFrameHeight = copy.uiReferenceFrameHeight;
    iSelectionID = copy.iSelectionID;
    bUsingBackprojectionCamera = copy.bUsingBackprojectionCamera;
    gcBackprojectionCamera = copy.gcBackprojectionCamera;
    gmat33Homography = copy.gmat33Homography;
    gmat33InverseHomography = copy.gmat33InverseHomography;
    bUsingProjectionCamera = copy.bUsingProjectionCamera;
    gcProjectionCamera = copy.gcProjectionCamera;
    gmat33OriginalHomography = copy.gmat33OriginalHomography;
    pstctProjectionWeight = std::move(copy.pstctProjectionWeight);
    pstctBackprojectionWeight = std::move(copy.pstctBackprojectionWeight);
    return *this;
}

void FrameWarp::vSetAttributes(unsigned int uiClipID, int iSelection, unsigned int uiWidth, unsigned int uiHeight, bool,
                               Gan_Camera const & gcBackprojection, Gan_CubicBSplineWeights * pBackprojectionWeight,
                               Gan_Matrix33 const & gmat33, bool, Gan_Camera const & gcProjection,
                               Gan_CubicBSplineWeights * pProjectionWeight) {
    GivenCamera const backprojection(gcBackprojection);
    GivenCamera const projection(gcProjection);
    Gan_Matrix33 const homography = gmat33;
    // What is held already and given again changes hands and is not freed.
    for (Weights * held : {&pstctBackprojectionWeight, &pstctProjectionWeight})
        if (*held && (held->get() == pBackprojectionWeight || held->get() == pProjectionWeight))
            held->release();
    Weights forBackprojection(pBackprojectionWeight);
    Weights forProjection;
    if (pProjectionWeight && pProjectionWeight == pBackprojectionWeight)
        forProjection = std::make_unique<Gan_CubicBSplineWeights>(*pBackprojectionWeight);
    else
        forProjection.reset(pProjectionWeight);

    eReferenceClipID = uiClipID;
    iSelectionID = iSelection;
    uiReferenceFrameWidth = uiWidth;
    uiReferenceFrameHeight = uiHeight;
    gmat33Homography = homography;
    gmat33OriginalHomography = homography;
    if (!gan_mat33_invert(&gmat33Homography, &gmat33InverseHomography, nullptr))
        gmat33Homography = gmat33InverseHomography = gan_mat33_ident_s();
    setStage(gcBackprojectionCamera, pstctBackprojectionWeight, backprojection, std::move(forBackprojection));
    setStage(gcProjectionCamera, pstctProjectionWeight, projection, std::move(forProjection));
    // Callers that pass false rely on being overruled: a linear lens stands for no lens.
    bUsingBackprojectionCamera = true;
    bUsingProjectionCamera = true;
}

detail::WarpChain FrameWarp::warpChain() const {
    return {{bUsingBackprojectionCamera, gcBackprojectionCamera},
            gmat33Homography,
            {bUsingProjectionCamera, gcProjectionCamera}};
}

detail::WarpChain FrameWarp::unwarpChain() const {
    return {{bUsingProjectionCamera, gcProjectionCamera},
            gmat33InverseHomography,
            {bUsingBackprojectionCamera, gcBackprojectionCamera}};
}

void FrameWarp::vWarpPoint(Gan_Vector3 & point) const {
    carry(warpChain(), point);
}

void FrameWarp::vWarpPoint(double & x, double & y) const {
    carry(warpChain(), x, y);
}

void FrameWarp::vWarpPoints(double * x, double * y, std::size_t count) const {
    carry(warpChain(), x, y, count);
}

void FrameWarp::vWarpPoint(Gan_Vector2 & point) const {
    vWarpPoint(point.x, point.y);
}

void FrameWarp::vWarpPoint(float & x, float & y) const {
    double wideX = static_cast<double>(x);
    double wideY = static_cast<double>(y);
    vWarpPoint(wideX, wideY);
    x = static_cast<float>(wideX);
    y = static_cast<float>(wideY);
}

void FrameWarp::vWarpPoint(float * xy) const {
    vWarpPoint(xy[0], xy[1]);
}

QPointF FrameWarp::getPointWarped(QPointF const & point) const {
    float x = static_cast<float>(point.x());
    float y = static_cast<float>(point.y());
    vWarpPoint(x, y);
    return QPointF(detail::saturated<int>(static_cast<double>(x)), detail::saturated<int>(static_cast<double>(y)));
}

void FrameWarp::vUnwarpPoint(Gan_Vector3 & point) const {
    carry(unwarpChain(), point);
}

void FrameWarp::vUnwarpPoint(double & x, double & y) const {
    carry(unwarpChain(), x, y);
}

void FrameWarp::vUnwarpPoints(double * x, double * y, std::size_t count) const {
    carry(unwarpChain(), x, y, count);
}

void FrameWarp::vUnwarpPoint(float & x, float & y) const {
    double wideX = static_cast<double>(x);
    double wideY = static_cast<double>(y);
    vUnwarpPoint(wideX, wideY);
    x = static_cast<float>(wideX);
    y = static_cast<float>(wideY);
}

} // namespace VX
