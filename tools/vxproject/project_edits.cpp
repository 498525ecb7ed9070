#include "vxproject/Arguments.h"
#include "vxproject/Editing.h"

namespace Tool {

namespace {

struct RescaleOptions {
    EditOptions edit;
    std::string from;
    std::string to;
};

struct ClipOptions {
    EditOptions edit;
    long long oldClip = 0;
    long long newClip = 0;
};

ExitCode rescale(RescaleOptions const & options) {
    std::optional<vxproject::FrameSize> const from = sizeOf("--from", options.from);
    std::optional<vxproject::FrameSize> const to = sizeOf("--to", options.to);
    if (!from || !to)
        throw UsageError("rescale: --from and --to are frame sizes, such as 1920x1080");
    return carryOut(options.edit, [&](Editing & editing, Tov::CompositeCommand & commands) {
        vxproject::pushRescale(editing.project(), *from, *to, commands);
    });
}

ExitCode replaceClip(ClipOptions const & options) {
    quint32 const oldClip = idOf("OLD", options.oldClip);
    quint32 const newClip = idOf("NEW", options.newClip);
    return carryOut(options.edit, [&](Editing & editing, Tov::CompositeCommand & commands) {
        vxproject::pushReplaceClip(editing.project(), oldClip, newClip, commands);
    });
}

ExitCode removeClip(ClipOptions const & options) {
    quint32 const clip = idOf("OLD", options.oldClip);
    return carryOut(options.edit, [&](Editing & editing, Tov::CompositeCommand & commands) {
        vxproject::pushRemoveClip(editing.project(), clip, commands);
    });
}

} // namespace

void addRescale(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<RescaleOptions>();
    CLI::App * const command = app.add_subcommand("rescale", "Move a project to another frame size");
    command->footer("\nClips' frames and crops are multiplied and rounded to whole pixels, and what the sets hold in "
                    "pixels by each set's\nown rule, cut and held within limits. Tracks stay: their unit is the frame."
                    "\n\nExample:\n  vxproject rescale shot.vxp --from 1920x1080 --to 3840x2160 -o uhd.vxp");
    options->edit.addTo(*command);
    command->add_option("--from", options->from, "The size that the project is made for, WIDTHxHEIGHT")->required();
    command->add_option("--to", options->to, "The size that it is to have")->required();
    command->callback([options, &chosen] { chosen = [options] { return rescale(*options); }; });
}

void addReplaceClip(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<ClipOptions>();
    CLI::App * const command = app.add_subcommand("replace-clip", "Let references to a clip go to another");
    command->footer("\nSome references follow, such as a layer's input; others are only forgotten, such as clips that "
                    "a module has made\nfrom the old one. Both clips stay in the project. What changed is said.\n\n"
                    "Example:\n  vxproject replace-clip shot.vxp 1 2 --in-place");
    options->edit.addTo(*command);
    command->add_option("OLD", options->oldClip, "The id of the clip that is replaced")->required();
    command->add_option("NEW", options->newClip, "The id of the clip in its place")->required();
    command->callback([options, &chosen] { chosen = [options] { return replaceClip(*options); }; });
}

void addRemoveClip(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<ClipOptions>();
    CLI::App * const command = app.add_subcommand("remove-clip", "Take a clip out of a project");
    command->footer("\nReferences to it are cleared, and its lines go. What changed is said.\n\n"
                    "Example:\n  vxproject remove-clip shot.vxp 1 --dry-run");
    options->edit.addTo(*command);
    command->add_option("OLD", options->oldClip, "The clip's id")->required();
    command->callback([options, &chosen] { chosen = [options] { return removeClip(*options); }; });
}

} // namespace Tool
