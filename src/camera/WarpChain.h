#pragma once

#include "geometry/gandalf/Camera.h"
#include "geometry/gandalf/Matrix33.h"

namespace VX::detail {

/// One end of a warp: a lens, or the passage between pixels and rays without one.
struct WarpStage {
    bool bOn;
    Gan_Camera const & camera; ///< Its zh counts even while the stage is off.
};

/// Out of one lens, by a matrix, into another.
struct WarpChain {
    WarpStage out;
    Gan_Matrix33 const & matrix;
    WarpStage in;
};

inline bool bCarried(Gan_CameraPointFunction * function, Gan_Camera const & camera, Gan_Vector3 & point) {
    return function && function(&camera, &point, &point, nullptr, nullptr) != 0;
}

/// Carries the point, or leaves it as it is where it cannot be carried. FrameWarp.h says when.
inline void carry(WarpChain const & chain, Gan_Vector3 & point) {
    WarpStage const & out = chain.out;
    WarpStage const & in = chain.in;
    Gan_Vector3 moved = point;
    if (out.bOn && !bCarried(out.camera.backproject, out.camera, moved))
        return;
    moved = gan_mat33_multv3_s(&chain.matrix, &moved);
    if (in.bOn) {
        if (!bCarried(in.camera.project, in.camera, moved))
            return;
    } else {
        if (moved.z == 0.0)
            return;
        double const scale = in.camera.zh / moved.z;
        moved = {moved.x * scale, moved.y * scale, in.camera.zh};
    }
    point = moved;
}

/// A point in pixels, at the outer camera's own third coordinate.
inline void carry(WarpChain const & chain, double & x, double & y) {
    Gan_Vector3 point{x, y, chain.out.camera.zh};
    carry(chain, point);
    x = point.x;
    y = point.y;
}

} // namespace VX::detail
