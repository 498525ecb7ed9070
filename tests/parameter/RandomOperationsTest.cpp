// Random operations on a parameter and on its plainest model: results, notifications and whole state stay the same.
// What this law covers (guards, bad indices, neighbours, views of negative or far ids) has few cases elsewhere.

#include "parameter/support/ParameterModel.h"
#include "parameter/support/ParameterTest.h"

#include <optional>
#include <random>

namespace {

using namespace Kyn;
using namespace Test;

enum class Computing { Held, Numeric };

template <class T, Computing computing>
struct Kind {
    typedef T Value;
    static constexpr bool numeric = computing == Computing::Numeric;
    typedef std::conditional_t<numeric, NumericParameter<T>, Parameter<T>> Type;
};

template <class T>
bool same(T const & a, T const & b) {
    if constexpr (std::is_floating_point_v<T>)
        return a == b || (std::isnan(a) && std::isnan(b));
    else
        return a == b;
}

struct Setting {
    bool animatable;
    bool splittable;
    bool linked;
};

template <class K>
class Pair {
public:
    typedef typename K::Value T;

    Pair(Setting const & setting, unsigned int seed) : random(seed), parameter(setting.animatable, "subject") {
        parameter.setSplittable(setting.splittable);
        model.animatable = setting.animatable;
        model.splittable = setting.splittable;
        if constexpr (K::numeric) {
            limits = {valueOf<T>(1), valueOf<T>(9)};
            parameter.setMinimum(limits.minimum);
            parameter.setMaximum(limits.maximum);
            model.limits = &limits;
        }
        flag.setSplittable(true);
        flagModel.animatable = false;
        flagModel.splittable = true;
        if (setting.linked) {
            parameter.setLinkFlag(&flag);
            model.link = &flagModel;
        }
    }

    void run(int steps) {
        ChangeRecorder recorder(parameter);
        for (int i = 0; i < steps; ++i) {
            SCOPED_TRACE(i);
            unsigned int const operation = pick(30);
            SCOPED_TRACE("operation " + std::to_string(operation));
            carryOut(operation);
            ASSERT_EQ(recorder.take(), model.sent);
            model.sent.clear();
            ASSERT_NO_FATAL_FAILURE(compareViews());
            if (pick(3) == 0) {
                ASSERT_NO_FATAL_FAILURE(compareAll());
            }
            ASSERT_EQ(recorder.take(), Changes()); // Asking sends nothing.
        }
    }

private:
    static constexpr int VIEWS[] = {-1, 0, 1, 2, 7, 2000000000};

    unsigned int pick(unsigned int count) { return static_cast<unsigned int>(random() % count); }
    int view() { return VIEWS[pick(6)]; }
    double time() { return static_cast<double>(pick(24)) * 0.5 - 2.0; }
    unsigned int frame() { return pick(8); }
    T someValue() { return valueOf<T>(static_cast<int>(pick(12))); }
    unsigned int mode() { return pick(3); }
    unsigned int type() {
        if (K::numeric)
            return pick(3);
        return pick(6) == 5 ? 17u : pick(5);
    }
    InterpolationData record() {
        double const number = static_cast<double>(++records);
        return {static_cast<Interpolation>(type()), number, number + 0.25, number + 0.5, number + 0.75};
    }

