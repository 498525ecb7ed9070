#include "modules/InsertROIParameterSet.h"

#include "clip/BaseClipInfo.h"
#include "clip/BaseClipInfoContainer.h"

typedef VX_InsertROIParameterSet::RegionClip RegionClip;
typedef VX_InsertROIParameterSet::ROIParameter ROIParameter;

// Which clip

VX_InsertROIParameterSet::RegionClip::RegionClip(Kyn::Parameter<unsigned int> * clipId,
                                                 VX_BaseClipInfoContainer * clips)
    : clipId_(clipId), alive_(clipId), clips_(clips) {}

VX_BaseClipInfo const * RegionClip::clip(Kyn::Context const & context) const {
    unsigned int const id = alive_ ? clipId_->value(context) : 0;
    return id != 0 && clips_ ? clips_->pcGetBaseClipInfo(id) : nullptr;
}

float RegionClip::width(Kyn::Context const & context) const {
    VX_BaseClipInfo const * const info = clip(context);
    return info ? static_cast<float>(info->frameWidth) : 1.0f;
}

float RegionClip::height(Kyn::Context const & context) const {
    VX_BaseClipInfo const * const info = clip(context);
    if (!info)
        return 1.0f;
    return static_cast<float>(info->frameHeight) * (info->bIsInterlaced() ? 2.0f : 1.0f);
}

// One coordinate

VX_InsertROIParameterSet::ROIParameter::ROIParameter(Kyn::ParameterSet::Row const & row, bool bAnimatable,
                                                     float defaultValue, float minimum, float maximum,
                                                     Kyn::Interpolation defaultInterpolation,
                                                     Kyn::Extrapolation extrapolation, RegionClip const & clip,
                                                     bool bHorizontal)
    : Kyn::NumericParameter<float>(row, bAnimatable, defaultValue, minimum, maximum, defaultInterpolation,
                                   extrapolation),
      clip_(clip),
      bHorizontal_(bHorizontal) {}

VX_InsertROIParameterSet::ROIParameter::ROIParameter(ROIParameter const & other)
    : Kyn::ParameterWithoutType(other),
      Kyn::NumericParameter<float>(other),
      clip_(other.clip_),
      bHorizontal_(other.bHorizontal_) {}

ROIParameter & ROIParameter::operator=(ROIParameter const & other) {
    if (this == &other)
        return *this;
    clip_ = other.clip_;
    bHorizontal_ = other.bHorizontal_;
    Kyn::NumericParameter<float>::operator=(other);
    return *this;
}

void ROIParameter::assignFrom(Kyn::ParameterWithoutType const & other) {
    if (auto const source = dynamic_cast<ROIParameter const *>(&other))
        *this = *source;
    else
        Kyn::NumericParameter<float>::assignFrom(other);
}

float ROIParameter::scale(Kyn::Context const & context) const {
    return bHorizontal_ ? clip_.width(context) : clip_.height(context);
}

float ROIParameter::toDisplay(float stored, Kyn::Context const & context) const {
    return scale(context) * stored;
}

float ROIParameter::fromDisplay(float shown, Kyn::Context const & context) const {
    return shown / scale(context);
}

// The set

VX_InsertROIParameterSet::VX_InsertROIParameterSet(Kyn::Parameter<unsigned int> * clipId,
                                                   VX_BaseClipInfoContainer * clips)
    : VX::ClipBoundParameterSet(QStringLiteral("ROI"), nullptr), clip_(clipId, clips) {}

VX_InsertROIParameterSet::VX_InsertROIParameterSet(VX_InsertROIParameterSet const & other)
    : VX_InsertROIParameterSet(nullptr, nullptr) {
    copySettings(other);
}

VX_InsertROIParameterSet & VX_InsertROIParameterSet::operator=(VX_InsertROIParameterSet const & other) {
    if (this != &other)
        assignMembers(other);
    return *this;
}
