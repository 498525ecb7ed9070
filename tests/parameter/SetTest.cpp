#include "parameter/kyn/ParameterPairs.h"
#include "parameter/kyn/ParameterSet.h"
#include "parameter/kyn/ParameterTree.h"
#include "parameter/support/ParameterTest.h"
#include "parameter/support/ScriptLines.h"

#include <boost/make_shared.hpp>

#include <memory>

namespace {

using namespace Kyn;
using namespace Test;

/// A set as modules declare theirs: a table.
class Mixer : public ParameterSet {
public:
    explicit Mixer(QString const & name = "Mixer", ParameterTree * tree = nullptr) : ParameterSet(name, tree) {}
    Mixer(Mixer const & other) : ParameterSet(other) { copyMembers(other); }
    Mixer & operator=(Mixer const & other) {
        if (this != &other)
            assignMembers(other);
        return *this;
    }
    using ParameterSet::assignMembers;
    using ParameterSet::assignName;
    using ParameterSet::clearAllLists;
    using ParameterSet::copyMembers;

    NumericParameter<double> opacity{
        row("Opacity").shown("How much"), true, 1.0, 0.0, 1.0, INTERPOLATION_LINEAR, EXTRAPOLATION_CONSTANT};
    Parameter<QString> label{row("Label").hidden(), false, QString("none"), INTERPOLATION_CONSTANT,
                             EXTRAPOLATION_CONSTANT};
    Parameter<int> level{row("Level").splittable(View(2)), false, 3, INTERPOLATION_CONSTANT, EXTRAPOLATION_CONSTANT};
};

/// Reads lines that open with the set's name, as its owner gives them to it. How many were taken.
int readInto(ParameterSet & set, QStringList const & lines) {
    int taken = 0;
    for (QString const & line : lines)
        taken += set.bStreamIn(line.mid(set.scriptName().size() + 1), PRESENT);
    return taken;
}

// Rows

TEST(Row, sets_up_its_member) {
    Mixer mixer;
    EXPECT_EQ(mixer.opacity.displayName(), "How much");
    EXPECT_EQ(mixer.level.displayName(), "Level");
    EXPECT_TRUE(mixer.level.isSplittable());
    EXPECT_FALSE(mixer.opacity.isSplittable());
    EXPECT_EQ(mixer.boundView(mixer.level), View(2));
    EXPECT_EQ(mixer.boundView(mixer.opacity), View::INVALID());
    EXPECT_EQ(mixer.opacity.owner(), &mixer);
    EXPECT_EQ(mixer.opacity.maximum(), 1.0);
}

TEST(Row, registers_in_the_order_of_the_table) {
    Mixer mixer;
    std::vector<ParameterWithoutType *> members;
    mixer.forEachParameter([&](ParameterWithoutType * parameter) { members.push_back(parameter); }, false);
    EXPECT_EQ(members, (std::vector<ParameterWithoutType *>{&mixer.opacity, &mixer.label, &mixer.level}));
    EXPECT_EQ(scriptOf(mixer), "Mixer.Opacity.value=1\nMixer.Opacity.before=Constant\nMixer.Opacity.after=Constant\n"
                               "Mixer.Label.value=\"none\"\nMixer.Label.hidden=1\nMixer.Level.value=3");
}

// Names, script

TEST(ParameterSet, names_are_set_one_by_one_or_together) {
    Mixer mixer;
    mixer.setDisplayName("Long");
    EXPECT_EQ(mixer.displayName(), "Long");
    EXPECT_EQ(mixer.shortDisplayName(), "Mixer");
    mixer.setDisplayName("Longer", "Short");
    mixer.assignName("Other");
    EXPECT_EQ(mixer.scriptName(), "Other");
    EXPECT_EQ(mixer.displayName(), "Other");
    EXPECT_EQ(mixer.shortDisplayName(), "Short");
}

TEST(ParameterSet, reads_back_what_it_wrote) {
    Mixer mixer;
    mixer.opacity.setValue(0.5, at(1));
    mixer.label.setValue("a.b=c", at(0));
    mixer.level.setValue(7, at(0, 4));
    Mixer again;
    QStringList const lines = linesOf(mixer);
    EXPECT_EQ(readInto(again, lines), lines.size());
    EXPECT_EQ(linesOf(again), lines);
    EXPECT_EQ(linesOf(mixer, "Layer[1].")[0], "Layer[1].Mixer.Opacity.views=[0]");
    mixer.setScriptName("");
    EXPECT_EQ(linesOf(mixer, "Layer[1].")[0], "Layer[1].Opacity.views=[0]");
}

TEST(ParameterSet, refuses_lines_that_nobody_takes) {
    Mixer mixer;
    std::string const before = scriptOf(mixer);
    for (char const * line : {"", ".", "Opacity", "Opacity.", "opacity.value=0", "Opacit.value=0", "Opacity2.value=0",
                              "Opacity.unknown=0", "Mixer.Opacity.value=0", " Opacity.value=0"})
        EXPECT_FALSE(mixer.bStreamIn(line, PRESENT)) << line;
    EXPECT_EQ(scriptOf(mixer), before);
}

TEST(ParameterSet, follows_a_member_that_is_renamed_or_goes) {
    Mixer mixer;
    EXPECT_TRUE(mixer.bStreamIn("Level.value=1", PRESENT));
    mixer.level.setScriptName("Height");
    EXPECT_FALSE(mixer.bStreamIn("Level.value=2", PRESENT));
    EXPECT_TRUE(mixer.bStreamIn("Height.value=2", PRESENT));
    {
        Parameter<int> passing(false, "Passing");
        mixer.addParameter(passing);
        EXPECT_TRUE(mixer.bStreamIn("Passing.value=2", PRESENT));
        EXPECT_EQ(mixer.findParameter("Passing"), &passing);
    }
    EXPECT_FALSE(mixer.bStreamIn("Passing.value=2", PRESENT));
    EXPECT_EQ(linesOf(mixer).filter("Passing").size(), 0);
}

TEST(ParameterSet, two_members_under_one_key_are_both_written_and_both_restored) {
    struct Twins : ParameterSet {
        Twins() : ParameterSet("Twins", nullptr) {}
        Parameter<int> first{row("Same"), true, 1, INTERPOLATION_CONSTANT, EXTRAPOLATION_CONSTANT};
        Parameter<int> second{row("Same").splittable(), true, 2, INTERPOLATION_CONSTANT, EXTRAPOLATION_CONSTANT};
    };
    Twins twins;
    twins.first.setValue(10, at(1));
    twins.first.hide(true);
    twins.second.setStaticValue(20, View(0));
    twins.second.setValue(30, at(5, 3));
    QStringList const lines = linesOf(twins);
    Twins again;
    for (int reading = 0; reading < 3; ++reading) { // A further reading begins at the first again.
        EXPECT_EQ(readInto(again, lines), lines.size());
        EXPECT_EQ(linesOf(again), lines);
    }
    for (qsizetype const brokenOff : {qsizetype(2), lines.size()}) {
        again.beginReading();
        readInto(again, lines.mid(0, brokenOff));
        again.beginReading();
        EXPECT_EQ(readInto(again, lines), lines.size());
        EXPECT_EQ(linesOf(again), lines);
    }
}

TEST(ParameterSet, moved_parameter_takes_lines_of_its_old_name_and_writes_none) {
    Mixer mixer;
    std::string const before = scriptOf(mixer);
    EXPECT_FALSE(mixer.bStreamIn("Render.value=1", PRESENT));
    mixer.addMovedParameter(boost::make_shared<MovedParameter>("Render"));
    for (char const * line : {"Render.value=1", "Render.keyframes.append( Key( 1, 1, Linear ) )", "Render.anything"})
        EXPECT_TRUE(mixer.bStreamIn(line, PRESENT)) << line;
    EXPECT_EQ(scriptOf(mixer), before);
}

// Nested sets

TEST(NestedSet, answers_to_the_name_its_owner_gives_it) {
    Mixer outer("Outer");
    Mixer left("Same");
    Mixer right("Same");
    outer.addSet(left);
    outer.addSet(right, "Right");
    left.setScriptName("Renamed");
    QStringList const lines = linesOf(outer);
    EXPECT_EQ(lines.filter("Outer.Same.Opacity.value").size(), 1);
    EXPECT_EQ(lines.filter("Outer.Right.Opacity.value").size(), 1);
    EXPECT_LT(lines.indexOf("Outer.Level.value=3"), lines.indexOf("Outer.Same.Opacity.value=1"));
    EXPECT_TRUE(outer.bStreamIn("Right.Level.value=9", PRESENT));
    EXPECT_TRUE(outer.bStreamIn("Same.Level.value=8", PRESENT));
    EXPECT_FALSE(outer.bStreamIn("Renamed.Level.value=7", PRESENT));
    EXPECT_EQ(right.level.value(at(0)), 9);
    EXPECT_EQ(left.level.value(at(0)), 8);
    EXPECT_EQ(right.level.extendedName(), "Outer.Right.Level");
    EXPECT_EQ(outer.findSet("Right"), &right);
    EXPECT_EQ(outer.findSet("Renamed"), nullptr);
}

TEST(NestedSet, is_walked_on_request_and_leaves_when_destroyed) {
    auto outer = std::make_unique<Mixer>("Outer");
    Mixer stays("Stays");
    outer->addSet(stays);
    auto const count = [&outer](bool nested) {
        int members = 0;
        outer->forEachParameter([&](ParameterWithoutType *) { ++members; }, nested);
        return members;
    };
    {
        Mixer goes("Goes");
        outer->addSet(goes);
        EXPECT_EQ(count(true), 9);
        EXPECT_EQ(count(false), 3);
    }
    EXPECT_EQ(count(true), 6);
    EXPECT_FALSE(outer->bStreamIn("Goes.Level.value=9", PRESENT));
    outer.reset();
    EXPECT_EQ(stays.level.extendedName(), "Stays.Level");
}

/// Two sets, each with one nested in it that differs from a new one in all that can be copied.
class NestedCopy : public testing::Test {
protected:
    NestedCopy() {
        from.addSet(nestedFrom);
        to.addSet(nestedTo);
        from.opacity.hide(true);
        nestedFrom.opacity.setValue(0.5, at(1));
        nestedFrom.opacity.hide(true);
        nestedFrom.label.hide(false);
        nestedFrom.level.setValue(9, at(0, 5));
        nestedFrom.setDisplayName("Long", "Short");
        master.bAddConstrainedParameter(&nestedFrom.level);
    }

