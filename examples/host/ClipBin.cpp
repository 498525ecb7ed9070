#include "ClipBin.h"

#include "HostServices.h"

#include "project/Clip.h"
#include "project/ClipFiles.h"
#include "project/Project.h"

#include <QFileInfo>

namespace {

/// The first file of the clip that is there, or null.
QString firstFileOf(vxproject::Clip const & clip) {
    vxproject::ClipFiles const files(clip.source, clip.picture.interlaceMode, Kyn::View());
    QString first;
    files.frames().forEach([&](double frame) {
        if (!first.isNull())
            return;
        QString const file = files.fileOf(static_cast<qint64>(frame));
        if (QFileInfo::exists(file))
            first = file;
    });
    return first;
}

/// The record of a clip, its size taken from its files if it has none.
VX_BaseClipInfo completed(vxproject::Clip const & clip, HostServices & host) {
    VX_BaseClipInfo picture(clip.picture);
    QString const file = picture.frameWidth > 0 && picture.frameHeight > 0 ? QString() : firstFileOf(clip);
    if (!file.isNull())
        host.table().eGetClipInfo(host.router(), file.toUtf8().constData(), false, &picture.frameWidth,
                                  &picture.frameHeight, &picture.interlaceMode, &picture.frameRate,
                                  clip.source.colourspace);
    return picture;
}

} // namespace

ClipBin::ClipBin(vxproject::Project const & project, HostServices & host) {
    for (unsigned int const id : project.clips().clipIds()) {
        vxproject::Clip const * const clip = project.findClip(id);
        entries_.emplace(id, Entry{clip, completed(*clip, host)});
    }
}

QVector<unsigned int> ClipBin::clipIds() const {
    QVector<unsigned int> ids;
    for (auto const & [id, entry] : entries_)
        ids.append(id);
    return ids;
}

VX_BaseClipInfo const * ClipBin::pcGetBaseClipInfo(unsigned int uiClipId) const {
    Entry const * const entry = find(uiClipId);
    return entry ? &entry->picture : nullptr;
}

VX_ClipInfo const * ClipBin::pcGetClipInfo(unsigned int uiClipId) const {
    Entry const * const entry = find(uiClipId);
    return entry ? &entry->clip->source : nullptr;
}

QString ClipBin::clipName(unsigned int uiClipId) const {
    Entry const * const entry = find(uiClipId);
    return entry ? entry->clip->name.staticValue(Kyn::View()) : QString();
}

unsigned int ClipBin::clipIdOfName(QString const & name) const {
    for (auto const & [id, entry] : entries_)
        if (clipName(id) == name)
            return id;
    return 0;
}

ClipBin::Entry const * ClipBin::find(unsigned int id) const {
    auto const found = entries_.find(id);
    return found == entries_.end() ? nullptr : &found->second;
}
