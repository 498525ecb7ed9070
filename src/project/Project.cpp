#include "project/Project.h"

#include "project/Clip.h"
#include "project/ClipFiles.h"
#include "project/Layer.h"
#include "project/Lens.h"
#include "project/Reader.h"
#include "project/Scene.h"
#include "project/StMap.h"
#include "project/TextFile.h"
#include "project/Writer.h"

namespace vxproject {

namespace {

typedef boost::function<void(Kyn::BasicParameter &, QString const &)> Visit;

void walk(Kyn::ParameterSet const & set, QString const & path, Visit const & visit) {
    set.forEachMember(
        [&](Kyn::BasicParameter * member) { visit(*member, path + QLatin1Char('.') + member->scriptName()); }, false);
    set.forEachSet([&](Kyn::ParameterSet * nested, QString const & name) {
        walk(*nested, path + QLatin1Char('.') + name, visit);
    });
}

} // namespace

Project::~Project() = default;

std::unique_ptr<Project> Project::read(QString const & path) {
    return fromText(readFile(path), path);
}

std::unique_ptr<Project> Project::fromText(QByteArray const & text, QString const & path) {
    auto project = std::make_unique<Project>();
    Reader(*project, path).read(text);
    return project;
}

QByteArray Project::toText() const {
    Writer writer;
    writer.line(QStringLiteral("vxproject %1").arg(NEWEST_VERSION));
    writer.lines(head_);
    for (auto const & [key, item] : items_)
        writer.item(*item, key.toString());
    writer.lines(tail_);
    return writer.text();
}

void Project::save(QString const & path) const {
    replaceFile(path, toText());
}

QStringList Project::lossesOfWriting() const {
    QStringList losses;
    forEachParameter([&](Kyn::ParameterWithoutType & parameter, QString const & path) {
        QString const loss = lossOfWriting(parameter);
        if (!loss.isEmpty())
            losses.append(path + QStringLiteral(": ") + loss);
    });
    return losses;
}

Item & Project::item(ItemKey const & key) {
    std::unique_ptr<Item> & item = items_[key];
    if (item)
        return *item;
    putItem(key, key.kind->make(clips_, key.id));
    return *item;
}

std::unique_ptr<Item> Project::takeItem(ItemKey const & key) {
    auto const found = items_.find(key);
    if (found == items_.end())
        return nullptr;
    std::unique_ptr<Item> taken = std::move(found->second);
    items_.erase(found);
    tree_.remove(*taken);
    return taken;
}

void Project::putItem(ItemKey const & key, std::unique_ptr<Item> item) {
    tree_.add(*item, key.toString());
    if (auto * const lens = dynamic_cast<Lens *>(item.get()))
        lens->camera.imageLoader = [this](unsigned int id, Kyn::Context::Explicit context, int, int) {
            return mapOfClip(id, context);
        };
    items_[key] = std::move(item);
}

/// A still has one file for all times.
boost::shared_ptr<Gan_Image> Project::mapOfClip(unsigned int id, Kyn::Context const & context) {
    Clip const * const clip = id == 0 ? nullptr : findClip(id);
    if (!clip)
        return nullptr;
    QString const ofFrame =
        ClipFiles(clip->source, clip->picture.interlaceMode, context.view()).fileOf(context.toFrame().toUInt());
    QString const file = ofFrame.isNull() ? clip->source.firstFileName() : ofFrame;
    boost::shared_ptr<Gan_Image> & map = maps_[file];
    if (!map)
        map = imageOf(readStMap(file));
    return map;
}

Item * Project::findItem(ItemKey const & key) const {
    auto const found = items_.find(key);
    return found == items_.end() ? nullptr : found->second.get();
}

Clip & Project::clip(quint32 id) {
    return static_cast<Clip &>(item({&clipKind(), id}));
}

Layer & Project::layer(quint32 id) {
    return static_cast<Layer &>(item({&layerKind(), id}));
}

Lens & Project::lens(quint32 id) {
    return static_cast<Lens &>(item({&lensKind(), id}));
}

Scene & Project::scene() {
    return static_cast<Scene &>(item({&sceneKind(), 0}));
}

Lens * Project::findLens(quint32 id) const {
    return static_cast<Lens *>(findItem({&lensKind(), id}));
}

Scene * Project::findScene() const {
    return static_cast<Scene *>(findItem({&sceneKind(), 0}));
}

Lens * Project::lensOfClip(unsigned int id) const {
    if (id == 0)
        return nullptr;
    for (auto const & [key, item] : items_) { // By kind, then by id.
        if (key.kind != &lensKind())
            continue;
        Lens * const lens = static_cast<Lens *>(item.get());
        if (lens->camera.inputClipId.staticValue(Kyn::View()) == id)
            return lens;
    }
    return nullptr;
}

Clip * Project::findClip(quint32 id) const {
    return static_cast<Clip *>(findItem({&clipKind(), id}));
}

Layer * Project::findLayer(quint32 id) const {
    return static_cast<Layer *>(findItem({&layerKind(), id}));
}

std::optional<FrameSize> Project::frameSizeOf(Layer const & layer) const {
    VX_BaseClipInfo const * const picture =
        clips_.pcGetBaseClipInfo(layer.tracking.inputClipId.staticValue(Kyn::View()));
    VX::ImageFormat const format = picture ? picture->format() : VX::ImageFormat();
    if (!format.isValid())
        return std::nullopt;
    return FrameSize{format.size.width(), format.size.height()};
}

void Project::forEachMember(boost::function<void(Kyn::BasicParameter &, QString const &)> visit) const {
    for (auto const & [key, item] : items_)
        walk(*item, key.toString(), visit);
}

void Project::forEachParameter(boost::function<void(Kyn::ParameterWithoutType &, QString const &)> visit) const {
    forEachMember([&](Kyn::BasicParameter & member, QString const & path) {
        if (auto * const parameter = dynamic_cast<Kyn::ParameterWithoutType *>(&member))
            visit(*parameter, path);
    });
}

} // namespace vxproject
