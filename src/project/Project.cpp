#include "project/Project.h"

#include "project/Clip.h"
#include "project/Layer.h"
#include "project/Reader.h"
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
    if (!item) {
        item = key.kind->make();
        tree_.add(*item, key.toString());
    }
    return *item;
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
