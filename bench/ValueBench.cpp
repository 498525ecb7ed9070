// The value of a keyed parameter at a time, beside a hand-written curve: std::lower_bound over an array of key times
// and Newton's method on the time cubic, without virtual calls, contexts or limits.

#include "Ratios.h"

#include "parameter/NumericParameter.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace {

using Kyn::Context;
using Kyn::NumericParameter;
using Kyn::ProxyScale;
using Kyn::Time;
using Kyn::View;

constexpr int TIMES = 65536; // More than branch prediction can learn.

enum class Spacing { Regular, Irregular };
enum class Order { Random, Ascending, OnKeys };

struct HandCurve {
    struct Key {
        double value;
        double outTime, outValue, inTime, inValue;
    };
    std::vector<double> times;
    std::vector<Key> keys;
    bool bezier = false;

    double value(double t) const {
        std::size_t const next =
            static_cast<std::size_t>(std::lower_bound(times.begin(), times.end(), t) - times.begin());
        if (next == times.size())
            return keys.back().value;
        if (times[next] == t || next == 0)
            return keys[next].value;
        return bezier ? bezierValue(next - 1, t) : linearValue(next - 1, t);
    }

    double linearValue(std::size_t i, double t) const {
        double const slope = (keys[i + 1].value - keys[i].value) / (times[i + 1] - times[i]);
        return (t - times[i]) * slope + keys[i].value;
    }

    double bezierValue(std::size_t i, double t) const {
        Key const & k = keys[i];
        double const t0 = times[i], t1 = times[i + 1];
        double const cx = 3.0 * k.outTime;
        double const bx = 3.0 * ((t1 + k.inTime) - (t0 + k.outTime)) - cx;
        double const ax = t1 - t0 - cx - bx;
        double s = (t - t0) / (t1 - t0);
        for (int step = 0; step < 20; ++step) {
            double const f = ((ax * s + bx) * s + cx) * s - (t - t0);
            double const change = f / ((3.0 * ax * s + 2.0 * bx) * s + cx);
            s -= change;
            if (std::fabs(change) < 4e-9 * s)
                break;
        }
        double const y0 = k.value, y1 = keys[i + 1].value;
        double const cy = 3.0 * k.outValue;
        double const by = 3.0 * ((y1 + k.inValue) - (y0 + k.outValue)) - cy;
        double const ay = y1 - y0 - cy - by;
        return ((ay * s + by) * s + cy) * s + y0;
    }
};

/// The same random curve in both forms.
struct Curves {
    std::unique_ptr<NumericParameter<double>> ours;
    HandCurve peer;
    std::vector<double> times;

    Curves(int keys, Kyn::Interpolation type, Spacing spacing, Order order) {
        std::mt19937_64 random(7);
        std::uniform_real_distribution<double> value(-100.0, 100.0);
        std::uniform_real_distribution<double> gap(0.05, 4.0);
        ours = std::make_unique<NumericParameter<double>>(true, QStringLiteral("curve"), 0.0, -1e9, 1e9, type,
                                                          Kyn::EXTRAPOLATION_CONSTANT);
        double time = 1.0;
        for (int i = 0; i < keys; ++i) {
            ours->setValue(value(random), at(time));
            time += spacing == Spacing::Regular ? 1.0 : gap(random);
        }
        peer.bezier = type == Kyn::INTERPOLATION_BEZIER;
        for (unsigned int i = 0; i < static_cast<unsigned int>(keys); ++i) {
            Kyn::KeyframeIndex const key{ours.get(), View(0), i};
            Kyn::InterpolationData const data = ours->interpolationData(key);
            peer.times.push_back(key.toContext().time().toDouble());
            peer.keys.push_back(
                {ours->keyframeValue(i, View(0)), data.dOutTime, data.dOutValue, data.dInTime, data.dInValue});
        }
        std::uniform_real_distribution<double> within(peer.times.front(), peer.times.back());
        std::uniform_int_distribution<std::size_t> key(0, peer.times.size() - 1);
        for (int i = 0; i < TIMES; ++i)
            times.push_back(order == Order::OnKeys ? peer.times[key(random)] : within(random));
        if (order == Order::Ascending)
            std::sort(times.begin(), times.end());
    }

    static Context at(double time) { return Context(Time(time), View(0), ProxyScale::FULL); }
};

