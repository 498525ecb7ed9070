#pragma once

#include "parameter/kyn/ParameterSet.h"

#include <initializer_list>

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

protected:
    /// What the copy constructor of a set does: copyMembers(), and what is hidden in the source is hidden in the copy
    /// too, next to what a new set hides. Nested sets show what a new set shows.
    void copySettings(ClipBoundParameterSet const & other);

    typedef std::initializer_list<Kyn::Parameter<unsigned int> *> References;

    /// What removeReferencesToClip() does with a set's references, in the order given: those that follow take the new
    /// clip, the others, whose content was made from the old clip, are cleared whatever the new one is.
    static void forgetClips(unsigned int uiOldClip, unsigned int uiNewClip, References following, References cleared);
};

} // namespace VX
