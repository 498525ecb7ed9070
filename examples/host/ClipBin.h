#pragma once

#include "clip/BaseClipInfo.h"
#include "clip/BaseClipInfoContainer.h"

#include <map>

class HostServices;

namespace vxproject {
class Clip;
class Project;
} // namespace vxproject

/// The program's clips, for the sets that ask for them: those of a project, with what the project does not say of them
/// taken from their files.
class ClipBin : public VX_BaseClipInfoContainer {
public:
    /// Asks the first file that is there of each clip without a frame size. The project must outlive the bin.
    ClipBin(vxproject::Project const & project, HostServices & host);

    QVector<unsigned int> clipIds() const override;
    VX_BaseClipInfo const * pcGetBaseClipInfo(unsigned int uiClipId) const override;
    VX_ClipInfo const * pcGetClipInfo(unsigned int uiClipId) const override;
    QString clipName(unsigned int uiClipId) const override;
    unsigned int clipIdOfName(QString const & name) const override;

private:
    struct Entry {
        vxproject::Clip const * clip;
        VX_BaseClipInfo picture;
    };

    Entry const * find(unsigned int id) const;

    std::map<unsigned int, Entry> entries_;
};
