#include "project/ClipInterfaces.h"

#include "clip/ClipContext.h"
#include "project/Clip.h"
#include "project/ClipFiles.h"

#include <QFileInfo>

#include <cmath>

namespace vxproject {

namespace {

QString nameOf(Clip const & clip) {
    return clip.name.staticValue(Kyn::View());
}

std::vector<Kyn::View> viewsOf(Clip const & clip) {
    return clip.source.clipViewForProjectView_.views();
}

unsigned int lengthOf(Clip const & clip, Kyn::View const & view) {
    return clip.source.lengthForView(clip.source.clipViewForProjectView(view));
}

QString fileOf(Clip const & clip, VX::ClipContext const & context, Kyn::View const & view) {
    return ClipFiles(clip.source, clip.picture.interlaceMode, view).fileOf(context.frame().toUInt());
}

/// A side of a picture at a fraction of its size, rounded up so that nothing of it is lost.
int reduced(int side, Kyn::ProxyScale scale) {
    if (scale != Kyn::ProxyScale::HALF && scale != Kyn::ProxyScale::QUARTER)
        return side;
    int const divisor = scale == Kyn::ProxyScale::HALF ? 2 : 4;
    return side / divisor + (side % divisor > 0 ? 1 : 0);
}

/// The code of a frame counted from 00:00:00:00. Not valid from 100 hours on, nor without a rate.
VX_TimeCode codeOf(quint64 frame, double rate) {
    double const perSecond = std::round(std::fabs(rate));
    if (!(perSecond >= 1.0 && perSecond <= 100.0)) // A time code has two digits for frames.
        return VX_TimeCode();
    quint64 const frames = static_cast<quint64>(perSecond);
    quint64 const seconds = frame / frames;
    if (seconds >= 100 * 3600)
        return VX_TimeCode();
    return VX_TimeCode(static_cast<unsigned int>(seconds / 3600), static_cast<unsigned int>(seconds / 60 % 60),
                       static_cast<unsigned int>(seconds % 60), static_cast<unsigned int>(frame % frames));
}

} // namespace

QString BaseClip::name() const {
    return nameOf(clip_);
}

VX_BaseClipInfo const & BaseClip::baseInfo() const {
    return clip_.picture;
}

VX::ImageFormat BaseClip::format() const {
    return clip_.picture.format();
}

QSize BaseClip::sizeAt(VX::ClipContext const & context) const {
    QSize const full = format().size;
    return QSize(reduced(full.width(), context.proxyScale()), reduced(full.height(), context.proxyScale()));
}

std::vector<Kyn::View> BaseClip::views() const {
    return viewsOf(clip_);
}

unsigned int BaseClip::length(Kyn::View const & view) const {
    return lengthOf(clip_, view);
}

bool BaseClip::hasFrame(VX::ClipContext const & context, Kyn::View const & view) const {
    return !fileOf(clip_, context, view).isNull();
}

QString FileClip::name() const {
    return nameOf(clip_);
}

void FileClip::setName(QString const & name) {
    clip_.name.setStaticValue(name, Kyn::View());
}

VX_BaseClipInfo & FileClip::baseInfo() {
    return clip_.picture;
}

VX_ClipInfo & FileClip::clipInfo() {
    return clip_.source;
}

VX::ColourspaceParameters const & FileClip::colourspace() const {
    return clip_.source.colourspace;
}

std::vector<Kyn::View> FileClip::views() const {
    return viewsOf(clip_);
}

unsigned int FileClip::length(Kyn::View const & view) const {
    return lengthOf(clip_, view);
}

int FileClip::firstFrameOffset() const {
    return clip_.picture.firstFrameOffset;
}

VX_TimeCode FileClip::timeCode(Kyn::Frame const & frame) const {
    double const rate = static_cast<double>(clip_.picture.frameRate);
    Kyn::Frame const first = VX_TimeCode(clip_.source.imageHeader).toFrames(rate);
    if (!first.isValid() || !frame.isValid())
        return VX_TimeCode();
    return codeOf(quint64(first.toUInt()) + frame.toUInt(), rate);
}

QString FileClip::fileName(VX::ClipContext const & context, Kyn::View const & view) const {
    return fileOf(clip_, context, view);
}

bool FileClip::fileExists(VX::ClipContext const & context, Kyn::View const & view) const {
    QString const file = fileName(context, view);
    return !file.isNull() && QFileInfo::exists(file);
}

bool FileClip::isReadOnly() const {
    return clip_.source.readOnly != VX_FALSE;
}

bool FileClip::isHidden() const {
    return clip_.source.hidden != VX_FALSE;
}

bool FileClip::isDiscrete() const {
    return clip_.source.discreteFrames == VX_TRUE;
}

} // namespace vxproject
