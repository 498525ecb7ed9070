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
    set.forEachParameter(
        [&](Kyn::ParameterWithoutType * parameter) {
            std::size_t const before = summary.keys;
            ++summary.parameters;
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
        found.push_back(summaryOf(*nested, full));
        collectSets(*nested, full, found);
    });
}

struct ItemSummary {
    vxproject::ItemKey key;
    QString name;
    std::vector<SetSummary> sets;
};

ItemSummary summaryOf(vxproject::ItemKey const & key, vxproject::Item const & item) {
    ItemSummary summary{key, QString(), {}};
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

void printText(std::vector<ItemSummary> const & items, QString const & path) {
    print(path + QStringLiteral(": ") + counted(items.size(), "layer", "layers"));
    for (ItemSummary const & item : items) {
        print(item.key.toString() + QStringLiteral(" \"%1\"").arg(item.name));
        for (SetSummary const & set : item.sets) {
            QString text = QStringLiteral("  %1: %2, %3 keyed")
                               .arg(set.name)
                               .arg(counted(set.parameters, "parameter", "parameters"))
                               .arg(set.keyed);
            if (set.keys > 0)
                text += QStringLiteral(", %1, frames %2 to %3")
                            .arg(counted(set.keys, "key", "keys"), vxproject::shortestText(set.firstKey),
                                 vxproject::shortestText(set.lastKey));
            print(text + QStringLiteral(", ") + viewsText(set.views));
        }
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

void printJson(std::vector<ItemSummary> const & items, std::string const & file, qsizetype findings) {
    nlohmann::ordered_json layers = nlohmann::ordered_json::array();
    for (ItemSummary const & item : items) {
        nlohmann::ordered_json sets = nlohmann::ordered_json::array();
        for (SetSummary const & set : item.sets)
            sets.push_back(toJson(set));
        layers.push_back({{"id", item.key.id}, {"name", item.name.toStdString()}, {"sets", sets}});
    }
    print(nlohmann::ordered_json{{"file", file}, {"findings", findings}, {"layers", layers}});
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
