#pragma once

#include "foundation/Enumerations.h"
#include "geometry/gandalf/Camera.h"
#include "geometry/gandalf/Matrix33.h"
#include "geometry/gandalf/Vector2.h"

#include <QPointF>

#include <cstddef>
#include <memory>

namespace VX {

namespace detail {
struct WarpChain;
}

/// How the frame of a reference clip maps onto another picture: out of the reference's lens (the back-projection
/// camera), by a homography of rays, and through the target's lens (the projection camera).
///
/// A plain value. Copies own copies of spline weights and share distortion maps, which must outlive them all. Points
/// are in pixels, y down, with a camera's zh as their third coordinate; warping one allocates nothing.
///
/// A point that cannot be carried comes back as it went in, without a word: where a lens refuses it or was never set up
/// by gan_camera_internalize, and where a stage that is off meets a third coordinate of exactly 0.
class FrameWarp {
public:
    /// A number that old scripts carry with a warp; it has no named values.
    typedef FrameWarpType _Type;

    /// All zero: both stages off, zero matrices. It carries no point until vSetAttributes() has run.
    FrameWarp() = default;
    FrameWarp(FrameWarp const & other);
    /// Frees this object's weights: pointers to them are no good any longer.
    FrameWarp & operator=(FrameWarp const & other);
    ~FrameWarp() = default;

    /// Sets everything. Arguments may be parts of this object.
    ///
    /// Both stages are on afterwards, whatever the two flags say; vSetUsingBackprojectionCamera() can switch the first
    /// one off.
    ///
    /// A homography that cannot be inverted counts as the identity, both ways; pcgmat33GetOriginalHomography() has it
    /// still.
    ///
    /// The weights are taken over: they come from `new`, or are null, or belong to this object already, in which case
    /// they stay. Where both are the same, the projection camera gets a copy. A spline camera reads weights of this
    /// object, filled from the given camera's; made if there are none, zero if the given camera has none either. So the
    /// given cameras may go afterwards, but for their distortion maps.
    void vSetAttributes(unsigned int uiClipID, int iSelection, unsigned int uiWidth, unsigned int uiHeight,
                        bool bBackprojection, Gan_Camera const & gcBackprojection,
                        Gan_CubicBSplineWeights * pBackprojectionWeight, Gan_Matrix33 const & gmat33, bool bProjection,
                        Gan_Camera const & gcProjection, Gan_CubicBSplineWeights * pProjectionWeight);

    unsigned int eGetReferenceClipID() const { return eReferenceClipID; }
    /// The size of the reference frame, pixels.
    unsigned int uiGetReferenceFrameWidth() const { return uiReferenceFrameWidth; }
    unsigned int uiGetReferenceFrameHeight() const { return uiReferenceFrameHeight; }
    /// The layer or selection that the warp belongs to.
    int iGetSelectionID() const { return iSelectionID; }

    Gan_Matrix33 const * pcgmat33GetHomography() const { return &gmat33Homography; }
    /// As of the last vSetAttributes(): a homography that came in by another way has left it behind.
    Gan_Matrix33 const * pcgmat33GetInverseHomography() const { return &gmat33InverseHomography; }
    /// As it was given, even if it cannot be inverted.
    Gan_Matrix33 const * pcgmat33GetOriginalHomography() const { return &gmat33OriginalHomography; }

    /// The cameras. Whoever writes one answers for the weights that it points to; a copy of the warp then takes its own
    /// of them.
    Gan_Camera const & cgcGetProjectionCamera() const { return gcProjectionCamera; }
    Gan_Camera * pgcGetProjectionCamera() { return &gcProjectionCamera; }
    Gan_Camera const & cgcGetBackprojectionCamera() const { return gcBackprojectionCamera; }
    Gan_Camera & backProjectionCamera() { return gcBackprojectionCamera; }

    /// Weights that this object owns; null for none.
    Gan_CubicBSplineWeights * pstctGetProjectionWeight() const { return pstctProjectionWeight.get(); }
    Gan_CubicBSplineWeights * pstctGetBackprojectionWeight() const { return pstctBackprojectionWeight.get(); }

    bool bGetUsingProjectionCamera() const { return bUsingProjectionCamera; }
    bool bGetUsingBackprojectionCamera() const { return bUsingBackprojectionCamera; }
    void vSetUsingBackprojectionCamera(bool bUsing) { bUsingBackprojectionCamera = bUsing; }

    /// @name From the reference frame to the target, in place
    /// A stage that is off passes the point on as a ray, or takes the ray for the point, brought to its camera's zh.
    /// @{
    /// The third coordinate is the caller's own; the lens brings any other than its zh to that. It comes out as the
    /// projection camera's zh.
    void vWarpPoint(Gan_Vector3 & point) const;
    void vWarpPoint(Gan_Vector2 & point) const;
    /// Single precision outside, double inside.
    void vWarpPoint(float & x, float & y) const;
    void vWarpPoint(double & x, double & y) const;
    /// Two floats, x then y.
    void vWarpPoint(float * xy) const;
    /// On whole pixels: the point goes in rounded to single precision, and what comes out is cut towards zero, so that
    /// 10.9 becomes 10 and -3.9 becomes -3. A point that is not carried is cut the same way. Beyond the range of an int
    /// it is the end of that range, and 0 for what is not a number.
    QPointF getPointWarped(QPointF const & point) const;
    QPointF operator()(QPointF const & point) const { return getPointWarped(point); }
    /// @}

    /// @name From the target back to the reference frame, in place
    /// By the inverse homography as it stands, see pcgmat33GetInverseHomography().
    /// @{
    void vUnwarpPoint(Gan_Vector3 & point) const;
    void vUnwarpPoint(float & x, float & y) const;
    void vUnwarpPoint(double & x, double & y) const;
    /// @}

    /// @name Arrays of points, in place
    /// Carries (x[i], y[i]) for each i below the count as vWarpPoint(double &, double &) and vUnwarpPoint() do, to the
    /// same result: within 1e-9 of a pixel, or 1e-13 of a coordinate above 10,000, and with the same points left as
    /// they went in. Takes a fraction of the time where both lenses are linear or radial, or off; for other lenses it
    /// is a loop over the points. The two arrays must not overlap; with a count of 0 they may be null.
    /// @{
    void vWarpPoints(double * x, double * y, std::size_t count) const;
    void vUnwarpPoints(double * x, double * y, std::size_t count) const;
    /// @}

private:
    /// Writes the fields, and nothing else, from its parameters.
    friend class ParameterisedFrameWarp;

    detail::WarpChain warpChain() const;
    detail::WarpChain unwarpChain() const;

    unsigned int eReferenceClipID = 0;
    unsigned int uiReferenceFrameWidth = 0;
    unsigned int uiReferenceFrameHeight = 0;
    int iSelectionID = 0;
    bool bUsingBackprojectionCamera = false;
    Gan_Camera gcBackprojectionCamera = {};
    Gan_Matrix33 gmat33Homography = {};
    Gan_Matrix33 gmat33InverseHomography = {};
    bool bUsingProjectionCamera = false;
    Gan_Camera gcProjectionCamera = {};
    Gan_Matrix33 gmat33OriginalHomography = {};
    std::unique_ptr<Gan_CubicBSplineWeights> pstctProjectionWeight;
    std::unique_ptr<Gan_CubicBSplineWeights> pstctBackprojectionWeight;
};

} // namespace VX
