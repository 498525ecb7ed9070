#include "camera/WarpPoints.h"

#include "geometry/gandalf/RadialDistortion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace VX::detail {

namespace {

constexpr std::size_t BLOCK_SIZE = 64;
constexpr std::size_t GRAIN = 8; ///< Whole vectors of any instruction set.

/// How a lens moves a ray, in one of its two directions.
enum class Bend {
    NONE,
    FACTOR,         ///< Times w of the squared radius.
    ONE_TERM_RATIO, ///< Times the inverse of that, found from the distorted radius.
    RATIO,
};

/// A stage in plain numbers.
struct Lens {
    Bend bend;
    double fx, fy, x0, y0;
    double k1, k2, k3;
    double end; ///< A bit less than the squared radius at which the branch ends.
};

struct Chain {
    bool bPixelsOut; ///< Whether points are in pixels of the outer lens, or are rays of depth `outDepth`.
    double outDepth;
    Lens out;
    Gan_Matrix33 matrix;
    Lens in;
};

struct Block {
    std::size_t count; ///< A multiple of GRAIN.
    alignas(64) std::array<double, BLOCK_SIZE> x;
    alignas(64) std::array<double, BLOCK_SIZE> y;
};

/// To be added to what is not to be trusted unless `bSure`. What is not a number stays so to the end of the chain. A
/// choice between two constants, so that no compiler puts the mathematics around it behind a branch.
VX_INLINED double doubtUnless(bool bSure) {
    return bSure ? 0.0 : std::numeric_limits<double>::quiet_NaN();
}

VX_INLINED void fromPixels(Lens const & lens, Block & block) {
    for (std::size_t i = 0; i < block.count; ++i) {
        block.x[i] = (block.x[i] - lens.x0) / lens.fx;
        block.y[i] = (block.y[i] - lens.y0) / lens.fy;
    }
}

VX_INLINED void toPixels(Lens const & lens, Block & block) {
    for (std::size_t i = 0; i < block.count; ++i) {
        block.x[i] = lens.fx * block.x[i] + lens.x0;
        block.y[i] = lens.fy * block.y[i] + lens.y0;
    }
}

/// Rays of the given depth to rays of depth 1. Where most of z cancels, towards the horizon, it is not certain: there
/// a last digit of the ray makes many of the result.
VX_INLINED void transform(Gan_Matrix33 const & m, double depth, Block & block) {
    for (std::size_t i = 0; i < block.count; ++i) {
        double const x = block.x[i];
        double const y = block.y[i];
        double const z = m.zx * x + m.zy * y + m.zz * depth;
        double const size = std::fabs(m.zx * x) + std::fabs(m.zy * y) + std::fabs(m.zz * depth);
        double const divisor = z + doubtUnless(std::fabs(z) > 0.125 * size);
        block.x[i] = (m.xx * x + m.xy * y + m.xz * depth) / divisor;
        block.y[i] = (m.yx * x + m.yy * y + m.yz * depth) / divisor;
    }
}

VX_INLINED void multiplyByFactor(Lens const & lens, Block & block) {
    for (std::size_t i = 0; i < block.count; ++i) {
        double const s = block.x[i] * block.x[i] + block.y[i] * block.y[i];
        double const factor = radialFactor(lens.k1, lens.k2, lens.k3, s) + doubtUnless(s < lens.end);
        block.x[i] *= factor;
        block.y[i] *= factor;
    }
}

VX_INLINED void multiplyByOneTermRatio(Lens const & lens, Block & block) {
    for (std::size_t i = 0; i < block.count; ++i) {
        double const a = lens.k1 * (block.x[i] * block.x[i] + block.y[i] * block.y[i]);
        double const ratio = radialRatioBySteps<2>(a) + (doubtUnless(a > -0.13) + doubtUnless(a < 1.0));
        block.x[i] *= ratio;
        block.y[i] *= ratio;
    }
}

/// The root m of f(m) = m w(m^2 s) - 1 with ai = ki s^i, by Halley's steps m - 2 f f' / (2 f'^2 - f f''). The slope f'
/// is d(m^2 s) of RadialDistortion.h, which is above 0 on the whole branch: a root within it is the one.
///
/// The start is that of one term with the sum of all, right to the second order in each. A last step below 1e-6, with
/// the slope not near 0, leaves an error of about its cube.
VX_INLINED double ratioBySteps(Lens const & lens, double s) {
    double const a1 = lens.k1 * s;
    double const a2 = lens.k2 * s * s;
    double const a3 = lens.k3 * s * s * s;
    double m = radialRatioBySteps<0>(a1 + a2 + a3);
    double step = 0.0;
    double slope = 1.0;
    for (int i = 0; i < 3; ++i) {
        double const t = m * m;
        double const f = m * radialFactor(a1, a2, a3, t) - 1.0;
        slope = 1.0 + t * (3.0 * a1 + t * (5.0 * a2 + t * 7.0 * a3));
        double const bend = m * (6.0 * a1 + t * (20.0 * a2 + t * 42.0 * a3));
        step = 2.0 * f * slope / (2.0 * slope * slope - f * bend);
        m -= step;
    }
    return m + (doubtUnless(std::fabs(step) < 1e-6) + doubtUnless(slope > 0.05)) +
           (doubtUnless(m > 0.0) + doubtUnless(m * m * s < lens.end));
}

VX_INLINED void multiplyByRatio(Lens const & lens, Block & block) {
    for (std::size_t i = 0; i < block.count; ++i) {
        double const ratio = ratioBySteps(lens, block.x[i] * block.x[i] + block.y[i] * block.y[i]);
        block.x[i] *= ratio;
        block.y[i] *= ratio;
    }
}

VX_INLINED void bend(Lens const & lens, Block & block) {
    switch (lens.bend) {
    case Bend::NONE:
        return;
    case Bend::FACTOR:
        return multiplyByFactor(lens, block);
    case Bend::ONE_TERM_RATIO:
        return multiplyByOneTermRatio(lens, block);
    case Bend::RATIO:
        return multiplyByRatio(lens, block);
    }
}

/// A product with 0 is 0 for a finite number only.
VX_INLINED bool isSure(Block const & block, std::size_t i) {
    return block.x[i] * 0.0 + block.y[i] * 0.0 == 0.0;
}

VX_INLINED bool areAllSure(Block const & block) {
    std::size_t sure = 0;
    for (std::size_t i = 0; i < block.count; ++i)
        sure += isSure(block, i) ? 1 : 0;
    return sure == block.count;
}

/// The whole chain. Says whether all points came out finite; those that did not are to be carried in another way.
VX_INLINED bool carryInLoops(Chain const & chain, Block & block) {
    if (chain.bPixelsOut) {
        fromPixels(chain.out, block);
        bend(chain.out, block);
    }
    transform(chain.matrix, chain.outDepth, block);
    bend(chain.in, block);
    toPixels(chain.in, block);
    return areAllSure(block);
}

typedef bool Kernel(Chain const &, Block &);

bool carryForBaseline(Chain const & chain, Block & block) {
    return carryInLoops(chain, block);
}

#ifdef VX_HAS_AVX2
// Not "fma" as well: products and sums rounded as one would part from the point form where large terms cancel.
[[gnu::target("avx2")]] bool carryForAvx2(Chain const & chain, Block & block) {
    return carryInLoops(chain, block);
}
#endif

Kernel * kernelFor([[maybe_unused]] InstructionSet set) {
#ifdef VX_HAS_AVX2
    if (set == InstructionSet::AVX2)
        return carryForAvx2;
#endif
    return carryForBaseline;
}

/// A model whose two directions the loops know.
struct Model {
    int terms;
    Bend projection;
    Bend backprojection;
    Gan_CameraPointFunction * project;
    Gan_CameraPointFunction * backproject;
};

Model modelOf(Gan_CameraType type, int terms, Bend projection, Bend backprojection) {
    Gan_Camera camera{};
    camera.type = type;
    gan_camera_internalize(&camera);
    return {terms, projection, backprojection, camera.project, camera.backproject};
}

std::array<Model, 6> const & models() {
    static std::array<Model, 6> const all{
        modelOf(GAN_CAMERA_LINEAR, 0, Bend::NONE, Bend::NONE),
        modelOf(GAN_CAMERA_RADIAL_1, 1, Bend::FACTOR, Bend::ONE_TERM_RATIO),
        modelOf(GAN_CAMERA_RADIAL_2, 2, Bend::FACTOR, Bend::RATIO),
        modelOf(GAN_CAMERA_RADIAL_3, 3, Bend::FACTOR, Bend::RATIO),
        modelOf(GAN_CAMERA_RADIAL_1_INVERSE, 1, Bend::ONE_TERM_RATIO, Bend::FACTOR),
        modelOf(GAN_CAMERA_RADIAL_2_INVERSE, 2, Bend::RATIO, Bend::FACTOR),
    };
    return all;
}

double branchEnd(Gan_Camera const & camera, int terms) {
    double const k1 = camera.distortion[0];
    if (terms == 1)
        return k1 < 0.0 ? -1.0 / (3.0 * k1) : std::numeric_limits<double>::infinity();
    return camera.branchEnd;
}

bool isUsable(double fx, double fy, double zh) {
    double const frame = fx * fy * zh;
    return frame != 0.0 && std::isfinite(frame);
}

/// Says whether the loops can do this lens in this direction.
bool setLens(Gan_Camera const & camera, Gan_CameraPointFunction * Model::*direction, Bend Model::*bend,
             Gan_CameraPointFunction * function, Lens & lens) {
    auto const model =
        std::find_if(models().begin(), models().end(), [=](Model const & one) { return one.*direction == function; });
    if (model == models().end() || !isUsable(camera.fx, camera.fy, camera.zh))
        return false;
    auto const term = [&](int i) { return i < model->terms ? camera.distortion[i] : 0.0; };
    constexpr double justShort = 1.0 - 1e-6;
    lens = {(*model).*bend, camera.fx, camera.fy,
            camera.x0,      camera.y0, term(0),
            term(1),        term(2),   justShort * branchEnd(camera, model->terms)};
    return true;
}

bool setOut(WarpStage const & stage, Chain & chain) {
    Gan_Camera const & camera = stage.camera;
    chain.bPixelsOut = stage.bOn;
    chain.outDepth = stage.bOn ? 1.0 : camera.zh;
    return !stage.bOn || setLens(camera, &Model::backproject, &Model::backprojection, camera.backproject, chain.out);
}

/// A stage that is off brings rays to zh, as a linear lens of that focal length does.
bool setIn(WarpStage const & stage, Chain & chain) {
    Gan_Camera const & camera = stage.camera;
    if (stage.bOn)
        return setLens(camera, &Model::project, &Model::projection, camera.project, chain.in);
    chain.in = {};
    chain.in.fx = chain.in.fy = camera.zh;
    return isUsable(camera.zh, camera.zh, camera.zh);
}

void fill(Block & block, double const * x, double const * y, std::size_t count) {
    block.count = (count + GRAIN - 1) / GRAIN * GRAIN;
    std::fill(std::copy_n(x, count, block.x.begin()), block.x.begin() + block.count, x[0]);
    std::fill(std::copy_n(y, count, block.y.begin()), block.y.begin() + block.count, y[0]);
}

void carryOneByOne(WarpChain const & chain, double * x, double * y, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        carry(chain, x[i], y[i]);
}

/// Takes over what the loops made, and carries the rest.
void takeSure(WarpChain const & chain, Block const & block, double * x, double * y, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        if (isSure(block, i)) {
            x[i] = block.x[i];
            y[i] = block.y[i];
        } else {
            carry(chain, x[i], y[i]);
        }
    }
}

} // namespace

void carry(WarpChain const & chain, double * x, double * y, std::size_t count, InstructionSet set) {
    Chain plain{};
    plain.matrix = chain.matrix;
    if (!setOut(chain.out, plain) || !setIn(chain.in, plain))
        return carryOneByOne(chain, x, y, count);
    Kernel * const kernel = kernelFor(set);
    Block block;
    for (std::size_t begin = 0; begin < count; begin += BLOCK_SIZE) {
        std::size_t const size = std::min(BLOCK_SIZE, count - begin);
        fill(block, x + begin, y + begin, size);
        if (kernel(plain, block)) {
            std::copy_n(block.x.begin(), size, x + begin);
            std::copy_n(block.y.begin(), size, y + begin);
        } else {
            takeSure(chain, block, x + begin, y + begin, size);
        }
    }
}

} // namespace VX::detail
