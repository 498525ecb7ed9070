#include "vxproject/Command.h"
#include "vxproject/Output.h"

#include <cstdio>
#include <exception>

namespace {

constexpr char DESCRIPTION[] =
    "Looks into project files, changes them, puts measured tracks into them, and answers what\n"
    "footage and lenses are.";
constexpr char FOOTER[] = "\nA parameter's path is its path in the file, such as \"Layer[1].跟踪.Translation X\".\n"
                          "Exit code: 0 done; 1 findings, or a query without an answer; 2 bad usage, or a file that\n"
                          "cannot be read or written.";

int run(Tool::Run const & chosen) {
    try {
        Tool::ExitCode const code = chosen();
        Tool::flushOutput();
        return code;
    } catch (Tool::OutputError const & error) {
        if (!error.readerHasLeft())
            std::fprintf(stderr, "vxproject: %s\n", error.what());
    } catch (std::exception const & error) {
        std::fprintf(stderr, "vxproject: %s\n", error.what());
    }
    return Tool::EXIT_FAILED;
}

} // namespace

int main(int argc, char ** argv) {
    CLI::App app(DESCRIPTION, "vxproject");
    app.footer(FOOTER);
    app.require_subcommand(1);
    Tool::Run chosen;
    for (auto * add :
         {&Tool::addInfo,         &Tool::addCheck,       &Tool::addGet,        &Tool::addTrack, &Tool::addImportTrack,
          &Tool::addCompareTrack, &Tool::addFormat,      &Tool::addFiles,      &Tool::addFilm,  &Tool::addPulldown,
          &Tool::addTimecode,     &Tool::addLut,         &Tool::addWarp,       &Tool::addLens,  &Tool::addUndistort,
          &Tool::addDistort,      &Tool::addStMap,       &Tool::addScene,      &Tool::addSet,   &Tool::addKey,
          &Tool::addRescale,      &Tool::addReplaceClip, &Tool::addRemoveClip, &Tool::addSchema})
        add(app, chosen);
    try {
        app.parse(argc, argv);
    } catch (CLI::ParseError const & error) {
        return app.exit(error) == 0 ? Tool::EXIT_DONE : Tool::EXIT_FAILED;
    }
    return run(chosen);
}
