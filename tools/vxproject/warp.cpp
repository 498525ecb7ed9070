#include "project/LayerWarp.h"
#include "project/NumberText.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    std::string file;
    long long layer = 0;
    std::string frames;
    int view = 0;
    std::string size;
    std::string points;
    bool inverse = false;
    bool json = false;
};

/// Where each point goes, and as texts those that go nowhere.
QStringList addPoints(Fields & fields, vxproject::LayerWarp const & warp, std::vector<Gan_Vector2> const & points,
                      bool inverse) {
    QStringList lost;
    for (Gan_Vector2 const & point : points) {
        std::optional<Gan_Vector2> const image = inverse ? warp.unwarp(point) : warp.warp(point);
        Gan_Vector2 const place = image.value_or(Gan_Vector2{0.0, 0.0});
        fields.push_back(fieldIf(image.has_value(), place.x));
        fields.push_back(fieldIf(image.has_value(), place.y));
        if (!image)
            lost.append(vxproject::shortestText(point.x) + QLatin1Char(' ') + vxproject::shortestText(point.y));
    }
    return lost;
}

ExitCode warp(Options const & options) {
    vxproject::FrameList const frames = framesOf(options.frames);
    Kyn::View const view = viewOf(options.view);
    std::optional<vxproject::FrameSize> const size = sizeOf(options.size);
    std::vector<Gan_Vector2> const points = pointsOf("--points", options.points);
    quint32 const id = idOf("--layer", options.layer);
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    ExitCode code = complainOf(project->findings(), path);
    vxproject::Layer const * const layer = findLayer(*project, id, path);
    if (!layer)
        return EXIT_FINDINGS;
    if (!size && !project->frameSizeOf(*layer)) {
        complain(path + QStringLiteral(": layer %1 has no input clip with a frame size; give one with --size").arg(id));
        return EXIT_FINDINGS;
    }

    Table table(formOf(options.json), pointColumns(points.size()));
    frames.forEach([&](double frame) {
        Kyn::Context const context(Kyn::Time(frame), view, Kyn::ProxyScale::FULL);
        std::optional<vxproject::LayerWarp> const found = vxproject::LayerWarp::at(*project, *layer, context, size);
        QString why = QStringLiteral("its values make no homography, or its lens no camera for the clip's film back "
                                     "and size");
        if (found) {
            Fields fields{frame};
            QStringList const lost = addPoints(fields, *found, points, options.inverse);
            table.row(fields);
            if (lost.isEmpty())
                return;
            why = lost.join(QLatin1String("; ")) +
                  QStringLiteral(" goes to infinity, or lies beyond what the lens can show");
        }
        complain(path + QStringLiteral(": layer %1 has no answer at frame %2: %3")
                            .arg(id)
                            .arg(vxproject::shortestText(frame), why));
        code = EXIT_FINDINGS;
    });
    table.finish();
    return code;
}

constexpr char FOOTER[] =
    "\nA point goes out of the lens of the layer's clip, along with the track, and into the lens again; without a\n"
    "lens, with the track alone. Pixels count as the track's do, y down. The clip is the one that the layer's\n"
    "InputClipID names, its lens the first whose InputClipID names it. A point that goes nowhere is \"none\" (null in\n"
    "JSON), and the exit code is then 1.\n"
    "\nExamples:\n"
    "  vxproject warp shot.vxp --layer 1 --frames 1-100 --points \"100 200; 300 200\"\n"
    "  vxproject warp shot.vxp --layer 1 --frames 50 --points \"100 200\" --inverse";

} // namespace

void addWarp(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("warp", "Print where a layer takes points, lens included");
    command->footer(FOOTER);
    command->add_option("FILE", options->file, "The project file")->required();
    command->add_option("--layer", options->layer, "The layer's id")->required();
    command->add_option("--frames", options->frames, "Such as 7, 1-100, 1-100x2, 1-10x0.25, or a list of these")
        ->required();
    command->add_option("--points", options->points, "Points in pixels, \"x y; x y; ...\"")->required();
    command->add_option("--view", options->view, "The view (0)");
    command->add_option("--size", options->size, "Frame size, WIDTHxHEIGHT, for a layer without a clip or a lens");
    command->add_flag("--inverse", options->inverse, "Back to where the points come from");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return warp(*options); }; });
}

} // namespace Tool
