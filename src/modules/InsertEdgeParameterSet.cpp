#include "modules/InsertEdgeParameterSet.h"

VX_InsertEdgeParameterSet::VX_InsertEdgeParameterSet() : VX::ClipBoundParameterSet(QStringLiteral("Edge"), nullptr) {}

VX_InsertEdgeParameterSet::VX_InsertEdgeParameterSet(VX_InsertEdgeParameterSet const & other)
    : VX_InsertEdgeParameterSet() {
    copySettings(other);
}

VX_InsertEdgeParameterSet & VX_InsertEdgeParameterSet::operator=(VX_InsertEdgeParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}
