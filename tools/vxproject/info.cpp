#include "project/Clip.h"
#include "project/NumberText.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

#include <algorithm>
#include <set>

namespace Tool {

namespace {

struct Options {
    std::string file;
    bool json = false;
};

/// What there is to say of one set, its nested sets not counted.
struct SetSummary {
    QString name;
    std::size_t parameters = 0;
    std::size_t keyed = 0;
    std::size_t keys = 0;
    double firstKey = 0.0;
    double lastKey = 0.0;
    std::set<int> views;
};

SetSummary summaryOf(Kyn::ParameterSet const & set, QString const & name) {
    SetSummary summary;
    summary.name = name;
    auto const addView = [&](Kyn::ParameterWithoutType const & parameter, Kyn::View view) {
        summary.views.insert(view.id());
        unsigned int const count = parameter.numKeyframes(view);
        if (count == 0)
            return;
        double const first = parameter.keyframeContext(0, view).time().toDouble();
        double const last = parameter.keyframeContext(count - 1, view).time().toDouble();
        summary.firstKey = summary.keys > 0 ? std::min(summary.firstKey, first) : first;
        summary.lastKey = summary.keys > 0 ? std::max(summary.lastKey, last) : last;
        summary.keys += count;
    };
    set.forEachMember([&](Kyn::BasicParameter *) { ++summary.parameters; }, false);
    set.forEachParameter(
        [&](Kyn::ParameterWithoutType * parameter) {
            std::size_t const before = summary.keys;
            for (Kyn::View const view : std::vector<Kyn::View>(parameter->views()))
                addView(*parameter, view);
            summary.keyed += summary.keys > before ? 1 : 0;
        },
        false);
    return summary;
}

/// The sets of an item, nested ones with the names above them.
void collectSets(Kyn::ParameterSet const & set, QString const & path, std::vector<SetSummary> & found) {
    set.forEachSet([&](Kyn::ParameterSet * nested, QString const & name) {
        QString const full = path.isEmpty() ? name : path + QLatin1Char('.') + name;
        SetSummary const summary = summaryOf(*nested, full);
        if (summary.parameters > 0) // Some only hold others together.
            found.push_back(summary);
        collectSets(*nested, full, found);
    });
}

/// What a clip is, for its reader; of the default view.
struct Footage {
    unsigned int width = 0;
    unsigned int height = 0;
    float rate = 0.0f;
    unsigned int length = 0;
    std::size_t views = 0;
    QString firstFile; ///< Null without one.
};

struct ItemSummary {
    vxproject::ItemKey key;
    QString name;
    std::optional<Footage> footage;
    std::vector<SetSummary> sets;
};

Footage footageOf(vxproject::Clip const & clip) {
    VX_ClipInfo const & source = clip.source;
    Footage footage{clip.picture.frameWidth,  clip.picture.frameHeight,  clip.picture.frameRate,
                    source.lengthForView({}), source.clipViews().size(), source.firstFileName()};
    if (footage.firstFile == QLatin1String("/")) // Neither folder nor name.
        footage.firstFile = QString();
    if (source.discreteFrames == VX_TRUE)
        footage.firstFile = source.discreteFramesList.isEmpty() ? QString() : source.discreteFramesList[0].fileName;
    return footage;
}

ItemSummary summaryOf(vxproject::ItemKey const & key, vxproject::Item const & item) {
    ItemSummary summary{key, QString(), std::nullopt, {}};
    if (auto const * const clip = dynamic_cast<vxproject::Clip const *>(&item))
        summary.footage = footageOf(*clip);
    Kyn::Context const always(Kyn::Time(0.0), Kyn::View(), Kyn::ProxyScale::FULL);
    if (Kyn::ParameterWithoutType const * const name = item.findParameter(QStringLiteral("Name")))
        summary.name = std::get<QString>(vxproject::valueOf(*name, always, vxproject::Unit::Stored));
    collectSets(item, QString(), summary.sets);
    return summary;
}

QString viewsText(std::set<int> const & views) {
    QStringList ids;
    for (int const id : views)
        ids.append(QString::number(id));
    return (views.size() == 1 ? QStringLiteral("view ") : QStringLiteral("views ")) + ids.join(QLatin1String(", "));
}

QString counted(std::size_t count, char const * one, char const * several) {
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : several));
}

/// The items of a kind, in words and as a list of JSON.
struct KindWords {
    vxproject::ItemKind const & kind;
    char const * one;
    char const * several;
};

