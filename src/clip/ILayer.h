#pragma once

#include "geometry/gandalf/Matrix33.h"
#include "parameter/kyn/Context.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace Kyn {
class ParameterSet;
}

namespace VX {

/// A layer as a module or an exporter sees it: a tracked region with the settings of every module. The application
/// implements it.
class ILayer {
public:
    virtual ~ILayer() = default;

    virtual unsigned int layerId() const = 0;
    /// What the user calls it.
    virtual QString name() const = 0;
    virtual void setName(QString const & name) = 0;
    /// The clip that the layer is tracked in; 0 for none.
    virtual unsigned int inputClipId() const = 0;

    /// The set that all of the layer's sets are nested in. Good as long as the layer.
    virtual Kyn::ParameterSet & parameters() = 0;
    /// The script names of the modules that the layer has settings for, in the order of the script.
    virtual QStringList moduleNames() const = 0;
    /// The settings of a module; null for a script name that is none's.
    virtual Kyn::ParameterSet * module(QString const & scriptName) = 0;

    /// Where the track has taken the plane at a context, in the project's coordinates; nothing where its values make no
    /// homography.
    virtual std::optional<Gan_Matrix33> homography(Kyn::Context const & context) const = 0;
    /// The times of the first and the last key of the track in a view. False, and neither is touched, without keys.
    virtual bool bTrackRange(Kyn::View const & view, Kyn::Time & first, Kyn::Time & last) const = 0;

    /// The project moves to another frame size: what the sets hold in pixels is multiplied, in all views.
    virtual void rescale(float fXScale, float fYScale) = 0;
    /// A clip leaves the project: each set's references to it go to another clip, or with `uiNewClip` 0 to none, as the
    /// set says. `uiOldClip` 0 means every reference.
    virtual void removeReferencesToClip(unsigned int uiOldClip, unsigned int uiNewClip) = 0;
};

} // namespace VX
