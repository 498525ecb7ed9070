#include "host/ImageSaveOptions.h"
#include "host/ImageSaveContext.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(ImageSaveOptions, Options_fresh_nameNothing) {
    VX::ImageSaveOptions const options;
    EXPECT_EQ(options.format, QString());
    EXPECT_EQ(options.context.time, Kyn::Time(0.0));
    EXPECT_EQ(options.context.view, Kyn::View());
    EXPECT_EQ(static_cast<int>(options.context.scale), 3);
    EXPECT_FALSE(options.keepAlpha);
    EXPECT_EQ(options.quality, 0.0f);
    EXPECT_EQ(options.interlaceMode, VX_INTERLACE_MODE_PROGRESSIVE);
    Gan_ImageHeaderInfo zero;
    std::memset(&zero, 0, sizeof(zero));
    EXPECT_EQ(std::memcmp(&options.header, &zero, sizeof(zero)), 0);
}

TEST(ImageSaveOptions, Copy_ofOptions_hasAllMembers) {
    Kyn::Context::Explicit const moment{Kyn::Time(12.5), Kyn::View(3), Kyn::ProxyScale::HALF};
    Gan_ImageHeaderInfo const header{0x01020304u, GAN_IMAGE_FORMAT_RGB, GAN_TYPE_UNSIGNED_SHORT};
    VX::ImageSaveOptions const options(QStringLiteral("exr"), moment, 75.0f, VX_INTERLACE_MODE_LOWER_FIELD_FIRST,
                                       header, true);
    VX::ImageSaveOptions assigned;
    assigned = options;
    for (VX::ImageSaveOptions const & copy : {VX::ImageSaveOptions(options), assigned}) {
        EXPECT_EQ(copy.format, QStringLiteral("exr"));
        EXPECT_EQ(Kyn::Context(copy.context), Kyn::Context(moment));
        EXPECT_TRUE(copy.keepAlpha);
        EXPECT_EQ(copy.quality, 75.0f);
        EXPECT_EQ(copy.interlaceMode, VX_INTERLACE_MODE_LOWER_FIELD_FIRST);
        EXPECT_EQ(std::memcmp(&copy.header, &header, sizeof(header)), 0);
    }
}

TEST(ImageSaveContext, Context_ofTheLibrary_hasNothing) {
    VX::ImageSaveContext const context;
    EXPECT_EQ(context.secondField(), nullptr);
    EXPECT_EQ(context.temporaryImage(), nullptr);
    EXPECT_EQ(context.nameForView(Kyn::View()), QString());
    EXPECT_EQ(context.nameForView(Kyn::View(5)), QString());
}

} // namespace
