#pragma once

#include <QString>
#include <QVector>

class VX_BaseClipInfo;
class VX_ClipInfo;

/// The clips of a project by their ids, as the application keeps them. Parameter sets refer to a clip by its id, and
/// look up here what they need to know of it.
///
/// Id 0 means no clip: the library never asks for it. What comes back is the container's own, and good until the clip
/// is removed. The container must outlive every set that was given it.
class VX_BaseClipInfoContainer {
public:
    virtual ~VX_BaseClipInfoContainer() = default;

    /// All ids, ascending, without 0.
    virtual QVector<unsigned int> clipIds() const = 0;
    /// The clip as pictures; null for an id that names none. The library takes that for a clip of which nothing is
    /// known.
    virtual VX_BaseClipInfo const * pcGetBaseClipInfo(unsigned int uiClipId) const = 0;
    /// Where its frames lie; null for an id that names none, and for a clip that lies in no files.
    virtual VX_ClipInfo const * pcGetClipInfo(unsigned int uiClipId) const = 0;
    /// What the user calls it; empty for an id that names none.
    virtual QString clipName(unsigned int uiClipId) const = 0;
    /// The clip of a name, the one of lowest id where several share it; 0 for a name that is none's.
    virtual unsigned int clipIdOfName(QString const & name) const = 0;
};
