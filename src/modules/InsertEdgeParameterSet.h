#pragma once

#include "modules/ModuleTable.h"

/// How far the blending at each side of an insert reaches inwards: four widths, from 0 for a hard side to 1. It holds
/// nothing that follows a change of frame size, and no clips.
class VX_InsertEdgeParameterSet : public VX::ClipBoundParameterSet, protected VX::ModuleTable {
public:
    VX_DECLARE_TRANSLATION("VX_InsertEdgeParameterSet")

    VX_InsertEdgeParameterSet();
    /// Takes over all values, keys and hidden states; the names, and what is hidden at least, are those of a new set.
    VX_InsertEdgeParameterSet(VX_InsertEdgeParameterSet const & other);
    /// Takes over names, hidden states and limits as well. Nothing on self-assignment.
    VX_InsertEdgeParameterSet & operator=(VX_InsertEdgeParameterSet const & other);

    // clang-format off
    Amount edgeWidthBottom {row("EdgeWidthBottom"), KEYED, 0.0f, 0.0f, 1.0f, LINEAR, HOLD};
    Amount edgeWidthTop    {row("EdgeWidthTop"), KEYED, 0.0f, 0.0f, 1.0f, LINEAR, HOLD};
    Amount edgeWidthLeft   {row("EdgeWidthLeft"), KEYED, 0.0f, 0.0f, 1.0f, LINEAR, HOLD};
    Amount edgeWidthRight  {row("EdgeWidthRight"), KEYED, 0.0f, 0.0f, 1.0f, LINEAR, HOLD};
    // clang-format on
};
