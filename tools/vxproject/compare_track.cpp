#include "project/NumberText.h"
#include "project/TrackComparison.h"
#include "vxproject/LayerQuestion.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    LayerQuestion question;
    std::string table;
    std::string corners;
    double limit = 0.0;
    bool limited = false;
    bool each = false;
    bool json = false;
};

void printSummary(vxproject::TrackComparison const & found, Form form) {
    Table table(form, {QStringLiteral("frames"), QStringLiteral("largest"), QStringLiteral("largest_frame"),
                       QStringLiteral("largest_point"), QStringLiteral("mean"), QStringLiteral("rms")});
    table.row({static_cast<qint64>(found.frames), found.largest.distance, found.largest.frame,
               static_cast<qint64>(found.largest.point + 1), found.mean, found.rootMeanSquare});
    table.finish();
}

void printEach(vxproject::TrackTable const & measured, vxproject::TrackComparison const & found, Form form) {
    Table table(form, {QStringLiteral("frame"), QStringLiteral("largest")});
    for (std::size_t i = 0; i < measured.rows.size(); ++i)
        table.row({measured.rows[i].frame, found.largestOfFrame[i]});
    table.finish();
}

ExitCode compareTrack(Options const & options) {
    std::vector<Gan_Vector2> const points = pointsOf("--corners", options.corners);
    QString const tablePath = textOf(options.table);
    AskedLayer asked(options.question);
    vxproject::TrackTable const measured = vxproject::TrackTable::read(tablePath);
    ExitCode code = std::max(asked.code(), complainOf(measured.findings, tablePath));
    if (!asked.isThere())
        return code;

    vxproject::TrackComparison const found =
        vxproject::compareTrack(asked.layer().tracking.track, asked.view(), measured, points, asked.size());
    if (found.frames < measured.rows.size()) {
        complain(asked.path() +
                 QStringLiteral(": %1 of %2 frames cannot be compared: no homography, or a point at infinity")
                     .arg(measured.rows.size() - found.frames)
                     .arg(measured.rows.size()));
        code = EXIT_FINDINGS;
    }
    if (options.each)
        printEach(measured, found, formOf(options.json));
    else if (found.frames > 0)
        printSummary(found, formOf(options.json));
    if (options.limited && found.largest.distance > options.limit) {
        complain(asked.path() +
                 QStringLiteral(": the largest distance, %1, is above %2")
                     .arg(vxproject::shortestText(found.largest.distance), vxproject::shortestText(options.limit)));
        code = EXIT_FINDINGS;
    }
    return code;
}

} // namespace

void addCompareTrack(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand(
        "compare-track", "Print how far a layer's track takes points from where a table of homographies takes them");
    options->question.addTo(*command, std::string(": table, points and distances in pixels. Without it, in ") +
                                          PROJECT_COORDINATES);
    command->add_option("CSV", options->table, "The table: frame,h11,...,h33")->required();
    command->add_option("--corners", options->corners, "The points, \"x y; x y; x y; x y\"")->required();
    CLI::Option * const limit =
        command->add_option("--limit", options->limit, "Exit with 1 if the largest distance is above this");
    command->add_flag("--each", options->each, "Print the largest distance of each frame");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, limit, &chosen] {
        options->limited = limit->count() > 0;
        chosen = [options] { return compareTrack(*options); };
    });
}

} // namespace Tool
