#include "project/LayerWarp.h"
#include "project/NumberText.h"
#include "vxproject/LensQuestion.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    LensQuestion question;
    double frame = 0.0;
    std::string points;
    bool json = false;
};

/// Carries a pixel through a lens, one way or the other.
typedef std::optional<Gan_Vector2> (*Carry)(Gan_Camera const & camera, Gan_Vector2 const & pixel);

ExitCode carryPoints(Options const & options, Carry carry) {
    std::vector<Gan_Vector2> const points = pointsOf("--points", options.points);
    AskedLens asked(options.question);
    if (!asked.isThere())
        return asked.code();

    std::optional<Gan_Camera> const camera = asked.cameraAt(options.frame);
    Table table(formOf(options.json), {QStringLiteral("x"), QStringLiteral("y")});
    for (Gan_Vector2 const & point : camera ? points : std::vector<Gan_Vector2>()) {
        std::optional<Gan_Vector2> const image = carry(*camera, point);
        Gan_Vector2 const place = image.value_or(Gan_Vector2{0.0, 0.0});
        table.row({fieldIf(image.has_value(), place.x), fieldIf(image.has_value(), place.y)});
        if (!image)
            asked.complain(QStringLiteral("takes %1 %2 nowhere: it lies beyond what the lens can show")
                               .arg(vxproject::shortestText(point.x), vxproject::shortestText(point.y)));
    }
    table.finish();
    return asked.code();
}

void addCommand(CLI::App & app, Run & chosen, char const * name, char const * description, Carry carry) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand(name, description);
    command->footer(std::string("\nPixels count from the frame's corner, y down: the centre of the first one is 0.5 "
                                "0.5. A row for each point,\n\"none\" for one beyond what the lens can show, and then "
                                "exit code 1.\n\nExample:\n  vxproject ") +
                    name + " shot.vxp --lens 1 --frame 1 --points \"0 0; 1920 0\"");
    options->question.addTo(*command);
    command->add_option("--frame", options->frame, "The frame")->required();
    command->add_option("--points", options->points, "Points in pixels, \"x y; x y; ...\"")->required();
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, carry, &chosen] { chosen = [=] { return carryPoints(*options, carry); }; });
}

} // namespace

void addDistort(CLI::App & app, Run & chosen) {
    addCommand(app, chosen, "distort", "Print where a lens shows points of an undistorted picture",
               &vxproject::distorted);
}

void addUndistort(CLI::App & app, Run & chosen) {
    addCommand(app, chosen, "undistort", "Print where a lens's points lie in an undistorted picture",
               &vxproject::undistorted);
}

} // namespace Tool
