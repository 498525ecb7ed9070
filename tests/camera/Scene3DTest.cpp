#include "camera/Layer3DParameterSet.h"
#include "camera/StereoCamera3DParameterSet.h"
#include "parameter/support/At.h"
#include "parameter/support/ScriptLines.h"

#include <QPointer>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <optional>

namespace {

using Kyn::View;
using Test::at;
using Test::linesOf;
using Test::PRESENT;
using Test::scriptOf;

typedef VX_StereoCamera3DParameterSet Rig;
typedef VX_Layer3DParameterSet Layer;

constexpr View LEFT{0};
constexpr View RIGHT{1};

// Plain rotation matrices, apart from the geometry that the scene uses.

typedef std::array<std::array<double, 3>, 3> Rotation;

Rotation times(Rotation const & a, Rotation const & b) {
    Rotation product{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            for (std::size_t k = 0; k < 3; ++k)
                product[i][j] += a[i][k] * b[k][j];
    return product;
}

/// By the right hand about axis 0, 1 or 2.
Rotation about(std::size_t axis, double radians) {
    std::size_t const u = (axis + 1) % 3;
    std::size_t const v = (axis + 2) % 3;
    Rotation r{};
    r[axis][axis] = 1;
    r[u][u] = r[v][v] = std::cos(radians);
    r[v][u] = std::sin(radians);
    r[u][v] = -r[v][u];
    return r;
}

/// What a stored rotation means.
Rotation ofDegrees(Gan_Vector3 const & angles) {
    double const radian = std::acos(-1.0) / 180;
    return times(about(2, angles.z * radian), times(about(1, -angles.y * radian), about(0, angles.x * radian)));
}

void expectNear(Gan_Vector3 const & got, Gan_Vector3 const & expected, double tolerance) {
    EXPECT_NEAR(got.x, expected.x, tolerance);
    EXPECT_NEAR(got.y, expected.y, tolerance);
    EXPECT_NEAR(got.z, expected.z, tolerance);
}

struct Pose {
    double time;
    Gan_Vector3 position;
    Gan_Vector3 rotation;
    float distance;
    float convergence;
};

constexpr Pose POSES[] = {
    {1, {0, 0, 0}, {0, 0, 0}, 6.5f, 0.25f},
    {4.5, {10, -20, 30}, {12, 34, 56}, 6.0f, -0.5f},
    {9, {-1, 2, 500}, {-170, 80, -100}, -3.0f, 0.0f},
    {20, {1, 1, 1}, {35, -65, 5}, 0.0f, 1.5f},
};

void fill(Rig & rig) {
    for (Pose const & pose : POSES) {
        rig.position.setValue(pose.position, at(pose.time));
        rig.rotation.setValue(pose.rotation, at(pose.time));
        rig.interaxialDistance.setValue(pose.distance, at(pose.time));
        rig.convergenceAngle.setValue(pose.convergence, at(pose.time));
    }
    rig.focalLength.setValue(35.0f, at(2));
}

// The eyes

TEST(BuildViewCamera, eyes_stand_aside_along_the_rows_of_the_rotation_and_turn_by_their_half) {
    Rig rig;
    fill(rig);
    std::string const before = scriptOf(rig);
    for (View const & view : {LEFT, RIGHT, View(2)}) {
        double const sign = view == LEFT ? -0.5 : view == RIGHT ? 0.5 : 0.0;
        boost::shared_ptr<VX_Camera3DParameterSet> const eye = rig.buildViewCamera(view);
        for (Pose const & pose : POSES) {
            Rotation const rotation = ofDegrees(pose.rotation);
            // The inverse of a rotation times (d, 0, 0) is d times its first row.
            double const d = sign * static_cast<double>(pose.distance);
            expectNear(eye->position.value(at(pose.time)),
                       {pose.position.x + d * rotation[0][0], pose.position.y + d * rotation[0][1],
                        pose.position.z + d * rotation[0][2]},
                       2e-5);
            Rotation const expected = times(rotation, about(1, sign * static_cast<double>(pose.convergence)));
            Rotation const got = ofDegrees(eye->rotation.value(at(pose.time)));
            for (std::size_t i = 0; i < 9; ++i)
                EXPECT_NEAR(got[i / 3][i % 3], expected[i / 3][i % 3], 1e-6) << pose.time << " " << i;
        }
        EXPECT_EQ(eye->focalLength.value(at(2)), 35.0f);
        EXPECT_EQ(eye->scriptName(), "Camera");
        EXPECT_EQ(eye->displayName(), "Camera");
        EXPECT_EQ(eye->findParameter("InteraxialDistance"), nullptr);
    }
    EXPECT_EQ(scriptOf(rig), before);
}

TEST(BuildViewCamera, without_keys_of_x_nothing_moves) {
    Rig rig;
    rig.interaxialDistance.setStaticValue(6.5f, View());
    rig.convergenceAngle.setStaticValue(0.3f, View());
    rig.position.y_.setValue(4.0f, at(3));
    rig.rotation.z_.setValue(20.0f, at(3));
    for (View const & view : {LEFT, RIGHT}) {
        boost::shared_ptr<VX_Camera3DParameterSet> const eye = rig.buildViewCamera(view);
        expectNear(eye->position.value(at(3)), {0, 4, 0}, 0);
        expectNear(eye->rotation.value(at(3)), {0, 0, 20}, 0);
        EXPECT_EQ(eye->position.x()->numKeyframes(View()), 0u);
    }
}

TEST(BuildViewCamera, keys_of_x_make_keys_of_y_and_z_and_the_next_moment_sees_them) {
    Rig rig;
    rig.interaxialDistance.setStaticValue(6.5f, View());
    rig.rotation.z_.setStaticValue(90.0f, View());
    rig.position.y_.setStaticValue(10.0f, View());
    rig.position.x_.setValue(1.0f, at(1));
    rig.position.x_.setValue(2.0f, at(2));
    rig.position.z_.setValue(7.0f, at(5)); // Passed by: x has no key there.
    boost::shared_ptr<VX_Camera3DParameterSet> const eye = rig.buildViewCamera(LEFT);
    EXPECT_EQ(eye->position.y()->numKeyframes(View()), 2u);
    EXPECT_EQ(eye->position.z()->numKeyframes(View()), 3u);
    EXPECT_EQ(eye->rotation.y()->numKeyframes(View()), 0u);
    // A quarter turn about z takes the left eye's offset to +y. y was one value, and is a key after the first moment,
    // so the second starts from there.
    expectNear(eye->position.value(at(1)), {1, 13.25, 7}, 1e-5);
    expectNear(eye->position.value(at(2)), {2, 16.5, 7}, 1e-5);
    EXPECT_EQ(eye->position.z()->value(at(5)), 7.0f);
}

// The sets

TEST(Scene3D, deleting_all_keyframes_reaches_every_member) {
    Rig rig;
    fill(rig);
    rig.rightVerticalAlignment.setValue(1.0f, at(3));
    rig.scale.setValue({1, 2, 3}, at(3));
    VX_NullObject3DParameterSet & null = rig;
    null.deleteAllKeyframes();
    rig.forEachParameter(
        [](Kyn::ParameterWithoutType * parameter) {
            EXPECT_EQ(parameter->numKeyframes(View()), 0u) << parameter->extendedName().toStdString();
        },
        true);
}

// Nulls of a layer

TEST(Layer3D, makes_each_id_once_and_finds_it) {
    Layer layer;
    VX_NullObject3DParameterSet * const lamp = layer.createNull(3, "lamp");
    EXPECT_EQ(layer.createNull(3, "other"), lamp);
    EXPECT_EQ(lamp->displayName(), "lamp");
    EXPECT_EQ(layer.findNull(3), lamp);
    EXPECT_EQ(std::as_const(layer).findNull(4), nullptr);
    VX_NullObject3DParameterSet * const edge = layer.createNull(-1, "edge");
    EXPECT_EQ(layer.getLayerNulls().value(4294967295u), edge);
    lamp->position.setValue({1, 2, 3}, at(1));
    layer.deleteAllKeyframes();
    EXPECT_EQ(lamp->position.x()->numKeyframes(View()), 0u);
    layer.clear();
    EXPECT_TRUE(layer.getLayerNulls().isEmpty());
    EXPECT_TRUE(linesOf(layer).isEmpty());
}

/// Three nulls, two of one name and one of none.
void fill(Layer & layer) {
    layer.createNull(8, "lamp")->position.setValue({8, 0, 0}, at(1));
    layer.createNull(5, "lamp")->position.setValue({5, 0, 0}, at(1));
    layer.createNull(6, "")->position.setValue({6, 0, 0}, at(1));
}

TEST(Layer3D, script_tells_nulls_of_one_name_apart) {
    Layer layer;
    fill(layer);
    QStringList const lines = linesOf(layer);
    EXPECT_EQ(lines.filter("Nulls.lamp.Position.x.keyframes").size(), 1);
    Layer read;
    fill(read);
    for (int id : {5, 6, 8})
        read.findNull(id)->position.setValue({0, 0, 0}, at(1));
    for (QString const & line : lines)
        EXPECT_TRUE(read.bStreamIn(line.section('.', 1), PRESENT)) << line.toStdString();
    for (int id : {5, 6, 8})
        EXPECT_EQ(read.findNull(id)->position.value(at(1)).x, id);
    EXPECT_EQ(linesOf(read), lines);
}

TEST(Layer3D, copies_share_nulls_until_the_last_lets_go) {
    for (std::size_t first = 0; first < 3; ++first)
        for (std::size_t step : {1u, 2u}) {
            std::array<std::optional<Layer>, 3> layers;
            fill(layers[0].emplace());
            QPointer<QObject> const inside(&layers[0]->findNull(8)->position.x_);
            layers[1].emplace(*layers[0]);
            layers[2].emplace().createNull(8, "gone");
            QPointer<QObject> const replaced(&layers[2]->findNull(8)->position.x_);
            *layers[2] = *layers[1];
            EXPECT_TRUE(replaced.isNull());
            EXPECT_EQ(layers[2]->findNull(8), layers[0]->findNull(8));
            std::string const script = scriptOf(*layers[0]);
            for (std::size_t gone = 0; gone < 3; ++gone) {
                EXPECT_FALSE(inside.isNull());
                for (std::optional<Layer> & layer : layers) {
                    if (layer) {
                        EXPECT_EQ(scriptOf(*layer), script);
                    }
                }
                std::optional<Layer> & going = layers[(first + step * gone) % 3];
                if (gone == 1) { // By clearing, then by destroying.
                    going->clear();
                    EXPECT_TRUE(scriptOf(*going).empty());
                }
                going.reset();
            }
            EXPECT_TRUE(inside.isNull());
        }
}

} // namespace
