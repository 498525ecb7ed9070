#include "geometry/gandalf/ErrorTrace.h"
#include "geometry/gandalf/ImageHeaderInfo.h"
#include "geometry/gandalf/Matrix33.h"

#include <gtest/gtest.h>

#include <thread>
#include <type_traits>

namespace {

TEST(ImageHeaderInfo, fresh_header_has_its_format_and_no_time_code) {
    Gan_ImageHeaderInfo header{1u, static_cast<Gan_ImageFormat>(2u), GAN_TYPE_FLOAT};
    gan_initialise_image_header_info(GAN_IMAGE_FORMAT_NONE, GAN_TYPE_NONE, &header);
    EXPECT_EQ(header.timeCode, 0xFFFFFFFFu);
    EXPECT_EQ(header.format, GAN_IMAGE_FORMAT_NONE);
    EXPECT_EQ(header.type, GAN_TYPE_NONE);
    EXPECT_TRUE(std::is_trivially_copyable_v<Gan_ImageHeaderInfo>);
}

class ErrorTrace : public testing::Test {
protected:
    ErrorTrace() { gan_err_flush_trace(); }
    ~ErrorTrace() override { gan_err_flush_trace(); }
};

TEST_F(ErrorTrace, failed_inversion_says_why_until_the_trace_is_flushed) {
    Gan_Matrix33 const zero{};
    Gan_Matrix33 inverse = gan_mat33_ident_s();
    gan_mat33_invert(&inverse, &inverse, nullptr);
    EXPECT_EQ(gan_err_trace_count(), 0u);
    gan_mat33_invert(&zero, &inverse, nullptr);
    ASSERT_EQ(gan_err_trace_count(), 1u);
    EXPECT_STREQ(gan_err_trace_entry(0)->routine, "gan_mat33_invert");
    gan_err_flush_trace();
    EXPECT_EQ(gan_err_trace_count(), 0u);
    EXPECT_EQ(gan_err_trace_entry(0), nullptr);
}

TEST_F(ErrorTrace, first_failures_are_kept_and_all_are_counted) {
    gan_err_register("first", "");
    for (int i = 0; i < 1000; ++i)
        gan_err_register("later", "");
    EXPECT_EQ(gan_err_trace_count(), 1001u);
    EXPECT_STREQ(gan_err_trace_entry(0)->routine, "first");
    EXPECT_NE(gan_err_trace_entry(15), nullptr);
    EXPECT_EQ(gan_err_trace_entry(16), nullptr);
    EXPECT_EQ(gan_err_trace_entry(0xFFFFFFFFu), nullptr);
}

TEST_F(ErrorTrace, each_thread_has_its_own) {
    std::thread([] { gan_err_register("elsewhere", ""); }).join();
    EXPECT_EQ(gan_err_trace_count(), 0u);
}

} // namespace
