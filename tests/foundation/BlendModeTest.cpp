#include "foundation/BlendMode.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using VX::BlendMode;

struct Blend {
    int id;
    float a, b, blended;
};

TEST(BlendModes, sum_is_limited_above_difference_below_and_product_not_at_all) {
    constexpr int sum = 1, difference = 2, product = 3;
    for (Blend const & row : {Blend{sum, 0.75f, 0.75f, 1.0f},
                              {sum, 0.5f, 0.5f, 1.0f},
                              {sum, -1.0f, 0.25f, -0.75f},
                              {difference, 0.25f, 0.75f, 0.0f},
                              {difference, 2.0f, -1.0f, 3.0f},
                              {product, 2.0f, 2.0f, 4.0f},
                              {product, -2.0f, 2.0f, -4.0f}})
        EXPECT_EQ(BlendMode::registry()[row.id]->blend(row.a, row.b), row.blended) << row.id << ' ' << row.a;
}

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
