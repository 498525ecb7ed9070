#include "foundation/ClipID.h"

#include <gtest/gtest.h>

namespace {

using VX::ClipID;

TEST(ClipID, default_constructed_is_an_explicit_zero_and_not_the_default_reference) {
    EXPECT_EQ(ClipID(), ClipID(0u));
    EXPECT_NE(ClipID(), ClipID::DEFAULT());
}

TEST(ClipID, references_to_no_particular_clip_are_equal_and_keep_their_numbers) {
    ClipID const other(ClipID::NO_PARTICULAR_CLIP, 5);
    EXPECT_EQ(other, ClipID::DEFAULT());
    EXPECT_EQ(other.value(), 5u);
}

TEST(ClipID, explicit_references_differ_by_number_and_from_no_clip_of_equal_number) {
    EXPECT_NE(ClipID(5u), ClipID(6u));
    EXPECT_EQ(ClipID(5u), ClipID(ClipID::EXPLICIT_CLIP, 5));
    EXPECT_NE(ClipID(5u), ClipID(ClipID::NO_PARTICULAR_CLIP, 5));
}

TEST(ClipID, assignment_takes_type_and_number) {
    ClipID id(9u);
    id = ClipID(ClipID::NO_PARTICULAR_CLIP, 5);
    EXPECT_EQ(id, ClipID::DEFAULT());
    EXPECT_EQ(id.value(), 5u);
}

} // namespace
