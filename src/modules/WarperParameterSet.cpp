#include "modules/WarperParameterSet.h"

#include <stdexcept>
#include <vector>

namespace {

constexpr unsigned int GRID_SIZE = VX_WarperParameterSet::GRID_SIZE;

struct WeightNames {
    WeightNames(unsigned int line, unsigned int column)
        : x(QStringLiteral("Weight-%1-%2X").arg(line).arg(column).toLatin1()),
          y(QStringLiteral("Weight-%1-%2Y").arg(line).arg(column).toLatin1()) {}

    QByteArray x;
    QByteArray y;
};

std::size_t placeOf(unsigned int line, unsigned int column) {
    if (line >= GRID_SIZE || column >= GRID_SIZE)
        throw std::out_of_range("No such point in the warper's grid");
    return std::size_t{line} * GRID_SIZE + column;
}

/// Made once: rows point to their names.
WeightNames const & namesOf(unsigned int line, unsigned int column) {
    static std::vector<WeightNames> const names = [] {
        std::vector<WeightNames> made;
        for (unsigned int place = 0; place < GRID_SIZE * GRID_SIZE; ++place)
            made.emplace_back(place / GRID_SIZE, place % GRID_SIZE);
        return made;
    }();
    return names[placeOf(line, column)];
}

} // namespace

VX_WarperParameterSet::Weight::Weight(VX_WarperParameterSet & set, unsigned int line, unsigned int column)
    : x(set.row(namesOf(line, column).x.constData()), KEYED, 0.0f, -100.0f, 100.0f, LINEAR, HOLD),
      y(set.row(namesOf(line, column).y.constData()), KEYED, 0.0f, -100.0f, 100.0f, LINEAR, HOLD) {}

VX_WarperParameterSet::VX_WarperParameterSet() : VX::ClipBoundParameterSet(QStringLiteral("Warper"), nullptr) {
    for (unsigned int line = 0; line < GRID_SIZE; ++line)
        for (unsigned int column = 0; column < GRID_SIZE; ++column)
            weights_.emplace_back(*this, line, column);
    addMovedParameter(boost::make_shared<Kyn::MovedParameter>(QStringLiteral("Render")));
}

VX_WarperParameterSet::VX_WarperParameterSet(VX_WarperParameterSet const & other) : VX_WarperParameterSet() {
    copySettings(other);
}

VX_WarperParameterSet & VX_WarperParameterSet::operator=(VX_WarperParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

/// All members at once: the weights would otherwise leave one by one, each searching the list for itself.
VX_WarperParameterSet::~VX_WarperParameterSet() {
    clearAllLists();
}

void VX_WarperParameterSet::removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) {
    forgetClips(uiOldClip, uiNewClip, {&inputClipId}, {&layerClipId, &outputClipId});
}

VX_WarperParameterSet::Weight & VX_WarperParameterSet::weight(unsigned int line, unsigned int column) {
    return weights_[placeOf(line, column)];
}

VX_WarperParameterSet::Weight const & VX_WarperParameterSet::weight(unsigned int line, unsigned int column) const {
    return weights_[placeOf(line, column)];
}
