#include "camera/CameraType.h"
#include "support/Warnings.h"

#include <gtest/gtest.h>

namespace {

using Test::ExpectWarning;
using VX::CameraType;

TEST(CameraType, ids_and_camera_numbers_part_from_id_3_on) {
    EXPECT_EQ(CameraType::fromId(2).ganCameraType(), GAN_CAMERA_RADIAL_2);
    EXPECT_EQ(CameraType::fromId(3).ganCameraType(), GAN_CAMERA_RADIAL_1_INVERSE);
    EXPECT_EQ(CameraType::fromGandalf(GAN_CAMERA_RADIAL_1_INVERSE).numericId(), 3);
    for (int id = 0; id < 6; ++id) {
        CameraType const & type = CameraType::fromId(id);
        EXPECT_EQ(type.numericId(), id);
        EXPECT_EQ(CameraType::fromGandalf(type.ganCameraType()).numericId(), id);
    }
}

TEST(CameraType, names_stand_in_order_of_ids) {
    EXPECT_EQ(CameraType::ALL_NAMES(), QStringList({"无畸变", "1-参数", "2-参数", "1-反转参数", "变形", "畸变映射"}));
    EXPECT_EQ(CameraType::ANAMORPHIC().name(), "变形");
}

TEST(CameraType, unknown_ones_are_linear_with_a_warning) {
    {
        ExpectWarning const warning("CameraType::fromId(): invalid id");
        EXPECT_EQ(&CameraType::fromId(6), &CameraType::LINEAR());
        EXPECT_EQ(CameraType::fromId(-1).numericId(), 0);
        EXPECT_EQ(warning.texts().front(), "CameraType::fromId(): invalid id 6");
    }
    ExpectWarning const warning("CameraType::fromGandalf(): no camera type found for Gandalftype");
    EXPECT_EQ(CameraType::fromGandalf(GAN_CAMERA_RADIAL_3).numericId(), 0);
    EXPECT_EQ(warning.texts().front(), "CameraType::fromGandalf(): no camera type found for Gandalftype 3");
}

TEST(CameraType, registry_takes_further_models_and_fills_itself_again_when_emptied) {
    CameraType::s_allTypes().insert(9, CameraType(9, "Three", GAN_CAMERA_RADIAL_3));
    EXPECT_EQ(CameraType::fromGandalf(GAN_CAMERA_RADIAL_3).numericId(), 9);
    EXPECT_EQ(CameraType::ALL_NAMES().last(), "Three");
    CameraType::s_allTypes().clear();
    EXPECT_EQ(CameraType::ALL_NAMES().size(), 6);
}

} // namespace
