#include "parameter/NumericParameter.h"
#include "parameter/kyn/StreamVersion.h"

#include <QTextStream>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using Kyn::Context;
using Kyn::Frame;
using Kyn::KeyframeIndex;
using Kyn::ProxyScale;
using Kyn::Time;
using Kyn::View;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

template <class T>
QString written(T const & value) {
    QString text;
    QTextStream stream(&text);
    stream << value;
    stream.flush();
    return text;
}

TEST(Time, is_compared_exactly) {
    EXPECT_FALSE(Time(0.1 + 0.2) == Time(0.3));
    EXPECT_TRUE(Time(0.1 + 0.2) > Time(0.3));
    EXPECT_TRUE(Time(0.0) == Time(-0.0));
    Time const none(NOT_A_NUMBER);
    EXPECT_TRUE(none != none);
    EXPECT_FALSE(none == none || none < none || none > none || none <= Time(1.0) || none >= Time(1.0));
}

TEST(Frame, is_written_as_a_decimal_number) {
    EXPECT_EQ(written(Frame(4294967295u)), QString("4294967295"));
    EXPECT_EQ(Frame(7), Frame(7));
    EXPECT_NE(Frame(7), Frame(8));
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

class ViewPrefix : public testing::TestWithParam<char const *> {};

TEST_P(ViewPrefix, other_text_is_left_alone) {
    QString const before = QString::fromUtf8(GetParam());
    QString text = before;
    EXPECT_FALSE(View::extractStringPrefix(text).isValid());
    EXPECT_EQ(text, before);
}

INSTANTIATE_TEST_SUITE_P(That, ViewPrefix,
                         testing::Values("", "view", "view[", "view[1", "view[1]", "view[]. ", "view[-1].", "view[+1].",
                                         "view[ 1].", "view[1 ].", "view[1.0].", "view[0x1].", "View[1].", " view[1].",
                                         "views=[1]", "view[2147483648].", "view[99999999999999999999].",
                                         "view[\xD9\xA1]."));

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
    struct Case {
        double time;
        unsigned int frame;
    };
    Case const cases[] = {{7.999, 7},
                          {0.5, 0},
                          {-0.5, 0},
                          {-7.0, 0},
                          {1e300, 0xFFFFFFFFu},
                          {4294967295.5, 0xFFFFFFFFu},
                          {NOT_A_NUMBER, 0},
                          {-HUGE_VAL, 0},
                          {HUGE_VAL, 0xFFFFFFFFu}};
    for (Case const & one : cases)
        EXPECT_EQ(Context(Time(one.time), View(), ProxyScale::NONE).toFrame(), Frame(one.frame)) << one.time;
}

TEST(KeyframeIndex, null_one_is_told_by_its_view) {
    KeyframeIndex index;
    EXPECT_TRUE(index.isNull());
    EXPECT_EQ(index.parameter, nullptr);
    EXPECT_EQ(index.view.id(), -1);
    EXPECT_EQ(index.index, 0u);
    EXPECT_EQ(index.toContext(), Context());
    index.view = View(0);
    EXPECT_FALSE(index.isNull());
}

TEST(KeyframeIndex, context_is_asked_of_the_parameter) {
    Kyn::Parameter<double> parameter(true, "p");
    parameter.setValue(1.0, Context(Time(2.5), View(), ProxyScale::FULL));
    EXPECT_EQ((KeyframeIndex{&parameter, View(0), 0}.toContext()), Context(Time(2.5), View(0), ProxyScale::NONE));
    EXPECT_EQ((KeyframeIndex{&parameter, View(0), 1}.toContext()), Context(Time(0.0), View(0), ProxyScale::NONE));
}

TEST(BoundingKeyframes, are_null_when_both_are) {
    KeyframeIndex const null;
    KeyframeIndex const key{nullptr, View(0), 0};
    EXPECT_TRUE(Kyn::BoundingKeyframes(null, null).isNull());
    EXPECT_FALSE(Kyn::BoundingKeyframes(key, null).isNull());
    EXPECT_FALSE(Kyn::BoundingKeyframes(null, key).isNull());
}

TEST(StreamVersion, compares_as_an_unsigned_number) {
    EXPECT_FALSE(Kyn::StreamVersion(1) >= Kyn::StreamVersion::anyViewList);
    EXPECT_TRUE(Kyn::StreamVersion(2) >= Kyn::StreamVersion::anyViewList);
    EXPECT_TRUE(Kyn::StreamVersion(0x80000000u) >= Kyn::StreamVersion::anyViewList);
}

TEST(ModeWords, and_numbers_are_inverse) {
    for (unsigned int const number : {0u, 1u, 2u, 3u, 4u, 5u, 99u, 0x80000000u, 0xFFFFFFFFu}) {
        Kyn::Interpolation type = Kyn::INTERPOLATION_LINEAR;
        Kyn::Extrapolation mode = Kyn::EXTRAPOLATION_LINEAR;
        ASSERT_TRUE(bStringToInterpolationType(qstrInterpolationTypeString(Kyn::Interpolation(number)), type));
        ASSERT_TRUE(bStringToExtrapolationType(qstrExtrapolationTypeString(Kyn::Extrapolation(number)), mode));
        EXPECT_EQ(type, number);
        EXPECT_EQ(mode, number);
    }
    EXPECT_EQ(qstrInterpolationTypeString(Kyn::INTERPOLATION_BEZIER), QString("Bezier"));
    EXPECT_EQ(qstrInterpolationTypeString(Kyn::Interpolation(5)), QString("Custom1"));
    EXPECT_EQ(qstrExtrapolationTypeString(Kyn::Extrapolation(3)), QString("Custom0"));
}

TEST(ModeWords, unknown_word_leaves_the_output_alone) {
    for (QString const word : {"", "bezier", "Bezier ", " Linear", "Custom", "Custom-1", "Custom01", "Custom4294967292",
                               "Custom99999999999", "Linear)", "1"}) {
        Kyn::Interpolation type = Kyn::Interpolation(77);
        EXPECT_FALSE(bStringToInterpolationType(word, type)) << word.toStdString();
        EXPECT_EQ(type, 77u);
    }
    Kyn::Extrapolation mode = Kyn::Extrapolation(77);
    EXPECT_FALSE(bStringToExtrapolationType("Bezier", mode));
    EXPECT_EQ(mode, 77u);
}

TEST(ProxyScale, does_not_change_a_value) {
    Kyn::NumericParameter<double> parameter(true, "p");
    parameter.setValue(3.0, Context(Frame(1), View(), ProxyScale::QUARTER));
    for (ProxyScale const scale : {ProxyScale::FULL, ProxyScale::HALF, ProxyScale::QUARTER, ProxyScale::NONE})
        EXPECT_EQ(parameter.value(Context(Frame(1), View(), scale)), 3.0);
}

} // namespace
