#include "project/Scene.h"

namespace vxproject {

namespace {

constexpr QLatin1String OPENING("Null[");

QString keyOf(quint32 id) {
    return OPENING + QString::number(id) + QLatin1Char(']');
}

} // namespace

void Scene::expect(QStringView line) {
    qsizetype const end = line.indexOf(QLatin1String("]."));
    if (!line.startsWith(OPENING) || end < 0)
        return;
    QStringView const digits = line.mid(OPENING.size(), end - OPENING.size());
    bool isNumber = false;
    quint32 const id = digits.toUInt(&isNumber, 10);
    if (isNumber && QString::number(id) == digits) // Another way to write it is another key.
        null(id);
}

QStringList Scene::settle() {
    clearAllLists();
    addSet(rig);
    for (auto const & [id, null] : nulls_)
        addSet(*null);
    return QStringList();
}

SceneNull & Scene::null(quint32 id) {
    std::unique_ptr<SceneNull> & null = nulls_[id];
    if (!null) {
        null = std::make_unique<SceneNull>(keyOf(id));
        addSet(*null);
    }
    return *null;
}

} // namespace vxproject
