#include "parameter/NumericParameter.h"
#include "parameter/kyn/ScopedSignalPermit.h"
#include "parameter/support/At.h"
#include "parameter/support/ChangeRecorder.h"
#include "parameter/support/MemberTypes.h"
#include "parameter/support/ScriptLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>

namespace {

using namespace Kyn;
using Test::at;
using Test::BEFORE_VIEW_LISTS;
using Test::ChangeRecorder;
using Test::Changes;
using Test::linesOf;
using Test::PRESENT;
using Test::readLines;
using Test::sampleValues;
using Test::scriptOf;

NumericParameter<double> number(bool bAnimatable = true) {
    NumericParameter<double> parameter(bAnimatable, "Opacity", 0.0, 0.0, 10.0, INTERPOLATION_LINEAR,
                                       EXTRAPOLATION_CONSTANT);
    parameter.setSplittable(true);
    return parameter;
}

InterpolationData recordOf(ParameterWithoutType const & parameter, unsigned int index, int view = 0) {
    return parameter.interpolationData({const_cast<ParameterWithoutType *>(&parameter), View(view), index});
}

// Writing

TEST(ScriptWriting, animated_views_write_a_list_and_their_keys) {
    NumericParameter<double> opacity = number();
    opacity.setDefaultInterpolation(INTERPOLATION_BEZIER);
    opacity.setValue(0.5, at(1));
    opacity.setDefaultInterpolation(INTERPOLATION_LINEAR);
    opacity.setValue(0.75, at(10));
    opacity.setDefaultInterpolation(INTERPOLATION_CONSTANT);
    opacity.setValue(0.25, at(1, 1));
    QStringList const keyed{"Opacity.views=[0, 1]",
                            "Opacity.keyframes.append( BezierKey( 1, 0.5, 0.9, 0.025, -0.9, -0.025 ) )",
                            "Opacity.keyframes.append( Key( 10, 0.75, Linear ) )",
                            "Opacity.view[1].keyframes.append( Key( 1, 0.25, Constant ) )",
                            "Opacity.before=Constant",
                            "Opacity.after=Constant"};
    EXPECT_EQ(linesOf(opacity, "", true), keyed);
    opacity.deleteKeyframe(at(1, 1));
    EXPECT_EQ(linesOf(opacity, "", true)[3], "Opacity.view[1].value=0.25");
}

TEST(ScriptWriting, single_animated_view_writes_the_list_and_no_value) {
    NumericParameter<double> opacity = number();
    opacity.setValue(3, at(2));
    EXPECT_EQ(scriptOf(opacity), "views=[0]\nkeyframes.append( Key( 2, 3, Linear ) )\nbefore=Constant\nafter=Constant");
}

TEST(ScriptWriting, single_static_view_is_one_line_and_its_modes) {
    NumericParameter<double> animatable = number();
    EXPECT_EQ(scriptOf(animatable), "value=0\nbefore=Constant\nafter=Constant");
    NumericParameter<double> fixed = number(false);
    fixed.setValue(0.5, at(0));
    EXPECT_EQ(linesOf(fixed, "", true), QStringList("Opacity.value=0.5"));
}

TEST(ScriptWriting, other_single_view_takes_the_long_form) {
    NumericParameter<double> fixed = number(false);
    fixed.setValue(2, at(0, 7));
    EXPECT_EQ(scriptOf(fixed), "views=[7]\nview[7].value=2");
}

TEST(ScriptWriting, prefix_name_flag_and_hidden_mark) {
    NumericParameter<double> fixed = number(false);
    EXPECT_EQ(linesOf(fixed, "Set.", true), QStringList("Set.Opacity.value=0"));
    EXPECT_EQ(linesOf(fixed, "Set.", false), QStringList("Set.value=0"));
    fixed.setScriptName("");
    fixed.hide(true);
    EXPECT_EQ(linesOf(fixed, "Set.", true), QStringList({"Set.value=0", "Set.hidden=1"}));
}

TEST(ScriptWriting, constrained_parameter_writes_its_own_data_and_its_master) {
    NumericParameter<double> master = number(false);
    NumericParameter<double> parameter = number();
    master.setScriptName("Master");
    master.setValue(9, at(0));
    parameter.setExtrapolationAfter(EXTRAPOLATION_LINEAR);
    ASSERT_TRUE(master.bAddConstrainedParameter(&parameter));
    EXPECT_EQ(scriptOf(parameter), "value=0\nbefore=Constant\nafter=Linear\nMasterParameterId=Master");
}

TEST(ScriptWriting, value_lines_follow_the_stream_and_key_lines_do_not) {
    NumericParameter<double> parameter = number();
    auto const written = [&parameter](auto set) {
        QString text;
        QTextStream stream(&text);
        set(stream);
        parameter.bStreamOut(stream, "", false);
        stream.flush();
        return text.section('\n', 0, 1).toStdString();
    };
    auto const exact = [](QTextStream & stream) { stream.setRealNumberPrecision(17); };
    auto const fixed = [](QTextStream & stream) {
        stream.setRealNumberNotation(QTextStream::FixedNotation);
        stream.setRealNumberPrecision(2);
    };
    parameter.importState(number(false).exportState());
    parameter.setValue(0.1, at(0));
    EXPECT_EQ(written(exact).substr(0, 25), "value=0.10000000000000001");
    EXPECT_EQ(written(fixed).substr(0, 10), "value=0.10");
    parameter = number();
    parameter.setValue(0.1, at(1234567));
    EXPECT_EQ(written(exact), "views=[0]\nkeyframes.append( Key( 1.23457e+06, 0.1, Linear ) )");
    EXPECT_EQ(written(fixed), "views=[0]\nkeyframes.append( Key( 1.23457e+06, 0.1, Linear ) )");

    Parameter<int> whole(false, "Whole");
    whole.setSplittable(true);
    whole.setValue(255, at(0, 16));
    QString text;
    QTextStream stream(&text);
    stream.setIntegerBase(16);
    whole.bStreamOut(stream, "", false);
    stream.flush();
    EXPECT_EQ(text.toStdString(), "views=[16]\nview[16].value=ff\n");
}

// Every type

template <class T>
class ScriptOf : public testing::Test {
protected:
    static Parameter<T> fresh(bool bAnimatable) {
        Parameter<T> parameter(bAnimatable, QStringLiteral("Name"), sampleValues<T>().back(), INTERPOLATION_NONE,
                               EXTRAPOLATION_NONE);
        parameter.setSplittable(true);
        return parameter;
    }
};
TYPED_TEST_SUITE(ScriptOf, Test::MemberTypes);

TYPED_TEST(ScriptOf, each_value_comes_back_from_value_and_key_lines) {
    for (bool const bAnimatable : {false, true}) {
        for (TypeParam const & value : sampleValues<TypeParam>()) {
            Parameter<TypeParam> parameter = this->fresh(bAnimatable);
            Parameter<TypeParam> again = this->fresh(bAnimatable);
            parameter.setValue(value, at(0.5));
            readLines(again, linesOf(parameter));
            EXPECT_EQ(again.value(at(0.5)), value) << scriptOf(parameter);
            EXPECT_EQ(again.numKeyframes(View(0)), bAnimatable ? 1u : 0u);
        }
    }
}

TYPED_TEST(ScriptOf, written_read_and_written_again_is_the_same_text) {
    std::mt19937 random(11);
    auto const below = [&random](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    std::vector<TypeParam> const values = sampleValues<TypeParam>();
    auto const anyValue = [&]() -> TypeParam { return values[random() % values.size()]; };
    constexpr int VIEWS[] = {0, 1, 7, 2147483647};
    for (int round = 0; round < 100; ++round) {
        bool const bAnimatable = below(4) > 0;
        Parameter<TypeParam> parameter = this->fresh(bAnimatable);
        for (int const view : VIEWS) {
            if (below(2))
                continue;
            parameter.setStaticValue(anyValue(), View(view));
            for (int keys = below(6); bAnimatable && keys > 0; --keys) {
                double const time = below(40000) * 0.25 - 5000;
                unsigned int const index = parameter.setValue(anyValue(), at(time, view));
                auto const handle = [&] { return below(2000) * 0.001 - 1; };
                parameter.setInterpolationData(
                    {static_cast<Interpolation>(below(7)), handle(), handle(), handle(), handle()}, index, View(view));
            }
        }
        parameter.setExtrapolationBefore(static_cast<Extrapolation>(below(5)));
        parameter.setExtrapolationAfter(static_cast<Extrapolation>(below(5)));
        parameter.hide(below(2) == 1);
        QStringList const lines = linesOf(parameter);
        Parameter<TypeParam> again = this->fresh(bAnimatable);
        readLines(again, lines);
        ASSERT_EQ(scriptOf(again), lines.join("\n").toStdString());
        ASSERT_EQ(again.views(), parameter.views());
    }
}

TYPED_TEST(ScriptOf, serialised_keyframe_is_the_key_line_and_goes_to_the_same_type_only) {
    Parameter<TypeParam> parameter = this->fresh(true);
    parameter.setValue(sampleValues<TypeParam>()[1], at(3, 2));
    auto const key = parameter.serialisedKeyframe(at(3, 2));
    ASSERT_TRUE(key);
    EXPECT_EQ(key->toString(), linesOf(parameter)[1]);
    EXPECT_FALSE(parameter.serialisedKeyframe(at(3.5, 2)));
    Parameter<TypeParam> same = this->fresh(true);
    key->vShiftTime(1.5f);
    same.addSerialisedKeyframe(*key);
    EXPECT_EQ(same.value(at(4.5, 2)), sampleValues<TypeParam>()[1]);
    Parameter<double> real(true, "Real");
    Parameter<QString> text(true, "Text");
    ParameterWithoutType & other = std::is_same_v<TypeParam, double> ? static_cast<ParameterWithoutType &>(text) : real;
    EXPECT_THROW(other.addSerialisedKeyframe(*key), std::bad_cast);
}

// Reading

struct Line {
    char const * text;
    bool understood;
    char const * script; ///< Of an animatable QString parameter with the value "x" that was given the line.
};

std::ostream & operator<<(std::ostream & stream, Line const & row) {
    return stream << row.text;
}

class ReadLine : public testing::TestWithParam<Line> {};

TEST_P(ReadLine, leaves_the_state) {
    Parameter<QString> parameter(true, "Text");
    parameter.setStaticValue("x", View(0));
    EXPECT_EQ(parameter.setFromScriptString(GetParam().text, BEFORE_VIEW_LISTS), GetParam().understood);
    EXPECT_EQ(linesOf(parameter).join('|').toStdString(), GetParam().script);
    EXPECT_FALSE(parameter.signalsBlocked());
}

#define UNCHANGED "value=\"x\"|before=None|after=None"
INSTANTIATE_TEST_SUITE_P(
    , ReadLine,
    testing::Values(
        Line{"value=a=b", true, "value=\"a=b\"|before=None|after=None"},
        Line{"value=\"\"quoted\"\"", true, "value=\"\"quoted\"\"|before=None|after=None"},
        Line{"value=\"", true, "value=\"\"|before=None|after=None"},
        Line{"value=\"half", true, "value=\"\"half\"|before=None|after=None"},
        Line{"VALUE=y", true, "value=\"y\"|before=None|after=None"},
        Line{"valueless=z", true, "value=\"z\"|before=None|after=None"},
        Line{"value", true, "value=\"\"|before=None|after=None"},
        Line{"HIDDEN=1", true, "value=\"x\"|hidden=1|before=None|after=None"},
        Line{"hidden=1=0", true, "value=\"x\"|hidden=1|before=None|after=None"}, Line{"hidden=0x1", true, UNCHANGED},
        Line{"hidden=-3", true, "value=\"x\"|hidden=1|before=None|after=None"}, Line{"hidden=yes", true, UNCHANGED},
        Line{"Before=Linear", true, "value=\"x\"|before=Linear|after=None"},
        Line{"after=Custom2=Linear", true, "value=\"x\"|before=None|after=Custom2"},
        Line{"after=linear", true, UNCHANGED}, Line{"before=", true, UNCHANGED}, Line{"views=[5, 6]", true, UNCHANGED},
        Line{"viewsanything", true, UNCHANGED}, Line{"Views=[0]", false, UNCHANGED},
        Line{"view[1].views=[0]", false, UNCHANGED}, Line{"", false, UNCHANGED}, Line{" value=y", false, UNCHANGED},
        Line{"view[-1].value=y", false, UNCHANGED}, Line{"view[1]value=y", false, UNCHANGED},
        Line{"view[2147483648].value=y", false, UNCHANGED}, Line{"comment", false, UNCHANGED},
        Line{"keyframes", false, UNCHANGED}, Line{"keyframes.append( )", false, UNCHANGED},
        Line{"keyframes.append( Key( 1, y ) )", false, UNCHANGED},
        Line{"keyframes.append( BezierKey( 1, y, 1, 2, 3 ) )", false, UNCHANGED},
        Line{"keyframes.append( Key( 1, \"BezierKey\", Linear ) )", false, UNCHANGED},
        Line{"keyframes.append( Key( 1, y, Linear ) )", true,
             "views=[0]|keyframes.append( Key( 1, \"y\", Linear ) )|before=None|after=None"},
        Line{"Keyframes.append( Key( 1, y, Linear ) )", true,
             "views=[0]|keyframes.append( Key( 1, \"y\", Linear ) )|before=None|after=None"},
        Line{"KEYFRAMES(Key(1,y,Linear", true,
             "views=[0]|keyframes.append( Key( 1, \"y\", Linear ) )|before=None|after=None"},
        Line{"view[0].keyframes.append( Key( soon, \"a, b)\", Straight ) )", true,
             "views=[0]|keyframes.append( Key( 0, \"a, b)\", Constant ) )|before=None|after=None"},
        Line{"keyframes.append( Key( 16777217, y, Bezier ) )", true,
             "views=[0]|keyframes.append( BezierKey( 1.67772e+07, \"y\", 0, 0, 0, 0 ) )|before=None|after=None"},
        Line{"keyframes.append( BezierKey( 2, y, 1e400, x, 3, 4 ))) )", true,
             "views=[0]|keyframes.append( BezierKey( 2, \"y\", inf, 0, 3, 4 ) )|before=None|after=None"}));
#undef UNCHANGED

TEST(ScriptReading, key_times_pass_through_single_precision) {
    NumericParameter<double> parameter = number();
    readLines(parameter,
              {"keyframes.append( Key( 16777217, 1, Linear ) )", "keyframes.append( Key( 0.1, 2, Linear ) )"});
    EXPECT_TRUE(parameter.isKeyframe(at(16777216)));
    EXPECT_TRUE(parameter.isKeyframe(at(static_cast<double>(0.1f))));
    EXPECT_FALSE(parameter.isKeyframe(at(0.1)));
}

TEST(ScriptReading, stores_past_the_limits_and_value_limits_what_it_gives) {
    NumericParameter<double> parameter = number();
    readLines(parameter, {"value=77", "view[1].value=-5", "keyframes.append( Key( 3, 20, Linear ) )"});
    EXPECT_EQ(parameter.staticValue(View(0)), 77);
    EXPECT_EQ(parameter.staticValue(View(1)), -5);
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 20);
    EXPECT_EQ(parameter.value(at(3)), 10);
    readLines(parameter, {"keyframes.append( Key( 3, 30, Linear ) )"});
    EXPECT_EQ(parameter.keyframeValue(0, View(0)), 30);
}

TEST(ScriptReading, key_line_for_what_cannot_be_animated_is_its_value) {
    NumericParameter<double> parameter = number(false);
    readLines(parameter, {"keyframes.append( Key( 3, 20, Linear ) )"});
    EXPECT_EQ(linesOf(parameter), QStringList("value=20"));
}

TEST(ScriptReading, lines_for_views_of_what_cannot_split_go_to_view_zero) {
    NumericParameter<double> parameter = number();
    parameter.setSplittable(false);
    readLines(parameter, {"view[3].value=4", "view[5].keyframes.append( Key( 1, 2, Linear ) )"});
    EXPECT_EQ(parameter.views(), std::vector<View>{View(0)});
    EXPECT_EQ(parameter.staticValue(View(0)), 4);
    EXPECT_EQ(parameter.numKeyframes(View(0)), 1u);
}

TEST(ScriptReading, handles_stay_as_read_in_any_order_of_lines) {
    QStringList lines{"keyframes.append( BezierKey( 1, 0.5, 3, 4, 5, 6 ) )",
                      "keyframes.append( BezierKey( 4, 1, 7, 8, 9, 10 ) )", "keyframes.append( Key( 9, 2, None ) )",
                      "keyframes.append( BezierKey( 12, 1, -1, -2, -3, -4 ) )"};
    std::sort(lines.begin(), lines.end());
    QStringList const sorted = lines;
    do {
        NumericParameter<double> parameter = number();
        parameter.setDefaultInterpolation(INTERPOLATION_BEZIER);
        readLines(parameter, lines);
        QStringList written = linesOf(parameter).mid(1, 4);
        std::sort(written.begin(), written.end());
        ASSERT_EQ(written, sorted);
    } while (std::next_permutation(lines.begin(), lines.end()));
}

TEST(ScriptReading, later_line_for_the_same_time_replaces_the_key) {
    NumericParameter<double> parameter = number();
    readLines(parameter, {"keyframes.append( BezierKey( 1, 0.5, 3, 4, 5, 6 ) )",
                          "keyframes.append( Key( 2, 9, Linear ) )", "keyframes.append( Key( 1, 7, Linear ) )"});
    EXPECT_EQ(linesOf(parameter)[1], "keyframes.append( Key( 1, 7, Linear ) )");
    EXPECT_EQ(recordOf(parameter, 0), withoutHandles(INTERPOLATION_LINEAR));
    EXPECT_EQ(parameter.numKeyframes(View(0)), 2u);
}

struct Clearing {
    char const * line;
    StreamVersion version;
    bool clears;
};

TEST(ScriptReading, views_and_unprefixed_value_lines_clear_all_views_since_there_are_lists) {
    StreamVersion const later(StreamVersion::anyViewList + 5);
    for (Clearing const & row : {Clearing{"views=[3]", PRESENT, true},
                                 {"views=[3]", later, true},
                                 {"views=[3]", BEFORE_VIEW_LISTS, false},
                                 {"value=8", PRESENT, true},
                                 {"Value=8", later, true},
                                 {"value=8", BEFORE_VIEW_LISTS, false},
                                 {"view[0].value=8", PRESENT, false},
                                 {"view[4].value=8", PRESENT, false},
                                 {"keyframes.append( Key( 5, 1, Linear ) )", PRESENT, false},
                                 {"keyframes.append( Key( 5, 1 ) )", PRESENT, false},
                                 {"hidden=0", PRESENT, false},
                                 {"before=Linear", PRESENT, false},
                                 {"MasterParameterId=x", PRESENT, false}}) {
        NumericParameter<double> parameter = number();
        parameter.setValue(1, at(1));
        parameter.setValue(2, at(1, 3));
        ChangeRecorder recorder(parameter);
        parameter.setFromScriptString(row.line, row.version);
        EXPECT_EQ(parameter.isKeyframe(at(1)) && parameter.isKeyframe(at(1, 3)), !row.clears) << row.line;
        EXPECT_TRUE(recorder.take().empty()) << row.line;
        EXPECT_EQ(parameter.numViews() > 1, !row.clears) << row.line;
    }
}

TEST(ScriptReading, master_is_named_and_not_yet_linked) {
    NumericParameter<double> parameter = number();
    readLines(parameter, {"masterparameterid=Clip[1].Opacity=5"});
    EXPECT_EQ(parameter.pendingMasterName(), "Clip[1].Opacity");
    EXPECT_FALSE(parameter.isConstrained());
}

// The source filter

TEST(SourceFilter, rewrites_values_and_nothing_else) {
    Parameter<QString> parameter(true, "Text");
    auto const filter = [](QString const & text) { return "<" + text + ">"; };
    EXPECT_TRUE(parameter.setFromScriptString("value=\"a=b\"", PRESENT, filter));
    EXPECT_EQ(parameter.value(at(0)), "<\"a=b\">");
    EXPECT_TRUE(parameter.setFromScriptString("keyframes.append( Key( 1, \"a, b\", Linear ) )", PRESENT, filter));
    EXPECT_EQ(parameter.value(at(1)), "<\"a, b\">");
    EXPECT_TRUE(parameter.setFromScriptString("before=Linear", PRESENT, filter));
    EXPECT_EQ(parameter.extrapolationBefore(), EXTRAPOLATION_LINEAR);
    auto const unquoted = [](QString const &) { return "\"other\""; };
    EXPECT_TRUE(parameter.setFromScriptString("value=\"a\"", PRESENT, unquoted));
    EXPECT_EQ(parameter.value(at(0)), "other");
}

TEST(SourceFilter, that_throws_leaves_the_parameter_and_its_signals_as_they_were) {
    auto const filter = [](QString const &) -> QString { throw std::domain_error("no such source"); };
    for (bool const blocked : {false, true}) {
        NumericParameter<double> parameter = number();
        parameter.setValue(1, at(1));
        parameter.setInterpolationData({INTERPOLATION_BEZIER, 5, 5, 5, 5}, 0, View(0));
        std::string const before = scriptOf(parameter);
        parameter.blockSignals(blocked);
        EXPECT_THROW(parameter.setFromScriptString("value=3", PRESENT, filter), std::domain_error);
        // What goes wrong within a key line, the filter included, is a refused line.
        EXPECT_FALSE(parameter.setFromScriptString("keyframes.append( Key( 1, 2, Linear ) )", PRESENT, filter));
        EXPECT_EQ(scriptOf(parameter), before);
        EXPECT_EQ(parameter.signalsBlocked(), blocked);
        // No longer loading: a key behind a Bezier key rebuilds its handles. No permit: nothing passes the block.
        ChangeRecorder recorder(parameter);
        ParameterChange read(ParameterChange::ScriptRead, parameter, 0);
        parameter.emitChange(read);
        EXPECT_EQ(recorder.take().size(), blocked ? 0u : 1u);
        parameter.setValue(2, at(11));
        EXPECT_EQ(recordOf(parameter, 0), (InterpolationData{INTERPOLATION_BEZIER, 1, 0.1, -1, -0.1}));
    }
}

TEST(SourceFilter, lives_while_signals_are_blocked_but_for_the_one_permitted) {
    NumericParameter<double> parameter = number();
    ChangeRecorder recorder(parameter);
    auto const filter = [&parameter](QString const & text) {
        EXPECT_TRUE(parameter.signalsBlocked());
        ParameterChange::valueChanged(parameter, View(0));
        ParameterChange read(ParameterChange::ScriptRead, parameter, 0);
        parameter.emitChange(read);
        EXPECT_TRUE(parameter.signalsBlocked());
        return text;
    };
    EXPECT_TRUE(parameter.setFromScriptString("value=3", PRESENT, filter));
    EXPECT_EQ(recorder.take(), Changes{{ParameterChange::ScriptRead}});
    EXPECT_FALSE(parameter.signalsBlocked());
}

TEST(SourceFilter, that_reads_another_line_of_the_parameter_does_not_end_the_outer_reading) {
    NumericParameter<double> parameter = number();
    ChangeRecorder recorder(parameter);
    auto const filter = [&parameter](QString const & text) {
        EXPECT_TRUE(parameter.setFromScriptString("hidden=1", PRESENT));
        EXPECT_TRUE(parameter.signalsBlocked());
        return text;
    };
    EXPECT_TRUE(parameter.setFromScriptString("keyframes.append( Key( 1, 2, Linear ) )", PRESENT, filter));
    EXPECT_TRUE(recorder.take().empty());
    EXPECT_TRUE(parameter.isHidden());
}

// Keyframes as text

typedef Parameter<double>::TypedSerialisedKeyframe DoubleKey;

TEST(SerialisedKeyframe, fresh_one_for_reading_stands_at_time_zero) {
    DoubleKey const key(View(3), {});
    EXPECT_EQ(key.context(), at(0, 3));
    EXPECT_EQ(key.data(), withoutHandles(INTERPOLATION_CONSTANT));
}

TEST(SerialisedKeyframe, of_the_default_context_is_an_empty_one_and_of_no_key_none) {
    NumericParameter<double> parameter = number();
    auto const empty = parameter.serialisedKeyframe(Context());
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->context(), Context());
    EXPECT_FALSE(parameter.serialisedKeyframe(at(1)));
    empty->fromString("keyframes.append( Key( 4, 5, Linear ) )");
    EXPECT_EQ(empty->context(), at(4));
    parameter.setValue(1, at(2));
    EXPECT_FALSE(parameter.serialisedKeyframe(at(2, 3)));
}