    void expectValues() {
        EXPECT_EQ(nestedTo.opacity.keyframeValue(0, View(0)), 0.5);
        EXPECT_EQ(nestedTo.level.staticValue(View(5)), 9);
        EXPECT_EQ(nestedTo.level.owner(), &nestedTo);
        EXPECT_EQ(nestedTo.level.extendedName(), "To.Nested.Level");
    }

    Parameter<int> master{false, "Master"};
    Mixer nestedFrom{"Other"};
    Mixer nestedTo{"Nested"};
    Mixer from{"From"};
    Mixer to{"To"};
};

TEST_F(NestedCopy, of_members_takes_values_and_masters_and_shows_what_the_rows_show) {
    to.copyMembers(from);
    expectValues();
    EXPECT_EQ(nestedTo.level.masterParameter(), static_cast<ParameterWithoutType *>(&master));
    EXPECT_EQ(nestedTo.level.value(at(0)), master.value(at(0)));
    EXPECT_FALSE(nestedTo.opacity.isHidden());
    EXPECT_TRUE(nestedTo.label.isHidden());
    EXPECT_EQ(nestedTo.displayName(), "Nested");
    // What is hidden in the source too is a matter of the outer members alone, where a set asks for it.
    forEachPair(to, from, [](ParameterWithoutType & own, ParameterWithoutType const & source) {
        own.hide(own.isHidden() || source.isHidden());
    });
    EXPECT_TRUE(to.opacity.isHidden() && to.label.isHidden());
    EXPECT_FALSE(to.level.isHidden() || nestedTo.opacity.isHidden());
}

TEST_F(NestedCopy, by_assignment_takes_names_and_hidden_flags_and_no_masters) {
    to.assignMembers(from);
    to.setScriptName("To");
    expectValues();
    EXPECT_FALSE(nestedTo.level.isConstrained());
    EXPECT_TRUE(nestedTo.opacity.isHidden());
    EXPECT_FALSE(nestedTo.label.isHidden());
    EXPECT_EQ(nestedTo.displayName(), "Long");
    EXPECT_EQ(nestedTo.shortDisplayName(), "Short");
}

// Copying

TEST(ParameterSet, copy_has_the_state_and_members_of_its_own) {
    Mixer mixer;
    mixer.opacity.setValue(0.5, at(1));
    mixer.opacity.setMaximum(0.4);
    mixer.level.setSplittable(false);
    Mixer copy(mixer);
    EXPECT_EQ(copy.opacity.maximum(), 0.4);
    EXPECT_EQ(copy.opacity.owner(), &copy);
    EXPECT_EQ(scriptOf(copy), scriptOf(mixer));
    EXPECT_TRUE(copy.level.isSplittable()) << "again what the table says";
    copy.opacity.setValue(0.1, at(1));
    EXPECT_EQ(mixer.opacity.keyframeValue(0, View(0)), 0.5);
}

TEST(ParameterSet, assignment_takes_names_and_announces_each_member) {
    Mixer mixer("First");
    mixer.setDisplayName("Long", "Short");
    mixer.level.setValue(9, at(0, 5));
    Mixer other("Second");
    ChangeRecorder recorder(other.level);
    other = mixer;
    EXPECT_EQ(recorder.take(), Changes{{ParameterChange::ParameterCopied}});
    EXPECT_EQ(other.displayName(), "Long");
    EXPECT_EQ(other.shortDisplayName(), "Short");
    EXPECT_EQ(scriptOf(other), scriptOf(mixer));
    EXPECT_EQ(other.level.owner(), &other);
}

TEST(ParameterSet, forgotten_members_are_on_their_own_and_may_come_back) {
    Mixer mixer;
    mixer.clearAllLists();
    EXPECT_TRUE(linesOf(mixer).isEmpty());
    EXPECT_EQ(mixer.level.owner(), nullptr);
    EXPECT_EQ(mixer.level.extendedName(), "Level");
    mixer.addParameter(mixer.level);
    EXPECT_EQ(linesOf(mixer), QStringList("Mixer.Level.value=3"));
    EXPECT_EQ(mixer.findMember("Level"), &mixer.level);
    EXPECT_EQ(mixer.findMember("Label"), nullptr);
}

// The tree

class Tree : public testing::Test {
protected:
    Tree() {
        tree.add(left, "Layer[1]");
        tree.add(right, "Layer[2]");
        left.addSet(inner);
    }

