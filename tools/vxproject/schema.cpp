#include "project/Schema.h"
#include "vxproject/Command.h"
#include "vxproject/Output.h"

namespace Tool {

namespace {

ExitCode printSchema(bool json) {
    Table table(formOf(json), vxproject::schemaColumns());
    for (vxproject::SchemaRow const & row : vxproject::schema())
        table.row({row.set, row.name, row.display, row.type, row.defaultValue, row.minimum, row.maximum,
                   row.isAnimatable, row.isSplittable, row.isHidden, row.interpolation, row.extrapolation});
    table.finish();
    return EXIT_DONE;
}

} // namespace

void addSchema(CLI::App & app, Run & chosen) {
    auto const json = std::make_shared<bool>(false);
    CLI::App * const command = app.add_subcommand("schema", "Print every parameter of every set");
    command->footer(
        "\nOne row for each parameter, in the order in which its set registers it, which is that of a script. "
        "set is the class;\nmembers of a clip's records are plain fields, which take no keys and have no "
        "limits.\n\nExample:\n  vxproject schema | grep Clip");
    command->add_flag("--json", *json, "Write JSON");
    command->callback([json, &chosen] { chosen = [json] { return printSchema(*json); }; });
}

} // namespace Tool
