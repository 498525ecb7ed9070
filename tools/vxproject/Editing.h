#pragma once

#include "project/ProjectEdits.h"
#include "vxproject/Command.h"

namespace Tool {

/// What every command that changes a project asks for.
struct EditOptions {
    std::string file;
    std::string output;
    bool inPlace = false;
    bool dryRun = false;

    void addTo(CLI::App & command);
};

/// Reads a project, changes it by undoable commands, and writes it or shows the difference.
class Editing {
public:
    /// UsageError unless it is said where the result goes.
    explicit Editing(EditOptions const & options);

    vxproject::Project & project() { return *project_; }
    QString const & path() const { return path_; }

    /// The members whose path fits a pattern, with their paths. EditError if there are none.
    std::vector<std::pair<Kyn::BasicParameter *, QString>> members(QString const & pattern) const;

    /// Runs the commands, says what they changed, and puts the result where it goes. After an EditError the file is as
    /// it was.
    ExitCode finish(Tov::CompositeCommand & commands);

private:
    void tellChanges(std::map<QString, QString> const & before) const;

    EditOptions options_;
    QString path_;
    std::unique_ptr<vxproject::Project> project_;
    ExitCode code_;
};

/// Runs an edit. What makes no sense is said, and is EXIT_FINDINGS.
ExitCode carryOut(EditOptions const & options,
                  std::function<void(Editing & editing, Tov::CompositeCommand & commands)> const & edit);

} // namespace Tool
