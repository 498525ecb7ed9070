#pragma once

#include "modules/ModuleTable.h"

#include <deque>

/// How the warp module bends a clip: its clips, which mattes and alpha channels take part, and the grid of control
/// weights of a cubic B-spline warp. The script name is "Warper", which is not the name that the module is shown under.
///
/// The grid always has GRID_SIZE lines of GRID_SIZE points: "CubicBSplineLevel" does not change it.
class VX_WarperParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_WarperParameterSet")

    static constexpr unsigned int GRID_SIZE = 17;

    /// One point of the grid: its keyed offset, each part from -100 to 100.
    struct Weight {
        Weight(VX_WarperParameterSet & set, unsigned int line, unsigned int column);

        Amount x; ///< "Weight-<line>-<column>X", counted from 0.
        Amount y; ///< The same with Y.
    };

    VX_WarperParameterSet();
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_WarperParameterSet(VX_WarperParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_WarperParameterSet & operator=(VX_WarperParameterSet const & other);
    ~VX_WarperParameterSet() override;

    /// The input clip follows to the new clip; layer and output are cleared in either case.
    void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) override;

    /// The weight of a grid point; std::out_of_range outside the grid. In the script the weights stand behind the rows
    /// below, line by line and in each line from left to right, x before y.
    Weight & weight(unsigned int line, unsigned int column);
    Weight const & weight(unsigned int line, unsigned int column) const;

    // clang-format off
    ClipReference inputClipId    {row("InputClipID"), STATIC, 0, HELD, HOLD};
    ClipReference layerClipId    {row("LayerClipID"), STATIC, 0, HELD, HOLD};
    ClipReference outputClipId   {row("OutputClipID"), STATIC, 0, HELD, HOLD};
    Flag rendered                {row("Rendered"), KEYED, true, HELD, HOLD};
    Count cubicBSplineLevel      {row("CubicBSplineLevel").hidden(), STATIC, 4, 0, 4, HELD, HOLD};
    Flag applyMatteToSource      {row("ApplyMatteToSource"), STATIC, true, HELD, HOLD};
    Flag applyMatteToDestination {row("ApplyMatteToDestination"), STATIC, false, HELD, HOLD};
    Flag useAlphaOfInputClip     {row("UseAlphaOfInputClip"), STATIC, false, HELD, HOLD};
    Flag useAlphaOfWarpClip      {row("UseAlphaOfWarpClip"), STATIC, false, HELD, HOLD};
    Flag applyEdgeLock           {row("ApplyEdgeLock"), STATIC, false, HELD, HOLD};
    Flag warpInputClip           {row("WarpInputClip"), STATIC, true, HELD, HOLD};
    // clang-format on

private:
    std::deque<Weight> weights_; ///< Points stay where they are made. Line after line.
};
