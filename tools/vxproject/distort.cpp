#include "project/LayerWarp.h"
#include "project/NumberText.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    std::string file;
    long long lens = 0;
    std::optional<long long> clip;
    double frame = 0.0;
    int view = 0;
    std::string points;
    bool json = false;
};

/// Carries a pixel through a lens, one way or the other.
typedef std::optional<Gan_Vector2> (*Carry)(Gan_Camera const & camera, Gan_Vector2 const & pixel);

ExitCode carryPoints(Options const & options, Carry carry) {
    Kyn::View const view = viewOf(options.view);
    std::vector<Gan_Vector2> const points = pointsOf("--points", options.points);
    quint32 const id = idOf("--lens", options.lens);
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    ExitCode code = complainOf(project->findings(), path);
    LensOnClip const found = lensOnClip(*project, id, options.clip, path);
    if (!found.clip)
        return EXIT_FINDINGS;

    Kyn::Context const context(Kyn::Time(options.frame), view, Kyn::ProxyScale::FULL);
    Gan_Camera const camera = vxproject::cameraAt(*found.lens, context, found.clip->picture);
    Table table(formOf(options.json), {QStringLiteral("x"), QStringLiteral("y")});
    for (Gan_Vector2 const & point : points) {
        std::optional<Gan_Vector2> const image = carry(camera, point);
        table.row({image ? Field(image->x) : Field(), image ? Field(image->y) : Field()});
        if (image)
            continue;
        complain(path + QStringLiteral(": lens %1 takes %2 %3 nowhere: it lies beyond what the lens can show")
                            .arg(id)
                            .arg(vxproject::shortestText(point.x), vxproject::shortestText(point.y)));
        code = EXIT_FINDINGS;
    }
    table.finish();
    return code;
}

void addCommand(CLI::App & app, Run & chosen, char const * name, char const * description, Carry carry) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand(name, description);
    command->footer(std::string("\nPixels count from the frame's corner, y down: the centre of the first one is 0.5 "
                                "0.5. A row for each point,\n\"none\" for one beyond what the lens can show, and then "
                                "exit code 1.\n\nExample:\n  vxproject ") +
                    name + " shot.vxp --lens 1 --frame 1 --points \"0 0; 1920 0\"");
    command->add_option("FILE", options->file, "The project file")->required();
    command->add_option("--lens", options->lens, "The lens's id")->required();
    command->add_option("--clip", options->clip,
                        "The id of the clip whose pictures it shows. Without it, the lens's own");
    command->add_option("--frame", options->frame, "The frame")->required();
    command->add_option("--points", options->points, "Points in pixels, \"x y; x y; ...\"")->required();
    command->add_option("--view", options->view, "The view (0)");
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
