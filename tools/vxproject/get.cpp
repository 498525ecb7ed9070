#include "project/Project.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

struct Options {
    std::string file;
    std::string path;
    std::string frames;
    int view = 0;
    bool display = false;
    bool json = false;
};

ExitCode get(Options const & options) {
    vxproject::FrameList const frames = framesOf(options.frames);
    Kyn::View const view = viewOf(options.view);
    QString const file = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(file);
    ExitCode const code = complainOf(project->findings(), file);

    QStringList columns{QStringLiteral("frame")};
    std::vector<Kyn::BasicParameter *> parameters;
    project->forEachMember([&](Kyn::BasicParameter & parameter, QString const & path) {
        if (!vxproject::matchesPattern(path, textOf(options.path)))
            return;
        columns.append(path);
        parameters.push_back(&parameter);
    });
    if (parameters.empty()) {
        complain(file + QStringLiteral(": no parameter has the path ") + vxproject::quoted(textOf(options.path)));
        return EXIT_FINDINGS;
    }

    vxproject::Unit const unit = options.display ? vxproject::Unit::Display : vxproject::Unit::Stored;
    Table table(formOf(options.json), columns);
    frames.forEach([&](double frame) {
        Kyn::Context const context(Kyn::Time(frame), view, Kyn::ProxyScale::FULL);
        Fields fields{frame};
        for (Kyn::BasicParameter const * parameter : parameters)
            fields.push_back(vxproject::valueOf(*parameter, context, unit));
        table.row(fields);
    });
    table.finish();
    return code;
}

} // namespace

void addGet(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("get", "Print parameters' values at frames");
    command->add_option("FILE", options->file, "The project file")->required();
    command->add_option("PATH", options->path, "A parameter's path; each * stands for any text")->required();
    addFrames(*command, options->frames);
    command->add_option("--view", options->view, "The view (0)");
    command->add_flag("--display", options->display, "Values as a user is shown them");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return get(*options); }; });
}

} // namespace Tool
