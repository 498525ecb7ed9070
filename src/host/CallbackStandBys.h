#pragma once

#include "host/CallbackStruct.h"

#include <type_traits>

// The stand-by of each operation of the callback table, for who wants to set one by hand: vCheckCallbackStruct() sets
// only some of them.
//
//     table.eLoadFromCache = eEmptyLoadFromCache;

namespace VX::detail {

/// Ignores its arguments. The result is the given number, or all zero where it is no number.
///
/// One template, and an instance for each signature: calling a function through a pointer to another type of function
/// is undefined, however many of them would be the same machine code.
template <int result, class Result, class... Arguments>
Result standBy(Arguments...) {
    if constexpr (std::is_arithmetic_v<Result> || std::is_enum_v<Result>)
        return static_cast<Result>(result);
    else
        return Result();
}

/// The stand-by with the signature of an entry.
template <int result, class Result, class... Arguments>
constexpr auto standByFor(Result (*VX_CallbackStruct::*)(Arguments...)) -> Result (*)(Arguments...) {
    return &standBy<result, Result, Arguments...>;
}

} // namespace VX::detail

// clang-format off
inline constexpr auto bEmptyGetFieldIOSupport   = VX::detail::standByFor<VX_FALSE>(&VX_CallbackStruct::bGetFieldIOSupport);
inline constexpr auto bEmptyGetImageIOSupport   = VX::detail::standByFor<false>(&VX_CallbackStruct::bGetImageIOSupport);
inline constexpr auto bEmptyGetTimeCode         = VX::detail::standByFor<VX_FALSE>(&VX_CallbackStruct::bGetTimeCode);
inline constexpr auto eEmptyGetClipInfo         = VX::detail::standByFor<VX_STATUS_NOT_SUPPLIED>(&VX_CallbackStruct::eGetClipInfo);
inline constexpr auto eEmptyGetImageInfo        = VX::detail::standByFor<VX_STATUS_NOT_SUPPLIED>(&VX_CallbackStruct::eGetImageInfo);
inline constexpr auto eEmptyLoadImage           = VX::detail::standByFor<VX_STATUS_NOT_SUPPLIED>(&VX_CallbackStruct::eLoadImage);
inline constexpr auto eEmptySaveImage           = VX::detail::standByFor<VX_STATUS_NOT_SUPPLIED>(&VX_CallbackStruct::eSaveImage);

inline constexpr auto eEmptyLoadFromCache       = VX::detail::standByFor<VX_STATUS_NOT_SUPPLIED>(&VX_CallbackStruct::eLoadFromCache);
inline constexpr auto eEmptySaveToCache         = VX::detail::standByFor<VX_STATUS_NOT_SUPPLIED>(&VX_CallbackStruct::eSaveToCache);
inline constexpr auto eEmptyDeleteFromCache     = VX::detail::standByFor<VX_STATUS_NOT_SUPPLIED>(&VX_CallbackStruct::eDeleteFromCache);
inline constexpr auto pgiEmptyGetBuffer         = VX::detail::standByFor<0>(&VX_CallbackStruct::pgiGetBuffer);
inline constexpr auto eEmptyFreeBuffer          = VX::detail::standByFor<VX_STATUS_NOT_SUPPLIED>(&VX_CallbackStruct::eFreeBuffer);
/// Alone among them without "Empty" in its name.
inline constexpr auto uiGetPhysicalMemory       = VX::detail::standByFor<0>(&VX_CallbackStruct::uiGetPhysicalMemory);

inline constexpr auto vEmptyGLImage             = VX::detail::standByFor<0>(&VX_CallbackStruct::vGLImage);
inline constexpr auto vEmptyGLSetCanvas         = VX::detail::standByFor<0>(&VX_CallbackStruct::vGLSetCanvas);
inline constexpr auto vEmptyGLClear             = VX::detail::standByFor<0>(&VX_CallbackStruct::vGLClear);
inline constexpr auto vEmptyGLColour            = VX::detail::standByFor<0>(&VX_CallbackStruct::vGLColour);
inline constexpr auto vEmptyGLBlend             = VX::detail::standByFor<0>(&VX_CallbackStruct::vGLBlend);
inline constexpr auto vEmptyGLEnable            = VX::detail::standByFor<0>(&VX_CallbackStruct::vGLEnable);
inline constexpr auto vEmptyGLDisable           = VX::detail::standByFor<0>(&VX_CallbackStruct::vGLDisable);

inline constexpr auto vEmptyProgressBoxShow     = VX::detail::standByFor<0>(&VX_CallbackStruct::vProgressBoxShow);
inline constexpr auto vEmptyProgressBoxHide     = VX::detail::standByFor<0>(&VX_CallbackStruct::vProgressBoxHide);
inline constexpr auto vEmptyProgressBoxSetText  = VX::detail::standByFor<0>(&VX_CallbackStruct::vProgressBoxSetText);
inline constexpr auto vEmptyProgressBoxSetStatus = VX::detail::standByFor<0>(&VX_CallbackStruct::vProgressBoxSetStatus);

inline constexpr auto gbEmptyThreadCreate       = VX::detail::standByFor<GAN_TRUE>(&VX_CallbackStruct::gbThreadCreate);
inline constexpr auto gbEmptyThreadDestroy      = VX::detail::standByFor<GAN_TRUE>(&VX_CallbackStruct::gbThreadDestroy);
inline constexpr auto gbEmptySemCreate          = VX::detail::standByFor<GAN_TRUE>(&VX_CallbackStruct::gbSemCreate);
inline constexpr auto gbEmptySemDestroy         = VX::detail::standByFor<GAN_TRUE>(&VX_CallbackStruct::gbSemDestroy);
inline constexpr auto gbEmptySemLock            = VX::detail::standByFor<GAN_TRUE>(&VX_CallbackStruct::gbSemLock);
inline constexpr auto gbEmptySemUnlock          = VX::detail::standByFor<GAN_TRUE>(&VX_CallbackStruct::gbSemUnlock);
// clang-format on
