#include "project/FileError.h"
#include "project/TrackImport.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace Tool {

namespace {

struct Options {
    std::string table;
    std::string output;
    long long layer = 1;
    std::string size;
    bool json = false;
};

void tell(Options const & options, vxproject::TrackTable const & table, vxproject::TrackImport const & import) {
    if (options.json) {
        print(nlohmann::ordered_json{{"file", options.output},
                                     {"layer", options.layer},
                                     {"imported", import.imported},
                                     {"left_out", table.rows.size() - import.imported}});
        return;
    }
    QString text = QStringLiteral("%1: %2 homographies in layer %3")
                       .arg(textOf(options.output))
                       .arg(import.imported)
                       .arg(options.layer);
    if (std::size_t const leftOut = table.rows.size() - import.imported; leftOut > 0)
        text += QStringLiteral(", %1 rows left out").arg(leftOut);
    print(text);
}

/// A track in pixels that is taken for one in frame widths goes hundreds of frames away.
void warnOfPixels(vxproject::TrackTable const & table, QString const & path) {
    constexpr double UNLIKELY = 10.0;
    for (vxproject::TrackRow const & row : table.rows) {
        Gan_Matrix33 const h = vxproject::normalised(row.homography);
        if (std::abs(h.xz) > UNLIKELY || std::abs(h.yz) > UNLIKELY) {
            complain(vxproject::Finding{row.line, QStringLiteral("this moves by more than ten frame widths; if the "
                                                                 "table is in pixels, give --size")}
                         .toString(path));
            return;
        }
    }
}

ExitCode importTrack(Options const & options) {
    std::optional<vxproject::FrameSize> const size = sizeOf("--size", options.size);
    quint32 const id = idOf("--layer", options.layer);
    QString const path = textOf(options.table);
    vxproject::TrackTable const table = vxproject::TrackTable::read(path);
    if (!size)
        warnOfPixels(table, path);

    vxproject::Project project;
    vxproject::Layer & layer = project.layer(id);
    Kyn::Context const always(Kyn::Time(0.0), Kyn::View(), Kyn::ProxyScale::FULL);
    layer.name.setValue(QFileInfo(path).completeBaseName(), always);
    vxproject::TrackImport const import = vxproject::importTrack(table, size, Kyn::View(), layer.tracking.track);
    // The import drives all eight values, so that is the model of this track, at all times.
    layer.tracking.trackingModel.setStaticValue(TRACK_MODEL_PERSPECTIVE, Kyn::View());

    QList<vxproject::Finding> findings = table.findings + import.findings;
    std::stable_sort(findings.begin(), findings.end(),
                     [](vxproject::Finding const & a, vxproject::Finding const & b) { return a.line < b.line; });
    ExitCode const code = complainOf(findings, path);
    if (import.imported == 0)
        throw vxproject::FileError(path, 0, QStringLiteral("holds no homography that can be imported"));
    project.save(textOf(options.output));
    tell(options, table, import);
    return code;
}

} // namespace

void addImportTrack(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command =
        app.add_subcommand("import-track", "Make a project whose layer carries the homographies of a table");
    command->add_option("CSV", options->table, "The table: frame,h11,...,h33; other columns are ignored")->required();
    command->add_option("-o,--output", options->output, "The project file, which is replaced if there is one")
        ->required();
    command->add_option("--layer", options->layer, "The layer's id (1)");
    addSize(*command, options->size,
            std::string(": the homographies act on pixels. Without it, on ") + PROJECT_COORDINATES);
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return importTrack(*options); }; });
}

} // namespace Tool
