#include "parameter/support/MemberTypes.h"
#include "parameter/support/ParameterTest.h"
#include "parameter/support/ScriptLines.h"

#include <algorithm>
#include <stdexcept>
#include <typeinfo>

namespace {

using namespace Kyn;
using namespace Test;

template <class T>
class SerialisedKeyframeOf : public testing::Test {};
TYPED_TEST_SUITE(SerialisedKeyframeOf, Test::MemberTypes);

TYPED_TEST(SerialisedKeyframeOf, is_the_key_line_and_goes_to_the_same_type_only) {
    Parameter<TypeParam> parameter(true, "Name");
    parameter.setSplittable(true);
    parameter.setValue(sampleValues<TypeParam>()[1], at(3, 2));
    auto const key = parameter.serialisedKeyframe(at(3, 2));
    ASSERT_TRUE(key);
    EXPECT_EQ(key->toString(), linesOf(parameter)[1]);
    Parameter<TypeParam> same(true, "Name");
    same.setSplittable(true);
    key->vShiftTime(1.5f);
    same.addSerialisedKeyframe(*key);
    EXPECT_EQ(same.value(at(4.5, 2)), sampleValues<TypeParam>()[1]);
    Parameter<double> real(true, "Real");
    Parameter<QString> text(true, "Text");
    ParameterWithoutType & other = std::is_same_v<TypeParam, double> ? static_cast<ParameterWithoutType &>(text) : real;
    EXPECT_THROW(other.addSerialisedKeyframe(*key), std::bad_cast);
}

typedef Parameter<double>::TypedSerialisedKeyframe DoubleKey;

/// A parameter of several views, limited to 10.
class SerialisedKeyframe : public testing::Test {
protected:
    SerialisedKeyframe() {
        parameter.setSplittable(true);
        parameter.setMaximum(10);
    }