    bool names(ParameterWithoutType & parameter, QString const & master) {
        return parameter.setFromScriptString("MasterParameterId=" + master, PRESENT);
    }

    ParameterTree tree;
    Mixer inner{"Inner"};
    Mixer left;
    Mixer right;
};

TEST_F(Tree, finds_by_names_from_the_root) {
    EXPECT_EQ(inner.level.extendedName(), "Layer[1].Mixer.Inner.Level");
    EXPECT_EQ(tree.find("Layer[1].Mixer.Inner.Level"), &inner.level);
    EXPECT_EQ(tree.find("Layer[2].Mixer.Level"), &right.level);
    EXPECT_EQ(tree.find("Mixer.Level"), nullptr);
    tree.remove(right);
    EXPECT_EQ(tree.find("Layer[2].Mixer.Level"), nullptr);
    EXPECT_EQ(right.tree(), nullptr);
    EXPECT_EQ(inner.tree(), &tree);
}

TEST_F(Tree, links_the_masters_that_a_script_named) {
    right.level.setValue(42, at(0));
    names(left.level, "Layer[2].Mixer.Level");
    names(inner.level, "Layer[1].Mixer.Level");
    EXPECT_EQ(left.level.value(at(0)), 3);
    EXPECT_TRUE(tree.resolveMasters().isEmpty());
    EXPECT_EQ(left.level.value(at(0)), 42);
    EXPECT_EQ(inner.level.value(at(0)), 42);
    EXPECT_TRUE(left.level.pendingMasterName().isEmpty());
    EXPECT_EQ(linesOf(left.level).last(), "MasterParameterId=Layer[2].Mixer.Level");
    // What was written names the same master again, which changes nothing; another name changes the master.
    names(left.level, "Layer[2].Mixer.Level");
    EXPECT_TRUE(tree.resolveMasters().isEmpty());
    EXPECT_EQ(left.level.masterParameter(), &right.level);
    names(inner.level, "Layer[2].Mixer.Level");
    EXPECT_TRUE(tree.resolveMasters().isEmpty());
    EXPECT_EQ(inner.level.masterParameter(), &right.level);
}

TEST_F(Tree, reports_masters_that_cannot_be) {
    names(left.level, "Layer[1].Mixer.Level");
    names(left.opacity, "Layer[1].Mixer.Level");
    names(left.label, "Layer[3].Mixer.Label");
    names(right.level, "Layer[1].Mixer.Inner.Level");
    names(inner.level, "Layer[2].Mixer.Level");
    QList<ParameterTree::UnresolvedMaster> const unresolved = tree.resolveMasters();
    ASSERT_EQ(unresolved.size(), 4);
    EXPECT_EQ(unresolved[0].parameter, &left.opacity);
    EXPECT_EQ(unresolved[1].parameter, &left.label);
    EXPECT_EQ(unresolved[1].masterName, "Layer[3].Mixer.Label");
    EXPECT_EQ(unresolved[2].parameter, &left.level);
    EXPECT_EQ(unresolved[3].parameter, &right.level);
    EXPECT_EQ(inner.level.masterParameter(), &right.level); // The first of the circle is linked.
    for (ParameterTree::UnresolvedMaster const & one : unresolved) {
        EXPECT_FALSE(one.reason.isEmpty());
        EXPECT_FALSE(one.parameter->isConstrained());
        EXPECT_TRUE(one.parameter->pendingMasterName().isEmpty());
    }
    EXPECT_TRUE(tree.resolveMasters().isEmpty());
}

TEST_F(Tree, passes_on_the_changes_of_all_below) {
    std::vector<QString> heard;
    EXPECT_FALSE(tree.isHeard());
    QObject context;
    QObject::connect(&tree, &ParameterTree::changed, &context,
                     [&](ParameterChange const & change) { heard.push_back(change.parameter().extendedName()); });
    EXPECT_TRUE(tree.isHeard());
    inner.level.setValue(1, at(0));
    right.opacity.setExtrapolationAfter(EXTRAPOLATION_LINEAR);
    right.level.blockSignals(true);
    right.level.setValue(1, at(0));
    right.level.blockSignals(false);
    left.bStreamIn("Level.value=5", PRESENT);
    tree.remove(right);
    right.label.setValue("unheard", at(0));
    EXPECT_EQ(heard, (std::vector<QString>{"Layer[1].Mixer.Inner.Level", "Layer[2].Mixer.Opacity"}));
}

TEST_F(Tree, set_moves_from_tree_to_tree_and_outlives_one) {
    {
        ParameterTree other;
        other.add(right, "");
        EXPECT_EQ(right.level.extendedName(), "Mixer.Level");
        EXPECT_EQ(tree.find("Layer[2].Mixer.Level"), nullptr);
        EXPECT_EQ(other.find("Mixer.Level"), &right.level);
        Mixer born("Born", &other);
        EXPECT_EQ(other.find("Born.Level"), &born.level);
    }
    EXPECT_EQ(right.tree(), nullptr);
    right.level.setValue(8, at(0));
}

} // namespace
