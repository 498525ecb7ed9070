#pragma once

#include "parameter/kyn/ParameterSet.h"

namespace Kyn {
template <class T>
class Parameter;
}

namespace VX {

/// The base of every set that refers to clips or holds pixel amounts: how a set takes part when a clip leaves the
/// project and when the project moves to another frame size.
///
/// A reference to a clip is a Kyn::Parameter<unsigned int> that holds the clip's id in the default view; 0 means none.
class ClipBoundParameterSet : public Kyn::ParameterSet {
public:
    ClipBoundParameterSet(QString const & name, Kyn::ParameterTree * parent) : Kyn::ParameterSet(name, parent) {}

    /// Multiplies the set's pixel amounts, in one view or in all: widths by `fXScale`, heights by `fYScale`. A set
    /// without any does nothing. Cannot be undone.
    virtual void rescale(float fXScale, float fYScale, Kyn::View const & view);
    virtual void rescale(float fXScale, float fYScale);

    /// Moves the set's references to a clip to another, or with `uiNewClip` 0 clears them; with `uiOldClip` 0 every
    /// reference is meant. A set without references does nothing. Cannot be undone.
    virtual void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip);

    /// One reference's part in that: a reference to `uiOldClip`, or any for 0, takes `uiNewClip`, or its default for 0.
    /// Only the default view is looked at. Sends ValueChanged where the reference changed.
    static void forgetClip(Kyn::Parameter<unsigned int> & parameter, unsigned int uiOldClip, unsigned int uiNewClip);
};

} // namespace VX
