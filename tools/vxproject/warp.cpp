#include "project/LayerWarp.h"
#include "project/NumberText.h"
#include "vxproject/LayerQuestion.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    LayerQuestion question;
    std::string frames;
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
    std::vector<Gan_Vector2> const points = pointsOf("--points", options.points);
    AskedLayer asked(options.question);
    if (!asked.isThere())
        return asked.code();
    if (!asked.size() && !asked.clipSize()) {
        asked.complain(QStringLiteral("has no input clip with a frame size; give one with --size"));
        return asked.code();
    }

    Table table(formOf(options.json), pointColumns(points.size()));
    frames.forEach([&](double frame) {
        std::optional<vxproject::LayerWarp> const found =
            vxproject::LayerWarp::at(asked.project(), asked.layer(), asked.contextAt(frame), asked.size());
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
        asked.complainOfFrame(frame, why);
    });
    table.finish();
    return asked.code();
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
    options->question.addTo(*command, ", for a layer without a clip or a lens");
    addFrames(*command, options->frames);
    command->add_option("--points", options->points, "Points in pixels, \"x y; x y; ...\"")->required();
    command->add_flag("--inverse", options->inverse, "Back to where the points come from");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return warp(*options); }; });
}

} // namespace Tool
