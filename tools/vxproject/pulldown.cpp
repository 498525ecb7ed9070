#include "clip/Pulldown.h"

#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

#include <limits>

namespace Tool {

namespace {

struct Options {
    int mode = 0;
    std::string frames;
    std::string files;
    bool json = false;
};

Field numberOrNone(unsigned int number) {
    return fieldIf(number != VX::NO_FILE, qint64(number));
}

ExitCode pulldown(Options const & options) {
    constexpr double MOST = std::numeric_limits<unsigned int>::max();
    if (options.frames.empty() == options.files.empty())
        throw UsageError("pulldown: one of --frames and --files is asked for");
    if (options.mode < 0)
        throw UsageError("--mode " + std::to_string(options.mode) + ": interlace modes are 0 to 13");
    bool const asksForFiles = !options.frames.empty();
    vxproject::FrameList const numbers = asksForFiles ? wholeFramesOf("--frames", options.frames, 0.0, MOST)
                                                      : wholeFramesOf("--files", options.files, 0.0, MOST);
    auto const mode = static_cast<VX_INTERLACE_MODE>(options.mode);
    ExitCode code = EXIT_DONE;
    if (VX::pulldownFileFromFrame(0, mode) == VX::NO_FILE) { // Every mode has a file for the first frame.
        complain(
            QStringLiteral("mode %1 is none of the interlace modes 0 to 13, so no frame has a file").arg(options.mode));
        code = EXIT_FINDINGS;
    }

    Table table(formOf(options.json), asksForFiles ? QStringList{QStringLiteral("frame"), QStringLiteral("file")}
                                                   : QStringList{QStringLiteral("files"), QStringLiteral("frames")});
    numbers.forEach([&](double number) {
        auto const count = static_cast<unsigned int>(number);
        table.row({qint64(count), numberOrNone(asksForFiles ? VX::pulldownFileFromFrame(count, mode)
                                                            : VX::frameCountFromFileCount(mode, count))});
    });
    table.finish();
    return code;
}

constexpr char FOOTER[] =
    "\nFrames and files count from 0. Modes:\n"
    "   0      one frame a file\n"
    "   1, 2   interlaced, upper or lower field first: two frames a file. Only the even one has a file of its own\n"
    "   3- 7   3:2 pulldown, four frames in five files, upper field first: the five phases of the cadence\n"
    "   8-12   the same with the lower field first\n"
    "  13      fields of no order, one frame a file\n"
    "\"none\" (null in JSON) stands for 4294967295: no file of its own, or fewer than no frames (phases 3 and 4 at\n"
    "0 files). All counting is unsigned, of 32 bits, and wraps.\n"
    "\nExamples:\n"
    "  vxproject pulldown --mode 4 --frames 0-7\n"
    "  vxproject pulldown --mode 3 --files 240";

} // namespace

void addPulldown(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command =
        app.add_subcommand("pulldown", "Print which file holds a frame, or how many frames files hold");
    command->footer(FOOTER);
    command->add_option("--mode", options->mode, "The interlace mode, 0 to 13")->required();
    command->add_option("--frames", options->frames, "The files of these frames, such as 7, 0-100, 0-100x2");
    command->add_option("--files", options->files, "The frames in so many files");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return pulldown(*options); }; });
}

} // namespace Tool
