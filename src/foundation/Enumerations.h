#pragma once

#include "foundation/EnumerationText.h"
#include "geometry/gandalf/CameraType.h"
#include "geometry/gandalf/ImageFormat.h"
#include "geometry/gandalf/Type.h"

// The enumerations that stand in a script, as bare decimal integers. Each has 32 bits of which nothing checks the
// range: 99 read into a VX_BlendMode stays 99. std::numeric_limits<T>::max() is the one record of a top value.
//
// Where an enumeration has no enumerators, its numbers are the processing modules' own: this library carries them and
// compares them for equality.

enum VX_BOOL : int {
    VX_FALSE = 0,
    VX_TRUE = 1,
};

enum VX_BlendMode : int {};

/// What a clip shows before its first frame and after its last.
enum VX_CLIP_MODE : int {
    VX_CLIP_MODE_NO_REPEAT = 0,
    VX_CLIP_MODE_REPEAT = 1,
    VX_CLIP_MODE_LOOP = 2,
    VX_CLIP_MODE_PING_PONG = 3,
};

/// The display name of each VX_CLIP_MODE, UTF-8, by its number. No entry ends the table: its size is the top value + 1.
extern char const * const * const VX_CLIP_MODE_NAME;

/// The law by which stored pixel values stand for light.
enum VX_COLORSPACE : unsigned int {
    VX_COLORSPACE_POWER_LAW = 0,
    VX_COLORSPACE_FILM_LOG = 1,
    VX_COLORSPACE_FIXED_LOG = 2,
};

enum VX_FILL_ALGORITHM : int {};

enum VX_ILLUMINATION_MODEL : int {};

/// How frames lie in the files of a clip. The numbered pulldown values are the five phases of the 3:2 cadence.
///
/// The numeric limit says 12, yet 13 is a valid value: whoever walks all modes must go one further.
enum VX_INTERLACE_MODE : int {
    VX_INTERLACE_MODE_PROGRESSIVE = 0,
    VX_INTERLACE_MODE_UPPER_FIELD_FIRST = 1,
    VX_INTERLACE_MODE_LOWER_FIELD_FIRST = 2,
    VX_INTERLACE_MODE_PULLDOWN_UPPER_1 = 3,
    VX_INTERLACE_MODE_PULLDOWN_UPPER_2 = 4,
    VX_INTERLACE_MODE_PULLDOWN_UPPER_3 = 5,
    VX_INTERLACE_MODE_PULLDOWN_UPPER_4 = 6,
    VX_INTERLACE_MODE_PULLDOWN_UPPER_5 = 7,
    VX_INTERLACE_MODE_PULLDOWN_LOWER_1 = 8,
    VX_INTERLACE_MODE_PULLDOWN_LOWER_2 = 9,
    VX_INTERLACE_MODE_PULLDOWN_LOWER_3 = 10,
    VX_INTERLACE_MODE_PULLDOWN_LOWER_4 = 11,
    VX_INTERLACE_MODE_PULLDOWN_LOWER_5 = 12,
    VX_INTERLACE_MODE_FIELDS_WITHOUT_ORDER = 13, ///< one frame a file, as progressive
};

enum VX_LUMINANCE_MODEL : int {};

enum VX_MATTE_SUBTYPE : int {};

enum VX_REMOVESOURCE_MODE : int {};

enum VX_STEREO_MODE : int {};

enum PIXELLATION_FILTER_TYPE : int {};

enum _DISTORTION_ALGORITHM : int {};

enum _VX_CONTOUR_TYPE : int {};

enum _VX_MOTION_INIT : int {};

/// Which degrees of freedom a track has; VX::HomographyParams::trackingParameters lists the values each one drives.
enum _TrackModel : int {
    TRACK_MODEL_AFFINE = 0,
    TRACK_MODEL_PERSPECTIVE = 1,
    TRACK_MODEL_TRANSLATION = 2,
    TRACK_MODEL_TRANSLATION_ROTATION_SCALE = 3,
    TRACK_MODEL_TRANSLATION_SCALE = 4,
};

namespace VX {
/// The type behind VX::FrameWarp::_Type. It has no named values and, alone among these, no numeric limit.
enum FrameWarpType : int {};

VX_ENUMERATION_TEXT(FrameWarpType)
} // namespace VX

// One row for each enumeration with a limit: the enumeration, its top value, read as, written as.
#define VX_ENUMERATIONS(ROW)                                                                                           \
    ROW(VX_BOOL, 1, Int, Int)                                                                                          \
    ROW(VX_BlendMode, 2, Int, Int)                                                                                     \
    ROW(VX_CLIP_MODE, 3, Int, Int)                                                                                     \
    ROW(VX_COLORSPACE, 2, Unsigned, Unsigned)                                                                          \
    ROW(VX_FILL_ALGORITHM, 1, Unsigned, Int)                                                                           \
    ROW(VX_ILLUMINATION_MODEL, 2, Unsigned, Int)                                                                       \
    ROW(VX_INTERLACE_MODE, 12, Int, Int)                                                                               \
    ROW(VX_LUMINANCE_MODEL, 1, Unsigned, Int)                                                                          \
    ROW(VX_MATTE_SUBTYPE, 4, Unsigned, Int)                                                                            \
    ROW(VX_REMOVESOURCE_MODE, 2, Unsigned, Int)                                                                        \
    ROW(VX_STEREO_MODE, 2, Unsigned, Int)                                                                              \
    ROW(PIXELLATION_FILTER_TYPE, 2, Int, Int)                                                                          \
    ROW(_DISTORTION_ALGORITHM, 2, Unsigned, Int)                                                                       \
    ROW(_VX_CONTOUR_TYPE, 1, Int, Int)                                                                                 \
    ROW(_VX_MOTION_INIT, 2, Int, Int)                                                                                  \
    ROW(_TrackModel, 4, Int, Int)                                                                                      \
    ROW(Gan_CameraType, 15, Unsigned, Unsigned)                                                                        \
    ROW(Gan_ImageFormat, 12, Unsigned, Unsigned)                                                                       \
    ROW(Gan_Type, 16, Unsigned, Unsigned)

#define VX_DECLARE_ENUMERATION(Enumeration, top, ReadAs, WrittenAs)                                                    \
    VX_ENUMERATION_LIMIT(Enumeration, top)                                                                             \
    VX_ENUMERATION_TEXT(Enumeration)

VX_ENUMERATIONS(VX_DECLARE_ENUMERATION)

#undef VX_DECLARE_ENUMERATION
