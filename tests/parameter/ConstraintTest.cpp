#include "parameter/support/ParameterTest.h"

#include <algorithm>
#include <functional>
#include <memory>

namespace {

using namespace Kyn;
using namespace Test;

typedef NumericParameter<double> Number;
typedef std::vector<ParameterWithoutType *> Links;

class Constraint : public testing::Test {
protected:
    Constraint() {
        master.setDefaultInterpolation(INTERPOLATION_LINEAR);
        master.setExtrapolationBefore(EXTRAPOLATION_LINEAR);
        master.setExtrapolationAfter(EXTRAPOLATION_CONSTANT);
        setKeys(master, {10, 20});
        setKeys(slave, {1});
    }

    bool isMastered() { return slave.masterParameter() == static_cast<ParameterWithoutType *>(&master); }

    Number master{true, "master"};
    Number slave{true, "slave"};
};

TEST_F(Constraint, forwards_values_and_modes_but_no_question_about_own_keys_and_no_write) {
    ASSERT_TRUE(master.bAddConstrainedParameter(&slave));
    EXPECT_TRUE(slave.isConstrained() && isMastered());
    EXPECT_EQ(slave.value(at(15)), 15.0);
    EXPECT_EQ(slave.extrapolationBefore(), EXTRAPOLATION_LINEAR);
    EXPECT_EQ(slave.extrapolationAfter(), EXTRAPOLATION_CONSTANT);
    EXPECT_EQ(slave.interpolation(at(15)), INTERPOLATION_LINEAR);
    EXPECT_EQ(recordOf(slave, 1).eType, INTERPOLATION_LINEAR);
    EXPECT_EQ(slave.interpolation(KeyframeIndex{&slave, View(0), 0}), INTERPOLATION_NONE);
    EXPECT_EQ(timesOf(slave), Times{1});
    EXPECT_FALSE(slave.isKeyframe(at(10)));
    unsigned int nearest = 9;
    EXPECT_TRUE(slave.bNearestKeyframeIndex(at(30), nearest));
    EXPECT_EQ(nearest, 0u);
    slave.setValue(99, at(15));
    EXPECT_EQ(slave.value(at(15)), 15.0);
    EXPECT_EQ(master.numKeyframes(View(0)), 2u);
    EXPECT_EQ(slave.addKeyframe(at(12)), 1u);
    EXPECT_EQ(slave.keyframeValue(1, View(0)), 12.0) << "an added key takes the value in force, which is the master's";
    EXPECT_TRUE(slave.bUnconstrain());
    EXPECT_EQ(slave.value(at(15)), 99.0);
    EXPECT_FALSE(slave.bUnconstrain());
}

TEST_F(Constraint, limits_of_the_slave_hold_above_those_of_the_master) {
    master.bAddConstrainedParameter(&slave);
    slave.setMaximum(12);
    EXPECT_EQ(slave.value(at(15)), 12.0);
    master.setMaximum(11);
    EXPECT_EQ(slave.value(at(15)), 11.0);
}

TEST_F(Constraint, is_refused_where_it_makes_no_sense) {
    Number second(true, "second");
    NumericParameter<float> other(true, "other");
    for (ParameterWithoutType * const nonsense : Links{nullptr, &master, &other})
        EXPECT_FALSE(master.bAddConstrainedParameter(nonsense));
    ASSERT_TRUE(master.bAddConstrainedParameter(&slave));
    EXPECT_FALSE(master.bAddConstrainedParameter(&slave)) << "twice";
    EXPECT_FALSE(second.bAddConstrainedParameter(&slave)) << "two masters";
    ASSERT_TRUE(slave.bAddConstrainedParameter(&second));
    EXPECT_FALSE(second.bAddConstrainedParameter(&master)) << "a circle";
    EXPECT_EQ(second.value(at(15)), 15.0) << "masters of masters";
    EXPECT_EQ(master.constrainedParameters(), Links{&slave});
}

TEST_F(Constraint, copy_has_the_same_master_and_none_of_the_followers) {
    master.bAddConstrainedParameter(&slave);
    {
        Number const copy(slave);
        EXPECT_EQ(copy.masterParameter(), slave.masterParameter());
        EXPECT_EQ(copy.value(at(15)), 15.0);
        EXPECT_EQ(master.constrainedParameters().size(), 2u);
        EXPECT_TRUE(Number(master).constrainedParameters().empty());
    }
    EXPECT_EQ(master.constrainedParameters(), Links{&slave});
}

TEST_F(Constraint, assignment_and_mementos_leave_the_links_alone) {
    Number other(true, "other");
    master.bAddConstrainedParameter(&slave);
    boost::shared_ptr<Tov::MementoBase> const linked = slave.exportState();
    slave = other;
    EXPECT_TRUE(isMastered());
    other = slave;
    EXPECT_FALSE(other.isConstrained());
    slave.bUnconstrain();
    slave.importState(linked);
    EXPECT_FALSE(slave.isConstrained());
}

// Nobody is left with a pointer to the dead, whoever goes first. The sanitizers see the rest.
TEST_F(Constraint, any_order_of_destruction_is_safe) {
    std::vector<int> order{0, 1, 2, 3, 4};
    do {
        auto top = std::make_unique<Number>(true, "top");
        auto middle = std::make_unique<Number>(true, "middle");
        auto last = std::make_unique<Parameter<double>>(true, "last");
        top->setStaticValue(1, View(0));
        middle->setStaticValue(2, View(0));
        last->setStaticValue(3, View(0));
        ASSERT_TRUE(top->bAddConstrainedParameter(middle.get()) && middle->bAddConstrainedParameter(last.get()));
        auto copy = std::make_unique<Number>(*middle);
        boost::shared_ptr<Tov::MementoBase> memento = middle->exportState();
        std::function<void()> const ends[] = {[&] { top.reset(); }, [&] { middle.reset(); }, [&] { copy.reset(); },
                                              [&] { last.reset(); }, [&] { memento.reset(); }};
        for (int const who : order) {
            ends[who]();
            double const highest = top ? 1 : 2;
            ASSERT_TRUE(!middle || (middle->value(at(0)) == highest && middle->isConstrained() == (top != nullptr)));
            ASSERT_TRUE(!copy || copy->value(at(0)) == highest);
            ASSERT_TRUE(!last || last->value(at(0)) == (middle ? highest : 3));
            if (memento && last) {
                last->importState(memento);
                last->setStaticValue(3, View(0));
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

// Commands

TEST_F(Constraint, commands_cut_and_link_again_and_only_from_the_master_they_were_asked_of) {
    Number other(true, "other");
    master.bAddConstrainedParameter(&slave);
    auto const cuts = [this](auto const & push) {
        Tov::CompositeCommand commands;
        EXPECT_EQ(&push(commands), &commands);
        EXPECT_EQ(commands.size(), 1u);
        EXPECT_TRUE(isMastered()) << "a command does nothing until it runs";
        bool const cut = commands.redo();
        EXPECT_EQ(slave.isConstrained(), !cut);
        EXPECT_EQ(master.constrainedParameters().empty(), cut);
        commands.undo();
        EXPECT_TRUE(isMastered());
        return cut;
    };
    typedef Tov::CompositeCommand C;
    EXPECT_TRUE(cuts([&](C & c) -> C & { return slave.bUnconstrainCommand(c); }));
    EXPECT_TRUE(cuts([&](C & c) -> C & { return master.bRemoveConstrainedParameterCommand(&slave, c); }));
    EXPECT_FALSE(cuts([&](C & c) -> C & { return other.bRemoveConstrainedParameterCommand(&slave, c); }));
    EXPECT_FALSE(cuts([&](C & c) -> C & { return master.bRemoveConstrainedParameterCommand(&master, c); }));
    EXPECT_FALSE(cuts([&](C & c) -> C & { return master.bRemoveConstrainedParameterCommand(nullptr, c); }));
}

TEST_F(Constraint, commands_built_ahead_of_each_other_see_what_those_before_have_done) {
    Number next(true, "next");
    next.setStaticValue(7, View(0));
    Tov::CompositeCommand commands;
    master.addConstrainedParameterCommand(&slave, commands);
    master.bRemoveConstrainedParameterCommand(&slave, commands);
    next.addConstrainedParameterCommand(&slave, commands);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(commands.redo());
        EXPECT_EQ(slave.value(at(15)), 7.0);
        commands.undo();
        EXPECT_FALSE(slave.isConstrained());
        EXPECT_EQ(slave.value(at(1)), 1.0);
    }
}

} // namespace
