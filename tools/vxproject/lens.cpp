#include "project/LayerWarp.h"
#include "project/LensGrid.h"
#include "project/TextFile.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    std::string file;
    long long lens = 0;
    std::optional<long long> clip;
    std::string frames;
    int view = 0;
    std::string grid;
    bool json = false;
};

/// The picture shows the first of the frames.
ExitCode drawGrid(Options const & options, LensOnClip const & found, double frame, QString const & path) {
    QSize const size = found.clip->picture.format().size;
    if (size.isEmpty()) {
        complain(path + QStringLiteral(": a frame of %1x%2 makes no picture").arg(size.width()).arg(size.height()));
        return EXIT_FINDINGS;
    }
    Kyn::Context const context(Kyn::Time(frame), viewOf(options.view), Kyn::ProxyScale::FULL);
    Gan_Camera const camera = vxproject::cameraAt(*found.lens, context, found.clip->picture);
    vxproject::replaceFile(textOf(options.grid), vxproject::lensGridSvg(camera, {size.width(), size.height()}));
    return EXIT_DONE;
}

ExitCode lens(Options const & options) {
    vxproject::FrameList const frames = framesOf(options.frames);
    Kyn::View const view = viewOf(options.view);
    quint32 const id = idOf("--lens", options.lens);
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    ExitCode code = complainOf(project->findings(), path);
    LensOnClip const found = lensOnClip(*project, id, options.clip, path);
    if (!found.clip)
        return EXIT_FINDINGS;

    QStringList columns;
    for (char const * column : {"frame", "type", "fx", "fy", "x0", "y0", "zh", "k1", "k2", "k3", "k4"})
        columns.append(QString::fromLatin1(column));
    Table table(formOf(options.json), columns);
    bool isFirst = true;
    frames.forEach([&](double frame) {
        if (isFirst && !options.grid.empty())
            code = std::max(code, drawGrid(options, found, frame, path));
        isFirst = false;
        Kyn::Context const context(Kyn::Time(frame), view, Kyn::ProxyScale::FULL);
        Gan_Camera const camera = vxproject::cameraAt(*found.lens, context, found.clip->picture);
        Fields fields{frame, qint64(camera.type), camera.fx, camera.fy, camera.x0, camera.y0, camera.zh};
        for (double const term : camera.distortion)
            fields.push_back(term);
        table.row(fields);
    });
    table.finish();
    return code;
}

std::string footer() {
    std::string text = "\nFor the clip's size, film back and interlacing, in pixels. zh is the third coordinate of its "
                       "image points.\nType and terms (k1 to k4), with r the distance from the axis on a plane one "
                       "focal length away:\n"
                       "  0   no distortion\n"
                       "  1   times 1 + k1 r^2\n"
                       "  2   times 1 + k1 r^2 + k2 r^4\n"
                       "  4   the same as 1, from distorted to undistorted\n"
                       "  9   x (1 + k1 x^2 + k2 y^2), y (1 + k3 x^2 + k4 y^2)\n"
                       "  15  maps\n";
    return text + "\nExample:\n  vxproject lens shot.vxp --lens 1 --frames 1-100x10";
}

} // namespace

void addLens(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("lens", "Print the camera that a lens makes at frames");
    command->footer(footer());
    command->add_option("FILE", options->file, "The project file")->required();
    command->add_option("--lens", options->lens, "The lens's id")->required();
    command->add_option("--clip", options->clip, "The id of the clip to make it for. Without it, the lens's own");
    command->add_option("--frames", options->frames, "Such as 7, 1-100, 1-100x2, 1-10x0.25, or a list of these")
        ->required();
    command->add_option("--view", options->view, "The view (0)");
    command->add_option("--grid", options->grid,
                        "An SVG file to write: a grid over the frame as the lens shows it at the first of the frames");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return lens(*options); }; });
}

} // namespace Tool
