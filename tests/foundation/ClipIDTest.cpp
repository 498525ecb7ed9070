#include "foundation/ClipID.h"

#include <gtest/gtest.h>

namespace {

using VX::ClipID;

TEST(ClipID, explicit_references_differ_by_number_and_those_to_no_clip_do_not) {
    EXPECT_EQ(ClipID(), ClipID(0u));
    EXPECT_NE(ClipID(5u), ClipID(6u));
    EXPECT_EQ(ClipID(5u), ClipID(ClipID::EXPLICIT_CLIP, 5));
    EXPECT_NE(ClipID(5u), ClipID(ClipID::NO_PARTICULAR_CLIP, 5));
    EXPECT_NE(ClipID(), ClipID::DEFAULT()) << "an explicit zero";
    ClipID id(9u);
    id = ClipID(ClipID::NO_PARTICULAR_CLIP, 5);
    EXPECT_EQ(id, ClipID::DEFAULT());
    EXPECT_EQ(id.value(), 5u) << "which it keeps";
}

} // namespace
