#include "project/Project.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    std::string file;
    bool json = false;
};

ExitCode check(Options const & options) {
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (vxproject::Finding const & finding : project->findings()) {
        if (options.json)
            list.push_back({{"line", finding.line}, {"what", finding.what.toStdString()}});
        else
            print(finding.toString(path));
    }
    if (options.json)
        print(nlohmann::ordered_json{{"file", options.file}, {"findings", list}});
    return project->findings().isEmpty() ? EXIT_DONE : EXIT_FINDINGS;
}

} // namespace

void addCheck(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand(
        "check", "List each line that is not understood, or means something else than it looks like");
    command->add_option("FILE", options->file, "The project file")->required();
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return check(*options); }; });
}

} // namespace Tool
