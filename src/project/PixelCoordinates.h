#pragma once

#include "geometry/gandalf/Matrix33.h"
#include "geometry/gandalf/Vector2.h"

namespace vxproject {

/// The size of a frame in pixels; both are positive.
struct FrameSize {
    int width;
    int height;
};

// The coordinates of a project have their origin at the frame's centre, the frame's width as their unit, and y down:
//
//     x = (px - width / 2) / width,   y = (py - height / 2) / width
//
// px and py are pixel numbers exactly as a table holds them, whatever they count from: nothing is shifted by half a
// pixel here. Where whole numbers name pixel centres, the frame goes from -0.5 to width - 0.5, and the origin lies half
// a pixel right of and below its middle. That changes no result in pixels, as long as all numbers of a project follow
// one convention: who draws on a frame that begins at 0 adds 0.5 to what comes out, and takes it off what goes in.

inline Gan_Vector2 fromPixels(Gan_Vector2 const & pixel, FrameSize const & size) {
    return {(pixel.x - size.width * 0.5) / size.width, (pixel.y - size.height * 0.5) / size.width};
}

inline Gan_Vector2 toPixels(Gan_Vector2 const & point, FrameSize const & size) {
    return {point.x * size.width + size.width * 0.5, point.y * size.width + size.height * 0.5};
}

/// The same homography acting on project coordinates in place of pixels, and the other way round. Of the factor that a
/// homography is free up to, these keep what they are given.
Gan_Matrix33 homographyFromPixels(Gan_Matrix33 const & pixels, FrameSize const & size);
Gan_Matrix33 homographyToPixels(Gan_Matrix33 const & project, FrameSize const & size);

/// Where a homography takes a point. False for a point that goes to infinity or beyond what a double holds; `mapped`
/// is then left alone.
bool mapPoint(Gan_Matrix33 const & homography, Gan_Vector2 const & point, Gan_Vector2 & mapped);

/// With its last element 1, where that is not 0.
Gan_Matrix33 normalised(Gan_Matrix33 const & homography);

} // namespace vxproject
