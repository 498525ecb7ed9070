#include "Failure.h"
#include "PlateRenderer.h"

#include "project/FrameList.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QImageReader>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace {

enum ExitCode { EXIT_DONE = 0, EXIT_FINDINGS = 1, EXIT_BAD_USAGE = 2 };

constexpr int PICTURES_ACROSS_SHEET = 2;
constexpr int LARGEST_PICTURE_MEGABYTES = 2048; ///< Film scans are larger than what Qt reads unasked.
constexpr double LAST_FRAME = 4294967295.0;

struct Options {
    QString project;
    Wishes wishes;
    vxproject::FrameList frames;
    QString output;
    QString sheet;
};

[[noreturn]] void refuse(QString const & option, QString const & value, char const * why) {
    HOST_FAIL(VX_BadArgument, (option + QStringLiteral(" '%1'").arg(value)).toStdString(), why);
}

std::vector<Gan_Vector2> pointsOf(QString const & text) {
    std::vector<Gan_Vector2> points;
    for (QString const & piece : text.split(QLatin1Char(';'))) {
        QStringList const numbers = piece.simplified().split(QLatin1Char(' '));
        bool isX = false;
        bool isY = false;
        Gan_Vector2 const point{numbers.value(0).toDouble(&isX), numbers.value(1).toDouble(&isY)};
        if (numbers.size() != 2 || !isX || !isY || !std::isfinite(point.x) || !std::isfinite(point.y))
            refuse(QStringLiteral("--corners"), text, "Points are written \"x y; x y; x y; x y\".");
        points.push_back(point);
    }
    return points;
}

Kyn::ProxyScale::Enum scaleOf(QString const & text) {
    QStringList const names{QStringLiteral("full"), QStringLiteral("half"), QStringLiteral("quarter")};
    if (!names.contains(text))
        refuse(QStringLiteral("--scale"), text, "The scale is full, half or quarter.");
    return static_cast<Kyn::ProxyScale::Enum>(names.indexOf(text));
}

vxproject::FrameList framesOf(QString const & text) {
    std::optional<vxproject::FrameList> const frames = vxproject::FrameList::parse(text);
    if (!frames || !frames->isWholeWithin(0.0, LAST_FRAME))
        refuse(QStringLiteral("--frames"), text, "Frames are whole numbers, such as 7, 1-100 or 1-100x2.");
    return *frames;
}

quint64 countOf(vxproject::FrameList const & frames) {
    quint64 count = 0;
    frames.forEach([&](double) { ++count; });
    return count;
}

quint32 numberOf(QString const & option, QString const & text, quint32 highest) {
    bool isNumber = false;
    quint32 const number = text.toUInt(&isNumber);
    if (!isNumber || number > highest)
        refuse(option, text, "A whole number is wanted.");
    return number;
}

