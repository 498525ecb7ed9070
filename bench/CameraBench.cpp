// A point through a lens with one radial term, a homography and such a lens again, beside the same chain written out by
// hand with Newton's method on the radius.

#include "Ratios.h"

#include "geometry/gandalf/Camera.h"
#include "geometry/gandalf/Matrix33.h"
#include "geometry/gandalf/Vector2.h"

#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr int POINTS = 65536;

typedef std::vector<Gan_Vector2> Points;

Points pointsOnFrame() {
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> x(-200.0, 2120.0);
    std::uniform_real_distribution<double> y(-100.0, 1180.0);
    Points points(POINTS);
    for (Gan_Vector2 & point : points)
        point = {x(generator), y(generator)};
    return points;
}

Gan_Camera cameraOf(double k1) {
    Gan_Camera camera{};
    camera.type = GAN_CAMERA_RADIAL_1;
    camera.zh = 960.0;
    camera.fx = camera.fy = 1800.0;
    camera.x0 = 960.0;
    camera.y0 = 540.0;
    camera.distortion[0] = k1;
    gan_camera_internalize(&camera);
    return camera;
}

struct Chain {
    Gan_Camera in = cameraOf(-0.2);
    Gan_Matrix33 homography{1.01, 0.02, 0.03, -0.01, 0.99, 0.02, 0.01, -0.02, 1.0};
    Gan_Camera out = cameraOf(-0.15);
};

bool carry(Chain const & chain, Gan_Vector2 & point) {
    Gan_Vector3 v{point.x, point.y, chain.in.zh};
    if (!chain.in.backproject(&chain.in, &v, &v, nullptr, nullptr))
        return false;
    v = gan_mat33_multv3_s(&chain.homography, &v);
    if (!chain.out.project(&chain.out, &v, &v, nullptr, nullptr))
        return false;
    point = {v.x, v.y};
    return true;
}

bool carryByHand(Chain const & chain, Gan_Vector2 & point) {
    Gan_Camera const & in = chain.in;
    Gan_Matrix33 const & h = chain.homography;
    Gan_Camera const & out = chain.out;
    double x = (point.x - in.x0) / in.fx;
    double y = (point.y - in.y0) / in.fy;
    double const distorted = std::sqrt(x * x + y * y);
    double r = distorted;
    for (int i = 0; i < 20; ++i) {
        double const s = r * r;
        double const step = (r * (1.0 + in.distortion[0] * s) - distorted) / (1.0 + 3.0 * in.distortion[0] * s);
        r -= step;
        if (std::fabs(step) < 1e-14)
            break;
    }
    double const ratio = distorted > 0.0 ? r / distorted : 1.0;
    x *= ratio;
    y *= ratio;
    double const depth = h.zx * x + h.zy * y + h.zz;
    if (depth == 0.0)
        return false;
    double const u = (h.xx * x + h.xy * y + h.xz) / depth;
    double const v = (h.yx * x + h.yy * y + h.yz) / depth;
    double const a = out.distortion[0] * (u * u + v * v);
    if (!(1.0 + 3.0 * a > 0.0))
        return false;
    point = {out.fx * u * (1.0 + a) + out.x0, out.fy * v * (1.0 + a) + out.y0};
    return true;
}

template <bool (*carryPoint)(Chain const &, Gan_Vector2 &)>
Bench::Work carrying() {
    auto const points = std::make_shared<Points>(pointsOnFrame());
    auto const chain = std::make_shared<Chain>();
    return [=] {
        for (Gan_Vector2 point : *points) {
            benchmark::DoNotOptimize(carryPoint(*chain, point));
            benchmark::DoNotOptimize(point);
        }
        return std::int64_t(POINTS);
    };
}

bool const registered = [] {
    Bench::compare("camera/lens of one term, homography, lens", 1.4, carrying<carry>, carrying<carryByHand>);
    return true;
}();

} // namespace
