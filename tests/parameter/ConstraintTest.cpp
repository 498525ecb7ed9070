#include "parameter/NumericParameter.h"
#include "parameter/support/ChangeRecorder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace {

using namespace Test;
using Kyn::Context;
using Kyn::NumericParameter;
using Kyn::Parameter;
using Kyn::ProxyScale;
using Kyn::Time;
using Kyn::View;

typedef NumericParameter<double> Number;
typedef std::vector<Kyn::ParameterWithoutType *> Links;

Context at(double time, int view = 0) {
    return Context(Time(time), View(view), ProxyScale::NONE);
}

class Constraint : public testing::Test {
protected:
    Constraint() {
        master.setDefaultInterpolation(Kyn::INTERPOLATION_LINEAR);
        master.setExtrapolationBefore(Kyn::EXTRAPOLATION_LINEAR);
        master.setExtrapolationAfter(Kyn::EXTRAPOLATION_CONSTANT);
        master.setValue(10, at(10));
        master.setValue(20, at(20));
        slave.setValue(1, at(1));
    }

    Number master{true, "master"};
    Number slave{true, "slave"};
};

TEST_F(Constraint, forwards_values_and_modes_but_no_question_about_own_keys_and_no_write) {
    ASSERT_TRUE(master.bAddConstrainedParameter(&slave));
    EXPECT_TRUE(slave.isConstrained());
    EXPECT_EQ(slave.masterParameter(), static_cast<Kyn::ParameterWithoutType *>(&master));
    EXPECT_EQ(slave.value(at(15)), 15.0);
    EXPECT_EQ(slave.extrapolationBefore(), Kyn::EXTRAPOLATION_LINEAR);
    EXPECT_EQ(slave.extrapolationAfter(), Kyn::EXTRAPOLATION_CONSTANT);
    EXPECT_EQ(slave.interpolation(at(15)), Kyn::INTERPOLATION_LINEAR);
    EXPECT_EQ(slave.interpolationData({&slave, View(0), 1}).eType, Kyn::INTERPOLATION_LINEAR);
    EXPECT_EQ(slave.interpolation(Kyn::KeyframeIndex{&slave, View(0), 0}), Kyn::INTERPOLATION_NONE);
    EXPECT_EQ(slave.numKeyframes(View(0)), 1u);
    EXPECT_TRUE(slave.isKeyframe(at(1)));
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
    EXPECT_FALSE(master.bAddConstrainedParameter(nullptr));
    EXPECT_FALSE(master.bAddConstrainedParameter(&master));
    EXPECT_FALSE(master.bAddConstrainedParameter(&other));
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
        Number const masterCopy(master);
        EXPECT_TRUE(masterCopy.constrainedParameters().empty());
    }
    EXPECT_EQ(master.constrainedParameters(), Links{&slave});
}

TEST_F(Constraint, assignment_and_mementos_leave_the_links_alone) {
    Number other(true, "other");
    master.bAddConstrainedParameter(&slave);
    boost::shared_ptr<Tov::MementoBase> const linked = slave.exportState();
    slave = other;
    EXPECT_EQ(slave.masterParameter(), static_cast<Kyn::ParameterWithoutType *>(&master));
    other = slave;
    EXPECT_FALSE(other.isConstrained());
    slave.bUnconstrain();
    slave.importState(linked);
    EXPECT_FALSE(slave.isConstrained());
}

// Nobody is left with a pointer to the dead, whoever goes first. The sanitizers see the rest.
TEST(ConstraintLifetime, any_order_of_destruction_is_safe) {
    enum Who { MASTER, SLAVE, COPY, GRANDCHILD, MEMENTO, COUNT };
    std::vector<int> order{MASTER, SLAVE, COPY, GRANDCHILD, MEMENTO};
    do {
        auto master = std::make_unique<Number>(true, "master");
        auto slave = std::make_unique<Number>(true, "slave");
        auto grandchild = std::make_unique<Parameter<double>>(true, "grandchild");
        master->setStaticValue(1, View(0));
        slave->setStaticValue(2, View(0));
        grandchild->setStaticValue(3, View(0));
        ASSERT_TRUE(master->bAddConstrainedParameter(slave.get()));
        ASSERT_TRUE(slave->bAddConstrainedParameter(grandchild.get()));
        auto copy = std::make_unique<Number>(*slave);
        boost::shared_ptr<Tov::MementoBase> memento = slave->exportState();
        for (int const who : order) {
            switch (who) {
            case MASTER:
                master.reset();
                break;
            case SLAVE:
                slave.reset();
                break;
            case COPY:
                copy.reset();
                break;
            case GRANDCHILD:
                grandchild.reset();
                break;
            default:
                memento.reset();
            }
            double const top = master ? 1 : 2;
            if (slave) {
                ASSERT_EQ(slave->value(at(0)), top);
                ASSERT_EQ(slave->isConstrained(), master != nullptr);
            }
            if (copy) {
                ASSERT_EQ(copy->value(at(0)), top);
            }
            if (grandchild) {
                ASSERT_EQ(grandchild->value(at(0)), slave ? top : 3);
            }
            if (memento && grandchild) {
                grandchild->importState(memento);
                grandchild->setStaticValue(3, View(0));
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

// Commands

TEST_F(Constraint, unconstrain_command_cuts_and_links_again) {
    master.bAddConstrainedParameter(&slave);
    Tov::CompositeCommand commands;
    EXPECT_EQ(&slave.bUnconstrainCommand(commands), &commands);
    EXPECT_EQ(commands.size(), 1u);
    EXPECT_TRUE(slave.isConstrained()) << "a command does nothing until it runs";
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(commands.redo());
        EXPECT_FALSE(slave.isConstrained());
        EXPECT_TRUE(master.constrainedParameters().empty());
        commands.undo();
        EXPECT_EQ(slave.masterParameter(), static_cast<Kyn::ParameterWithoutType *>(&master));
    }
}

TEST_F(Constraint, remove_command_cuts_only_from_the_master_it_was_asked_of) {
    Number other(true, "other");
    master.bAddConstrainedParameter(&slave);
    for (Kyn::ParameterWithoutType * const nobody :
         {static_cast<Kyn::ParameterWithoutType *>(nullptr), static_cast<Kyn::ParameterWithoutType *>(&master)}) {
        Tov::CompositeCommand refused;
        master.bRemoveConstrainedParameterCommand(nobody, refused);
        EXPECT_EQ(refused.size(), 1u);
        EXPECT_FALSE(refused.redo());
        refused.undo();
    }
    Tov::CompositeCommand stranger;
    other.bRemoveConstrainedParameterCommand(&slave, stranger);
    EXPECT_FALSE(stranger.redo());
    stranger.undo();
    EXPECT_TRUE(slave.isConstrained());
    Tov::CompositeCommand commands;
    EXPECT_EQ(&master.bRemoveConstrainedParameterCommand(&slave, commands), &commands);
    EXPECT_TRUE(commands.redo());
    EXPECT_FALSE(slave.isConstrained());
    commands.undo();
    EXPECT_TRUE(slave.isConstrained());
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
