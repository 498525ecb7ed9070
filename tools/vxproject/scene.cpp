#include "project/Scene.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

#include <boost/make_shared.hpp>

namespace Tool {

namespace {

struct Options {
    std::string file;
    std::string frames;
    std::string eye;
    bool json = false;
};

/// The camera that is asked for: an eye of the rig, or the rig itself.
boost::shared_ptr<VX_Camera3DParameterSet> cameraOf(vxproject::Scene const & scene, std::string const & eye) {
    constexpr int LEFT = 0;
    constexpr int RIGHT = 1;
    if (!eye.empty())
        return scene.rig.buildViewCamera(Kyn::View(eye == "left" ? LEFT : RIGHT));
    auto const rig = boost::make_shared<VX_Camera3DParameterSet>();
    *rig = scene.rig;
    return rig;
}

void addTriple(Fields & fields, VX_XYZParameterSet const & set, Kyn::Context const & context) {
    Gan_Vector3 const value = set.value(context);
    for (double const number : {value.x, value.y, value.z})
        fields.push_back(number);
}

void addPlace(Fields & fields, VX_NullObject3DParameterSet const & object, Kyn::Context const & context) {
    for (VX_XYZParameterSet const * set : {&object.position, &object.rotation, &object.scale})
        addTriple(fields, *set, context);
}

ExitCode scene(Options const & options) {
    vxproject::FrameList const frames = framesOf(options.frames);
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    ExitCode const code = complainOf(project->findings(), path);
    vxproject::Scene const * const scene = project->findScene();
    if (!scene) {
        complain(path + QStringLiteral(": the project has no scene"));
        return EXIT_FINDINGS;
    }

    boost::shared_ptr<VX_Camera3DParameterSet> const camera = cameraOf(*scene, options.eye);
    QStringList columns;
    for (char const * column :
         {"frame", "object", "id", "name", "x", "y", "z", "rx", "ry", "rz", "sx", "sy", "sz", "focal"})
        columns.append(QString::fromLatin1(column));
    Table table(formOf(options.json), columns);
    frames.forEach([&](double frame) {
        Kyn::Context const context(Kyn::Time(frame), Kyn::View(), Kyn::ProxyScale::FULL);
        Fields fields{frame, QStringLiteral("camera"), Field(), textOf(options.eye)};
        addPlace(fields, *camera, context);
        fields.push_back(camera->focalLength.value(context));
        table.row(fields);
        for (auto const & [id, null] : scene->nulls()) {
            Fields row{frame, QStringLiteral("null"), qint64(id), null->name.staticValue(Kyn::View())};
            addPlace(row, *null, context);
            row.push_back(Field());
            table.row(row);
        }
    });
    table.finish();
    return code;
}

constexpr char FOOTER[] =
    "\nA row for the camera at each frame, and one for each null. Without --eye the camera is the stereo rig itself.\n"
    "x, y, z is the position, rx, ry, rz the rotation in degrees, sx, sy, sz the scale; focal is the focal length.\n"
    "An eye is shifted at the keys of the rig's position x and turned at those of its rotation x, and only there.\n"
    "\nExample:\n"
    "  vxproject scene shot.vxp --frames 1-100 --eye left";

} // namespace

void addScene(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("scene", "Print the cameras and nulls of a solved scene");
    command->footer(FOOTER);
    command->add_option("FILE", options->file, "The project file")->required();
    addFrames(*command, options->frames);
    command->add_option("--eye", options->eye, "left or right")->check(CLI::IsMember({"left", "right"}));
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return scene(*options); }; });
}

} // namespace Tool
