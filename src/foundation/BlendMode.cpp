#include "foundation/BlendMode.h"

#include <boost/make_shared.hpp>

namespace VX {
namespace {
void enter(BlendMode::Registry & registry, boost::shared_ptr<BlendMode> const & mode) {
    registry.insert(mode->id(), mode);
}

BlendMode::Registry & modes() {
    static BlendMode::Registry all = [] {
        BlendMode::Registry registry;
        enter(registry, boost::make_shared<AddBlendMode>());
        enter(registry, boost::make_shared<SubtractBlendMode>());
        enter(registry, boost::make_shared<MultiplyBlendMode>());
        return registry;
    }();
    return all;
}
} // namespace

BlendMode::Registry const & BlendMode::registry() {
    return modes();
}

void BlendMode::registerMode(boost::shared_ptr<BlendMode> const & mode) {
    enter(modes(), mode);
}

AddBlendMode::AddBlendMode() : BlendMode(1, QStringLiteral("Add")) {}

float AddBlendMode::blend(float a, float b) const {
    float const sum = a + b;
    return sum > 1.0f ? 1.0f : sum;
}

SubtractBlendMode::SubtractBlendMode() : BlendMode(2, QStringLiteral("Subtract")) {}

float SubtractBlendMode::blend(float a, float b) const {
    float const difference = a - b;
    return difference < 0.0f ? 0.0f : difference;
}

MultiplyBlendMode::MultiplyBlendMode() : BlendMode(3, QStringLiteral("Multiply")) {}

float MultiplyBlendMode::blend(float a, float b) const {
    return a * b;
}
} // namespace VX
