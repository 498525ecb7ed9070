#pragma once

#include "clip/IBaseClip.h"
#include "clip/IClip.h"

namespace vxproject {

class Clip;

/// A clip of a project as the library's interfaces have it. The clip must outlive it.
class BaseClip : public VX::IBaseClip {
public:
    BaseClip(Clip & clip, unsigned int id) : clip_(clip), id_(id) {}

    unsigned int clipId() const override { return id_; }
    QString name() const override;
    VX_BaseClipInfo const & baseInfo() const override;
    VX::ImageFormat format() const override;
    QSize sizeAt(VX::ClipContext const & context) const override;
    std::vector<Kyn::View> views() const override;
    unsigned int length(Kyn::View const & view) const override;
    bool hasFrame(VX::ClipContext const & context, Kyn::View const & view) const override;

private:
    Clip & clip_;
    unsigned int id_;
};

/// The same clip with its files. Lives in the thread that made it.
class FileClip : public VX::IClip {
public:
    FileClip(Clip & clip, unsigned int id) : clip_(clip), id_(id) {}

    unsigned int clipId() const override { return id_; }
    QString name() const override;
    void setName(QString const & name) override;

    VX_BaseClipInfo & baseInfo() override;
    VX_ClipInfo & clipInfo() override;
    VX::ColourspaceParameters const & colourspace() const override;

    std::vector<Kyn::View> views() const override;
    unsigned int length(Kyn::View const & view) const override;
    int firstFrameOffset() const override;
    VX_TimeCode timeCode(Kyn::Frame const & frame) const override;

    QString fileName(VX::ClipContext const & context, Kyn::View const & view) const override;
    bool fileExists(VX::ClipContext const & context, Kyn::View const & view) const override;

    bool isReadOnly() const override;
    bool isHidden() const override;
    bool isDiscrete() const override;

private:
    Clip & clip_;
    unsigned int id_;
};

} // namespace vxproject
