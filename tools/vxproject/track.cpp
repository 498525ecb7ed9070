#include "project/TrackComparison.h"
#include "vxproject/LayerQuestion.h"
#include "vxproject/Output.h"

#include "geometry/gandalf/MatrixElements.h"

namespace Tool {

namespace {

struct Options {
    LayerQuestion question;
    std::string frames;
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
    std::vector<Gan_Vector2> const points =
        options.corners.empty() ? std::vector<Gan_Vector2>() : pointsOf("--corners", options.corners);
    AskedLayer asked(options.question);
    if (!asked.isThere())
        return asked.code();
    std::optional<vxproject::FrameSize> const size = asked.size() ? asked.size() : asked.clipSize();

    Table table(formOf(options.json), points.empty() ? matrixColumns() : pointColumns(points.size()));
    frames.forEach([&](double frame) {
        std::optional<Gan_Matrix33> const homography =
            homographyAt(asked.layer().tracking.track, asked.contextAt(frame), size);
        Fields fields{frame};
        bool const answered = homography && addPoints(fields, *homography, points);
        if (!answered) {
            asked.complainOfFrame(frame, homography ? QStringLiteral("a point goes to infinity")
                                                    : QStringLiteral("its values make no homography"));
            return;
        }
        if (points.empty())
            addMatrix(fields, *homography);
        table.row(fields);
    });
    table.finish();
    return asked.code();
}

} // namespace

void addTrack(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command =
        app.add_subcommand("track", "Print a layer's homographies at frames, or where they take points");
    options->question.addTo(*command,
                            std::string(": points and homographies are in pixels of it. Without it, in pixels of the "
                                        "layer's clip; without such a clip, in ") +
                                PROJECT_COORDINATES);
    addFrames(*command, options->frames);
    command->add_option("--corners", options->corners, "Points to follow, \"x y; x y; x y; x y\"");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return track(*options); }; });
}

} // namespace Tool
