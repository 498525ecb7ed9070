#pragma once

#include <cstdint>

// What host and drawing code say to each other. The library only passes these through: it compares and keeps none, and
// an application may number kinds of its own beyond those that are named.

/// How an operation of the callback table ended. The library looks at none.
enum VX_STATUS : std::uint32_t {
    VX_STATUS_DONE = 0,
    VX_STATUS_NOT_SUPPLIED = 1, ///< nobody carried it out: what every stand-by says
    VX_STATUS_FAILED = 2,
};

/// How urgent a new thread is.
enum _VX_THREAD_PRIORITY : int {
    _VX_THREAD_PRIORITY_LOW = 0,
    _VX_THREAD_PRIORITY_NORMAL = 1,
    _VX_THREAD_PRIORITY_HIGH = 2,
};

/// What is cleared. May be or-ed.
enum _VX_BUFFER : unsigned int {
    _VX_BUFFER_COLOUR = 1,
    _VX_BUFFER_DEPTH = 2,
    _VX_BUFFER_STENCIL = 4,
};

/// What a colour is multiplied with before the drawn one and the one that is there are added.
enum _VX_FACTOR : int {
    _VX_FACTOR_ZERO = 0,
    _VX_FACTOR_ONE = 1,
    _VX_FACTOR_SOURCE_ALPHA = 2,
    _VX_FACTOR_ONE_MINUS_SOURCE_ALPHA = 3,
    _VX_FACTOR_DESTINATION_COLOUR = 4,
};

/// A way of drawing that is on or off.
enum _VX_RENDER_STYLE : int {
    _VX_RENDER_STYLE_BLEND = 0,       ///< by the blend factors; off, what is drawn replaces what is there
    _VX_RENDER_STYLE_ANTIALIAS = 1,   ///< smooth edges of lines, points and polygons
    _VX_RENDER_STYLE_INTERPOLATE = 2, ///< textures between their pixels; off, the nearest pixel
    _VX_RENDER_STYLE_STIPPLE = 3,     ///< dashed lines
};
