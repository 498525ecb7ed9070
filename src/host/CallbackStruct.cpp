#include "host/CallbackStruct.h"

#include "host/CallbackStandBys.h"

#include <cstddef>

namespace {

// Host and library are built apart: an entry that moved would call the wrong function.
#define VX_STANDS_AT(number, entry)                                                                                    \
    static_assert(offsetof(VX_CallbackStruct, entry) == ((number)-1) * sizeof(void *), "stands at another number")

VX_STANDS_AT(1, bGetFieldIOSupport);
VX_STANDS_AT(2, bGetImageIOSupport);
VX_STANDS_AT(3, bGetTimeCode);
VX_STANDS_AT(4, eGetClipInfo);
VX_STANDS_AT(5, eGetImageInfo);
VX_STANDS_AT(6, eLoadImage);
VX_STANDS_AT(7, eSaveImage);
VX_STANDS_AT(8, eLoadFromCache);
VX_STANDS_AT(9, eSaveToCache);
VX_STANDS_AT(10, pgiGetBuffer);
VX_STANDS_AT(11, eFreeBuffer);
VX_STANDS_AT(12, reserved12);
VX_STANDS_AT(13, reserved13);
VX_STANDS_AT(14, reserved14);
VX_STANDS_AT(15, vGLImage);
VX_STANDS_AT(16, vGLSetCanvas);
VX_STANDS_AT(17, vGLClear);
VX_STANDS_AT(18, vGLColour);
VX_STANDS_AT(19, vGLBlend);
VX_STANDS_AT(20, vGLEnable);
VX_STANDS_AT(21, vGLDisable);
VX_STANDS_AT(22, reserved22);
VX_STANDS_AT(23, reserved23);
VX_STANDS_AT(24, reserved24);
VX_STANDS_AT(25, reserved25);
VX_STANDS_AT(26, reserved26);
VX_STANDS_AT(27, reserved27);
VX_STANDS_AT(28, vProgressBoxShow);
VX_STANDS_AT(29, vProgressBoxHide);
VX_STANDS_AT(30, vProgressBoxSetText);
VX_STANDS_AT(31, vProgressBoxSetStatus);
VX_STANDS_AT(32, uiGetPhysicalMemory);
VX_STANDS_AT(33, gbThreadCreate);
VX_STANDS_AT(34, gbThreadDestroy);
VX_STANDS_AT(35, gbSemCreate);
VX_STANDS_AT(36, gbSemDestroy);
VX_STANDS_AT(37, gbSemLock);
VX_STANDS_AT(38, gbSemUnlock);
VX_STANDS_AT(39, reserved39);
VX_STANDS_AT(40, reserved40);
VX_STANDS_AT(41, reserved41);
VX_STANDS_AT(42, reserved42);
VX_STANDS_AT(43, reserved43);
VX_STANDS_AT(44, reserved44);
VX_STANDS_AT(45, reserved45);
VX_STANDS_AT(46, reserved46);
VX_STANDS_AT(47, eDeleteFromCache);
VX_STANDS_AT(48, reserved48);

#undef VX_STANDS_AT

template <class Function>
void fill(Function *& entry, Function * standBy) {
    if (!entry)
        entry = standBy;
}

} // namespace

VX_CallbackStruct::VX_CallbackStruct()
    : reserved14(VX::detail::standByFor<0>(&VX_CallbackStruct::reserved14)),
      vGLImage(vEmptyGLImage),
      vGLSetCanvas(vEmptyGLSetCanvas),
      vGLClear(vEmptyGLClear),
      vGLColour(vEmptyGLColour),
      eDeleteFromCache(eEmptyDeleteFromCache) {}

// What the constructor alone fills, 14 to 16 and 47, is not looked at: a null that was set there on purpose stays.
void vCheckCallbackStruct(VX_CallbackStruct * table) {
    if (!table)
        return;
    fill(table->eGetClipInfo, eEmptyGetClipInfo);
    fill(table->eLoadImage, eEmptyLoadImage);
    fill(table->eSaveImage, eEmptySaveImage);
    fill(table->pgiGetBuffer, pgiEmptyGetBuffer);
    fill(table->eFreeBuffer, eEmptyFreeBuffer);
    fill(table->vGLClear, vEmptyGLClear);
    fill(table->vGLColour, vEmptyGLColour);
    fill(table->vGLEnable, vEmptyGLEnable);
    fill(table->vGLDisable, vEmptyGLDisable);
    fill(table->vProgressBoxShow, vEmptyProgressBoxShow);
    fill(table->vProgressBoxHide, vEmptyProgressBoxHide);
    fill(table->vProgressBoxSetText, vEmptyProgressBoxSetText);
    fill(table->vProgressBoxSetStatus, vEmptyProgressBoxSetStatus);
    fill(table->uiGetPhysicalMemory, uiGetPhysicalMemory);
}
