#pragma once

#include "parameter/NumericParameter.h"

#include <limits>

namespace VX {

/// The words in which the tables of parameter sets are written. A set derives from it beside its real base:
///
///     class VX_InsertEdgeParameterSet : public VX::ClipBoundParameterSet, protected VX::ParameterTable {
///         ...
///         Amount edgeWidthTop {row("EdgeWidthTop"), KEYED, 0.0f, 0.0f, 1.0f, LINEAR, HOLD};
///
/// A row gives the script name; whether keys may be set; default; lowest and highest value of a type with limits; the
/// default interpolation; the extrapolation on both sides. Rows stand in order of registration, which is the order of
/// the script, of copying and of every walk: there is no second order of declaration. Adding a parameter is one row,
/// and a row that is moved moves in every script.
struct ParameterTable {
    typedef Kyn::Parameter<unsigned int> ClipReference; ///< The id of a clip; 0 is none.
    typedef Kyn::Parameter<unsigned int> Setting;
    typedef Kyn::Parameter<bool> Flag;
    typedef Kyn::Parameter<double> Constant;
    typedef Kyn::NumericParameter<bool> Switch; ///< A flag with limits, which are false and true.
    typedef Kyn::NumericParameter<unsigned int> Count;
    typedef Kyn::NumericParameter<float> Amount;
    typedef Kyn::NumericParameter<double> Level;

    static constexpr bool KEYED = true;
    static constexpr bool STATIC = false;
    static constexpr Kyn::Interpolation HELD = Kyn::INTERPOLATION_CONSTANT;
    static constexpr Kyn::Interpolation LINEAR = Kyn::INTERPOLATION_LINEAR;
    static constexpr Kyn::Extrapolation HOLD = Kyn::EXTRAPOLATION_CONSTANT;
    static constexpr Kyn::Extrapolation GO_ON = Kyn::EXTRAPOLATION_LINEAR;

    // Limits that are none.
    static constexpr unsigned int NO_LIMIT = std::numeric_limits<unsigned int>::max();
    static constexpr float LIMITLESS_AMOUNT = std::numeric_limits<float>::max();
    static constexpr double LIMITLESS = std::numeric_limits<double>::max();
};

} // namespace VX
