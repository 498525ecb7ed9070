#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <stdexcept>

/// The commands of vxproject. Each has a source file of its own, and there one function that puts it on the command
/// line.
namespace Tool {

/// The exit codes that scripts may rely on.
enum ExitCode : int {
    EXIT_DONE = 0,
    EXIT_FINDINGS = 1, ///< Something in a file is not as it should be, or a query had no answer.
    EXIT_FAILED = 2,   ///< Bad usage, or a file that cannot be read or written.
};

/// A request that makes no sense: the command line is at fault.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Runs the command that was chosen. FileError, UsageError and OutputError may come out.
typedef std::function<ExitCode()> Run;

void addInfo(CLI::App & app, Run & chosen);
void addCheck(CLI::App & app, Run & chosen);
void addGet(CLI::App & app, Run & chosen);
void addTrack(CLI::App & app, Run & chosen);
void addImportTrack(CLI::App & app, Run & chosen);
void addCompareTrack(CLI::App & app, Run & chosen);
void addFormat(CLI::App & app, Run & chosen);
void addFiles(CLI::App & app, Run & chosen);
void addFilm(CLI::App & app, Run & chosen);
void addPulldown(CLI::App & app, Run & chosen);
void addTimecode(CLI::App & app, Run & chosen);
void addLut(CLI::App & app, Run & chosen);
void addWarp(CLI::App & app, Run & chosen);
void addLens(CLI::App & app, Run & chosen);
void addDistort(CLI::App & app, Run & chosen);
void addUndistort(CLI::App & app, Run & chosen);
void addStMap(CLI::App & app, Run & chosen);
void addScene(CLI::App & app, Run & chosen);
void addSet(CLI::App & app, Run & chosen);
void addKey(CLI::App & app, Run & chosen);
void addRescale(CLI::App & app, Run & chosen);
void addReplaceClip(CLI::App & app, Run & chosen);
void addRemoveClip(CLI::App & app, Run & chosen);
void addSchema(CLI::App & app, Run & chosen);

} // namespace Tool
