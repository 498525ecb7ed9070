#include "vxproject/Arguments.h"
#include "vxproject/Editing.h"

namespace Tool {

namespace {

struct Options {
    EditOptions edit;
    std::string path;
    std::string value;
    std::optional<double> frame;
    int view = 0;
    bool display = false;
};

ExitCode set(Options const & options) {
    vxproject::When const when{options.frame, viewOf(options.view)};
    vxproject::Unit const unit = options.display ? vxproject::Unit::Display : vxproject::Unit::Stored;
    return carryOut(options.edit, [&](Editing & editing, Tov::CompositeCommand & commands) {
        for (auto const & [member, path] : editing.members(textOf(options.path)))
            vxproject::pushValue(*member, path, textOf(options.value), when, unit, commands);
    });
}

constexpr char FOOTER[] =
    "\nWith --frame, a key is made or changed there. Without it, the value that holds without keys is written; a\n"
    "parameter that has keys wants a frame. A number beyond the limits is held within them. What was changed is said\n"
    "on standard error, as PATH: OLD -> NEW. Text that is no value changes nothing; the exit code is then 1.\n"
    "\nExamples:\n"
    "  vxproject set shot.vxp \"Layer[1].Name\" \"screen left\" --in-place\n"
    "  vxproject set shot.vxp \"Lens[1].Camera.RadialK1\" -0.12 --frame 10 --dry-run";

} // namespace

void addSet(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("set", "Write a value into a project");
    command->footer(FOOTER);
    options->edit.addTo(*command);
    command->add_option("PATH", options->path, "A parameter's path; each * stands for any text")->required();
    command->add_option("VALUE", options->value, "Text as it stands, without quotes")->required();
    command->add_option("--frame", options->frame, "The frame of the key");
    command->add_option("--view", options->view, "The view (0)");
    command->add_flag("--display", options->display, "The value is as a user is shown it");
    command->callback([options, &chosen] { chosen = [options] { return set(*options); }; });
}

} // namespace Tool
