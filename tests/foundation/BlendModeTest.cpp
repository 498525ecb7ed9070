#include "foundation/BlendMode.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

using VX::BlendMode;

struct Blend {
    char const * name;
    int id;
    float a, b, blended;
};

class Blending : public testing::TestWithParam<Blend> {};

TEST_P(Blending, registered_mode_combines_two_samples) {
    Blend const & blend = GetParam();
    ASSERT_TRUE(BlendMode::registry().contains(blend.id));
    EXPECT_EQ(BlendMode::registry()[blend.id]->blend(blend.a, blend.b), blend.blended);
}

INSTANTIATE_TEST_SUITE_P(, Blending,
                         testing::Values(Blend{"sum_is_limited_above", 1, 0.75f, 0.75f, 1.0f},
                                         Blend{"sum_of_one_is_itself", 1, 0.5f, 0.5f, 1.0f},
                                         Blend{"sum_is_not_limited_below", 1, -1.0f, 0.25f, -0.75f},
                                         Blend{"difference_is_limited_below", 2, 0.25f, 0.75f, 0.0f},
                                         Blend{"difference_is_not_limited_above", 2, 2.0f, -1.0f, 3.0f},
                                         Blend{"product_is_not_limited", 3, 2.0f, 2.0f, 4.0f},
                                         Blend{"product_may_be_negative", 3, -2.0f, 2.0f, -4.0f}),
                         [](auto const & test) { return std::string(test.param.name); });

TEST(BlendModes, sample_that_is_no_number_stays_none) {
    float const none = std::numeric_limits<float>::quiet_NaN();
    for (boost::shared_ptr<BlendMode> const & mode : BlendMode::registry())
        EXPECT_TRUE(std::isnan(mode->blend(none, 0.5f))) << mode->name().toStdString();
}

TEST(BlendModes, each_knows_the_id_that_it_is_registered_under) {
    QString names;
    auto const & registry = BlendMode::registry();
    for (auto entry = registry.begin(); entry != registry.end(); ++entry) {
        EXPECT_EQ(entry.value()->id(), entry.key());
        names += entry.value()->name() + ' ';
    }
    EXPECT_EQ(names, QString("Add Subtract Multiply "));
}

class Average : public BlendMode {
public:
    explicit Average(int id) : BlendMode(id, "Average") {}
    float blend(float a, float b) const override { return (a + b) / 2.0f; }
};

TEST(BlendModes, registering_an_id_again_replaces_its_mode) {
    boost::shared_ptr<BlendMode> const multiply = BlendMode::registry()[3];
    BlendMode::registerMode(boost::make_shared<Average>(3));
    EXPECT_EQ(BlendMode::registry().size(), 3);
    EXPECT_EQ(BlendMode::registry()[3]->blend(1.0f, 2.0f), 1.5f);
    BlendMode::registerMode(multiply);
    EXPECT_EQ(BlendMode::registry()[3], multiply);
}

} // namespace
