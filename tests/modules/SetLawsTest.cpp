#include "modules/AllSets.h"
#include "modules/Disturb.h"
#include "parameter/support/ChangeRecorder.h"
#include "parameter/support/ScriptLines.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <set>

// What holds for every set of parameters, shown on all members of all sets.

namespace {

using Kyn::ParameterSet;
using Kyn::ParameterWithoutType;
using Test::at;
using Test::ChangeRecorder;
using Test::disturb;
using Test::linesOf;
using Test::PRESENT;
using Test::scriptOf;
using Test::SetKind;

// The exceptions, by set and by name of the parameter behind the set's own name; "*" stands for any text. Outside of
// these lists: the nulls of a layer's scene, which are shared, the caches of a lens and the parameter "Not Set" of the
// remove module, none of which is a member.

/// Members that copying or assigning leaves out.
std::multimap<std::string, QString> const LEFT_OUT_BY_COPY = {{"Insert", "*.*"}};
std::multimap<std::string, QString> const LEFT_OUT_BY_ASSIGNMENT = {
    {"Insert", "*.*"}, {"Camera", "SceneToCamera *"}, {"Camera", "LineLengthThreshold"}};
/// Sets whose copies go by the names of their source, and those whose copies show what a new one shows.
QStringList const NAMED_BY_COPY{"StereoCamera3D"};
QStringList const SHOWN_AS_NEW{"StereoCamera3D", "Tracking"};
/// References that follow to a new clip; all others are cleared.
QStringList const FOLLOWING{"InputClipID", "StabilizeClipID", "CalibrationClipID"};
/// Keys that are gone, but that old scripts still hold.
std::map<std::string, QStringList> const TAKEN_AND_NOT_WRITTEN = {
    {"Insert", {"Render"}},    {"Layer", {"Hidden", "Locked"}}, {"Matte", {"Render"}},  {"Remove", {"Render"}},
    {"Stabilize", {"Render"}}, {"Tracking", {"Render"}},        {"Warper", {"Render"}},
};
/// What follows a change of frame size. The names with a mark in front do so by width.
std::map<std::string, QStringList> const RESCALED = {
    {"Tracking",
     {"-MaxMotionX", "MaxMotionY", "-AutoMaxMotionX", "AutoMaxMotionY", "-interviewAutoMaxMotionX",
      "interviewAutoMaxMotionY"}},
    {"Insert", {"-Blur.FocusBlur"}},
    {"InsertBlur", {"-FocusBlur"}},
};

// Walks

/// A member with its name behind that of its set.
struct Named {
    QString name;
    ParameterWithoutType * parameter;
};

std::vector<Named> membersOf(ParameterSet const & set, QString const & prefix = QString()) {
    std::vector<Named> members;
    set.forEachParameter(
        [&](ParameterWithoutType * parameter) {
            members.push_back({prefix + parameter->scriptName(), parameter});
        },
        false);
    set.forEachSet([&](ParameterSet * nested, QString const & key) {
        for (Named const & member : membersOf(*nested, prefix + key + '.'))
            members.push_back(member);
    });
    return members;
}

bool isListed(std::multimap<std::string, QString> const & list, SetKind const & kind, QString const & name) {
    auto const [begin, end] = list.equal_range(kind.name);
    return std::any_of(begin, end, [&](auto const & entry) {
        QString const pattern =
            QRegularExpression::escape(entry.second).replace(QLatin1String("\\*"), QLatin1String(".*"));
        return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(name).hasMatch();
    });
}

/// Everything about a parameter that copying concerns, but for its faces: hidden flag and display name.
std::string stateOf(ParameterWithoutType & parameter) {
    QStringList lines = linesOf(parameter);
    lines.erase(std::remove_if(lines.begin(), lines.end(), [](auto const & line) { return line.contains("hidden="); }),
                lines.end());
    if (auto const number = dynamic_cast<Kyn::NumericParameterWithoutType *>(&parameter))
        lines << QString("%1 to %2").arg(number->dMinimum()).arg(number->dMaximum());
    lines << (parameter.isSplittable() ? "may be split" : "may not be split");
    return lines.join('\n').toStdString();
}

std::string faceOf(ParameterWithoutType const & parameter) {
    return (parameter.displayName() + (parameter.isHidden() ? " hidden" : " shown")).toStdString();
}

/// Tighter limits than a new parameter has.
void tighten(ParameterWithoutType & parameter) {
    if (auto const level = dynamic_cast<Kyn::NumericParameter<double> *>(&parameter))
        level->setMaximum(999);
    if (auto const amount = dynamic_cast<Kyn::NumericParameter<float> *>(&parameter))
        amount->setMaximum(amount->maximum() * 0.75f);
    if (auto const count = dynamic_cast<Kyn::NumericParameter<unsigned int> *>(&parameter))
        count->setMaximum(count->maximum() / 2);
}

class AllSets : public testing::TestWithParam<SetKind> {
protected:
    SetKind const kind = GetParam();
    std::unique_ptr<ParameterSet> const set = kind.make();
    std::unique_ptr<ParameterSet> const fresh = kind.make();

