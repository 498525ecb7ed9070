#pragma once

#include "foundation/Enumerations.h"

class QSize;

/// What the readers of an interlace mode tell apart. Mode 13 has fields, yet neither is first; a value that is no mode
/// counts the same.
namespace VX {
/// Interlaced: two frames, one from each field, in one file.
bool bIsInterlaced(VX_INTERLACE_MODE eMode);
/// One of the five phases of the 3:2 cadence, in either field order.
bool bIs32Pulldown(VX_INTERLACE_MODE eMode);
bool bIsUpperFieldFirst(VX_INTERLACE_MODE eMode);
bool bIsLowerFieldFirst(VX_INTERLACE_MODE eMode);
/// Any mode but progressive.
bool bHasFields(VX_INTERLACE_MODE eMode);

/// The size of the whole frame, given that of one of its two fields: twice as high. Saturates.
QSize frameSizeOfField(QSize const & field);
} // namespace VX
