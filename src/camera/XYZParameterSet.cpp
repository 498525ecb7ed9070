#include "camera/XYZParameterSet.h"

VX_XYZParameterSet::VX_XYZParameterSet(QString const & name) : Kyn::ParameterSet(name, nullptr) {}

VX_XYZParameterSet::VX_XYZParameterSet(VX_XYZParameterSet const & other) : Kyn::ParameterSet(other) {
    copyMembers(other);
}

VX_XYZParameterSet & VX_XYZParameterSet::operator=(VX_XYZParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

void VX_XYZParameterSet::deleteAllKeyframes() {
    forEachParameter([](Kyn::ParameterWithoutType * parameter) { parameter->deleteAllKeyframes(Kyn::View()); }, false);
}

Gan_Vector3 VX_XYZParameterSet::value(Kyn::Context context) const {
    return {static_cast<double>(x_.value(context)), static_cast<double>(y_.value(context)),
            static_cast<double>(z_.value(context))};
}

void VX_XYZParameterSet::setValue(Gan_Vector3 vector, Kyn::Context context) {
    x_.setValue(static_cast<float>(vector.x), context);
    y_.setValue(static_cast<float>(vector.y), context);
    z_.setValue(static_cast<float>(vector.z), context);
}
