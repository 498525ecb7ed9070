// Points through a whole frame warp with one radial term on both sides, beside the same chain written out by hand with
// Newton's method on the radius; and a lens asked for again.

#include "Ratios.h"

#include "camera/CameraParameterSet.h"
#include "camera/FrameWarp.h"

#include <chrono>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr int POINTS = 65536;

std::vector<Gan_Vector2> pointsOnFrame() {
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> x(-200.0, 2120.0);
    std::uniform_real_distribution<double> y(-100.0, 1180.0);
    std::vector<Gan_Vector2> points(POINTS);
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
    Chain() { warp.vSetAttributes(1, 1, 1920, 1080, true, out, nullptr, homography, true, in, nullptr); }

    Gan_Camera out = cameraOf(-0.2);
    Gan_Matrix33 homography{1.01, 0.02, 0.03, -0.01, 0.99, 0.02, 0.01, -0.02, 1.0};
    Gan_Camera in = cameraOf(-0.15);
    VX::FrameWarp warp;
};

void warpPoint(Chain const & chain, Gan_Vector2 & point) {
    chain.warp.vWarpPoint(point.x, point.y);
}

void warpByHand(Chain const & chain, Gan_Vector2 & point) {
    Gan_Camera const & out = chain.out;
    Gan_Matrix33 const & h = chain.homography;
    Gan_Camera const & in = chain.in;
    double x = (point.x - out.x0) / out.fx;
    double y = (point.y - out.y0) / out.fy;
    double const distorted = std::sqrt(x * x + y * y);
    double r = distorted;
    for (int i = 0; i < 20; ++i) {
        double const s = r * r;
        double const step = (r * (1.0 + out.distortion[0] * s) - distorted) / (1.0 + 3.0 * out.distortion[0] * s);
        r -= step;
        if (std::fabs(step) < 1e-14)
            break;
    }
    double const ratio = distorted > 0.0 ? r / distorted : 1.0;
    x *= ratio;
    y *= ratio;
    double const depth = h.zx * x + h.zy * y + h.zz;
    if (depth == 0.0)
        return;
    double const u = (h.xx * x + h.xy * y + h.xz) / depth;
    double const v = (h.yx * x + h.yy * y + h.yz) / depth;
    double const a = in.distortion[0] * (u * u + v * v);
    if (!(1.0 + 3.0 * a > 0.0))
        return;
    point = {in.fx * u * (1.0 + a) + in.x0, in.fy * v * (1.0 + a) + in.y0};
}

template <void (*carry)(Chain const &, Gan_Vector2 &)>
Bench::Work carrying() {
    auto const points = std::make_shared<std::vector<Gan_Vector2>>(pointsOnFrame());
    auto const chain = std::make_shared<Chain>();
    return [=] {
        for (Gan_Vector2 point : *points) {
            carry(*chain, point);
            benchmark::DoNotOptimize(point);
        }
        return std::int64_t(POINTS);
    };
}

double allocationsOfPoints() {
    Bench::Work const work = carrying<warpPoint>();
    std::int64_t const before = Bench::allocations();
    work();
    return static_cast<double>(Bench::allocations() - before);
}

/// A static lens on a clip, asked for once.
struct Lens {
    Lens() {
        clip.frameWidth = 1920;
        clip.frameHeight = 1080;
        clip.setFilmType(VX::FilmType(36.0, 24.0));
        set.type.setValue(GAN_CAMERA_RADIAL_2, ask(0));
        set.radialK1.setValue(-0.1f, ask(0));
        set.getCamera(ask(0), clip);
    }
    static Kyn::Context ask(int frame) { return Kyn::Context(Kyn::Time(frame), Kyn::View(0), Kyn::ProxyScale::FULL); }
    void askAgain(int times) {
        for (int frame = 0; frame < times; ++frame)
            benchmark::DoNotOptimize(set.getCamera(ask(frame), clip));
    }

    VX_CameraParameterSet set;
    VX_BaseClipInfo clip;
};

double microsecondsToAskAgain() {
    typedef std::chrono::steady_clock Clock;
    constexpr int times = 100000;
    Lens lens;
    Clock::time_point const start = Clock::now();
    lens.askAgain(times);
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count() / times;
}

double allocationsToAskAgain() {
    Lens lens;
    std::int64_t const before = Bench::allocations();
    lens.askAgain(1000);
    return static_cast<double>(Bench::allocations() - before);
}

bool const registered = [] {
    Bench::compare("camera/a point through a warp", 1.4, carrying<warpPoint>, carrying<warpByHand>);
    Bench::figure("camera/65,536 points through a warp", 0.0, "allocations", allocationsOfPoints);
    Bench::figure("camera/a static lens, asked again", 2.0, "us", microsecondsToAskAgain);
    Bench::figure("camera/a static lens, asked again 1000 times", 0.0, "allocations", allocationsToAskAgain);
    return true;
}();

} // namespace