Options optionsOf(QStringList const & arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Draws the tracked quad and the lens grid of a project over the pictures of a layer's clip, "
                       "without a display.\n"
                       "Folders that the project does not name in full begin where the program is run.\n"
                       "Exit code 0: done; 1: something could not be drawn; 2: bad usage, or a project of no use."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("PROJECT"), QStringLiteral("A project file."));
    parser.addOptions({
        {QStringLiteral("layer"), QStringLiteral("The layer (1 without this)."), QStringLiteral("ID"),
         QStringLiteral("1")},
        {QStringLiteral("frames"), QStringLiteral("Such as 7, 1-100, 1-100x2, or a list of these."),
         QStringLiteral("FRAMES")},
        {{QStringLiteral("o"), QStringLiteral("output")},
         QStringLiteral("The pictures to write. ### stands for the number of the frame in at least as many digits; the "
                        "ending says the format."),
         QStringLiteral("NAME")},
        {QStringLiteral("corners"),
         QStringLiteral("Draw this quad, \"x y; x y; x y; x y\" in pixels, where the track has taken it."),
         QStringLiteral("POINTS")},
        {QStringLiteral("flat"),
         QStringLiteral("The track was measured on the pictures as they are: draw the quad without the lens.")},
        {QStringLiteral("grid"), QStringLiteral("Draw where the clip's lens shows a regular grid.")},
        {QStringLiteral("scale"), QStringLiteral("full (without this), half or quarter."), QStringLiteral("SCALE"),
         QStringLiteral("full")},
        {QStringLiteral("view"), QStringLiteral("The view (0 without this)."), QStringLiteral("ID"),
         QStringLiteral("0")},
        {QStringLiteral("sheet"), QStringLiteral("Also write small copies of all pictures as one."),
         QStringLiteral("NAME")},
    });
    parser.process(arguments);

    for (char const * needed : {"frames", "output"})
        if (!parser.isSet(QLatin1String(needed)))
            HOST_FAIL(VX_BadArgument, std::string("no --") + needed, "Frames and output are wanted, see --help.");
    if (parser.positionalArguments().size() != 1)
        HOST_FAIL(VX_BadArgument, std::to_string(parser.positionalArguments().size()) + " project files",
                  "One project file is wanted, see --help.");

    Options options;
    options.project = parser.positionalArguments().first();
    options.frames = framesOf(parser.value(QStringLiteral("frames")));
    options.output = parser.value(QStringLiteral("output"));
    if (countOf(options.frames) > 1 && !options.output.contains(QLatin1Char('#')))
        refuse(QStringLiteral("--output"), options.output, "Several pictures need a # in their name.");
    options.sheet = parser.value(QStringLiteral("sheet"));
    options.wishes.layer =
        numberOf(QStringLiteral("--layer"), parser.value(QStringLiteral("layer")), std::numeric_limits<quint32>::max());
    options.wishes.view =
        Kyn::View(static_cast<int>(numberOf(QStringLiteral("--view"), parser.value(QStringLiteral("view")),
                                            static_cast<quint32>(std::numeric_limits<int>::max()))));
    options.wishes.scale = scaleOf(parser.value(QStringLiteral("scale")));
    if (parser.isSet(QStringLiteral("corners")))
        options.wishes.corners = pointsOf(parser.value(QStringLiteral("corners")));
    options.wishes.isFlat = parser.isSet(QStringLiteral("flat"));
    options.wishes.hasGrid = parser.isSet(QStringLiteral("grid"));
    return options;
}

/// The name of a frame's picture: a run of # gives way to the frame.
QString nameOf(QString pattern, double frame) {
    qsizetype const first = pattern.indexOf(QLatin1Char('#'));
    qsizetype width = 0;
    while (first >= 0 && pattern.mid(first + width, 1) == QLatin1String("#"))
        ++width;
    if (width == 0)
        return pattern;
    return pattern.replace(
        first, width,
        QStringLiteral("%1").arg(static_cast<qint64>(frame), static_cast<int>(width), 10, QLatin1Char('0')));
}

void show(VX_Exception & exception) {
    std::fputs(exception.Dump(), stderr);
}

/// Each frame that can be drawn is drawn, whatever becomes of the others.
ExitCode render(Options const & options, HostServices & host) {
    PlateRenderer renderer(options.project, options.wishes, host);
    for (vxproject::Finding const & finding : renderer.findings())
        std::fprintf(stderr, "%s\n", qPrintable(finding.toString(options.project)));
    ExitCode code = renderer.findings().isEmpty() ? EXIT_DONE : EXIT_FINDINGS;

    VX_CallbackStruct const & table = host.table();
    quint64 const count = countOf(options.frames);
    quint64 done = 0;
    QStringList pictures;
    table.vProgressBoxShow();
    options.frames.forEach([&](double frame) {
        QString const picture = nameOf(options.output, frame);
        table.vProgressBoxSetText(picture.toUtf8().constData());
        table.vProgressBoxSetStatus(static_cast<unsigned int>(100 * done++ / count));
        try {
            renderer.renderFrame(frame, picture);
            pictures.append(picture);
        } catch (VX_Exception & exception) {
            table.vProgressBoxHide();
            show(exception);
            code = EXIT_FINDINGS;
        }
    });
    table.vProgressBoxHide();
    if (!options.sheet.isEmpty() && !pictures.isEmpty())
        renderer.renderSheet(pictures, PICTURES_ACROSS_SHEET, options.sheet);
    return code;
}

} // namespace

int main(int argc, char ** argv) {
    // Nothing is ever shown: there need not be a display, nor the folder of a desktop session.
    QTemporaryDir const session;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", session.path().toLocal8Bit());
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("plate_host"));
    QImageReader::setAllocationLimit(LARGEST_PICTURE_MEGABYTES);

    try {
        HostServices host;
        return render(optionsOf(QGuiApplication::arguments()), host);
    } catch (VX_Exception & exception) {
        show(exception);
        return EXIT_BAD_USAGE;
    } catch (std::exception const & exception) {
        VX_ExternalException foreign(fileNameOf(__FILE__), __LINE__, exception.what(), "The program cannot go on.");
        show(foreign);
        return EXIT_BAD_USAGE;
    }
}
