// A million edits on a composite, beside a vector of virtual commands that write a double; and what things weigh.

#include "Ratios.h"

#include "parameter/NumericParameter.h"
#include "parameter/ParameterEdits.h"

#include <memory>
#include <vector>

namespace {

using Kyn::Context;
using Kyn::NumericParameter;
using Kyn::ProxyScale;
using Kyn::Time;
using Kyn::View;

typedef NumericParameter<double> Number;

constexpr int EDITS = 1000000;

struct HandCommand {
    virtual ~HandCommand() = default;
    virtual void redo() = 0;
    virtual void undo() = 0;
};

struct WriteCommand : HandCommand {
    WriteCommand(double * where, double value) : target(where), newValue(value) {}
    void redo() override {
        oldValue = *target;
        *target = newValue;
    }
    void undo() override { *target = oldValue; }

    double * target;
    double newValue;
    double oldValue = 0.0;
};

struct Ours {
    Number parameter;
    Tov::CompositeCommand composite;

    explicit Ours(bool animatable)
        : parameter(animatable, QStringLiteral("x"), 0.0, -1e9, 1e9, Kyn::INTERPOLATION_LINEAR,
                    Kyn::EXTRAPOLATION_CONSTANT) {}

    void push() {
        Context const context(Time(1.0), View(0), ProxyScale::NONE);
        for (int i = 0; i < EDITS; ++i)
            parameter.valueCommand(static_cast<double>(i + 1), context, composite);
    }
};

struct Peer {
    double target = 0.0;
    std::vector<std::unique_ptr<HandCommand>> commands;

    void push() {
        for (int i = 0; i < EDITS; ++i)
            commands.push_back(std::make_unique<WriteCommand>(&target, static_cast<double>(i + 1)));
    }
    void redo() {
        for (std::unique_ptr<HandCommand> const & command : commands)
            command->redo();
    }
    void undo() {
        for (auto command = commands.rbegin(); command != commands.rend(); ++command)
            (*command)->undo();
    }
};

Bench::Work pushing(bool ours) {
    return [ours] {
        if (ours)
            Ours(false).push();
        else
            Peer().push();
        return std::int64_t(EDITS);
    };
}

void compareRuns(std::string const & name, bool animatable, bool backwards) {
    Bench::compare(
        name, 2.5,
        [=] {
            auto ours = std::make_shared<Ours>(animatable);
            ours->push();
            ours->composite.redo();
            return [=] {
                backwards ? ours->composite.undo() : static_cast<void>(ours->composite.redo());
                return std::int64_t(EDITS);
            };
        },
        [=] {
            auto peer = std::make_shared<Peer>();
            peer->push();
            peer->redo();
            return [=] {
                backwards ? peer->undo() : peer->redo();
                benchmark::DoNotOptimize(peer->target);
                return std::int64_t(EDITS);
            };
        });
}

/// What one more of a thing costs on the heap, over many: single small blocks hide in malloc's caches.
template <class Make>
double bytesOfOne(Make const & make) {
    constexpr int COUNT = 1000;
    std::vector<std::unique_ptr<Number>> made;
    made.reserve(COUNT);
    std::int64_t const before = Bench::heapBytes();
    for (int i = 0; i < COUNT; ++i)
        made.push_back(make(i));
    return static_cast<double>(Bench::heapBytes() - before) / COUNT;
}

std::unique_ptr<Number> makeFresh(int i) {
    return std::make_unique<Number>(true, QStringLiteral("OffsetRotation%1").arg(i), 0.0, -1e9, 1e9,
                                    Kyn::INTERPOLATION_LINEAR, Kyn::EXTRAPOLATION_CONSTANT);
}

double bytesOfParameter() {
    return bytesOfOne([](int i) {
        std::unique_ptr<Number> parameter = makeFresh(i);
        parameter->value(Context());
        return parameter;
    });
}

double bytesOfFarView() {
    double const withView = bytesOfOne([](int i) {
        std::unique_ptr<Number> parameter = makeFresh(i);
        parameter->setSplittable(true);
        parameter->value(Context());
        parameter->setFromScriptString(QStringLiteral("view[2147483647].value=1"),
                                       Kyn::StreamVersion(Kyn::StreamVersion::anyViewList));
        return parameter;
    });
    return withView - bytesOfParameter();
}

double bytesOfCopy() {
    std::unique_ptr<Number> const source = makeFresh(0);
    for (int i = 0; i < 100000; ++i)
        source->setValue(i, Context(Time(i), View(0), ProxyScale::NONE));
    return bytesOfOne([&](int) { return std::make_unique<Number>(*source); });
}

double bytesOfEdit() {
    Ours ours(true);
    std::int64_t const before = Bench::heapBytes();
    ours.push();
    return static_cast<double>(Bench::heapBytes() - before) / EDITS;
}

bool const registered = [] {
    Bench::compare(
        "edits/push 1,000,000", 2.0, [] { return pushing(true); }, [] { return pushing(false); });
    compareRuns("edits/redo 1,000,000, static value", false, false);
    compareRuns("edits/undo 1,000,000, static value", false, true);
    compareRuns("edits/redo 1,000,000, on a key", true, false);
    compareRuns("edits/undo 1,000,000, on a key", true, true);
    Bench::figure("edits/one value edit on a composite", 104.0, "bytes", bytesOfEdit);
    Bench::figure("memory/a parameter with its defaults", 600.0, "bytes", bytesOfParameter);
    Bench::figure("memory/a line for view 2147483647", 600.0, "bytes", bytesOfFarView);
    Bench::figure("memory/a copy of 100,000 keys", 600.0, "bytes", bytesOfCopy);
    return true;
}();

} // namespace
