#pragma once

#include "clip/ImageFormat.h"
#include "parameter/kyn/View.h"

#include <QString>

#include <vector>

class VX_BaseClipInfo;

namespace VX {

class ClipContext;

/// A clip as a viewer or a tracker sees it: pictures in time, wherever they come from. The application implements it.
///
/// Views are project views. Times are frames of the clip, from 0.
class IBaseClip {
public:
    virtual ~IBaseClip() = default;

    virtual unsigned int clipId() const = 0;
    /// What the user calls it.
    virtual QString name() const = 0;
    /// Good as long as the clip.
    virtual VX_BaseClipInfo const & baseInfo() const = 0;
    virtual VX::ImageFormat format() const = 0;
    /// The size of a picture in pixels at a context's proxy scale, each side rounded up and at least 1 where the full
    /// one is. A scale that is none counts as full.
    virtual QSize sizeAt(VX::ClipContext const & context) const = 0;
    /// The project views that the clip has pictures of its own for, in the order of the project.
    virtual std::vector<Kyn::View> views() const = 0;
    /// Frames.
    virtual unsigned int length(Kyn::View const & view) const = 0;
    /// Whether there is a picture, repeated ones included.
    virtual bool hasFrame(VX::ClipContext const & context, Kyn::View const & view) const = 0;
};

} // namespace VX
