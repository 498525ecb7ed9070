#include "geometry/marlin/Euler.h"

#include <cfloat>
#include <cmath>

Gan_Quaternion sfm_euler2quaternion(Gan_Vector3 const & radians) {
    double const cx = std::cos(0.5 * radians.x);
    double const sx = std::sin(0.5 * radians.x);
    double const cy = std::cos(0.5 * radians.y);
    double const sy = std::sin(0.5 * radians.y);
    double const cz = std::cos(0.5 * radians.z);
    double const sz = std::sin(0.5 * radians.z);
    return {
        cz * cy * cx + sz * sy * sx,
        cz * cy * sx - sz * sy * cx,
        cz * sy * cx + sz * cy * sx,
        sz * cy * cx - cz * sy * sx,
    };
}

Gan_Vector3 eulerFromMatrix(Gan_Matrix33 const & rotation) {
    Gan_Matrix33 const & r = rotation;
    double const cosineY = std::hypot(r.xx, r.yx);
    double const y = std::atan2(-r.zx, cosineY);
    bool const bRightAngle = cosineY < 16.0 * DBL_EPSILON;
    double const z = bRightAngle ? 0.0 : std::atan2(r.yx, r.xx);
    double const c = std::cos(z);
    double const s = std::sin(z);
    double const x = std::atan2(s * r.xz - c * r.yz, c * r.yy - s * r.xy);
    constexpr double degrees = 57.295779513082320877;
    return {degrees * x, degrees * y, degrees * z};
}

Gan_Vector3 & operator*=(Gan_Vector3 & vector, double factor) {
    vector = {vector.x * factor, vector.y * factor, vector.z * factor};
    return vector;
}

Gan_Vector3 & operator+=(Gan_Vector3 & vector, Gan_Vector3 const & other) {
    vector = {vector.x + other.x, vector.y + other.y, vector.z + other.z};
    return vector;
}
