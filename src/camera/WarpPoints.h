#pragma once

#include "camera/WarpChain.h"
#include "foundation/InstructionSet.h"

#include <cstddef>

/// A warp of many points at once, several to an instruction.
///
/// Blocks of points go through the chain in plain loops over arrays, with the operations of the point form in their
/// order, and without a branch. Lenses without terms and radial ones are known here, by the point functions that their
/// cameras hold; for any other the points go one by one.
///
/// The loops answer only where they are certain: a point near the end of a lens's branch, beyond the range of a closed
/// start, where the steps taken were too few, near the horizon or not finite goes through the point form afterwards. So
/// what cannot be carried is decided in one place.
namespace VX::detail {

/// Carries the points (x[i], y[i]) in place, as carry() does each. The machine must have the instruction set. Allocates
/// nothing.
void carry(WarpChain const & chain, double * x, double * y, std::size_t count,
           InstructionSet set = bestInstructionSet());

} // namespace VX::detail
