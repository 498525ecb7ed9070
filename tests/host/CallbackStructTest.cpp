#include "host/CallbackStandBys.h"

#include "clip/ColourspaceParameters.h"
#include "geometry/gandalf/Image.h"
#include "host/ImageSaveContext.h"
#include "host/ImageSaveOptions.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <set>

class VX::FootageContext {};

namespace {

constexpr std::size_t COUNT = 48;
typedef std::array<std::uintptr_t, COUNT> Entries;
typedef std::set<int> Numbers;

Entries entriesOf(VX_CallbackStruct const & table) {
    Entries entries;
    std::memcpy(entries.data(), &table, sizeof(table));
    return entries;
}

void set(VX_CallbackStruct & table, int number, std::uintptr_t entry) {
    std::memcpy(reinterpret_cast<char *>(&table) + static_cast<std::size_t>(number - 1) * sizeof(entry), &entry,
                sizeof(entry));
}

Numbers filled(VX_CallbackStruct const & table) {
    Numbers numbers;
    Entries const entries = entriesOf(table);
    for (std::size_t i = 0; i < COUNT; ++i)
        if (entries[i] != 0)
            numbers.insert(static_cast<int>(i) + 1);
    return numbers;
}

TEST(CallbackStruct, Table_fresh_hasTheConstructorsSixEntries) {
    EXPECT_EQ(filled(VX_CallbackStruct()), (Numbers{14, 15, 16, 17, 18, 47}));
}

TEST(CallbackStruct, Table_checked_hasAStandByAtFourteenMore) {
    VX_CallbackStruct table;
    Entries const fresh = entriesOf(table);
    vCheckCallbackStruct(&table);
    EXPECT_EQ(filled(table), (Numbers{4, 6, 7, 10, 11, 14, 15, 16, 17, 18, 20, 21, 28, 29, 30, 31, 32, 47}));
    for (int const number : {14, 15, 16, 17, 18, 47})
        EXPECT_EQ(entriesOf(table)[static_cast<std::size_t>(number) - 1], fresh[static_cast<std::size_t>(number) - 1]);

    Entries const once = entriesOf(table);
    vCheckCallbackStruct(&table);
    EXPECT_EQ(entriesOf(table), once);
}

TEST(CallbackStruct, Entries_setByTheApplication_areKept) {
    VX_CallbackStruct table;
    for (int number = 1; number <= static_cast<int>(COUNT); ++number)
        set(table, number, 0x1000u + static_cast<std::uintptr_t>(number));
    Entries const before = entriesOf(table);
    vCheckCallbackStruct(&table);
    EXPECT_EQ(entriesOf(table), before);
}

// Checking does not look where only the constructor fills: an entry that is set to null there stays null, and who calls
// it must look first.
TEST(CallbackStruct, Entries_setToNull_comeBackOnlyWhereCheckingLooks) {
    VX_CallbackStruct table;
    for (int number = 1; number <= static_cast<int>(COUNT); ++number)
        set(table, number, 0);
    vCheckCallbackStruct(&table);
    EXPECT_EQ(filled(table), (Numbers{4, 6, 7, 10, 11, 17, 18, 20, 21, 28, 29, 30, 31, 32}));
    vCheckCallbackStruct(nullptr);
}

TEST(CallbackStruct, Entries_leftToTheStandBys_answerHarmlessly) {
    VX_CallbackStruct table;
    vCheckCallbackStruct(&table);
    VX::ColourspaceParameters const colourspace;
    VX::FootageContext const footage;
    VX::ImageSaveOptions const options;
    VX::ImageSaveContext const context;
    Kyn::Context::Explicit const moment = options.context;
    unsigned int width = 7;
    Gan_Image image{GAN_IMAGE_FORMAT_RGB, GAN_TYPE_FLOAT, 1, 1, 0, nullptr};

    EXPECT_EQ(table.eGetClipInfo(nullptr, "", false, &width, nullptr, nullptr, nullptr, colourspace), 1u);
    EXPECT_EQ(width, 7u);
    EXPECT_EQ(table.eLoadImage(nullptr, &image, "", VX_FALSE, footage, VX_INTERLACE_MODE_PROGRESSIVE, false, nullptr,
                               nullptr, colourspace, nullptr, nullptr),
              1u);
    EXPECT_EQ(table.eSaveImage(nullptr, image, QString(), options, context), 1u);
    EXPECT_EQ(table.eDeleteFromCache(nullptr, QString(), 1, moment, Kyn::ProxyScale::FULL, 0), 1u);
    EXPECT_EQ(table.pgiGetBuffer(nullptr, GAN_IMAGE_FORMAT_RGB, GAN_TYPE_FLOAT, 1, 1, VX_TRUE), nullptr);
    EXPECT_EQ(table.eFreeBuffer(nullptr, &image), 1u);
    EXPECT_EQ(table.uiGetPhysicalMemory(nullptr), 0u);
    VX_TwoWords const words = table.reserved14();
    EXPECT_EQ(words.first, 0u);
    EXPECT_EQ(words.second, 0u);

    table.vGLImage(&image, 0, 0, 0, VX_FALSE, nullptr, nullptr, nullptr, nullptr, nullptr, {}, {}, 1.0f, false, false,
                   nullptr);
    table.vGLSetCanvas(0, 0, 1, 1, 0.0f, 0.0f, 1.0f, 1.0f, 1.0, VX_FALSE);
    table.vGLClear(_VX_BUFFER_COLOUR);
    table.vGLColour(1.0f, 1.0f, 1.0f, 1.0f);
    table.vGLEnable(_VX_RENDER_STYLE_BLEND);
    table.vGLDisable(_VX_RENDER_STYLE_BLEND);
    table.vProgressBoxShow();
    table.vProgressBoxSetText("text");
    table.vProgressBoxSetStatus(50);
    table.vProgressBoxHide();
}

// Nobody installs these; an application sets them by hand.
TEST(CallbackStruct, StandBys_ofEntriesThatNobodyFills_answerByTheirKind) {
    VX_CallbackStruct table;
    table.bGetFieldIOSupport = bEmptyGetFieldIOSupport;
    table.bGetImageIOSupport = bEmptyGetImageIOSupport;
    table.bGetTimeCode = bEmptyGetTimeCode;
    table.eGetImageInfo = eEmptyGetImageInfo;
    table.eLoadFromCache = eEmptyLoadFromCache;
    table.eSaveToCache = eEmptySaveToCache;
    table.vGLBlend = vEmptyGLBlend;
    table.gbThreadCreate = gbEmptyThreadCreate;
    table.gbThreadDestroy = gbEmptyThreadDestroy;
    table.gbSemCreate = gbEmptySemCreate;
    table.gbSemDestroy = gbEmptySemDestroy;
    table.gbSemLock = gbEmptySemLock;
    table.gbSemUnlock = gbEmptySemUnlock;

    VX::ColourspaceParameters const colourspace;
    Kyn::Context::Explicit const moment = VX::ImageSaveOptions().context;
    EXPECT_EQ(table.bGetFieldIOSupport(nullptr, ""), VX_FALSE);
    EXPECT_FALSE(table.bGetImageIOSupport(nullptr, "", GAN_IMAGE_FORMAT_RGB, GAN_TYPE_FLOAT, nullptr));
    EXPECT_EQ(table.bGetTimeCode(nullptr, "", 0, VX_INTERLACE_MODE_PROGRESSIVE, nullptr), VX_FALSE);
    EXPECT_EQ(table.eGetImageInfo(nullptr, "", VX_FALSE, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                  colourspace),
              1u);
    EXPECT_EQ(table.eLoadFromCache(nullptr, nullptr, QString(), 1, moment, Kyn::ProxyScale::FULL, 0), 1u);
    EXPECT_EQ(table.eSaveToCache(nullptr, nullptr, QString(), 1, moment, Kyn::ProxyScale::FULL, 0), 1u);
    table.vGLBlend(_VX_FACTOR_ONE, _VX_FACTOR_ZERO);
    EXPECT_EQ(table.gbThreadCreate(nullptr, nullptr, nullptr, nullptr, _VX_THREAD_PRIORITY_LOW, 0, 0), GAN_TRUE);
    EXPECT_EQ(table.gbThreadDestroy(nullptr, 1), GAN_TRUE);
    EXPECT_EQ(table.gbSemCreate(nullptr, nullptr, 0, 1, nullptr), GAN_TRUE);
    EXPECT_EQ(table.gbSemDestroy(nullptr, 1), GAN_TRUE);
    EXPECT_EQ(table.gbSemLock(nullptr, 1), GAN_TRUE);
    EXPECT_EQ(table.gbSemUnlock(nullptr, 1), GAN_TRUE);
}

} // namespace
