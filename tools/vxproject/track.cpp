#include "project/NumberText.h"
#include "project/TrackComparison.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

#include "geometry/gandalf/MatrixElements.h"

namespace Tool {

namespace {

struct Options {
    std::string file;
    long long layer = 0;
    std::string frames;
    int view = 0;
    std::string size;
    std::string corners;
    bool json = false;
};

QStringList matrixColumns() {
    QStringList columns{QStringLiteral("frame")};
    for (int row = 1; row <= 3; ++row)
        for (int column = 1; column <= 3; ++column)
            columns.append(QStringLiteral("h%1%2").arg(row).arg(column));
    return columns;
}

void addMatrix(Fields & fields, Gan_Matrix33 const & homography) {
    VX::detail::forEachElement(homography, [&](double element) { fields.push_back(element); });
}

/// False if a point goes to infinity.
bool addPoints(Fields & fields, Gan_Matrix33 const & homography, std::vector<Gan_Vector2> const & points) {
    for (Gan_Vector2 const & point : points) {
        Gan_Vector2 image;
        if (!vxproject::mapPoint(homography, point, image))
            return false;
        fields.push_back(image.x);
        fields.push_back(image.y);
    }
    return true;
}

ExitCode track(Options const & options) {
    vxproject::FrameList const frames = framesOf(options.frames);
    Kyn::View const view = viewOf(options.view);
    std::optional<vxproject::FrameSize> size = sizeOf(options.size);
    std::vector<Gan_Vector2> const points =
        options.corners.empty() ? std::vector<Gan_Vector2>() : pointsOf("--corners", options.corners);
    quint32 const id = idOf("--layer", options.layer);
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    ExitCode code = complainOf(project->findings(), path);
    vxproject::Layer const * const layer = findLayer(*project, id, path);
    if (!layer)
        return EXIT_FINDINGS;
    if (!size)
        size = project->frameSizeOf(*layer);

    Table table(formOf(options.json), points.empty() ? matrixColumns() : pointColumns(points.size()));
    frames.forEach([&](double frame) {
        Kyn::Context const context(Kyn::Time(frame), view, Kyn::ProxyScale::FULL);
        std::optional<Gan_Matrix33> const homography = homographyAt(layer->tracking.track, context, size);
        Fields fields{frame};
        bool const answered = homography && addPoints(fields, *homography, points);
        if (!answered) {
            complain(
                path +
                QStringLiteral(": layer %1 has no answer at frame %2: ").arg(id).arg(vxproject::shortestText(frame)) +
                (homography ? QStringLiteral("a point goes to infinity")
                            : QStringLiteral("its values make no homography")));
            code = EXIT_FINDINGS;
            return;
        }
        if (points.empty())
            addMatrix(fields, *homography);
        table.row(fields);
    });
    table.finish();
    return code;
}

} // namespace

void addTrack(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command =
        app.add_subcommand("track", "Print a layer's homographies at frames, or where they take points");
    command->add_option("FILE", options->file, "The project file")->required();
    command->add_option("--layer", options->layer, "The layer's id")->required();
    command->add_option("--frames", options->frames, "Such as 7, 1-100, 1-100x2, 1-10x0.25, or a list of these")
        ->required();
    command->add_option("--view", options->view, "The view (0)");
    command->add_option("--corners", options->corners, "Points to follow, \"x y; x y; x y; x y\"");
    command->add_option(
        "--size", options->size,
        "Frame size, WIDTHxHEIGHT: points and homographies are in pixels of it. Without it, in pixels of the "
        "layer's clip; without such a clip, in project coordinates: origin at the frame's centre, its "
        "width the unit, y down");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return track(*options); }; });
}

} // namespace Tool
