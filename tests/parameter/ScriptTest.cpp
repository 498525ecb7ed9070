#include "parameter/kyn/ScopedSignalPermit.h"
#include "parameter/support/MemberTypes.h"
#include "parameter/support/ParameterTest.h"
#include "parameter/support/ScriptLines.h"

#include <algorithm>
#include <random>
#include <stdexcept>

namespace {

using namespace Kyn;
using namespace Test;

NumericParameter<double> number(bool bAnimatable = true) {
    NumericParameter<double> parameter(bAnimatable, "Opacity", 0.0, 0.0, 10.0, INTERPOLATION_LINEAR,
                                       EXTRAPOLATION_CONSTANT);
    parameter.setSplittable(true);
    return parameter;
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

TEST(ScriptWriting, view_zero_alone_and_static_is_one_line_and_all_else_takes_the_long_form) {
    NumericParameter<double> animatable = number();
    EXPECT_EQ(scriptOf(animatable), "value=0\nbefore=Constant\nafter=Constant");
    animatable.setValue(3, at(2));
    EXPECT_EQ(scriptOf(animatable),
              "views=[0]\nkeyframes.append( Key( 2, 3, Linear ) )\nbefore=Constant\nafter=Constant");
    NumericParameter<double> fixed = number(false);
    fixed.setValue(0.5, at(0));
    EXPECT_EQ(scriptOf(fixed), "value=0.5");
    NumericParameter<double> other = number(false);
    other.setValue(2, at(0, 7));
    EXPECT_EQ(scriptOf(other), "views=[7]\nview[7].value=2");
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

/// What a parameter writes on a stream of some format.
template <class P, class Format>
QStringList writtenOn(P & parameter, Format const & format) {
    QString text;
    QTextStream stream(&text);
    format(stream);
    parameter.bStreamOut(stream, "", false);
    stream.flush();
    return text.split('\n');
}

TEST(ScriptWriting, value_lines_follow_the_stream_and_key_lines_do_not) {
    auto const exact = [](QTextStream & stream) { stream.setRealNumberPrecision(17); };
    auto const hexadecimal = [](QTextStream & stream) { stream.setIntegerBase(16); };
    NumericParameter<double> fixed = number(false);
    fixed.setValue(0.1, at(0));
    EXPECT_EQ(writtenOn(fixed, exact)[0], "value=0.10000000000000001");
    NumericParameter<double> keyed = number();
    keyed.setValue(0.1, at(1234567));
    EXPECT_EQ(writtenOn(keyed, exact)[1], "keyframes.append( Key( 1.23457e+06, 0.1, Linear ) )");
    Parameter<int> whole(false, "Whole");
    whole.setSplittable(true);
    whole.setValue(255, at(0, 16));
    EXPECT_EQ(writtenOn(whole, hexadecimal), QStringList({"views=[16]", "view[16].value=ff", ""}));
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

// Reading

struct Line {
    char const * text;
    char const * script; ///< Of an animatable QString parameter with the value "x" that was given the line.
};

struct Outcome {
    bool understood;
    std::string script;
};

Outcome outcomeOf(QString const & line) {
    Parameter<QString> parameter(true, "Text");
    parameter.setStaticValue("x", View(0));
    bool const understood = parameter.setFromScriptString(line, BEFORE_VIEW_LISTS);
    EXPECT_FALSE(parameter.signalsBlocked());
    return {understood, linesOf(parameter).join('|').toStdString()};
}

class UnderstoodLine : public testing::TestWithParam<Line> {};

TEST_P(UnderstoodLine, leaves_the_state) {
    Outcome const outcome = outcomeOf(GetParam().text);
    EXPECT_TRUE(outcome.understood);
    EXPECT_EQ(outcome.script, GetParam().script);
}

INSTANTIATE_TEST_SUITE_P(OfAValue, UnderstoodLine,
                         testing::Values(Line{"value=a=b", "value=\"a=b\"|before=None|after=None"},
                                         Line{"value=\"\"quoted\"\"", "value=\"\"quoted\"\"|before=None|after=None"},
                                         Line{"value=\"", "value=\"\"|before=None|after=None"},
                                         Line{"value=\"half", "value=\"\"half\"|before=None|after=None"},
                                         Line{"VALUE=y", "value=\"y\"|before=None|after=None"},
                                         Line{"valueless=z", "value=\"z\"|before=None|after=None"},
                                         Line{"value", "value=\"\"|before=None|after=None"}));

INSTANTIATE_TEST_SUITE_P(OfAFlagOrMode, UnderstoodLine,
                         testing::Values(Line{"HIDDEN=1", "value=\"x\"|hidden=1|before=None|after=None"},
                                         Line{"hidden=1=0", "value=\"x\"|hidden=1|before=None|after=None"},
                                         Line{"hidden=-3", "value=\"x\"|hidden=1|before=None|after=None"},
                                         Line{"Before=Linear", "value=\"x\"|before=Linear|after=None"},
                                         Line{"after=Custom2=Linear", "value=\"x\"|before=None|after=Custom2"}));

#define KEYED(line) "views=[0]|keyframes.append( " line " )|before=None|after=None"
INSTANTIATE_TEST_SUITE_P(
    OfAKey, UnderstoodLine,
    testing::Values(
        Line{"keyframes.append( Key( 1, y, Linear ) )", KEYED("Key( 1, \"y\", Linear )")},
        Line{"KEYFRAMES(Key(1,y,Linear", KEYED("Key( 1, \"y\", Linear )")},
        Line{"view[0].keyframes.append( Key( soon, \"a, b)\", Straight ) )", KEYED("Key( 0, \"a, b)\", Constant )")},
        Line{"keyframes.append( Key( 16777217, y, Bezier ) )", KEYED("BezierKey( 1.67772e+07, \"y\", 0, 0, 0, 0 )")},
        Line{"keyframes.append( BezierKey( 2, y, 1e400, x, 3, 4 ))) )", KEYED("BezierKey( 2, \"y\", inf, 0, 3, 4 )")}));
#undef KEYED

TEST(ScriptReading, leaves_the_state_where_a_line_is_refused_or_says_nothing) {
    std::string const unchanged = "value=\"x\"|before=None|after=None";
    for (char const * nothing :
         {"hidden=0x1", "hidden=yes", "after=linear", "before=", "views=[5, 6]", "viewsanything"}) {
        EXPECT_TRUE(outcomeOf(nothing).understood) << nothing;
        EXPECT_EQ(outcomeOf(nothing).script, unchanged) << nothing;
    }
    for (char const * refused :
         {"Views=[0]", "view[1].views=[0]", "", " value=y", "view[-1].value=y", "view[1]value=y",
          "view[2147483648].value=y", "comment", "keyframes", "keyframes.append( )", "keyframes.append( Key( 1, y ) )",
          "keyframes.append( BezierKey( 1, y, 1, 2, 3 ) )", "keyframes.append( Key( 1, \"BezierKey\", Linear ) )"}) {
        EXPECT_FALSE(outcomeOf(refused).understood) << refused;
        EXPECT_EQ(outcomeOf(refused).script, unchanged) << refused;
    }
}

TEST(ScriptReading, key_times_pass_through_single_precision) {
    NumericParameter<double> parameter = number();
    readLines(parameter, {"keyframes.append( Key( 16777217, 1, Linear ) )", "keyframes.append( Key( 0.1, 2, Linear ) )",
                          "view[1].keyframes.append( Key( 16777217, 1, Linear ) )"});
    EXPECT_EQ(timesOf(parameter), (Times{static_cast<double>(0.1f), 16777216}));
    EXPECT_EQ(timesOf(parameter, 1), Times{16777216});
}

TEST(ScriptReading, key_behind_a_moved_one_has_its_own_record_and_leaves_that_of_the_last_alone) {
    NumericParameter<double> parameter = number();
    setKeys(parameter, {0, 1, 2});
    parameter.moveChangeKeyframe(9, at(0), Time(1.5)); // Leaves one more record than keys.
    InterpolationData const byHand{INTERPOLATION_BEZIER, 1, 2, 3, 4};
    parameter.setInterpolationData(byHand, 2, View(0));
    readLines(parameter, {"keyframes.append( Key( 4, 1, Constant ) )"});
    EXPECT_EQ(recordOf(parameter, 2), byHand);
    EXPECT_EQ(recordOf(parameter, 3).eType, INTERPOLATION_CONSTANT);
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

TEST(ScriptReading, lines_for_what_cannot_be_animated_or_split_go_to_its_only_value_or_view) {
    NumericParameter<double> fixed = number(false);
    readLines(fixed, {"keyframes.append( Key( 3, 20, Linear ) )"});
    EXPECT_EQ(linesOf(fixed), QStringList("value=20"));
    NumericParameter<double> single = number();
    single.setSplittable(false);
    readLines(single, {"view[3].value=4", "view[5].keyframes.append( Key( 1, 2, Linear ) )"});
    EXPECT_EQ(idsOf(single), Ids{0});
    EXPECT_EQ(single.staticValue(View(0)), 4);
    EXPECT_EQ(timesOf(single), Times{1});
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

TEST(ScriptReading, views_and_unprefixed_value_lines_clear_all_views_since_there_are_lists) {
    auto const clears = [](QString const & line, StreamVersion const & version) {
        NumericParameter<double> parameter = number();
        setKeys(parameter, {1});
        setKeys(parameter, {1}, 3);
        ChangeRecorder recorder(parameter);
        parameter.setFromScriptString(line, version);
        EXPECT_TRUE(recorder.take().empty()) << line.toStdString();
        bool const kept = parameter.isKeyframe(at(1)) && parameter.isKeyframe(at(1, 3)) && parameter.isSplit();
        bool const cleared = !parameter.isKeyframe(at(1)) && !parameter.isSplit();
        EXPECT_NE(kept, cleared) << line.toStdString();
        return cleared;
    };
    for (char const * line : {"views=[3]", "value=8", "Value=8"}) {
        EXPECT_TRUE(clears(line, PRESENT)) << line;
        EXPECT_TRUE(clears(line, StreamVersion(StreamVersion::anyViewList + 5))) << line;
        EXPECT_FALSE(clears(line, BEFORE_VIEW_LISTS)) << line;
    }
    for (char const * line : {"view[0].value=8", "view[4].value=8", "keyframes.append( Key( 5, 1, Linear ) )",
                              "keyframes.append( Key( 5, 1 ) )", "hidden=0", "before=Linear", "MasterParameterId=x"})
        EXPECT_FALSE(clears(line, PRESENT)) << line;
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
    auto const filter = [&parameter](QString const & text) {
        EXPECT_TRUE(parameter.setFromScriptString("hidden=1", PRESENT));
        EXPECT_TRUE(parameter.signalsBlocked());
        return text;
    };
    EXPECT_TRUE(parameter.setFromScriptString("keyframes.append( Key( 1, 2, Linear ) )", PRESENT, filter));
    EXPECT_TRUE(parameter.isHidden());
}

} // namespace
