#pragma once

#include "parameter/Keyframe.h"
#include "parameter/support/ChangeRecorder.h"
#include "parameter/support/SlowCurve.h"

#include <cmath>
#include <limits>
#include <map>
#include <type_traits>
#include <vector>

namespace Test {

/// A parameter in its plainest form: maps, scans, no cache, everything in the order in which its rules are told. The
/// judge of random operations. As a numeric one it knows the types and modes NONE, CONSTANT and LINEAR.
template <class T>
class ParameterModel {
public:
    struct Key {
        double time;
        T value;
    };
    struct ViewData {
        T value = T();
        std::vector<Key> keys = {};
        std::vector<Kyn::InterpolationData> records = {};
    };
    struct Limits {
        T minimum;
        T maximum;
    };
    static constexpr unsigned int NO_KEYFRAME = 0xFFFFFFFFu;

    bool animatable = true;
    bool splittable = false;
    Limits const * limits = nullptr; ///< Not null: numeric.
    ParameterModel<bool> * link = nullptr;
    T defaultValue = T();
    unsigned int before = 0;
    unsigned int after = 0;
    unsigned int defaultType = 0;
    std::map<int, ViewData> store;
    Changes sent;

    // Views

    std::vector<int> views() const {
        std::vector<int> ids;
        for (auto const & [id, data] : store)
            ids.push_back(id);
        return ids.empty() ? std::vector<int>{0} : ids;
    }
    bool has(int view) const { return store.count(view) != 0; }
    ViewData & read(int view) {
        if (store.empty())
            store[0].value = defaultValue;
        return has(view) ? store[view] : store.begin()->second;
    }
    int written(int view) const { return !splittable ? 0 : view < 0 ? views().front() : view; }
    ViewData & write(int asked) {
        int const view = written(asked);
        if (has(view))
            return store[view];
        bool const quiet = store.empty() && view == 0;
        store[view].value = defaultValue;
        if (!quiet)
            send(Kyn::ParameterChange::ViewAdded, view);
        return store[view];
    }
    void copyView(int dest, int source) {
        if (!splittable)
            return;
        ViewData const copy = read(source);
        write(dest) = copy;
    }
    void resetValue(int view) {
        bool const differs = write(view).value != defaultValue;
        write(view).value = defaultValue;
        if (differs)
            send(Kyn::ParameterChange::ValueChanged, written(view));
    }
    bool splitView(int view, int reference) {
        if (!splittable || !link || store.empty() || link->read(view).value || has(view))
            return false;
        ViewData & data = write(view); // A negative id means the first view.
        T const seed = store[has(reference) ? reference : views().front()].value;
        if (data.value != seed) {
            data.value = seed;
            send(Kyn::ParameterChange::ValueChanged, written(view));
        }
        return true;
    }
    bool removeView(int view) {
        if (store.size() < 2 || !has(view))
            return false;
        store.erase(view);
        send(Kyn::ParameterChange::ViewRemoved, view);
        return true;
    }

    // Values

    T value(double time, int view) {
        T const found = unlimited(time, view);
        return limits ? limited(found) : found;
    }
    T keyframeValue(unsigned int index, int view) {
        ViewData const & data = read(view);
        if (!animatable || data.keys.empty())
            return data.value;
        return index < data.keys.size() ? data.keys[index].value : data.keys.back().value;
    }
    unsigned int setValue(T value, double time, int view) {
        if (limits)
            value = limited(value);
        ViewData & data = write(view);
        if (!animatable) {
            if (!(data.value == value)) {
                data.value = value;
                send(Kyn::ParameterChange::KeyframeChangedValue, written(view), STATIC_VALUE);
            }
            return NO_KEYFRAME;
        }
        int const found = keyAt(data, time);
        if (found >= 0) {
            Key & key = data.keys[static_cast<std::size_t>(found)];
            if (!(key.value == value)) {
                key.value = value;
                send(Kyn::ParameterChange::KeyframeChangedValue, written(view), static_cast<unsigned int>(found));
            }
            return static_cast<unsigned int>(found);
        }
        std::size_t const place = placeAfter(data, time);
        unsigned int const type = place < data.keys.size() ? data.records[place].eType : defaultType;
        insert(data, place, {time, value}, type);
        send(Kyn::ParameterChange::KeyframeAdded, written(view), static_cast<unsigned int>(place));
        send(Kyn::ParameterChange::KeyframeChangedValue, written(view), static_cast<unsigned int>(place));
        return static_cast<unsigned int>(place);
    }