    VX::ClipBoundParameterSet & clipBound() { return dynamic_cast<VX::ClipBoundParameterSet &>(*set); }
    bool isClipBound() const { return dynamic_cast<VX::ClipBoundParameterSet *>(set.get()) != nullptr; }

    void disturbAll() {
        disturb(*set);
        for (Named const & member : membersOf(*set)) {
            tighten(*member.parameter);
            member.parameter->hide(!member.parameter->isHidden());
        }
        set->setScriptName("Other");
        set->setDisplayName("Long", "Short");
    }
};

// Copying

TEST_P(AllSets, copy_has_every_value_and_the_faces_of_a_new_set) {
    disturbAll();
    std::unique_ptr<ParameterSet> const copy = kind.copy(*set);
    ParameterSet const & namesake = NAMED_BY_COPY.contains(kind.name.c_str()) ? *set : *fresh;
    EXPECT_EQ(copy->scriptName(), namesake.scriptName());
    EXPECT_EQ(copy->displayName(), namesake.displayName());
    std::vector<Named> const sources = membersOf(*set), copies = membersOf(*copy), news = membersOf(*fresh);
    ASSERT_EQ(copies.size(), sources.size());
    for (std::size_t i = 0; i < sources.size(); ++i) {
        QString const & name = sources[i].name;
        bool const leftOut = isListed(LEFT_OUT_BY_COPY, kind, name);
        EXPECT_NE(stateOf(*sources[i].parameter), stateOf(*news[i].parameter)) << name.toStdString();
        EXPECT_EQ(stateOf(*copies[i].parameter), stateOf(*(leftOut ? news : sources)[i].parameter))
            << name.toStdString();
        bool const asNew = leftOut || SHOWN_AS_NEW.contains(kind.name.c_str());
        EXPECT_EQ(copies[i].parameter->isHidden(),
                  news[i].parameter->isHidden() || (!asNew && sources[i].parameter->isHidden()))
            << name.toStdString();
        EXPECT_EQ(copies[i].parameter->displayName(), news[i].parameter->displayName()) << name.toStdString();
    }
}

TEST_P(AllSets, assignment_takes_every_value_and_the_faces) {
    disturbAll();
    std::unique_ptr<ParameterSet> const target = kind.make();
    kind.assign(*target, *set);
    EXPECT_EQ(target->scriptName(), set->scriptName());
    EXPECT_EQ(target->displayName(), set->displayName());
    EXPECT_EQ(target->shortDisplayName(), set->shortDisplayName());
    std::vector<Named> const sources = membersOf(*set), targets = membersOf(*target), news = membersOf(*fresh);
    for (std::size_t i = 0; i < sources.size(); ++i) {
        QString const & name = sources[i].name;
        std::vector<Named> const & expected = isListed(LEFT_OUT_BY_ASSIGNMENT, kind, name) ? news : sources;
        EXPECT_EQ(stateOf(*targets[i].parameter), stateOf(*expected[i].parameter)) << name.toStdString();
        EXPECT_EQ(faceOf(*targets[i].parameter), faceOf(*expected[i].parameter)) << name.toStdString();
    }
}

TEST_P(AllSets, assigning_to_itself_says_and_does_nothing) {
    disturbAll();
    std::string const before = scriptOf(*set);
    std::vector<std::unique_ptr<ChangeRecorder>> recorders;
    for (Named const & member : membersOf(*set))
        recorders.push_back(std::make_unique<ChangeRecorder>(*member.parameter));
    kind.assign(*set, *set);
    EXPECT_EQ(scriptOf(*set), before);
    for (auto const & recorder : recorders)
        EXPECT_TRUE(recorder->take().empty());
}

// The script

TEST_P(AllSets, script_reads_back_to_the_same_text) {
    for (bool const disturbed : {false, true}) {
        if (disturbed) {
            disturb(*set);
            // Only what is hidden has a line of its own: a script cannot show what a new set hides.
            for (Named const & member : membersOf(*set))
                member.parameter->hide(true);
        }
        set->setScriptName("Set");
        std::unique_ptr<ParameterSet> const again = kind.make();
        again->setScriptName("Set");
        for (QString const & line : linesOf(*set)) {
            ASSERT_TRUE(line.startsWith("Set."));
            EXPECT_TRUE(again->bStreamIn(line.mid(4), PRESENT)) << line.toStdString();
        }
        EXPECT_EQ(scriptOf(*again), scriptOf(*set));
    }
}

TEST_P(AllSets, old_keys_are_taken_by_a_copy_too_and_not_written) {
    auto const listed = TAKEN_AND_NOT_WRITTEN.find(kind.name);
    QStringList const taken = listed == TAKEN_AND_NOT_WRITTEN.end() ? QStringList() : listed->second;
    std::unique_ptr<ParameterSet> const copy = kind.copy(*fresh);
    for (ParameterSet * each : {set.get(), copy.get()}) {
        std::string const before = scriptOf(*each);
        for (QString const key : {"Render", "Hidden", "Locked"})
            for (char const * rest : {".value=1", ".keyframes.append( Key( 1, 1, Constant ) )", ".hidden=1"})
                EXPECT_EQ(each->bStreamIn(key + rest, PRESENT), taken.contains(key)) << key.toStdString() << rest;
        EXPECT_EQ(scriptOf(*each), before);
    }
}

TEST_P(AllSets, members_have_names_of_their_own_that_a_line_can_carry) {
    std::set<QString> names;
    for (Named const & member : membersOf(*set)) {
        EXPECT_TRUE(names.insert(member.name).second) << member.name.toStdString() << " twice";
        QString const key = member.parameter->scriptName();
        EXPECT_FALSE(key.isEmpty());
        for (QChar const stopper : QString(".=[]\n"))
            EXPECT_FALSE(key.contains(stopper)) << key.toStdString();
    }
}

// Limits

TEST_P(AllSets, numbers_stay_within_their_limits_and_start_there) {
    for (Named const & member : membersOf(*set)) {
        auto const number = dynamic_cast<Kyn::NumericParameterWithoutType *>(member.parameter);
        if (!number)
            continue;
        std::string const name = member.name.toStdString();
        double const initial = number->dValue(at(0));
        number->vSetValue(initial, at(0));
        EXPECT_EQ(number->dKeyframeValue(Kyn::KeyframeIndex()), initial) << name;
        number->vSetValue(number->dMaximum() * 2 + 1, at(0));
        EXPECT_EQ(number->dValue(at(0)), number->dMaximum()) << name;
        number->vSetValue(number->dMinimum() < 0 ? number->dMinimum() * 2 : -1, at(0));
        // Of a flag any number is true, and every other number is below some limit.
        EXPECT_EQ(number->dValue(at(0)),
                  dynamic_cast<Kyn::Parameter<bool> *>(member.parameter) ? 1 : number->dMinimum())
            << name;
    }
}

// Clips

TEST_P(AllSets, removed_clip_is_forgotten_and_a_replaced_one_followed_where_it_may_be) {
    if (!isClipBound())
        GTEST_SKIP() << "refers to no clips";
    std::vector<Kyn::Parameter<unsigned int> *> references;
    for (Named const & member : membersOf(*set)) {
        auto * const number = dynamic_cast<Kyn::Parameter<unsigned int> *>(member.parameter);
        if (number && member.name.endsWith("ClipID"))
            references.push_back(number);
        else if (number)
            number->setStaticValue(7, Kyn::View(0)); // Counts and ids of other things stay.
    }
    for (unsigned int const replacement : {0u, 9u}) {
        for (auto * const gone : references) {
            for (auto * const reference : references)
                reference->setValue(reference == gone ? 7 : 8, at(0));
            QStringList before = linesOf(*set);
            clipBound().removeReferencesToClip(7, replacement);
            QStringList const after = linesOf(*set);
            EXPECT_EQ(gone->value(at(0)), FOLLOWING.contains(gone->scriptName()) ? replacement : 0)
                << gone->scriptName().toStdString();
            for (QString const & line : after)
                before.removeOne(line);
            EXPECT_EQ(before.size(), 1) << "changed beside it: " << before.join(' ').toStdString();
        }
    }
    clipBound().removeReferencesToClip(0, 0);
    for (auto * const reference : references)
        EXPECT_EQ(reference->value(at(0)), 0u) << reference->scriptName().toStdString();
}

// Frame size

TEST_P(AllSets, rescale_multiplies_the_amounts_and_back) {
    if (!isClipBound())
        GTEST_SKIP() << "holds no amounts";
    disturb(*set);
    disturb(*fresh);
    std::string const before = scriptOf(*set);
    clipBound().rescale(2.0f, 4.0f);
    auto const listed = RESCALED.find(kind.name);
    QStringList const amounts = listed == RESCALED.end() ? QStringList() : listed->second;
    std::vector<Named> const members = membersOf(*set), unscaled = membersOf(*fresh);
    for (std::size_t i = 0; i < members.size(); ++i) {
        QString const & name = members[i].name;
        bool const byWidth = amounts.contains('-' + name);
        if (!byWidth && !amounts.contains(name)) {
            EXPECT_EQ(stateOf(*members[i].parameter), stateOf(*unscaled[i].parameter)) << name.toStdString();
            continue;
        }
        auto const number = dynamic_cast<Kyn::NumericParameterWithoutType *>(members[i].parameter);
        auto const old = dynamic_cast<Kyn::NumericParameterWithoutType *>(unscaled[i].parameter);
        for (double const time : {1.0, 2.5, 6.25})
            EXPECT_EQ(number->dValue(at(time)), old->dValue(at(time)) * (byWidth ? 2 : 4)) << name.toStdString();
    }
    clipBound().rescale(0.5f, 0.25f);
    EXPECT_EQ(scriptOf(*set), before);
}

TEST_P(AllSets, rescale_of_one_view_is_for_tracks_alone) {
    if (!isClipBound())
        GTEST_SKIP() << "holds no amounts";
    disturb(*set);
    std::string const before = scriptOf(*set);
    clipBound().rescale(2.0f, 4.0f, Kyn::View(0));
    EXPECT_EQ(scriptOf(*set) != before, kind.name == "Tracking");
}

INSTANTIATE_TEST_SUITE_P(Modules, AllSets, testing::ValuesIn(Test::allSets()),
                         [](auto const & one) { return one.param.name; });

} // namespace
