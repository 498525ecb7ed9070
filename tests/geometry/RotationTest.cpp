#include "geometry/gandalf/Rot3D.h"
#include "geometry/marlin/Euler.h"
#include "geometry/marlin/Homography.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double pi = 3.14159265358979323846;

void expectNear(Gan_Vector3 const & actual, Gan_Vector3 const & expected, double tolerance) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

void expectNear(Gan_Matrix33 const & actual, Gan_Matrix33 const & expected, double tolerance) {
    for (Gan_Vector3 const & axis : {Gan_Vector3{1, 0, 0}, Gan_Vector3{0, 1, 0}, Gan_Vector3{0, 0, 1}})
        expectNear(actual * axis, expected * axis, tolerance);
}

Gan_Rot3D about(double angle, Gan_Vector3 const & axis) {
    return gan_rot3D_build_angle_axis(angle, &axis);
}

Gan_Rot3D converted(Gan_Rot3D const & rotation, Gan_Rot3DType type) {
    return gan_rot3D_convert_s(&rotation, type);
}

Gan_Matrix33 matrixOf(Gan_Rot3D const & rotation) {
    return converted(rotation, GAN_ROT3D_MATRIX).matrix;
}

Gan_Matrix33 matrixOf(Gan_Quaternion const & quaternion) {
    return matrixOf(Gan_Rot3D{GAN_ROT3D_QUATERNION, quaternion, 0.0, {}, {}});
}

// Rodrigues: v cos + (axis x v) sin + axis (axis . v) (1 - cos), for an axis of length 1.
Gan_Vector3 rodrigues(Gan_Vector3 const & axis, double angle, Gan_Vector3 const & v) {
    double const c = std::cos(angle);
    double const s = std::sin(angle);
    double const along = (axis.x * v.x + axis.y * v.y + axis.z * v.z) * (1.0 - c);
    return {v.x * c + (axis.y * v.z - axis.z * v.y) * s + axis.x * along,
            v.y * c + (axis.z * v.x - axis.x * v.z) * s + axis.y * along,
            v.z * c + (axis.x * v.y - axis.y * v.x) * s + axis.z * along};
}

class Rotation : public testing::Test {
protected:
    double unit() { return m_unit(m_generator); }

    Gan_Vector3 direction() {
        Gan_Vector3 const v{unit(), unit(), unit()};
        double const length = std::hypot(v.x, v.y, v.z);
        return {v.x / length, v.y / length, v.z / length};
    }

private:
    std::mt19937_64 m_generator{5};
    std::uniform_real_distribution<double> m_unit{-1.0, 1.0};
};

TEST_F(Rotation, every_form_turns_vectors_by_the_right_hand) {
    for (int n = 0; n < 500; ++n) {
        Gan_Vector3 const axis = direction();
        double const angle = 7.0 * unit();
        Gan_Vector3 const v{unit(), unit(), unit()};
        Gan_Rot3D const rotation = about(angle, {3.0 * axis.x, 3.0 * axis.y, 3.0 * axis.z});
        for (auto const type : {GAN_ROT3D_QUATERNION, GAN_ROT3D_ANGLE_AXIS, GAN_ROT3D_MATRIX}) {
            Gan_Rot3D const form = converted(rotation, type);
            EXPECT_EQ(form.type, type);
            expectNear(gan_rot3D_apply_v3_s(&form, &v), rodrigues(axis, angle, v), 4e-15);
        }
    }
}

TEST_F(Rotation, forms_come_back_from_one_another_half_turns_included) {
    for (int n = 0; n < 500; ++n) {
        double const angle = n % 5 ? 0.5 * pi * (1.0 + unit()) : n % 2 ? pi : 1e-9;
        Gan_Rot3D const rotation = about(angle, direction());
        Gan_Rot3D const quaternion = converted(converted(rotation, GAN_ROT3D_MATRIX), GAN_ROT3D_QUATERNION);
        Gan_Rot3D const back = converted(quaternion, GAN_ROT3D_ANGLE_AXIS);
        EXPECT_NEAR(back.angle, angle, 4e-15);
        expectNear(matrixOf(back), matrixOf(rotation), 4e-15);
    }
}

TEST_F(Rotation, quaternion_of_any_length_or_sign_is_the_same_rotation) {
    Gan_Matrix33 const expected = matrixOf(Gan_Quaternion{0.5, 0.1, -0.7, 0.3});
    for (double const f : {-1.0, 1e200})
        expectNear(matrixOf(Gan_Quaternion{0.5 * f, 0.1 * f, -0.7 * f, 0.3 * f}), expected, 1e-15);
}

TEST_F(Rotation, what_is_no_rotation_becomes_the_identity) {
    double const notANumber = std::numeric_limits<double>::quiet_NaN();
    Gan_Matrix33 const identity = gan_mat33_ident_s();
    expectNear(matrixOf(Gan_Quaternion{0, 0, 0, 0}), identity, 0.0);
    expectNear(matrixOf(Gan_Quaternion{1, notANumber, 0, 0}), identity, 0.0);
    expectNear(matrixOf(about(1.0, {0, 0, 0})), identity, 0.0);
    expectNear(matrixOf(about(notANumber, {0, 1, 0})), identity, 0.0);
    Gan_Rot3D unknown = about(1.0, {0, 1, 0});
    unknown.type = static_cast<Gan_Rot3DType>(2);
    expectNear(matrixOf(unknown), identity, 0.0);
}

TEST_F(Rotation, euler_angles_turn_about_x_then_y_then_z) {
    for (int n = 0; n < 500; ++n) {
        Gan_Vector3 const angles{4.0 * unit(), 4.0 * unit(), 4.0 * unit()};
        Gan_Vector3 const v{unit(), unit(), unit()};
        Gan_Vector3 const byX = rodrigues({1, 0, 0}, angles.x, v);
        Gan_Vector3 const byXY = rodrigues({0, 1, 0}, angles.y, byX);
        expectNear(matrixOf(sfm_euler2quaternion(angles)) * v, rodrigues({0, 0, 1}, angles.z, byXY), 3e-15);
    }
}

TEST_F(Rotation, euler_angles_come_back_in_degrees) {
    for (int n = 0; n < 500; ++n) {
        Gan_Vector3 const degrees{179.0 * unit(), 89.0 * unit(), 179.0 * unit()};
        Gan_Vector3 radians = degrees;
        radians *= pi / 180.0;
        expectNear(eulerFromMatrix(matrixOf(sfm_euler2quaternion(radians))), degrees, 1e-11);
    }
}

TEST_F(Rotation, euler_angles_near_and_at_a_right_angle_make_the_same_rotation) {
    for (double const fromRightAngle : {0.0, 1e-16, 1e-12, 1e-8, 1e-4}) {
        for (int n = 0; n < 200; ++n) {
            double const y = std::copysign(0.5 * pi - fromRightAngle, unit());
            Gan_Matrix33 const matrix = matrixOf(sfm_euler2quaternion({3.0 * unit(), y, 3.0 * unit()}));
            Gan_Vector3 back = eulerFromMatrix(matrix);
            EXPECT_LE(std::fabs(back.y), 90.0);
            EXPECT_TRUE(fromRightAngle > 0.0 || back.z == 0.0) << back.z;
            back *= pi / 180.0;
            expectNear(matrixOf(sfm_euler2quaternion(back)), matrix, 1e-14);
        }
    }
}

TEST_F(Rotation, vector_operators_act_in_place) {
    Gan_Vector3 v{1, -2, 3};
    (v *= 2.0) += {1, 1, 1};
    expectNear(v, {3, -3, 7}, 0.0);
}

} // namespace
