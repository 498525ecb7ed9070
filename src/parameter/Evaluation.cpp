#include "parameter/Evaluation.h"

#include "parameter/kyn/CubeRoots.h"

namespace Kyn::detail {

namespace {

/// Coefficients of a cubic in s, without its constant term: ((a s + b) s + c) s.
struct Cubic {
    double a;
    double b;
    double c;
};

/// From the offsets of two control points to coefficients: Bernstein form to powers, in this order of operations.
Cubic cubicOf(double start, double end, double out, double in) {
    double const c = 3.0 * out;
    double const b = 3.0 * ((end + in) - (out + start)) - c;
    double const a = end - start - c - b;
    return {a, b, c};
}

constexpr double NO_ROOT = -1.0;

/// The root by the full solver: the first real part strictly between 0 and 1.
double solvedRoot(Cubic const & x, double elapsed) {
    double const coefficients[3] = {-elapsed / x.a, x.c / x.a, x.b / x.a};
    double roots[3][2];
    int const count = cuberoots(coefficients, roots);
    for (int i = 0; i < count; ++i)
        if (roots[i][0] > 0.0 && roots[i][0] < 1.0)
            return roots[i][0];
    return NO_ROOT;
}

/// One step of Halley's method towards the root: s - 2 f f' / (2 f'^2 - f f''), which triples the digits.
double halleyChange(Cubic const & x, double elapsed, double s) {
    double const value = ((x.a * s + x.b) * s + x.c) * s - elapsed;
    double const slope = (3.0 * x.a * s + 2.0 * x.b) * s + x.c;
    double const bend = 3.0 * x.a * s + x.b; // Half the second derivative.
    return value * slope / (slope * slope - value * bend);
}

/// The root by Halley's method, where the time cubic cannot turn back within the segment and so has one root there.
/// Close to the ends, where it matters whether a root rounds to 0 or 1, and where the method is slow, NO_ROOT.
///
/// Three steps are enough for handles of usual lengths; taken without asking in between, they give the processor no
/// branch to guess wrong.
double quickRoot(Cubic const & x, double elapsed, double duration) {
    constexpr int MOST_FURTHER_STEPS = 12;
    constexpr double EDGE = 1e-9;
    constexpr double SMALL = 1e-6; // Behind a step this small the next would change nothing.
    double s = elapsed / duration;
    s -= halleyChange(x, elapsed, s);
    s -= halleyChange(x, elapsed, s);
    double change = halleyChange(x, elapsed, s);
    s -= change;
    // Measured against the distance to the nearer end: where the curve starts or stops flat, that is what must be
    // right.
    auto const settled = [&] { return std::fabs(change) <= SMALL * std::min(s, 1.0 - s); };
    for (int step = 0; step < MOST_FURTHER_STEPS && !settled(); ++step) {
        change = halleyChange(x, elapsed, s);
        s -= change;
    }
    return settled() && s > EDGE && s < 1.0 - EDGE ? s : NO_ROOT;
}

/// Whether the control points ascend in time, which keeps the time cubic from turning back, and the time lies within.
bool runsForward(Segment const & segment, InterpolationData const & handles, double time) {
    return segment.t0 < time && time < segment.t1 && handles.dOutTime >= 0.0 && handles.dInTime <= 0.0 &&
           segment.t0 + handles.dOutTime <= segment.t1 + handles.dInTime;
}

} // namespace

double bezierValue(Segment const & segment, InterpolationData const & handles, double time) {
    Cubic const x = cubicOf(segment.t0, segment.t1, handles.dOutTime, handles.dInTime);
    double const duration = segment.t1 - segment.t0;
    // A cubic term that vanishes, or nearly so, belongs to the full solver, which divides by it.
    double s = NO_ROOT;
    if (runsForward(segment, handles, time) && std::fabs(x.a) > 1e-100 * duration && duration < 1e100)
        s = quickRoot(x, time - segment.t0, duration);
    if (s == NO_ROOT)
        s = solvedRoot(x, time - segment.t0);
    if (s == NO_ROOT)
        return 0.0;
    Cubic const y = cubicOf(segment.y0, segment.y1, handles.dOutValue, handles.dInValue);
    return s * y.a * s * s + s * y.b * s + s * y.c + segment.y0;
}

} // namespace Kyn::detail