    NumericParameter<double> parameter{true, "Opacity"};
};

TEST_F(SerialisedKeyframe, fresh_one_stands_at_time_zero_of_its_view) {
    DoubleKey const key(View(3), {});
    EXPECT_EQ(key.context(), at(0, 3));
    EXPECT_EQ(key.data(), withoutHandles(INTERPOLATION_CONSTANT));
}

TEST_F(SerialisedKeyframe, of_the_default_context_is_an_empty_one_and_of_no_key_none) {
    auto const empty = parameter.serialisedKeyframe(Context());
    ASSERT_TRUE(empty);
    empty->fromString("keyframes.append( Key( 4, 5, Linear ) )");
    EXPECT_EQ(empty->context(), at(4));
    parameter.setValue(1, at(2));
    EXPECT_FALSE(parameter.serialisedKeyframe(at(1)));
    EXPECT_FALSE(parameter.serialisedKeyframe(at(2, 3)));
}

TEST_F(SerialisedKeyframe, carries_the_key_whatever_the_scale_asked_and_shifts_in_time) {
    parameter.setValue(5, at(2, 1));
    parameter.setInterpolationData({INTERPOLATION_BEZIER, 1, 2, 3, 4}, 0, View(1));
    auto const key = parameter.serialisedKeyframe(Context(Time(2), View(1), ProxyScale::HALF));
    ASSERT_TRUE(key);
    EXPECT_EQ(key->context(), at(2, 1));
    key->vShiftTime(0.1f);
    EXPECT_EQ(key->context(), at(2 + static_cast<double>(0.1f), 1));
    EXPECT_EQ(key->toString(), "view[1].keyframes.append( BezierKey( 2.1, 5, 1, 2, 3, 4 ) )");
}

TEST_F(SerialisedKeyframe, pasted_outside_reading_is_limited_and_announced) {
    parameter.setValue(1, at(0));
    DoubleKey key(at(4), 99, {INTERPOLATION_BEZIER, 1, 2, 3, 4});
    ChangeRecorder recorder(parameter);
    parameter.addSerialisedKeyframe(key);
    EXPECT_EQ(parameter.keyframeValue(1, View(0)), 10);
    EXPECT_EQ(recordOf(parameter, 1), key.data());
    EXPECT_EQ(recorder.take(), (Changes{{ParameterChange::KeyframeAdded, 0, 1},
                                        {ParameterChange::KeyframeChangedValue, 0, 1},
                                        {ParameterChange::KeyframeChangedInterpolation, 0, 1},
                                        {ParameterChange::KeyframeChangedInterpolation, 0, 1}}));
}

TEST_F(SerialisedKeyframe, reads_its_view_from_the_line_else_its_own_else_the_default) {
    for (int const own : {-1, 0, 4}) {
        DoubleKey key(View(own), {});
        key.fromString("view[2].keyframes.append( Key( 1, 2, Linear ) )");
        EXPECT_EQ(key.context(), at(1, 2));
        DoubleKey other(View(own), {});
        other.fromString("keyframes.append( Key( 1, 2, Linear ) )");
        EXPECT_EQ(other.context(), at(1, std::max(own, 0)));
    }
}

TEST_F(SerialisedKeyframe, unknown_word_leaves_the_type_and_a_key_its_handles) {
    DoubleKey key(at(1), 2, {INTERPOLATION_BEZIER, 1, 2, 3, 4});
    key.fromString("keyframes.append( Key( 7, 8, Wavy ) )");
    EXPECT_EQ(key.data(), (InterpolationData{INTERPOLATION_BEZIER, 1, 2, 3, 4}));
    key.fromString("keyframes.append( Key( 7, 8, Linear ) )");
    EXPECT_EQ(key.data(), (InterpolationData{INTERPOLATION_LINEAR, 1, 2, 3, 4}));
    key.fromString("keyframes.append( Key( 7, 8, Custom1 ) )");
    EXPECT_EQ(key.data().eType, 5u);
    EXPECT_EQ(key.value(), 8);
}

TEST_F(SerialisedKeyframe, refused_line_says_why_and_changes_nothing) {
    for (auto const & [line, message] :
         {std::pair("value=3", "Cannot parse keyframe string 'value=3'"),
          {"view[2].key( 1, 2, Linear )", "Cannot parse keyframe string 'key( 1, 2, Linear )'"},
          {"view[2].keyframes.append( Key( 1, 2 ) )", "Failed to parse Key() block: 'keyframes.append( Key( 1, 2 ) )'"},
          {"keyframes %1", "Failed to parse Key() block: 'keyframes %1'"},
          {"keyframes.append( BezierKey( 1 ) )", "Failed to parse Key() block: 'keyframes.append( BezierKey( 1 ) )'"},
          {"keyframes.append( BezierKey( 1, 2, 3, 4, 5 ) )",
           "Failed to parse BezierKey() block: 'keyframes.append( BezierKey( 1, 2, 3, 4, 5 ) )'"}}) {
        DoubleKey key(at(9, 4), 5, {INTERPOLATION_LINEAR, 1, 2, 3, 4});
        QString const before = key.toString();
        try {
            key.fromString(line);
            ADD_FAILURE() << line;
        } catch (std::runtime_error const & error) {
            EXPECT_STREQ(error.what(), message);
        }
        EXPECT_EQ(key.toString(), before);
        EXPECT_EQ(key.context(), at(9, 4));
    }
}

TEST_F(SerialisedKeyframe, declaration_comes_apart_from_both_ends) {
    for (auto const & [line, fields] : {std::pair("keyframes.append( Key( 1, 2, Linear ) )", "1|2|Linear"),
                                        {"Key(1,2,Linear)", "1|2|Linear"},
                                        {"BezierKey( 1, 2, 3, 4, 5, 6 )", "1|2|3|4|5|6"},
                                        {"Key( 1, \"a, (b), 'c', \", Linear )", "1|\"a, (b), 'c', \"|Linear"},
                                        {"BezierKey( 1, \", ,\", 3, 4, 5, 6 )", "1|\", ,\"|3|4|5|6"},
                                        {"Key( , , )", "||"},
                                        {"Key( 1 )", "1"}})
        EXPECT_EQ(Kyn::detail::parseKeyframeDeclaration(line), QString(fields).split('|')) << line;
    for (char const * nothing : {"", "Key", "keyframes", "Key(", "1, 2, Linear"})
        EXPECT_TRUE(Kyn::detail::parseKeyframeDeclaration(nothing).isEmpty()) << nothing;
}

} // namespace