void compareCurves(std::string const & name, double limit, int keys, Kyn::Interpolation type, Spacing spacing,
                   Order order) {
    Bench::compare(
        "value/" + name, limit,
        [=] {
            auto curves = std::make_shared<Curves>(keys, type, spacing, order);
            return [curves] {
                Kyn::Parameter<double> const * parameter = curves->ours.get();
                benchmark::DoNotOptimize(parameter);
                double sum = 0.0;
                for (double const time : curves->times)
                    sum += parameter->value(Curves::at(time));
                benchmark::DoNotOptimize(sum);
                return std::int64_t(TIMES);
            };
        },
        [=] {
            auto curves = std::make_shared<Curves>(keys, type, spacing, order);
            return [curves] {
                HandCurve const * curve = &curves->peer;
                benchmark::DoNotOptimize(curve);
                double sum = 0.0;
                for (double const time : curves->times)
                    sum += curve->value(time);
                benchmark::DoNotOptimize(sum);
                return std::int64_t(TIMES);
            };
        });
}

/// A bare virtual call that loads a member. There are two of them, so that no compiler knows which is called.
struct Loader {
    virtual ~Loader() = default;
    virtual double load() const = 0;
};

template <int slot>
struct SlotLoader : Loader {
    double load() const override { return members[slot]; }
    double members[2] = {1.5, 2.5};
};

std::shared_ptr<Loader> makeLoader() {
    if (std::random_device{}() % 2 == 0)
        return std::make_shared<SlotLoader<0>>();
    return std::make_shared<SlotLoader<1>>();
}

void compareStatic(char const * name, bool animatable) {
    constexpr int CALLS = 4096;
    Bench::compare(
        name, 2.5,
        [=] {
            auto parameter =
                std::make_shared<NumericParameter<double>>(animatable, QStringLiteral("static"), 1.5, 0.0, 9.0,
                                                           Kyn::INTERPOLATION_LINEAR, Kyn::EXTRAPOLATION_CONSTANT);
            return [parameter] {
                Kyn::Parameter<double> const * p = parameter.get();
                double sum = 0.0;
                Context const context = Curves::at(3.0);
                for (int i = 0; i < CALLS; ++i) {
                    benchmark::DoNotOptimize(p);
                    sum += p->value(context);
                }
                benchmark::DoNotOptimize(sum);
                return std::int64_t(CALLS);
            };
        },
        [] {
            auto loader = makeLoader();
            return [loader] {
                Loader const * l = loader.get();
                double sum = 0.0;
                for (int i = 0; i < CALLS; ++i) {
                    benchmark::DoNotOptimize(l);
                    sum += l->load();
                }
                benchmark::DoNotOptimize(sum);
                return std::int64_t(CALLS);
            };
        });
}

bool const registered = [] {
    struct Row {
        int keys;
        Spacing spacing;
        double bezierRandom, bezierAscending, linearRandom, onKey;
    };
    constexpr Row ROWS[] = {
        {2, Spacing::Regular, 1.5, 1.5, 2.3, 1.5},       {10, Spacing::Regular, 1.1, 1.5, 0.5, 0.5},
        {100, Spacing::Regular, 0.7, 1.5, 0.25, 0.25},   {1000, Spacing::Regular, 0.5, 1.0, 0.15, 0.15},
        {10000, Spacing::Regular, 0.4, 0.9, 0.12, 0.15}, {1000, Spacing::Irregular, 1.1, 1.5, 0.55, 0.5},
    };
    for (Row const & row : ROWS) {
        std::string const keys =
            std::to_string(row.keys) + (row.spacing == Spacing::Irregular ? " keys irregular" : " keys");
        compareCurves("bezier random " + keys, row.bezierRandom, row.keys, Kyn::INTERPOLATION_BEZIER, row.spacing,
                      Order::Random);
        compareCurves("bezier ascending " + keys, row.bezierAscending, row.keys, Kyn::INTERPOLATION_BEZIER, row.spacing,
                      Order::Ascending);
        compareCurves("linear random " + keys, row.linearRandom, row.keys, Kyn::INTERPOLATION_LINEAR, row.spacing,
                      Order::Random);
        compareCurves("on a key " + keys, row.onKey, row.keys, Kyn::INTERPOLATION_LINEAR, row.spacing, Order::OnKeys);
    }
    compareStatic("value/static", false);
    compareStatic("value/animatable without keys", true);
    Bench::figure("value/allocations of 65536 values", 0.0, "calls", [] {
        Curves const curves(100, Kyn::INTERPOLATION_BEZIER, Spacing::Regular, Order::Random);
        std::int64_t const before = Bench::allocations();
        double sum = 0.0;
        for (double const time : curves.times)
            sum += curves.ours->value(Curves::at(time));
        benchmark::DoNotOptimize(sum);
        return static_cast<double>(Bench::allocations() - before);
    });
    return true;
}();

} // namespace
