#include "modules/InsertOffsetParameterSet.h"

namespace {

constexpr double PI = 3.141592653589793;

} // namespace

// Multiplied first and divided second: other orders round differently.

double VX_InsertOffsetParameterSet::RotationParameter::toDisplay(double stored, Kyn::Context const &) const {
    return stored * -180.0 / PI;
}

double VX_InsertOffsetParameterSet::RotationParameter::fromDisplay(double shown, Kyn::Context const &) const {
    return shown * PI / -180.0;
}

VX_InsertOffsetParameterSet::RotationParameter::RotationParameter(RotationParameter const & other)
    : Kyn::ParameterWithoutType(other), Kyn::NumericParameter<double>(other) {}

VX_InsertOffsetParameterSet::RotationParameter &
VX_InsertOffsetParameterSet::RotationParameter::operator=(RotationParameter const & other) {
    Kyn::NumericParameter<double>::operator=(other);
    return *this;
}

VX_InsertOffsetParameterSet::VX_InsertOffsetParameterSet()
    : VX::ClipBoundParameterSet(QStringLiteral("Offset"), nullptr) {}

VX_InsertOffsetParameterSet::VX_InsertOffsetParameterSet(VX_InsertOffsetParameterSet const & other)
    : VX_InsertOffsetParameterSet() {
    copySettings(other);
}

VX_InsertOffsetParameterSet & VX_InsertOffsetParameterSet::operator=(VX_InsertOffsetParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}
