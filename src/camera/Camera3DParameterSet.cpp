#include "camera/Camera3DParameterSet.h"

VX_Camera3DParameterSet::VX_Camera3DParameterSet() : VX_Camera3DParameterSet(QStringLiteral("Camera")) {}

VX_Camera3DParameterSet::VX_Camera3DParameterSet(QString const & name) : VX_NullObject3DParameterSet(name) {}

VX_Camera3DParameterSet::VX_Camera3DParameterSet(VX_Camera3DParameterSet const & other)
    : VX_NullObject3DParameterSet(other) {
    copyMembers(other);
}

VX_Camera3DParameterSet & VX_Camera3DParameterSet::operator=(VX_Camera3DParameterSet const & other) {
    VX_NullObject3DParameterSet::operator=(other);
    return *this;
}