    // Keys

    unsigned int addKeyframe(double time, int view) {
        if (!animatable || keyAt(write(view), time) >= 0)
            return NO_KEYFRAME;
        T const inForce = value(time, view);
        ViewData & data = write(view);
        std::size_t const place = placeAfter(data, time);
        unsigned int const type = place > 0 && place < data.keys.size() ? data.records[place - 1].eType : defaultType;
        insert(data, place, {time, inForce}, type);
        send(Kyn::ParameterChange::KeyframeAdded, written(view), static_cast<unsigned int>(place));
        return static_cast<unsigned int>(place);
    }
    void deleteKeyframe(double time, int view) {
        if (hides(view))
            return;
        ViewData & data = write(view);
        int const found = keyAt(data, time);
        if (found < 0)
            return;
        if (data.keys.size() == 1)
            data.value = data.keys[0].value;
        data.keys.erase(data.keys.begin() + found);
        data.records.erase(data.records.begin() + found);
        send(Kyn::ParameterChange::KeyframeRemoved, written(view), static_cast<unsigned int>(found));
    }
    void deleteAllKeyframes(int view) {
        if (hides(view))
            return;
        ViewData & data = write(view);
        if (data.keys.empty() && data.records.empty())
            return;
        data.keys.clear();
        data.records.clear();
        send(Kyn::ParameterChange::AllKeyframesRemoved, 0);
    }
    void resetToDefault(double time, int view) {
        if (hides(view) || read(written(view)).keys.empty()) {
            write(view).value = defaultValue;
            send(Kyn::ParameterChange::ViewReset, written(view));
        } else {
            deleteKeyframe(time, view);
        }
    }
    void setInterpolation(unsigned int type, double time, int view) {
        if (!animatable)
            return;
        ViewData & data = write(view);
        int const found = keyAt(data, time);
        if (found < 0)
            return;
        std::size_t const index = static_cast<std::size_t>(found);
        if (index + 1 < data.keys.size())
            data.records[index] = plain(type);
        data.records[index].eType = static_cast<Kyn::Interpolation>(type);
        send(Kyn::ParameterChange::KeyframeChangedInterpolation, written(view), static_cast<unsigned int>(found));
    }
    void setInterpolationData(Kyn::InterpolationData const & record, unsigned int index, int view) {
        if (!animatable)
            return;
        ViewData & data = write(view);
        if (index >= data.keys.size())
            return;
        data.records[index] = record;
        send(Kyn::ParameterChange::KeyframeChangedInterpolation, written(view), index);
    }
    unsigned int moveChangeKeyframe(T value, double from, int view, double to) {
        if (limits)
            value = limited(value);
        ViewData & data = write(view);
        int const found = keyAt(data, from);
        if (found < 0)
            return NO_KEYFRAME;
        std::size_t const index = static_cast<std::size_t>(found);
        bool const notBefore = index == 0 || to >= data.keys[index - 1].time;
        bool const notBehind = index + 1 == data.keys.size() || data.keys[index + 1].time >= to;
        if (notBefore && notBehind) {
            data.keys[index] = {to, value};
            send(Kyn::ParameterChange::KeyframeChangedTimeValue, written(view), static_cast<unsigned int>(found));
            return static_cast<unsigned int>(found);
        }
        data.keys.erase(data.keys.begin() + found); // The record stays.
        Changes const before_ = sent;
        unsigned int const place = setValue(value, to, 0);
        sent = before_;
        sent.push_back({Kyn::ParameterChange::KeyframeMoved, view, 0, {static_cast<unsigned int>(found), place}});
        return place;
    }