TEST(SerialisedKeyframe, carries_the_key_whatever_the_scale_asked_and_shifts_in_time) {
    NumericParameter<double> parameter = number();
    parameter.setValue(5, at(2, 1));
    parameter.setInterpolationData({INTERPOLATION_BEZIER, 1, 2, 3, 4}, 0, View(1));
    auto const key = parameter.serialisedKeyframe(Context(Time(2), View(1), ProxyScale::HALF));
    ASSERT_TRUE(key);
    EXPECT_EQ(key->context(), at(2, 1));
    key->vShiftTime(0.1f);
    EXPECT_EQ(key->context(), at(2 + static_cast<double>(0.1f), 1));
    EXPECT_EQ(key->toString(), "view[1].keyframes.append( BezierKey( 2.1, 5, 1, 2, 3, 4 ) )");
}

TEST(SerialisedKeyframe, pasted_outside_reading_is_limited_and_announced) {
    NumericParameter<double> parameter = number();
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

TEST(SerialisedKeyframe, reads_its_view_from_the_line_else_its_own_else_the_default) {
    for (int const own : {-1, 0, 4}) {
        DoubleKey key(View(own), {});
        key.fromString("view[2].keyframes.append( Key( 1, 2, Linear ) )");
        EXPECT_EQ(key.context(), at(1, 2));
        DoubleKey other(View(own), {});
        other.fromString("keyframes.append( Key( 1, 2, Linear ) )");
        EXPECT_EQ(other.context(), at(1, std::max(own, 0)));
    }
}

TEST(SerialisedKeyframe, unknown_word_leaves_the_type_and_a_key_its_handles) {
    DoubleKey key(at(1), 2, {INTERPOLATION_BEZIER, 1, 2, 3, 4});
    key.fromString("keyframes.append( Key( 7, 8, Wavy ) )");
    EXPECT_EQ(key.data(), (InterpolationData{INTERPOLATION_BEZIER, 1, 2, 3, 4}));
    key.fromString("keyframes.append( Key( 7, 8, Linear ) )");
    EXPECT_EQ(key.data(), (InterpolationData{INTERPOLATION_LINEAR, 1, 2, 3, 4}));
    key.fromString("keyframes.append( Key( 7, 8, Custom1 ) )");
    EXPECT_EQ(key.data().eType, 5u);
    EXPECT_EQ(key.value(), 8);
}

TEST(SerialisedKeyframe, refused_line_says_why_and_changes_nothing) {
    struct Row {
        char const * line;
        char const * message;
    };
    for (Row const & row :
         {Row{"value=3", "Cannot parse keyframe string 'value=3'"},
          {"view[2].key( 1, 2, Linear )", "Cannot parse keyframe string 'key( 1, 2, Linear )'"},
          {"", "Cannot parse keyframe string ''"},
          {"view[2].keyframes.append( Key( 1, 2 ) )", "Failed to parse Key() block: 'keyframes.append( Key( 1, 2 ) )'"},
          {"keyframes %1", "Failed to parse Key() block: 'keyframes %1'"},
          {"keyframes.append( BezierKey( 1 ) )", "Failed to parse Key() block: 'keyframes.append( BezierKey( 1 ) )'"},
          {"keyframes.append( BezierKey( 1, 2, 3, 4, 5 ) )",
           "Failed to parse BezierKey() block: 'keyframes.append( BezierKey( 1, 2, 3, 4, 5 ) )'"}}) {
        DoubleKey key(at(9, 4), 5, {INTERPOLATION_LINEAR, 1, 2, 3, 4});
        QString const before = key.toString();
        try {
            key.fromString(row.line);
            ADD_FAILURE() << row.line;
        } catch (std::runtime_error const & error) {
            EXPECT_STREQ(error.what(), row.message);
        }
        EXPECT_EQ(key.toString(), before);
        EXPECT_EQ(key.context(), at(9, 4));
    }
}

TEST(SerialisedKeyframe, declaration_comes_apart_from_both_ends) {
    using Kyn::detail::parseKeyframeDeclaration;
    EXPECT_EQ(parseKeyframeDeclaration("keyframes.append( Key( 1, 2, Linear ) )"), QStringList({"1", "2", "Linear"}));
    EXPECT_EQ(parseKeyframeDeclaration("Key(1,2,Linear)"), QStringList({"1", "2", "Linear"}));
    EXPECT_EQ(parseKeyframeDeclaration("BezierKey( 1, 2, 3, 4, 5, 6 )"), QStringList({"1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(parseKeyframeDeclaration("Key( 1, \"a, (b), 'c', \", Linear )"),
              QStringList({"1", "\"a, (b), 'c', \"", "Linear"}));
    EXPECT_EQ(parseKeyframeDeclaration("BezierKey( 1, \", ,\", 3, 4, 5, 6 )"),
              QStringList({"1", "\", ,\"", "3", "4", "5", "6"}));
    EXPECT_EQ(parseKeyframeDeclaration("Key( , , )"), QStringList({"", "", ""}));
    EXPECT_EQ(parseKeyframeDeclaration("Key( 1 )"), QStringList("1"));
    for (char const * nothing : {"", "Key", "keyframes", "Key(", "1, 2, Linear"})
        EXPECT_TRUE(parseKeyframeDeclaration(nothing).isEmpty()) << nothing;
}

TEST(SerialisedKeyframe, empty_filter_is_not_for_calling) {
    ParameterWithoutType::SourceFilter const filter;
    try {
        filter("text");
        ADD_FAILURE();
    } catch (std::exception const & error) {
        EXPECT_STREQ(error.what(), "call to empty boost::function");
    }
}

} // namespace
