#pragma once

#include "parameter/kyn/ParameterWithoutType.h"

#include <QObject>

#include <ostream>
#include <vector>

namespace Test {

constexpr unsigned int STATIC_VALUE = Kyn::ParameterChange::STATIC_VALUE;

/// One change as a listener hears it. What a type of change does not speak of is 0.
struct Change {
    Kyn::ParameterChange::ChangeType type;
    int view = 0;
    unsigned int index = 0;
    QList<unsigned int> places = {}; ///< Of a moved key: the old place, then the new.

    friend bool operator==(Change const & a, Change const & b) {
        return a.type == b.type && a.view == b.view && a.index == b.index && a.places == b.places;
    }
};

inline void PrintTo(Change const & change, std::ostream * out) {
    *out << "type " << change.type << " view " << change.view << " index " << static_cast<int>(change.index);
    for (unsigned int const place : change.places)
        *out << " place " << place;
}

typedef std::vector<Change> Changes;

/// Hears the changes of one parameter, which outlives it.
class ChangeRecorder {
public:
    explicit ChangeRecorder(Kyn::ParameterWithoutType & parameter) {
        QObject::connect(&parameter, &Kyn::ParameterWithoutType::changed, &context,
                         [this](Kyn::ParameterChange const & change) { heard.push_back(recorded(change)); });
    }

    /// What was heard since the last call, in order.
    Changes take() {
        Changes taken;
        taken.swap(heard);
        return taken;
    }

private:
    static Change recorded(Kyn::ParameterChange const & change) {
        typedef Kyn::ParameterChange C;
        switch (change.type()) {
        case C::ValueChanged:
        case C::ViewAdded:
        case C::ViewRemoved:
        case C::ViewReset:
            return {change.type(), change.view().id()};
        case C::KeyframeAdded:
        case C::KeyframeRemoved:
        case C::KeyframeChangedValue:
        case C::KeyframeChangedTimeValue:
        case C::KeyframeChangedInterpolation:
            return {change.type(), change.view().id(), change.index()};
        case C::KeyframeMoved:
            return {change.type(), change.view().id(), 0, change.indices()};
        case C::AllKeyframesRemoved:
        case C::ChangedExtrapolationBefore:
        case C::ChangedExtrapolationAfter:
        case C::ParameterCopied:
        case C::ScriptRead:
            return {change.type()};
        }
        return {change.type()};
    }

    QObject context;
    Changes heard;
};

} // namespace Test