    // Queries

    unsigned int numKeyframes(int view) { return hides(view) ? 0 : static_cast<unsigned int>(read(view).keys.size()); }
    bool isKeyframe(double time, int view) { return !hides(view) && keyAt(read(view), time) >= 0; }
    unsigned int interpolation(double time, int view) {
        if (!animatable)
            return Kyn::INTERPOLATION_CONSTANT;
        ViewData const & data = read(view);
        if (data.keys.empty())
            return defaultType;
        std::size_t inForce = 0;
        for (std::size_t i = 0; i < data.keys.size() && data.keys[i].time < time; ++i)
            inForce = i;
        int const exact = keyAt(data, time);
        return data.records[exact >= 0 ? static_cast<std::size_t>(exact) : inForce].eType;
    }
    /// The place of the nearest key, or -1.
    int nearest(double time, int view) {
        if (hides(view) || read(view).keys.empty())
            return -1;
        ViewData const & data = read(view);
        std::size_t const next = placeAfter(data, time);
        if (next == data.keys.size())
            return static_cast<int>(next) - 1;
        if (next == 0)
            return 0;
        bool const further = data.keys[next].time - time > time - data.keys[next - 1].time;
        return static_cast<int>(next) - (further ? 1 : 0);
    }
    int previous(double time, int view) { return hides(view) ? -1 : placeAtOrAfter(read(view), time) - 1; }
    int next(double time, int view) {
        if (hides(view))
            return -1;
        ViewData const & data = read(view);
        int place = placeAtOrAfter(data, time);
        int const count = static_cast<int>(data.keys.size());
        if (place < count && data.keys[static_cast<std::size_t>(place)].time == time)
            ++place;
        return place < count ? place : -1;
    }

private:
    struct Place {
        int view = -1;
        std::size_t index = 0;
        bool null() const { return view == -1; }
        friend bool operator==(Place a, Place b) { return a.view == b.view && a.index == b.index; }
    };
    struct Bounds {
        Place before;
        Place after;
        bool null() const { return before.null() && after.null(); }
    };

    void send(Kyn::ParameterChange::ChangeType type, int view, unsigned int index = 0) {
        sent.push_back({type, view, index});
    }
    bool hides(int view) const { return !animatable || (splittable && !has(view)); }
    static Kyn::InterpolationData plain(unsigned int type) {
        return Kyn::withoutHandles(static_cast<Kyn::Interpolation>(type));
    }
    static int keyAt(ViewData const & data, double time) {
        for (std::size_t i = 0; i < data.keys.size(); ++i)
            if (data.keys[i].time == time)
                return static_cast<int>(i);
        return -1;
    }
    static std::size_t placeAfter(ViewData const & data, double time) {
        std::size_t i = 0;
        while (i < data.keys.size() && !(data.keys[i].time > time))
            ++i;
        return i;
    }
    static int placeAtOrAfter(ViewData const & data, double time) {
        std::size_t i = 0;
        while (i < data.keys.size() && !(data.keys[i].time >= time))
            ++i;
        return static_cast<int>(i);
    }
    /// Between two keys the record goes to the key's place; a key behind the last gets it behind all records.
    static void insert(ViewData & data, std::size_t place, Key const & key, unsigned int type) {
        std::size_t const count = data.keys.size();
        if (place == count && count > 0)
            data.records[count - 1] = plain(data.records[count - 1].eType);
        std::size_t const recordPlace = place == count ? data.records.size() : place;
        data.keys.insert(data.keys.begin() + static_cast<std::ptrdiff_t>(place), key);
        data.records.insert(data.records.begin() + static_cast<std::ptrdiff_t>(recordPlace), plain(type));
    }