std::vector<KindWords> const & kinds() {
    static std::vector<KindWords> const words = {{vxproject::clipKind(), "clip", "clips"},
                                                 {vxproject::layerKind(), "layer", "layers"},
                                                 {vxproject::lensKind(), "lens", "lenses"},
                                                 {vxproject::sceneKind(), "scene", "scenes"}};
    return words;
}

QString countsText(std::vector<ItemSummary> const & items) {
    QStringList counts;
    for (KindWords const & words : kinds()) {
        auto const count = std::count_if(items.begin(), items.end(),
                                         [&](ItemSummary const & item) { return item.key.kind == &words.kind; });
        if (count > 0)
            counts.append(counted(static_cast<std::size_t>(count), words.one, words.several));
    }
    return counts.isEmpty() ? QStringLiteral("empty") : counts.join(QLatin1String(", "));
}

QString footageText(Footage const & footage) {
    QString text = QStringLiteral("  %1x%2, %3 frames a second, %4, %5")
                       .arg(footage.width)
                       .arg(footage.height)
                       .arg(vxproject::shortestText(footage.rate), counted(footage.length, "frame", "frames"),
                            counted(footage.views, "view", "views"));
    return footage.firstFile.isNull() ? text : text + QStringLiteral(", from ") + footage.firstFile;
}

QString keysText(SetSummary const & set) {
    return QStringLiteral("  %1: %2, %3 keyed, %4, frames %5 to %6, %7")
        .arg(set.name, counted(set.parameters, "parameter", "parameters"))
        .arg(set.keyed)
        .arg(counted(set.keys, "key", "keys"), vxproject::shortestText(set.firstKey),
             vxproject::shortestText(set.lastKey), viewsText(set.views));
}

/// Sets without keys are many, and there is little to say of them.
QString othersText(std::vector<SetSummary> const & sets) {
    QStringList names;
    for (SetSummary const & set : sets)
        if (set.keys == 0)
            names.append(set.name);
    return names.isEmpty() ? QString() : QStringLiteral("  without keys: ") + names.join(QLatin1String(", "));
}

void printText(std::vector<ItemSummary> const & items, QString const & path) {
    print(path + QStringLiteral(": ") + countsText(items));
    for (ItemSummary const & item : items) {
        print(item.key.toString() + QStringLiteral(" \"%1\"").arg(item.name));
        if (item.footage)
            print(footageText(*item.footage));
        for (SetSummary const & set : item.sets)
            if (set.keys > 0)
                print(keysText(set));
        QString const others = othersText(item.sets);
        if (!others.isEmpty())
            print(others);
    }
}

nlohmann::ordered_json toJson(SetSummary const & set) {
    nlohmann::ordered_json object{{"name", set.name.toStdString()},
                                  {"parameters", set.parameters},
                                  {"keyed", set.keyed},
                                  {"keys", set.keys},
                                  {"views", set.views}};
    if (set.keys > 0) {
        object["first_key"] = set.firstKey;
        object["last_key"] = set.lastKey;
    }
    return object;
}

nlohmann::ordered_json toJson(ItemSummary const & item) {
    nlohmann::ordered_json object{{"id", item.key.id}, {"name", item.name.toStdString()}};
    if (item.footage) {
        object["width"] = item.footage->width;
        object["height"] = item.footage->height;
        object["rate"] = Tool::toJson(vxproject::ParameterValue(item.footage->rate));
        object["frames"] = item.footage->length;
        object["views"] = item.footage->views;
        if (!item.footage->firstFile.isNull())
            object["first_file"] = item.footage->firstFile.toStdString();
    }
    object["sets"] = nlohmann::ordered_json::array();
    for (SetSummary const & set : item.sets)
        object["sets"].push_back(toJson(set));
    return object;
}

void printJson(std::vector<ItemSummary> const & items, std::string const & file, qsizetype findings) {
    nlohmann::ordered_json document{{"file", file}, {"findings", findings}};
    for (KindWords const & words : kinds()) {
        nlohmann::ordered_json & list = document[words.several] = nlohmann::ordered_json::array();
        for (ItemSummary const & item : items)
            if (item.key.kind == &words.kind)
                list.push_back(toJson(item));
    }
    print(document);
}

ExitCode info(Options const & options) {
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    std::vector<ItemSummary> items;
    for (auto const & [key, item] : project->items())
        items.push_back(summaryOf(key, *item));
    if (options.json)
        printJson(items, options.file, project->findings().size());
    else
        printText(items, path);
    return complainOf(project->findings(), path);
}

} // namespace

void addInfo(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("info", "Say what a project holds");
    command->add_option("FILE", options->file, "The project file")->required();
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return info(*options); }; });
}

} // namespace Tool