    void carryOut(unsigned int operation) {
        int const v = view();
        double const t = time();
        switch (operation) {
        default: {
            T const value = someValue();
            ASSERT_EQ(parameter.setValue(value, at(t, v)), model.setValue(value, t, v));
            break;
        }
        case 0:
        case 1:
            ASSERT_EQ(parameter.addKeyframe(at(t, v)), model.addKeyframe(t, v));
            break;
        case 2: {
            unsigned int const f = frame();
            std::vector<View> const all{View(v), View(view())};
            parameter.addKeyframeAtFrame(Frame(f), all);
            for (View const one : all)
                model.addKeyframe(f, one.id());
            break;
        }
        case 3:
            parameter.deleteKeyframe(at(t, v));
            model.deleteKeyframe(t, v);
            break;
        case 4:
            if (pick(3) == 0) {
                parameter.deleteAllKeyframes(View(v));
                model.deleteAllKeyframes(v);
            }
            break;
        case 5:
            parameter.resetToDefault(at(t, v));
            model.resetToDefault(t, v);
            break;
        case 6:
        case 7: {
            unsigned int const newType = type();
            parameter.setInterpolation(static_cast<Interpolation>(newType), at(t, v));
            model.setInterpolation(newType, t, v);
            break;
        }
        case 8:
        case 9: {
            InterpolationData const data = record();
            unsigned int const index = pick(6);
            parameter.setInterpolationData(data, index, View(v));
            model.setInterpolationData(data, index, v);
            break;
        }
        case 10:
            setModes();
            break;
        case 11: {
            unsigned int const newType = type();
            parameter.setDefaultInterpolation(static_cast<Interpolation>(newType));
            model.defaultType = newType;
            break;
        }
        case 12:
        case 13:
        case 14: {
            T const value = someValue();
            double const to = time();
            ASSERT_EQ(parameter.moveChangeKeyframe(value, at(t, v), Time(to)),
                      model.moveChangeKeyframe(value, t, v, to));
            break;
        }
        case 15: {
            int const source = view();
            parameter.copyView(View(v), View(source), nullptr);
            model.copyView(v, source);
            break;
        }
        case 16:
            parameter.resetValue(View(v));
            model.resetValue(v);
            break;
        case 17: {
            int const reference = model.views().back();
            ASSERT_EQ(parameter.bSplitView(View(v), View(reference)), model.splitView(v, reference));
            break;
        }
        case 18:
            ASSERT_EQ(parameter.bRemoveView(View(v)), model.removeView(v));
            break;
        case 19:
            parameter.setDefaultValue(model.defaultValue = someValue());
            break;
        case 20:
            saveOrRestore();
            break;
        case 21: {
            bool const on = pick(2) == 1;
            flag.setValue(on, at(t, v));
            flagModel.setValue(on, t, v);
            break;
        }
        case 22:
            // A "views" line clears the views in scripts that list them, silently as all reading.
            if (pick(4) == 0) {
                ASSERT_TRUE(parameter.setFromScriptString("views=[0, 1]", StreamVersion(2)));
                model.store.clear();
            }
            break;
        case 23:
            if (pick(4) == 0)
                parameter.setSplittable(model.splittable = !model.splittable);
            break;
        }
    }

    void setModes() {
        if (!model.animatable)
            return;
        model.before = mode();
        parameter.setExtrapolationBefore(static_cast<Extrapolation>(model.before));
        model.sent.push_back({ParameterChange::ChangedExtrapolationBefore});
        model.after = mode();
        parameter.setExtrapolationAfter(static_cast<Extrapolation>(model.after));
        model.sent.push_back({ParameterChange::ChangedExtrapolationAfter});
    }

    void saveOrRestore() {
        if (!saved) {
            saved = parameter.exportState();
            savedModel = model;
            return;
        }
        parameter.importState(saved);
        model = *savedModel;
        model.sent = {{ParameterChange::ParameterCopied}};
        if (pick(2) == 0)
            saved.reset();
    }

    void compareViews() {
        ASSERT_EQ(idsOf(parameter), model.views());
        ASSERT_EQ(parameter.numViews(), model.views().size());
        ASSERT_EQ(parameter.isSplit(), model.views().size() > 1);
        ASSERT_EQ(parameter.defaultValue(), model.defaultValue);
        for (int const v : VIEWS)
            ASSERT_EQ(parameter.hasView(View(v)), model.has(v)) << v;
    }

