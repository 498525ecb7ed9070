#include "geometry/gandalf/Rot3D.h"

#include "geometry/gandalf/ErrorTrace.h"
#include "geometry/gandalf/MatrixElements.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {
double lengthOf(Gan_Vector3 const & v) {
    return std::hypot(v.x, v.y, v.z);
}

// Scaled by its largest element first, so that no square leaves the range.
std::optional<Gan_Quaternion> unitQuaternion(Gan_Quaternion q) {
    double const largest = std::max({std::fabs(q.w), std::fabs(q.x), std::fabs(q.y), std::fabs(q.z)});
    if (!(largest > 0.0) || !std::isfinite(q.w + q.x + q.y + q.z))
        return std::nullopt;
    q = {q.w / largest, q.x / largest, q.y / largest, q.z / largest};
    double const length = std::sqrt(q.w * q.w + q.x * q.x + q.y * q.y + q.z * q.z);
    return Gan_Quaternion{q.w / length, q.x / length, q.y / length, q.z / length};
}

std::optional<Gan_Quaternion> quaternionFrom(double angle, Gan_Vector3 const & axis) {
    double const length = lengthOf(axis);
    if (!(length > 0.0) || !std::isfinite(length) || !std::isfinite(angle))
        return std::nullopt;
    double const sine = std::sin(0.5 * angle) / length;
    return Gan_Quaternion{std::cos(0.5 * angle), sine * axis.x, sine * axis.y, sine * axis.z};
}

// Four times the products of a unit quaternion's element with all four are sums and differences of matrix elements.
// Of the four rows the one of the largest element is taken, which loses no digits (Shepperd, 1978).
std::optional<Gan_Quaternion> quaternionFrom(Gan_Matrix33 const & m) {
    if (!VX::detail::isFinite(m))
        return std::nullopt;
    double const trace = m.xx + m.yy + m.zz;
    double const largest = std::max({trace, m.xx, m.yy, m.zz});
    if (largest == trace)
        return unitQuaternion({1.0 + trace, m.zy - m.yz, m.xz - m.zx, m.yx - m.xy});
    if (largest == m.xx)
        return unitQuaternion({m.zy - m.yz, 1.0 + m.xx - m.yy - m.zz, m.xy + m.yx, m.xz + m.zx});
    if (largest == m.yy)
        return unitQuaternion({m.xz - m.zx, m.xy + m.yx, 1.0 + m.yy - m.xx - m.zz, m.yz + m.zy});
    return unitQuaternion({m.yx - m.xy, m.xz + m.zx, m.yz + m.zy, 1.0 + m.zz - m.xx - m.yy});
}

std::optional<Gan_Quaternion> quaternionFrom(Gan_Rot3D const & rotation) {
    switch (rotation.type) {
    case GAN_ROT3D_QUATERNION:
        return unitQuaternion(rotation.quaternion);
    case GAN_ROT3D_ANGLE_AXIS:
        return quaternionFrom(rotation.angle, rotation.axis);
    case GAN_ROT3D_MATRIX:
        return quaternionFrom(rotation.matrix);
    }
    return std::nullopt;
}

Gan_Matrix33 matrixFrom(Gan_Quaternion const & q) {
    return {
        1.0 - 2.0 * (q.y * q.y + q.z * q.z), 2.0 * (q.x * q.y - q.w * q.z),       2.0 * (q.x * q.z + q.w * q.y),
        2.0 * (q.x * q.y + q.w * q.z),       1.0 - 2.0 * (q.x * q.x + q.z * q.z), 2.0 * (q.y * q.z - q.w * q.x),
        2.0 * (q.x * q.z - q.w * q.y),       2.0 * (q.y * q.z + q.w * q.x),       1.0 - 2.0 * (q.x * q.x + q.y * q.y),
    };
}

Gan_Rot3D angleAxisFrom(Gan_Quaternion q) {
    Gan_Rot3D result{GAN_ROT3D_ANGLE_AXIS, {}, 0.0, {0.0, 0.0, 1.0}, {}};
    if (q.w < 0.0)
        q = {-q.w, -q.x, -q.y, -q.z};
    double const sine = std::hypot(q.x, q.y, q.z);
    if (sine == 0.0)
        return result;
    result.angle = 2.0 * std::atan2(sine, q.w);
    result.axis = {q.x / sine, q.y / sine, q.z / sine};
    return result;
}
} // namespace

extern "C" {
Gan_Rot3D gan_rot3D_build_angle_axis(double angle, Gan_Vector3 const * axis) {
    double const length = lengthOf(*axis);
    if (!(length > 0.0) || !std::isfinite(length) || !std::isfinite(angle)) {
        gan_err_register("gan_rot3D_build_angle_axis", "no axis, or a number that is not finite");
        return {GAN_ROT3D_ANGLE_AXIS, {}, 0.0, {0.0, 0.0, 1.0}, {}};
    }
    return {GAN_ROT3D_ANGLE_AXIS, {}, angle, {axis->x / length, axis->y / length, axis->z / length}, {}};
}

Gan_Rot3D gan_rot3D_convert_s(Gan_Rot3D const * rotation, Gan_Rot3DType type) {
    std::optional<Gan_Quaternion> q = quaternionFrom(*rotation);
    bool const bKnown = type == GAN_ROT3D_QUATERNION || type == GAN_ROT3D_ANGLE_AXIS || type == GAN_ROT3D_MATRIX;
    if (!q || !bKnown) {
        gan_err_register("gan_rot3D_convert_s", "no rotation, or a form that is not known");
        q = Gan_Quaternion{1.0, 0.0, 0.0, 0.0};
    }
    if (type == GAN_ROT3D_ANGLE_AXIS)
        return angleAxisFrom(*q);
    if (type == GAN_ROT3D_MATRIX)
        return {GAN_ROT3D_MATRIX, {}, 0.0, {}, matrixFrom(*q)};
    return {GAN_ROT3D_QUATERNION, *q, 0.0, {}, {}};
}

Gan_Vector3 gan_rot3D_apply_v3_s(Gan_Rot3D const * rotation, Gan_Vector3 const * vector) {
    if (rotation->type == GAN_ROT3D_MATRIX)
        return gan_mat33_multv3_s(&rotation->matrix, vector);
    Gan_Rot3D const turned = gan_rot3D_convert_s(rotation, GAN_ROT3D_MATRIX);
    return gan_mat33_multv3_s(&turned.matrix, vector);
}
}
