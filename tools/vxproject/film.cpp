#include "clip/FilmTypeFactory.h"
#include "clip/InterlaceMode.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

#include <cmath>

namespace Tool {

namespace {

struct Options {
    std::string size;
    std::string name;
    double pixelAspect = 0.0;
    bool byAspect = false;
    bool interlaced = false;
    bool list = false;
    bool json = false;
};

/// Why a film back is the answer.
char const * matchOf(VX::FilmType const & film, QSize const & frame, bool byAspect) {
    if (film.isCustom())
        return "custom";
    for (unsigned int i = 0; i < film.widths.size(); ++i)
        if (film.uiSize(i) == frame)
            return "exact";
    return byAspect ? "aspect" : "height";
}

void printFilm(Table & table, VX::FilmType const & film, char const * match) {
    table.row({film.name, film.filmBackWidth, film.filmBackHeight, film.getFilmBackAspectRatio(),
               QString::fromLatin1(match)});
}

void printNamed(Table & table, VX::FilmType const & film) {
    printFilm(table, film, film.isCustom() ? "custom" : "exact");
}

ExitCode printList(Table & table) {
    for (VX::FilmType const & film : VX_FilmTypeFactory::getInstance().get<VX_FilmTypeFactory::InSequence>())
        printNamed(table, film);
    return EXIT_DONE;
}

ExitCode printByName(Table & table, QString const & name) {
    VX::FilmType const film = VX_FilmTypeFactory::byName(name);
    if (!film.isValid()) {
        complain(QStringLiteral("no film back is named %1, letter case included; film --list has all names")
                     .arg(vxproject::quoted(name)));
        return EXIT_FINDINGS;
    }
    printNamed(table, film);
    return EXIT_DONE;
}

ExitCode printBySize(Table & table, Options const & options, QSize const & size) {
    VX::FilmType const film = options.byAspect
                                  ? VX_FilmTypeFactory::bestMatchForPAR(options.pixelAspect, size, options.interlaced)
                                  : VX_FilmTypeFactory::bestMatchForSize(size, options.interlaced);
    QSize const frame = options.interlaced ? VX::frameSizeOfField(size) : size;
    if (!film.isValid()) {
        complain(QStringLiteral("no film back is scanned at a height of %1 pixels; with --par there is a custom one")
                     .arg(frame.height()));
        return EXIT_FINDINGS;
    }
    printFilm(table, film, matchOf(film, frame, options.byAspect));
    return EXIT_DONE;
}

void checkUsage(Options const & options) {
    int const questions = int(!options.size.empty()) + int(!options.name.empty()) + int(options.list);
    if (questions != 1)
        throw UsageError("film: one of --size, --name and --list is asked for");
    if (options.byAspect && !(options.pixelAspect > 0.0 && std::isfinite(options.pixelAspect)))
        throw UsageError("--par: the width of a pixel over its height is a number above 0");
}

ExitCode film(Options const & options) {
    checkUsage(options);
    std::optional<vxproject::FrameSize> const size = sizeOf("--size", options.size);
    Table table(formOf(options.json), {QStringLiteral("name"), QStringLiteral("width"), QStringLiteral("height"),
                                       QStringLiteral("aspect"), QStringLiteral("match")});
    ExitCode const code = size           ? printBySize(table, options, QSize(size->width, size->height))
                          : options.list ? printList(table)
                                         : printByName(table, textOf(options.name));
    table.finish();
    return code;
}

constexpr char FOOTER[] =
    "\nwidth and height are the film back's, in millimetres; aspect is the one over the other. match says why:\n"
    "  exact   scanned at that very size, or of that very name\n"
    "  height  scanned at that height, and no other at that size\n"
    "  aspect  makes pixels of that aspect (to 0.001) and is scanned at that height\n"
    "  custom  none fits the aspect: a film back made for it, whose width and height are in pixels\n"
    "Exit code 1 if none fits.\n"
    "\nExamples:\n"
    "  vxproject film --size 2048x1556\n"
    "  vxproject film --size 720x288 --interlaced\n"
    "  vxproject film --par 1.2 --size 1600x1080\n"
    "  vxproject film --name \"Super 16mm\"\n"
    "  vxproject film --list";

} // namespace

void addFilm(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("film", "Find the film back that fits a clip");
    command->footer(FOOTER);
    CLI::Option * const size = command->add_option("--size", options->size, "Frame size in pixels, WIDTHxHEIGHT");
    CLI::Option * const par =
        command->add_option("--par", options->pixelAspect, "Pixel aspect ratio that frames are to have")->needs(size);
    command->add_flag("--interlaced", options->interlaced, "The size is that of one field, of half the frame's height")
        ->needs(size);
    command->add_option("--name", options->name, "The film back of that name");
    command->add_flag("--list", options->list, "All film backs");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, par, &chosen] {
        options->byAspect = par->count() > 0;
        chosen = [options] { return film(*options); };
    });
}

} // namespace Tool
