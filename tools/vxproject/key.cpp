#include "vxproject/Arguments.h"
#include "vxproject/Editing.h"

namespace Tool {

namespace {

using vxproject::KeyEdit;

struct Options {
    EditOptions edit;
    std::string path;
    std::string frames;
    bool add = false;
    bool remove = false;
    bool clear = false;
    std::optional<double> moveTo;
    std::string type;
    int view = 0;
};

std::optional<Kyn::Interpolation> typeOf(std::string const & word) {
    if (word == "constant")
        return Kyn::INTERPOLATION_CONSTANT;
    if (word == "linear")
        return Kyn::INTERPOLATION_LINEAR;
    if (word == "bezier")
        return Kyn::INTERPOLATION_BEZIER;
    return std::nullopt;
}

KeyEdit::Kind kindOf(Options const & options) {
    if (options.add)
        return KeyEdit::Kind::Add;
    if (options.remove)
        return KeyEdit::Kind::Delete;
    if (options.moveTo)
        return KeyEdit::Kind::Move;
    return options.clear ? KeyEdit::Kind::Clear : KeyEdit::Kind::SetType;
}

std::vector<double> framesOfEdit(Options const & options, KeyEdit::Kind kind) {
    if (kind == KeyEdit::Kind::Clear)
        return {0.0};
    if (options.frames.empty())
        throw UsageError("key: --frames says at which");
    std::vector<double> frames;
    framesOf(options.frames).forEach([&](double frame) { frames.push_back(frame); });
    if (kind == KeyEdit::Kind::Move && frames.size() != 1)
        throw UsageError("--move: one key is moved at a time");
    return frames;
}

ExitCode key(Options const & options) {
    int const edits = int(options.add) + int(options.remove) + int(options.clear) + int(options.moveTo.has_value());
    if (edits > 1 || (edits == 0 && options.type.empty()))
        throw UsageError("key: one of --add, --delete, --move, --clear and --type is asked for");
    KeyEdit edit{kindOf(options), 0.0, options.moveTo.value_or(0.0), viewOf(options.view), typeOf(options.type)};
    std::vector<double> const frames = framesOfEdit(options, edit.kind);
    return carryOut(options.edit, [&](Editing & editing, Tov::CompositeCommand & commands) {
        for (auto const & [member, path] : editing.members(textOf(options.path)))
            for (double const frame : frames) {
                edit.frame = frame;
                vxproject::pushKeyEdit(*member, path, edit, commands);
            }
    });
}

constexpr char FOOTER[] =
    "\nA key that is added has the value in force there. --type gives the keys of --frames a type, also along with\n"
    "--add and --move. Nothing is changed unless every key can be: one that is not there, or that stands there\n"
    "already, is said, and the exit code is 1.\n"
    "\nExamples:\n"
    "  vxproject key shot.vxp \"Layer[1].跟踪.Scale\" --add --frames 1-100x10 --type bezier --in-place\n"
    "  vxproject key shot.vxp \"Layer[1].跟踪.Scale\" --move 12.5 --frames 10 --dry-run\n"
    "  vxproject key shot.vxp \"Layer[1].跟踪.*\" --clear -o cleared.vxp";

} // namespace

void addKey(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("key", "Edit the keys of a parameter");
    command->footer(FOOTER);
    options->edit.addTo(*command);
    command->add_option("PATH", options->path, "A parameter's path; each * stands for any text")->required();
    command->add_option("--frames", options->frames, "Where: 7, 1-100, 1-100x2, or a list of these");
    command->add_flag("--add", options->add, "Make keys");
    command->add_flag("--delete", options->remove, "Take keys away");
    command->add_option("--move", options->moveTo, "Move the key of --frames to this frame");
    command->add_flag("--clear", options->clear, "Take all keys of the view away");
    command->add_option("--type", options->type, "constant, linear or bezier")
        ->check(CLI::IsMember({"constant", "linear", "bezier"}));
    command->add_option("--view", options->view, "The view (0)");
    command->callback([options, &chosen] { chosen = [options] { return key(*options); }; });
}

} // namespace Tool
