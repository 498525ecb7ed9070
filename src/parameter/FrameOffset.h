#pragma once

#include "parameter/NumericParameter.h"

#include <boost/function.hpp>

/// A frame of a clip, stored as counted from 0 and shown in the clip's own frame numbers, so that it stays where it is
/// when the numbering begins elsewhere.
///
/// Only the conversions to and from display know the offset: values, keys, limits and script text are all in the stored
/// count. They add and subtract in 32 bits, which wraps: with an offset of 100, the shown frame 90 is 4294967286.
class KynFrameOffset : public Kyn::NumericParameter<unsigned int> {
public:
    /// Gives the number of the clip's first frame, or another offset. Asked anew at each conversion; an empty one
    /// throws boost::bad_function_call there, and only there.
    typedef boost::function<int(void)> OffsetFunction;

    KynFrameOffset(bool bAnimatable, QString const & name, unsigned int defaultValue, unsigned int minimum,
                   unsigned int maximum, Kyn::Interpolation defaultInterpolation, Kyn::Extrapolation extrapolation,
                   OffsetFunction const & offset);
    /// The same as a row of a set's table.
    KynFrameOffset(Kyn::ParameterSet::Row const & row, bool bAnimatable, unsigned int defaultValue,
                   unsigned int minimum, unsigned int maximum, Kyn::Interpolation defaultInterpolation,
                   Kyn::Extrapolation extrapolation, OffsetFunction const & offset);
    /// Both take over the offset function as well.
    KynFrameOffset(KynFrameOffset const & other);
    KynFrameOffset & operator=(KynFrameOffset const & other);
    void assignFrom(Kyn::ParameterWithoutType const & other) override;

    unsigned int toDisplay(unsigned int stored, Kyn::Context const & context) const override;
    unsigned int fromDisplay(unsigned int shown, Kyn::Context const & context) const override;

private:
    OffsetFunction offset_;
};