    void compareAll() {
        for (int const v : VIEWS) {
            SCOPED_TRACE("view " + std::to_string(v));
            ASSERT_EQ(parameter.numKeyframes(View(v)), model.numKeyframes(v));
            auto const & data = model.read(v);
            ASSERT_TRUE(same(parameter.staticValue(View(v)), data.value));
            for (unsigned int i = 0; i <= data.keys.size(); ++i) {
                SCOPED_TRACE("key " + std::to_string(i));
                bool const isKey = i < data.keys.size();
                KeyframeIndex const key{&parameter, View(v), i};
                Context const where = parameter.keyframeContext(i, View(v));
                ASSERT_EQ(where, at(isKey ? data.keys[i].time : 0.0, v));
                ASSERT_EQ(key.toContext(), v == -1 ? Context() : where);
                ASSERT_TRUE(same(parameter.keyframeValue(i, View(v)), model.keyframeValue(i, v)));
                InterpolationData past;
                past.eType = static_cast<Interpolation>(model.animatable ? model.defaultType : 1u);
                ASSERT_EQ(parameter.interpolation(key), isKey ? data.records[i].eType : INTERPOLATION_CONSTANT);
                ASSERT_EQ(parameter.interpolationData(key), isKey ? data.records[i] : past);
            }
            for (double t = -3.0; t <= 11.0; t += 0.25)
                ASSERT_NO_FATAL_FAILURE(compareAt(t, v)) << t;
        }
    }

    void compareAt(double t, int v) {
        Context const context = at(t, v);
        ASSERT_TRUE(same(parameter.value(context), model.value(t, v)))
            << testing::PrintToString(parameter.value(context));
        ASSERT_EQ(parameter.isKeyframe(context), model.isKeyframe(t, v));
        ASSERT_EQ(parameter.interpolation(context), model.interpolation(t, v));
        unsigned int index = 99;
        Time time(-99.0);
        int const nearest = model.nearest(t, v);
        ASSERT_EQ(parameter.bNearestKeyframeIndex(context, index), nearest >= 0);
        ASSERT_EQ(index, nearest >= 0 ? static_cast<unsigned int>(nearest) : 99u);
        ASSERT_EQ(parameter.bNearestKeyframeTime(context, time), nearest >= 0);
        ASSERT_EQ(time, contextOf(nearest, v).time());
        Context found = contextOf(-1, v);
        int const previous = model.previous(t, v);
        ASSERT_EQ(parameter.bPreviousKeyframe(context, found), previous >= 0);
        ASSERT_EQ(found, contextOf(previous, v));
        found = contextOf(-1, v);
        int const next = model.next(t, v);
        ASSERT_EQ(parameter.bNextKeyframe(context, found), next >= 0);
        ASSERT_EQ(found, contextOf(next, v));
    }

    /// Of a key by its place; of none what an output holds that nobody writes.
    Context contextOf(int place, int v) {
        return place < 0 ? at(-99.0, 99) : at(model.read(v).keys[static_cast<std::size_t>(place)].time, v);
    }

    std::mt19937 random;
    int records = 0;
    typename K::Type parameter;
    ParameterModel<T> model;
    typename ParameterModel<T>::Limits limits{};
    Parameter<bool> flag{false, "flag"};
    ParameterModel<bool> flagModel;
    boost::shared_ptr<Tov::MementoBase> saved;
    std::optional<ParameterModel<T>> savedModel;
};

template <class K>
class RandomOperations : public testing::Test {};

typedef testing::Types<Kind<double, Computing::Held>, Kind<QString, Computing::Held>,
                       Kind<unsigned int, Computing::Held>, Kind<double, Computing::Numeric>,
                       Kind<float, Computing::Numeric>, Kind<int, Computing::Numeric>,
                       Kind<unsigned int, Computing::Numeric>, Kind<bool, Computing::Numeric>>
    Kinds;
TYPED_TEST_SUITE(RandomOperations, Kinds);

TYPED_TEST(RandomOperations, leave_what_they_leave_of_the_plainest_model) {
    constexpr Setting SETTINGS[] = {{false, false, false}, {false, true, true}, {true, false, false},
                                    {true, true, false},   {true, true, true},  {true, true, true}};
    unsigned int seed = 0;
    for (int round = 0; round < 6; ++round) {
        for (Setting const & setting : SETTINGS) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            ASSERT_NO_FATAL_FAILURE(Pair<TypeParam>(setting, seed).run(80));
            ++seed;
        }
    }
}

} // namespace
