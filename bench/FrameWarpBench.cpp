// Points through a whole frame warp, beside the same chain written out by hand with Newton's method on the radius,
// beside OpenCV's functions for arrays, and in arrays of our own beside one by one; a lens asked for again; and the
// keyed form of a warp.

#include "Ratios.h"

#include "camera/CameraParameterSet.h"
#include "camera/FrameWarp.h"
#include "camera/ParameterisedFrameWarp.h"
#include "camera/WarpPoints.h"

#ifdef VX_BENCH_OPENCV
#include <opencv2/calib3d.hpp>
#include <opencv2/core.hpp>
#endif

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr int POINTS = 65536;

std::vector<Gan_Vector2> pointsOnFrame(std::size_t count = POINTS) {
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> x(-200.0, 2120.0);
    std::uniform_real_distribution<double> y(-100.0, 1180.0);
    std::vector<Gan_Vector2> points(count);
    for (Gan_Vector2 & point : points)
        point = {x(generator), y(generator)};
    return points;
}

Gan_Camera cameraOf(Gan_CameraType type, double k1) {
    Gan_Camera camera{};
    camera.type = type;
    camera.zh = 960.0;
    camera.fx = camera.fy = 1800.0;
    camera.x0 = 960.0;
    camera.y0 = 540.0;
    camera.distortion[0] = k1;
    camera.distortion[1] = -0.1 * k1; // For the models that have it.
    gan_camera_internalize(&camera);
    return camera;
}

struct Chain {
    explicit Chain(Gan_CameraType type = GAN_CAMERA_RADIAL_1) : out(cameraOf(type, -0.2)), in(cameraOf(type, -0.15)) {
        warp.vSetAttributes(1, 1, 1920, 1080, true, out, nullptr, homography, true, in, nullptr);
    }

    Gan_Camera out;
    Gan_Matrix33 homography{1.01, 0.02, 0.03, -0.01, 0.99, 0.02, 0.01, -0.02, 1.0};
    Gan_Camera in;
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

template <void (*carry)(Chain const &, Gan_Vector2 &), Gan_CameraType type = GAN_CAMERA_RADIAL_1, int count = POINTS>
Bench::Work carrying() {
    auto const points = std::make_shared<std::vector<Gan_Vector2>>(pointsOnFrame(count));
    auto const chain = std::make_shared<Chain>(type);
    return [=] {
        for (Gan_Vector2 point : *points) {
            carry(*chain, point);
            benchmark::DoNotOptimize(point);
        }
        return std::int64_t(count);
    };
}

/// Points in arrays, fresh for each run.
struct Arrays {
    explicit Arrays(std::vector<Gan_Vector2> const & points) {
        for (Gan_Vector2 const & point : points) {
            givenX.push_back(point.x);
            givenY.push_back(point.y);
        }
        x = givenX;
        y = givenY;
    }

    void renew() {
        std::copy(givenX.begin(), givenX.end(), x.begin());
        std::copy(givenY.begin(), givenY.end(), y.begin());
    }

    std::vector<double> givenX, givenY, x, y;
};

template <VX::detail::InstructionSet set, Gan_CameraType type, int count = POINTS>
Bench::Work carryingArrays() {
    auto const arrays = std::make_shared<Arrays>(pointsOnFrame(count));
    auto const chain = std::make_shared<Chain>(type);
    return [=] {
        arrays->renew();
        VX::detail::carry({{true, chain->out}, chain->homography, {true, chain->in}}, arrays->x.data(),
                          arrays->y.data(), arrays->x.size(), set);
        benchmark::DoNotOptimize(arrays->x.data());
        benchmark::ClobberMemory();
        return std::int64_t(count);
    };
}

double allocationsOfPoints() {
    Bench::Work const work = carrying<warpPoint>();
    std::int64_t const before = Bench::allocations();
    work();
    return static_cast<double>(Bench::allocations() - before);
}

double allocationsOfArrays() {
    Arrays arrays(pointsOnFrame());
    Chain const chain;
    std::int64_t const before = Bench::allocations();
    chain.warp.vWarpPoints(arrays.x.data(), arrays.y.data(), arrays.x.size());
    chain.warp.vUnwarpPoints(arrays.x.data(), arrays.y.data(), arrays.x.size());
    return static_cast<double>(Bench::allocations() - before);
}

/// One kind of lens: arrays beside one point after the other.
template <VX::detail::InstructionSet set, Gan_CameraType type>
void compareArrays(std::string const & name, double limit) {
    if (VX::detail::bHasInstructionSet(set))
        Bench::compare(name, limit, carryingArrays<set, type>, carrying<warpPoint, type>);
}

template <VX::detail::InstructionSet set>
void compareArraysOfAllLenses(std::string const & setName, double limit) {
    compareArrays<set, GAN_CAMERA_LINEAR>("camera/an array, linear, " + setName, limit);
    compareArrays<set, GAN_CAMERA_RADIAL_1>("camera/an array, one term, " + setName, limit);
    compareArrays<set, GAN_CAMERA_RADIAL_2>("camera/an array, two terms, " + setName, limit);
}

#ifdef VX_BENCH_OPENCV
constexpr int MANY = 1000000;

/// Its model with k1 alone is the lens of one term. The undistortion stops after five rounds if it is not asked for
/// more: right in the middle of the frame, and up to 0.7 px off at its corners.
struct OpenCvChain {
    static cv::Matx33d matrixOf(Gan_Camera const & camera) {
        return {camera.fx, 0.0, camera.x0, 0.0, camera.fy, camera.y0, 0.0, 0.0, 1.0};
    }

