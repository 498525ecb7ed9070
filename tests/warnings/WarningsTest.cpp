#include "support/Warnings.h"

#include <QLoggingCategory>
#include <QtDebug>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace {

using Test::ExpectWarning;

TEST(ExpectWarning, warning_that_nobody_expects_fails_the_test) {
    EXPECT_NONFATAL_FAILURE(qWarning("out of the blue"), "unexpected Qt warning: out of the blue");
    EXPECT_NONFATAL_FAILURE(qCritical("out of the blue"), "unexpected Qt warning: out of the blue");
}

TEST(ExpectWarning, warning_that_does_not_come_fails_the_test) {
    EXPECT_NONFATAL_FAILURE({ ExpectWarning const warning("never"); }, "no Qt warning with the text \"never\"");
}

TEST(ExpectWarning, expected_warnings_are_caught_whole_and_in_order) {
    ExpectWarning const warning("key");
    qWarning("first key");
    qWarning("second key");
    EXPECT_EQ(warning.texts(), (std::vector<std::string>{"first key", "second key"}));
}

TEST(ExpectWarning, other_warning_goes_to_the_outer_expectation) {
    ExpectWarning const outer("master");
    {
        ExpectWarning const inner("key");
        qWarning("a key");
        qWarning("a master");
        EXPECT_EQ(inner.texts().size(), 1u);
    }
    EXPECT_EQ(outer.texts(), std::vector<std::string>{"a master"});
}

TEST(ExpectWarning, other_warning_fails_the_test_where_nobody_takes_it) {
    ExpectWarning const warning("key");
    qWarning("a key");
    EXPECT_NONFATAL_FAILURE(qWarning("a master"), "unexpected Qt warning: a master");
}

} // namespace
