#include "project/LensGrid.h"
#include "project/TextFile.h"
#include "vxproject/LensQuestion.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    LensQuestion question;
    std::string frames;
    std::string grid;
    bool json = false;
};

void drawGrid(AskedLens & lens, Gan_Camera const & camera, QString const & output) {
    if (std::optional<vxproject::FrameSize> const size = lens.size())
        vxproject::replaceFile(output, vxproject::lensGridSvg(camera, *size));
}

ExitCode lens(Options const & options) {
    vxproject::FrameList const frames = framesOf(options.frames);
    AskedLens asked(options.question);
    if (!asked.isThere())
        return asked.code();

    QStringList columns;
    for (char const * column : {"frame", "type", "fx", "fy", "x0", "y0", "zh", "k1", "k2", "k3", "k4"})
        columns.append(QString::fromLatin1(column));
    Table table(formOf(options.json), columns);
    bool isFirst = true;
    frames.forEach([&](double frame) {
        std::optional<Gan_Camera> const camera = asked.cameraAt(frame);
        if (camera && isFirst && !options.grid.empty())
            drawGrid(asked, *camera, textOf(options.grid));
        isFirst = false;
        if (!camera)
            return;
        Fields fields{frame, qint64(camera->type), camera->fx, camera->fy, camera->x0, camera->y0, camera->zh};
        for (double const term : camera->distortion)
            fields.push_back(term);
        table.row(fields);
    });
    table.finish();
    return asked.code();
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
    options->question.addTo(*command);
    addFrames(*command, options->frames);
    command->add_option("--grid", options->grid,
                        "An SVG file to write: a grid over the frame as the lens shows it at the first of the frames");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return lens(*options); }; });
}

} // namespace Tool
