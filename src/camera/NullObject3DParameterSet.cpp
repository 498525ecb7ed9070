#include "camera/NullObject3DParameterSet.h"

VX_NullObject3DParameterSet::VX_NullObject3DParameterSet(QString const & name) : Kyn::ParameterSet(name, nullptr) {
    init();
}

VX_NullObject3DParameterSet::VX_NullObject3DParameterSet(VX_NullObject3DParameterSet const & other)
    : Kyn::ParameterSet(other) {
    init();
    copyMembers(other);
}

VX_NullObject3DParameterSet & VX_NullObject3DParameterSet::operator=(VX_NullObject3DParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}

void VX_NullObject3DParameterSet::init() {
    addSet(position);
    addSet(rotation);
    addSet(scale);
    position.setDisplayName(tr("Position"));
    rotation.setDisplayName(tr("Rotation"));
    scale.setDisplayName(tr("Scale"));
}

void VX_NullObject3DParameterSet::deleteAllKeyframes() {
    for (VX_XYZParameterSet * triple : {&position, &rotation, &scale})
        triple->deleteAllKeyframes();
    forEachParameter([](Kyn::ParameterWithoutType * parameter) { parameter->deleteAllKeyframes(Kyn::View()); }, false);
}
