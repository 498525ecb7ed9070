#include "project/Project.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    std::string file;
    std::string output;
};

ExitCode format(Options const & options) {
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    ExitCode code = complainOf(project->findings(), path);
    for (QString const & loss : project->lossesOfWriting()) {
        complain(path + QStringLiteral(": ") + loss);
        code = EXIT_FINDINGS;
    }
    if (options.output.empty())
        print(project->toText());
    else
        project->save(textOf(options.output));
    return code;
}

} // namespace

void addFormat(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("format", "Write a project in canonical order");
    command->add_option("FILE", options->file, "The project file")->required();
    command->add_option("-o,--output", options->output, "Where to; FILE itself will do. Without it, standard output");
    command->callback([options, &chosen] { chosen = [options] { return format(*options); }; });
}

} // namespace Tool
