#pragma once

#include "clip/BaseClipInfoContainer.h"

namespace vxproject {

class Project;

/// The clips of a project, as the library's sets see them. The project must outlive it.
class ClipContainer : public VX_BaseClipInfoContainer {
public:
    explicit ClipContainer(Project const & project) : project_(project) {}

    QVector<unsigned int> clipIds() const override;
    VX_BaseClipInfo const * pcGetBaseClipInfo(unsigned int uiClipId) const override;
    VX_ClipInfo const * pcGetClipInfo(unsigned int uiClipId) const override;
    QString clipName(unsigned int uiClipId) const override;
    unsigned int clipIdOfName(QString const & name) const override;

private:
    Project const & project_;
};

} // namespace vxproject
