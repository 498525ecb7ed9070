#include "clip/ColourspaceParameters.h"

#include "project/NumberText.h"
#include "project/TextFile.h"
#include "vxproject/Arguments.h"
#include "vxproject/LutFile.h"
#include "vxproject/Output.h"

#include <algorithm>
#include <cmath>

namespace Tool {

namespace {

struct Options {
    std::string file;
    long long clip = 0;
    std::string colourspace = "0";
    VX::ColourspaceParameters settings;
    bool hasSettings = false;
    std::string table;
    std::string output;
    bool json = false;
};

// The tables

typedef std::function<void(vxproject::ParameterValue const &)> Visit;

vxproject::ParameterValue fieldOf(float entry) {
    return entry;
}

vxproject::ParameterValue fieldOf(unsigned short entry) {
    return qint64(entry);
}

vxproject::ParameterValue fieldOf(unsigned char entry) {
    return qint64(entry);
}

template <auto accessor>
void forEachEntry(VX::ColourspaceParameters const & settings, Visit const & visit) {
    for (auto const entry : (settings.*accessor)())
        visit(fieldOf(entry));
}

struct NamedTable {
    char const * name;
    void (*forEachEntry)(VX::ColourspaceParameters const & settings, Visit const & visit);
    int top; ///< What stands for 1; 0 for a table whose index is no number.
};

typedef VX::ColourspaceParameters Colours;

constexpr NamedTable tables[] = {
    {"halfToLinear32", &forEachEntry<&Colours::halfToLinear32LUT>, 0},
    {"clip16ToLinear16", &forEachEntry<&Colours::clip16ToLinear16LUT>, 65535},
    {"linear16ToClip16", &forEachEntry<&Colours::linear16ToClip16LUT>, 65535},
    {"clip8ToLinear16", &forEachEntry<&Colours::clip8ToLinear16LUT>, 65535},
    {"linear16ToClip8", &forEachEntry<&Colours::linear16ToClip8LUT>, 255},
};

NamedTable const & tableOf(std::string const & name) {
    std::string names;
    for (NamedTable const & table : tables) {
        if (name == table.name)
            return table;
        names += std::string(names.empty() ? "" : ", ") + table.name;
    }
    throw UsageError("--table '" + name + "': the tables are " + names);
}

// The settings

struct NamedColourspace {
    char const * name;
    VX_COLORSPACE colourspace;
};

constexpr NamedColourspace colourspaces[] = {
    {"power-law", VX_COLORSPACE_POWER_LAW},
    {"film-log", VX_COLORSPACE_FILM_LOG},
    {"fixed-log", VX_COLORSPACE_FIXED_LOG},
};

VX_COLORSPACE colourspaceOf(std::string const & text) {
    for (NamedColourspace const & named : colourspaces)
        if (text == named.name)
            return named.colourspace;
    bool isNumber = false;
    unsigned int const number = textOf(text).toUInt(&isNumber);
    if (!isNumber)
        throw UsageError("--colourspace '" + text + "': 0 or power-law, 1 or film-log, 2 or fixed-log");
    return static_cast<VX_COLORSPACE>(number);
}

void doubtFilmLog(Colours const & settings, QList<vxproject::Finding> & found) {
    for (float const number : {settings.offset, settings.referenceWhite, settings.referenceBlack, settings.softClip})
        if (!std::isfinite(number)) {
            found.append({0, QStringLiteral("offset, white, black and soft clip are numbers; the table has no sense")});
            return;
        }
    if (settings.referenceBlack + 1.0f > settings.referenceWhite)
        found.append({0, QStringLiteral("black, %1, is not below white, %2; white - 1 is taken for it")
                             .arg(vxproject::shortestText(settings.referenceBlack),
                                  vxproject::shortestText(settings.referenceWhite))});
    for (float const code : {settings.referenceWhite, settings.referenceBlack})
        if (code < 0.0f || code > 1024.0f)
            found.append({0, QStringLiteral("%1 is no code; white and black are held to 0 through 1024")
                                 .arg(vxproject::shortestText(code))});
}

/// Settings that give tables without sense, or other ones than they look like.
QList<vxproject::Finding> doubtsOf(Colours const & settings, NamedTable const & table) {
    QList<vxproject::Finding> found;
    bool const isHalf = table.top == 0; // Made by gamma alone.
    if (settings.colourspace > VX_COLORSPACE_FIXED_LOG && !isHalf)
        found.append({0, QStringLiteral("colourspace %1 is none of 0 to 2; all entries are 0")
                             .arg(static_cast<unsigned int>(settings.colourspace))});
    bool const usesGamma = isHalf || settings.colourspace <= VX_COLORSPACE_FILM_LOG;
    if (usesGamma && !(settings.gamma > 0.0f && std::isfinite(settings.gamma)))
        found.append({0, QStringLiteral("gamma %1 is no number above 0; the table has no sense")
                             .arg(vxproject::shortestText(settings.gamma))});
    if (settings.colourspace == VX_COLORSPACE_FILM_LOG && !isHalf)
        doubtFilmLog(settings, found);
    return found;
}

// The command

void printTable(Colours const & settings, NamedTable const & table, Form form) {
    Table out(form, {QStringLiteral("index"), QStringLiteral("value")});
    qint64 index = 0;
    table.forEachEntry(settings, [&](vxproject::ParameterValue const & entry) { out.row({index++, entry}); });
    out.finish();
}

void writeTable(Colours const & settings, NamedTable const & table, LutFormat format, QString const & path) {
    std::vector<double> entries;
    table.forEachEntry(settings, [&](vxproject::ParameterValue const & entry) {
        entries.push_back(static_cast<double>(std::get<qint64>(entry)) / table.top);
    });
    vxproject::replaceFile(path, lutText(format, entries, QString::fromLatin1(table.name)));
    print(path + QStringLiteral(": %1 entries").arg(entries.size()));
}

ExitCode answer(Colours const & settings, QString const & where, Options const & options) {
    NamedTable const & table = tableOf(options.table);
    ExitCode const code = complainOf(doubtsOf(settings, table), where);
    if (options.output.empty())
        printTable(settings, table, formOf(options.json));
    else
        writeTable(settings, table, lutFormatOf(textOf(options.output)), textOf(options.output));
    return code;
}

void checkUsage(Options const & options) {
    if (!options.file.empty() && options.hasSettings)
        throw UsageError("lut: the settings are those of FILE's clip, or those on the command line, not both");
    NamedTable const & table = tableOf(options.table);
    if (options.output.empty())
        return;
    lutFormatOf(textOf(options.output));
    if (table.top == 0)
        throw UsageError("-o: the entries of halfToLinear32 go by the bits of a half, which neither .spi1d nor .cube "
                         "can say; print it without -o");
}

ExitCode lut(Options const & options) {
    checkUsage(options);
    if (options.file.empty()) {
        Colours settings = options.settings;
        settings.colourspace = colourspaceOf(options.colourspace);
        return answer(settings, QStringLiteral("lut"), options);
    }
    quint32 const id = idOf("--clip", options.clip);
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    ExitCode const code = complainOf(project->findings(), path);
    vxproject::Clip const * const clip = findClip(*project, id, path);
    if (!clip)
        return EXIT_FINDINGS;
    return std::max(code, answer(clip->source.colourspace, path + QStringLiteral(": clip %1").arg(id), options));
}

constexpr char FOOTER[] =
    "\nTables (index to value):\n"
    "  halfToLinear32    bits of a half to float, 65536 entries, by gamma alone\n"
    "  clip16ToLinear16  code of 16 bits to linear light of 16 bits, 65536 entries\n"
    "  linear16ToClip16  and back, 65536 entries\n"
    "  clip8ToLinear16   code of 8 bits to linear light of 16 bits, 256 entries\n"
    "  linear16ToClip8   and back, 65536 entries\n"
    "Linear light of 65535 is 1.0, and 6.0 in the fixed log. Codes of white, black, offset and soft clip are on the\n"
    "scale of 1024 whatever the depth, and matter to the film log alone.\n"
    "With -o, index and value both run from 0 to 1. The file formats take every table but halfToLinear32, whose index\n"
    "is no number.\n"
    "Exit code 1 for settings without sense (gamma 0, white below black): the table is given nevertheless.\n"
    "\nExamples:\n"
    "  vxproject lut --colourspace film-log --gamma 0.6 --white 685 --black 95 --table clip16ToLinear16\n"
    "  vxproject lut --gamma 2.2 --table linear16ToClip8 -o display.cube\n"
    "  vxproject lut shot.vxp --clip 1 --table clip16ToLinear16 -o plate.spi1d";

} // namespace

void addLut(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("lut", "Print a table between a clip's codes and linear light");
    command->footer(FOOTER);
    CLI::Option * const file = command->add_option("FILE", options->file, "The project file, for a clip's settings");
    CLI::Option * const clip = command->add_option("--clip", options->clip, "The clip's id")->needs(file);
    file->needs(clip);
    Colours & settings = options->settings;
    std::vector<CLI::Option const *> given = {command->add_option("--colourspace", options->colourspace,
                                                                  "0 or power-law, 1 or film-log, 2 or fixed-log (0)")};
    auto const addNumber = [&](char const * name, float & number, char const * help) {
        given.push_back(command->add_option(name, number, help));
    };
    addNumber("--gamma", settings.gamma, "Of the power law, light = code^(1 / gamma), or of the film (1)");
    addNumber("--white", settings.referenceWhite, "The code of full light (685)");
    addNumber("--black", settings.referenceBlack, "The code of no light (95)");
    addNumber("--offset", settings.offset, "Codes added to the index (0)");
    addNumber("--soft-clip", settings.softClip, "Codes below white from which highlights roll off (0)");
    command->add_option("--table", options->table, "The table, see below")->required();
    CLI::Option * const output =
        command->add_option("-o,--output", options->output, "A file to write, .spi1d or .cube, which is replaced");
    command->add_flag("--json", options->json, "Write JSON")->excludes(output);
    command->callback([options, given, &chosen] {
        options->hasSettings =
            std::any_of(given.begin(), given.end(), [](CLI::Option const * option) { return option->count() > 0; });
        chosen = [options] { return lut(*options); };
    });
}

} // namespace Tool
