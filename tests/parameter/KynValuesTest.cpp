#include "parameter/kyn/StreamVersion.h"
#include "parameter/support/ParameterTest.h"

#include <QTextStream>

namespace {

using namespace Kyn;
using namespace Test;

TEST(Time, is_compared_exactly) {
    EXPECT_FALSE(Time(0.1 + 0.2) == Time(0.3));
    EXPECT_TRUE(Time(0.1 + 0.2) > Time(0.3));
    EXPECT_TRUE(Time(0.0) == Time(-0.0));
    Time const none(NOT_A_NUMBER);
    EXPECT_TRUE(none != none);
    EXPECT_FALSE(none == none || none < none || none > none || none <= Time(1.0) || none >= Time(1.0));
}

TEST(View, default_is_zero_and_the_invalid_one_negative) {
    EXPECT_EQ(View::defaultViewId(), 0);
    EXPECT_EQ(View(), View(View::defaultViewId()));
    EXPECT_LT(View::INVALID().id(), 0);
    EXPECT_FALSE(View::INVALID().isValid());
    EXPECT_TRUE(View(2) < View(10));
}

TEST(View, prefix_and_its_extraction_are_inverse) {
    for (int const id : {0, 1, 9, 10, 1000, 2147483647}) {
        QString text = View(id).toString() + "keyframes";
        EXPECT_EQ(View::extractStringPrefix(text), View(id));
        EXPECT_EQ(text, QString("keyframes")) << id;
        text = QString("view[%1].").arg(id);
        EXPECT_EQ(View::extractStringPrefix(text), View(id)) << "the form of value lines";
        EXPECT_TRUE(text.isEmpty());
    }
}

TEST(View, prefix_of_another_form_is_no_prefix_and_stays) {
    for (QString const text : {"", "view", "view[", "view[1", "view[1]", "view[]. ", "view[-1].", "view[+1].",
                               "view[ 1].", "view[1 ].", "view[1.0].", "view[0x1].", "View[1].", " view[1].",
                               "views=[1]", "view[2147483648].", "view[99999999999999999999].", "view[\xD9\xA1]."}) {
        QString rest = text;
        EXPECT_FALSE(View::extractStringPrefix(rest).isValid()) << text.toStdString();
        EXPECT_EQ(rest, text);
    }
}

TEST(Context, without_arguments_names_no_moment_and_no_scale) {
    Context const none;
    EXPECT_EQ(none.time().toDouble(), std::numeric_limits<double>::lowest());
    EXPECT_EQ(none.view(), View(View::defaultViewId()));
    EXPECT_EQ(static_cast<int>(none.scale()), 3);
    EXPECT_EQ(static_cast<int>(std::numeric_limits<ProxyScale::Enum>::max()), 2);
}

TEST(Context, of_a_frame_carries_it_as_a_double_and_survives_the_explicit_form) {
    Context const context(Frame(4294967295u), View(3), ProxyScale::HALF);
    EXPECT_EQ(context.time().toDouble(), 4294967295.0);
    Context::Explicit const fields = context;
    EXPECT_EQ(Context(fields), context);
    EXPECT_EQ(context.withView(View(5)), Context(context.time(), View(5), ProxyScale::HALF));
}

TEST(Context, frame_is_the_time_cut_towards_zero_and_never_out_of_range) {
    for (auto const & [time, frame] :
         {std::pair(7.999, 7u), {-0.5, 0u}, {-7.0, 0u}, {NOT_A_NUMBER, 0u}, {1e300, 0xFFFFFFFFu}})
        EXPECT_EQ(at(time).toFrame(), Frame(frame)) << time;
}

TEST(KeyframeIndex, null_one_is_told_by_its_view) {
    KeyframeIndex index;
    EXPECT_TRUE(index.isNull());
    EXPECT_EQ(index.view.id(), -1);
    EXPECT_EQ(index.toContext(), Context());
    index.view = View(0);
    EXPECT_FALSE(index.isNull());
    EXPECT_TRUE(BoundingKeyframes(KeyframeIndex(), KeyframeIndex()).isNull());
    EXPECT_FALSE(BoundingKeyframes(index, KeyframeIndex()).isNull());
    EXPECT_FALSE(BoundingKeyframes(KeyframeIndex(), index).isNull());
}

TEST(KeyframeIndex, context_is_asked_of_the_parameter) {
    Parameter<double> parameter(true, "p");
    setKeys(parameter, {2.5});
    EXPECT_EQ((KeyframeIndex{&parameter, View(0), 0}.toContext()), at(2.5));
    EXPECT_EQ((KeyframeIndex{&parameter, View(0), 1}.toContext()), at(0.0));
}

TEST(StreamVersion, compares_as_an_unsigned_number) {
    EXPECT_FALSE(StreamVersion(1) >= StreamVersion::anyViewList);
    EXPECT_TRUE(StreamVersion(2) >= StreamVersion::anyViewList);
    EXPECT_TRUE(StreamVersion(0x80000000u) >= StreamVersion::anyViewList);
}

TEST(ModeWords, and_numbers_are_inverse) {
    for (unsigned int const number : {0u, 1u, 2u, 3u, 4u, 5u, 99u, 0x80000000u, 0xFFFFFFFFu}) {
        Interpolation type = INTERPOLATION_LINEAR;
        Extrapolation mode = EXTRAPOLATION_LINEAR;
        ASSERT_TRUE(bStringToInterpolationType(qstrInterpolationTypeString(Interpolation(number)), type));
        ASSERT_TRUE(bStringToExtrapolationType(qstrExtrapolationTypeString(Extrapolation(number)), mode));
        EXPECT_EQ(type, number);
        EXPECT_EQ(mode, number);
    }
    EXPECT_EQ(qstrInterpolationTypeString(INTERPOLATION_BEZIER), QString("Bezier"));
    EXPECT_EQ(qstrInterpolationTypeString(Interpolation(5)), QString("Custom1"));
    EXPECT_EQ(qstrExtrapolationTypeString(Extrapolation(3)), QString("Custom0"));
}

TEST(ModeWords, unknown_word_leaves_the_output_alone) {
    for (QString const word : {"", "bezier", "Bezier ", " Linear", "Custom", "Custom-1", "Custom01", "Custom4294967292",
                               "Custom99999999999", "Linear)", "1"}) {
        Interpolation type = Interpolation(77);
        EXPECT_FALSE(bStringToInterpolationType(word, type)) << word.toStdString();
        EXPECT_EQ(type, 77u);
    }
    Extrapolation mode = Extrapolation(77);
    EXPECT_FALSE(bStringToExtrapolationType("Bezier", mode));
    EXPECT_EQ(mode, 77u);
}

} // namespace