    T limited(T value) const {
        T const below = value > limits->maximum ? limits->maximum : value;
        return below > limits->minimum ? below : limits->minimum;
    }
    T unlimited(double time, int view) {
        int const chosen = splittable ? view : views().front();
        if (!animatable)
            return read(chosen).value;
        int searched = views().front();
        if (has(chosen)) {
            searched = chosen;
            int const exact = keyAt(store[chosen], time);
            if (exact >= 0)
                return store[chosen].keys[static_cast<std::size_t>(exact)].value;
        }
        std::vector<int> search{searched};
        if (splittable && link && link->value(time, view))
            search = views();
        std::vector<Bounds> pairs;
        for (int const one : search)
            pairs.push_back(bounds(time, one));
        while (pairs.size() > 1) {
            pairs[1] = combined(pairs[0], pairs[1], time, view);
            pairs.erase(pairs.begin());
        }
        Bounds const found = pairs.front();
        if (found.null())
            return read(chosen).value;
        if (found.before.null() || found.after.null())
            return extrapolated(found, time);
        if (found.before == found.after && found.before.view == chosen)
            return store[chosen].keys[found.before.index].value;
        return interpolated(found.before, time);
    }
    Bounds bounds(double time, int view) {
        std::vector<Key> const & keys = read(view).keys;
        if (keys.empty())
            return {};
        std::size_t lo = 0;
        std::size_t hi = keys.size() - 1;
        if (time < keys[lo].time)
            return {{}, {view, lo}};
        if (time > keys[hi].time)
            return {{view, hi}, {}};
        if (time == keys[lo].time)
            return {{view, lo}, {view, lo}};
        if (time == keys[hi].time)
            return {{view, hi}, {view, hi}};
        while (lo != hi && lo + 1 != hi) {
            std::size_t const middle = (lo + hi) / 2;
            if (keys[middle].time == time)
                lo = hi = middle;
            else
                (keys[middle].time > time ? hi : lo) = middle;
        }
        return {{view, lo}, {view, hi}};
    }
    Bounds combined(Bounds const & a, Bounds const & b, double time, int view) {
        if (a.null())
            return b;
        if (b.null())
            return a;
        return {nearer(a.before, b.before, time, view), nearer(a.after, b.after, time, view)};
    }
    Place nearer(Place x, Place y, double time, int view) {
        if (x.null() || y.null())
            return x.null() ? y : x;
        float const dX = static_cast<float>(std::fabs(time - store[x.view].keys[x.index].time));
        float const dY = static_cast<float>(std::fabs(time - store[y.view].keys[y.index].time));
        if (dX != dY)
            return dX < dY ? x : y;
        return x.view == view ? x : y;
    }

    /// What stands between or beyond a view's keys: the slow curve's value in the member's own type, or simply the
    /// key's.
    T interpolated(Place place, double time) {
        if constexpr (std::is_arithmetic_v<T>) {
            if (limits)
                return computed(slowSegment(curveOf(place), place.index, time));
        }
        return store[place.view].keys[place.index].value;
    }
    T extrapolated(Bounds const & bounds, double time) {
        Place const place = bounds.before.null() ? bounds.after : bounds.before;
        if constexpr (std::is_arithmetic_v<T>) {
            if (limits)
                return computed(slowValue(curveOf(place), time, static_cast<Kyn::Extrapolation>(before),
                                          static_cast<Kyn::Extrapolation>(after)));
        }
        return store[place.view].keys[place.index].value;
    }
    Curve curveOf(Place place) {
        ViewData const & data = store[place.view];
        Curve curve;
        for (std::size_t i = 0; i < data.keys.size(); ++i)
            curve.keys.push_back({data.keys[i].time, static_cast<double>(data.keys[i].value), data.records[i]});
        return curve;
    }
    static T computed(Range const & range) {
        typedef std::numeric_limits<T> Ends;
        double const number = range.low; // Of the types that the model knows both ends are one.
        if constexpr (std::is_same_v<T, bool>)
            return number != 0.0;
        else if constexpr (std::is_integral_v<T>)
            return number >= static_cast<double>(Ends::max())   ? Ends::max()
                   : number <= static_cast<double>(Ends::min()) ? Ends::min()
                                                                : static_cast<T>(number);
        else
            return static_cast<T>(number);
    }
};

} // namespace Test