    static cv::Vec4d termsOf(Gan_Camera const & camera) { return {camera.distortion[0], 0.0, 0.0, 0.0}; }

    OpenCvChain() : rays(MANY), moved(MANY), scene(MANY, cv::Vec3d(0.0, 0.0, 1.0)), carried(MANY) {
        for (Gan_Vector2 const & point : pointsOnFrame(MANY))
            given.emplace_back(point.x, point.y);
    }

    void run(cv::TermCriteria const & rounds = {cv::TermCriteria::COUNT, 5, 0.01}) {
        Gan_Matrix33 const & h = chain.homography;
        cv::undistortPoints(given, rays, matrixOf(chain.out), termsOf(chain.out), cv::noArray(), cv::noArray(), rounds);
        cv::perspectiveTransform(rays, moved, cv::Matx33d(h.xx, h.xy, h.xz, h.yx, h.yy, h.yz, h.zx, h.zy, h.zz));
        for (std::size_t i = 0; i < MANY; ++i)
            scene[i] = {moved[i][0], moved[i][1], 1.0};
        cv::projectPoints(scene, cv::Vec3d(), cv::Vec3d(), matrixOf(chain.in), termsOf(chain.in), carried);
    }

    Chain const chain;
    std::vector<cv::Vec2d> given, rays, moved;
    std::vector<cv::Vec3d> scene;
    std::vector<cv::Vec2d> carried;
};

Bench::Work carryingByOpenCv() {
    auto const chain = std::make_shared<OpenCvChain>();
    return [=] {
        chain->run();
        benchmark::ClobberMemory();
        return std::int64_t(MANY);
    };
}

/// That both carry points alike once it is given the rounds: the largest distance.
double distanceFromOpenCv() {
    OpenCvChain peer;
    peer.run({cv::TermCriteria::COUNT | cv::TermCriteria::EPS, 200, 1e-12});
    double largest = 0.0;
    for (std::size_t i = 0; i < MANY; ++i) {
        Gan_Vector2 point{peer.given[i][0], peer.given[i][1]};
        warpPoint(peer.chain, point);
        largest = std::max(largest, std::hypot(point.x - peer.carried[i][0], point.y - peer.carried[i][1]));
    }
    return largest;
}

void compareWithOpenCv() {
    constexpr double limit = 1.0 / 3.0;
    constexpr auto baseline = VX::detail::InstructionSet::BASELINE;
    Bench::compare("camera/one by one, against OpenCV's arrays", limit, carrying<warpPoint, GAN_CAMERA_RADIAL_1, MANY>,
                   carryingByOpenCv);
    Bench::compare("camera/an array, baseline, against OpenCV's", limit,
                   carryingArrays<baseline, GAN_CAMERA_RADIAL_1, MANY>, carryingByOpenCv);
    Bench::figure("camera/distance from OpenCV after 200 rounds", 1e-6, "px", distanceFromOpenCv);
}
#endif

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

double millisecondsToBuildParameters() {
    typedef std::chrono::steady_clock Clock;
    constexpr int times = 20;
    auto const first = std::make_unique<VX::ParameterisedFrameWarp>();
    Clock::time_point const start = Clock::now();
    for (int i = 0; i < times; ++i)
        benchmark::DoNotOptimize(std::make_unique<VX::ParameterisedFrameWarp>());
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count() / times;
}

double kilobytesOfParameters() {
    auto const first = std::make_unique<VX::ParameterisedFrameWarp>();
    std::int64_t const before = Bench::heapBytes();
    auto const second = std::make_unique<VX::ParameterisedFrameWarp>();
    return static_cast<double>(Bench::heapBytes() - before) / 1000.0;
}

bool const registered = [] {
    Bench::compare("camera/a point through a warp", 1.4, carrying<warpPoint>, carrying<warpByHand>);
    compareArraysOfAllLenses<VX::detail::InstructionSet::BASELINE>("baseline", 0.5);
    compareArraysOfAllLenses<VX::detail::InstructionSet::AVX2>("AVX2", 0.25);
#ifdef VX_BENCH_OPENCV
    compareWithOpenCv();
#endif
    Bench::figure("camera/2 x 65,536 points in arrays", 0.0, "allocations", allocationsOfArrays);
    Bench::figure("camera/a parameterised warp, built and freed", 2.0, "ms", millisecondsToBuildParameters);
    Bench::figure("camera/a parameterised warp", 1000.0, "kB", kilobytesOfParameters);
    Bench::figure("camera/65,536 points through a warp", 0.0, "allocations", allocationsOfPoints);
    Bench::figure("camera/a static lens, asked again", 2.0, "us", microsecondsToAskAgain);
    Bench::figure("camera/a static lens, asked again 1000 times", 0.0, "allocations", allocationsToAskAgain);
    return true;
}();

} // namespace
