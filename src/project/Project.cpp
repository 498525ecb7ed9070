#include "project/Project.h"

#include "project/Layer.h"
#include "project/Reader.h"
#include "project/TextFile.h"
#include "project/Writer.h"

namespace vxproject {

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

Layer & Project::layer(quint32 id) {
    return static_cast<Layer &>(item({&layerKind(), id}));
}

Layer * Project::findLayer(quint32 id) const {
    auto const found = items_.find({&layerKind(), id});
    return found == items_.end() ? nullptr : static_cast<Layer *>(found->second.get());
}

void Project::forEachParameter(boost::function<void(Kyn::ParameterWithoutType &, QString const &)> visit) const {
    for (auto const & [key, item] : items_)
        item->forEachParameter(
            [&](Kyn::ParameterWithoutType * parameter) { visit(*parameter, parameter->extendedName()); }, true);
}

} // namespace vxproject
