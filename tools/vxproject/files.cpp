#include "project/ClipFiles.h"
#include "vxproject/Arguments.h"
#include "vxproject/Output.h"
#include "vxproject/Progress.h"

#include <QFileInfo>

namespace Tool {

namespace {

struct Options {
    std::string file;
    long long clip = 0;
    int view = 0;
    std::string frames;
    bool check = false;
    bool json = false;
};

QList<vxproject::Finding> findingsOf(QStringList const & messages) {
    QList<vxproject::Finding> findings;
    for (QString const & message : messages)
        findings.append({0, message});
    return findings;
}

/// What --check counts.
struct Check {
    qint64 frames = 0;
    qint64 missing = 0;
    QString firstMissing;
};

Check printFiles(vxproject::ClipFiles const & files, vxproject::FrameList const & frames, Options const & options) {
    QStringList columns{QStringLiteral("frame"), QStringLiteral("file")};
    if (options.check)
        columns.append(QStringLiteral("exists"));
    Check check;
    Table table(formOf(options.json), columns);
    Progress progress(QStringLiteral("checked"), QStringLiteral("frames"));
    frames.forEach([&](double time) {
        auto const frame = static_cast<qint64>(time);
        QString const file = files.fileOf(frame);
        bool const hasFile = !file.isNull();
        Fields fields{frame, fieldIf(hasFile, file)};
        if (options.check) {
            bool const exists = hasFile && QFileInfo(file).isFile();
            fields.push_back(fieldIf(hasFile, exists));
            ++check.frames;
            if (hasFile && !exists && ++check.missing == 1)
                check.firstMissing = file;
            progress.step();
        }
        progress.makeRoom();
        table.row(fields);
    });
    table.finish();
    return check;
}

/// What else lies beside the files. Says so, and no more: a longer sequence is no mistake.
void tellOthers(vxproject::ClipFiles const & files) {
    constexpr std::size_t MOST_SHOWN = 10;
    typedef vxproject::ClipFiles::Other Other;
    std::vector<Other> const others = files.othersInFolder();
    for (std::size_t i = 0; i < std::min(others.size(), MOST_SHOWN); ++i)
        complain(others[i].file + QStringLiteral(": looks like the same sequence, but ") +
                 (others[i].why == Other::Why::OutsideRange
                      ? QStringLiteral("lies outside its range, ") + files.rangeText()
                      : QStringLiteral("its index is padded otherwise")));
    if (others.size() > MOST_SHOWN)
        complain(
            QStringLiteral("%1 more look like it, up to %2").arg(others.size() - MOST_SHOWN).arg(others.back().file));
}

ExitCode files(Options const & options) {
    constexpr double FARTHEST = 1e15;
    Kyn::View const view = viewOf(options.view);
    quint32 const id = idOf("--clip", options.clip);
    std::optional<vxproject::FrameList> asked;
    if (!options.frames.empty())
        asked = wholeFramesOf("--frames", options.frames, -FARTHEST, FARTHEST);
    QString const path = textOf(options.file);
    std::unique_ptr<vxproject::Project> const project = vxproject::Project::read(path);
    ExitCode code = complainOf(project->findings(), path);
    vxproject::Clip const * const clip = findClip(*project, id, path);
    if (!clip)
        return EXIT_FINDINGS;

    QString const where = path + QStringLiteral(": clip %1").arg(id);
    vxproject::ClipFiles const found(clip->source, clip->picture.interlaceMode, view);
    code = std::max(code, complainOf(findingsOf(found.problems()), where));
    if (!found.hasNames())
        return code;
    Check const check = printFiles(found, asked ? *asked : found.frames(), options);
    if (check.missing > 0) {
        complain(where + QStringLiteral(": the files of %1 of %2 frames are missing, first %3")
                             .arg(check.missing)
                             .arg(check.frames)
                             .arg(check.firstMissing));
        code = EXIT_FINDINGS;
    }
    if (options.check)
        tellOthers(found);
    return code;
}

constexpr char FOOTER[] =
    "\nFrames count from 0. A frame's file has the index MinimumIndex + its file by the interlace mode (see "
    "pulldown);\n"
    "the odd frame of modes 1 and 2 lies in the file of the even one. Names are those that the clip gives, so\n"
    "relative ones start from the current folder. Outside the clip's length, ClipModeBefore and ClipModeAfter decide:\n"
    "  0  no file: \"none\" (null in JSON)\n"
    "  1  the frame at that end\n"
    "  2  loop: behind frames 0 to 3 come 0 1 2 3 0 1 ...\n"
    "  3  ping-pong: behind them come 2 1 0 1 2 3 2 ..., each end once, and before them the mirrored\n"
    "A discrete clip has the files of its list, for the frame and the clip view; a frame that stands there has that\n"
    "file wherever the length ends. With --check, exit code 1 if a file is missing, and on standard error the files "
    "in\n"
    "the folder that have the name's prefix and suffix and another number.\n"
    "\nExamples:\n"
    "  vxproject files shot.vxp --clip 1\n"
    "  vxproject files shot.vxp --clip 1 --view 1 --frames 0-99x10 --check";

} // namespace

void addFiles(CLI::App & app, Run & chosen) {
    auto const options = std::make_shared<Options>();
    CLI::App * const command = app.add_subcommand("files", "Print the file of each frame of a clip");
    command->footer(FOOTER);
    command->add_option("FILE", options->file, "The project file")->required();
    command->add_option("--clip", options->clip, "The clip's id")->required();
    command->add_option("--view", options->view, "The view of the project, which the clip maps to one of its own (0)");
    command->add_option("--frames", options->frames,
                        "Whole frames, such as 7, -10-100, 0-100x2, or a list of these. Without it, the whole length");
    command->add_flag("--check", options->check, "Look whether the files exist, and for others beside them");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &chosen] { chosen = [options] { return files(*options); }; });
}

} // namespace Tool
