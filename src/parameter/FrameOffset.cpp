#include "parameter/FrameOffset.h"

KynFrameOffset::KynFrameOffset(bool bAnimatable, QString const & name, unsigned int defaultValue, unsigned int minimum,
                               unsigned int maximum, Kyn::Interpolation defaultInterpolation,
                               Kyn::Extrapolation extrapolation, OffsetFunction const & offset)
    : Kyn::NumericParameter<unsigned int>(bAnimatable, name, defaultValue, minimum, maximum, defaultInterpolation,
                                          extrapolation),
      offset_(offset) {}

KynFrameOffset::KynFrameOffset(Kyn::ParameterSet::Row const & row, bool bAnimatable, unsigned int defaultValue,
                               unsigned int minimum, unsigned int maximum, Kyn::Interpolation defaultInterpolation,
                               Kyn::Extrapolation extrapolation, OffsetFunction const & offset)
    : Kyn::NumericParameter<unsigned int>(row, bAnimatable, defaultValue, minimum, maximum, defaultInterpolation,
                                          extrapolation),
      offset_(offset) {}

KynFrameOffset::KynFrameOffset(KynFrameOffset const & other)
    : Kyn::ParameterWithoutType(other), Kyn::NumericParameter<unsigned int>(other), offset_(other.offset_) {}

KynFrameOffset & KynFrameOffset::operator=(KynFrameOffset const & other) {
    if (this == &other)
        return *this;
    offset_ = other.offset_;
    Kyn::NumericParameter<unsigned int>::operator=(other);
    return *this;
}

void KynFrameOffset::assignFrom(Kyn::ParameterWithoutType const & other) {
    if (auto const source = dynamic_cast<KynFrameOffset const *>(&other))
        *this = *source;
    else
        Kyn::NumericParameter<unsigned int>::assignFrom(other);
}

unsigned int KynFrameOffset::toDisplay(unsigned int stored, Kyn::Context const &) const {
    return stored + static_cast<unsigned int>(offset_());
}

unsigned int KynFrameOffset::fromDisplay(unsigned int shown, Kyn::Context const &) const {
    return shown - static_cast<unsigned int>(offset_());
}
