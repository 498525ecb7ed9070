#include "track/LayerParameterSet.h"

#include <boost/make_shared.hpp>

VX_LayerParameterSet::VX_LayerParameterSet(VX_BaseClipInfoContainer *, unsigned int uiRegionFillIndex)
    : VX::ClipBoundParameterSet(QStringLiteral("Basic"), nullptr), regionFillIndex_(uiRegionFillIndex) {
    for (char const * key : {"Hidden", "Locked"})
        addMovedParameter(boost::make_shared<Kyn::MovedParameter>(QString::fromLatin1(key)));
}

VX_LayerParameterSet::VX_LayerParameterSet(VX_LayerParameterSet const & other)
    : VX_LayerParameterSet(nullptr, other.regionFillIndex_) {
    copySettings(other);
}

VX_LayerParameterSet & VX_LayerParameterSet::operator=(VX_LayerParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}
