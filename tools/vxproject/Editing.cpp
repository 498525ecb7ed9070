#include "vxproject/Editing.h"

#include "vxproject/Arguments.h"
#include "vxproject/Output.h"

#include <dtl/dtl.hpp>

#include <sstream>

namespace Tool {

namespace {

std::vector<std::string> linesOf(QByteArray const & text) {
    std::vector<std::string> lines;
    for (QByteArray const & line : text.split('\n'))
        lines.push_back(line.toStdString());
    lines.pop_back(); // What is behind the last line end.
    return lines;
}

/// The difference of two texts in the unified form, with three lines around each.
QByteArray difference(QByteArray const & before, QByteArray const & after, std::string const & file) {
    dtl::Diff<std::string> diff(linesOf(before), linesOf(after));
    diff.onHuge();
    diff.compose();
    diff.composeUnifiedHunks();
    std::ostringstream text;
    text << "--- " << file << "\n+++ " << file << "\n";
    diff.printUnifiedFormat(text);
    return QByteArray::fromStdString(text.str());
}

/// The values in a member's lines, or how many keys it has.
QString valuesOf(QString const & text) {
    QStringList values;
    int keys = 0;
    for (QString const & line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (line.contains(QLatin1String("keyframes.append(")))
            ++keys;
        else if (line.contains(QLatin1String("value=")))
            values.append(line.section(QLatin1Char('='), 1));
    }
    return keys > 0 ? QStringLiteral("%1 key%2").arg(keys).arg(keys == 1 ? QString() : QStringLiteral("s"))
                    : values.join(QLatin1String(", "));
}

} // namespace

void EditOptions::addTo(CLI::App & command) {
    command.add_option("FILE", file, "The project file")->required();
    CLI::Option * const out = command.add_option("-o,--output", output, "Where the changed project goes");
    CLI::Option * const in = command.add_flag("--in-place", inPlace, "Back into FILE, which is replaced as a whole");
    CLI::Option * const dry =
        command.add_flag("--dry-run", dryRun, "Show the difference of the project's text, and write nothing");
    out->excludes(in)->excludes(dry);
    in->excludes(dry);
}

Editing::Editing(EditOptions const & options) : options_(options), path_(textOf(options.file)) {
    if (options.output.empty() && !options.inPlace && !options.dryRun)
        throw UsageError("one of -o, --in-place and --dry-run is asked for");
    project_ = vxproject::Project::read(path_);
    code_ = complainOf(project_->findings(), path_);
}

std::vector<std::pair<Kyn::BasicParameter *, QString>> Editing::members(QString const & pattern) const {
    std::vector<std::pair<Kyn::BasicParameter *, QString>> found;
    project_->forEachMember([&](Kyn::BasicParameter & member, QString const & path) {
        if (vxproject::matchesPattern(path, pattern))
            found.emplace_back(&member, path);
    });
    if (found.empty())
        throw vxproject::EditError(QStringLiteral("no parameter has the path ") + vxproject::quoted(pattern));
    return found;
}

void Editing::tellChanges(std::map<QString, QString> const & before) const {
    std::map<QString, QString> const after = vxproject::textsOfMembers(*project_);
    QStringList changes;
    QString gone;
    for (auto const & [path, text] : before) {
        auto const now = after.find(path);
        QString const item = path.section(QLatin1Char('.'), 0, 0);
        if (now != after.end() && now->second != text)
            changes.append(path + QStringLiteral(": ") + valuesOf(text) + QStringLiteral(" -> ") +
                           valuesOf(now->second));
        else if (now == after.end() && item != gone)
            changes.append((gone = item) + QStringLiteral(" is gone"));
    }
    constexpr qsizetype MOST_SHOWN = 40;
    for (QString const & change : changes.first(std::min(changes.size(), MOST_SHOWN)))
        complain(change);
    if (changes.size() > MOST_SHOWN)
        complain(QStringLiteral("and %1 more").arg(changes.size() - MOST_SHOWN));
    if (changes.isEmpty())
        complain(QStringLiteral("nothing is changed by this"));
}

ExitCode Editing::finish(Tov::CompositeCommand & commands) {
    std::map<QString, QString> const members = vxproject::textsOfMembers(*project_);
    QByteArray const before = project_->toText();
    if (!commands.redo())
        throw vxproject::EditError(QStringLiteral("the edit was refused"));
    tellChanges(members);
    QByteArray const after = project_->toText();
    if (options_.dryRun) {
        if (after != before)
            print(difference(before, after, options_.file));
    } else {
        project_->save(options_.inPlace ? path_ : textOf(options_.output));
    }
    return code_;
}

ExitCode carryOut(EditOptions const & options,
                  std::function<void(Editing & editing, Tov::CompositeCommand & commands)> const & edit) {
    Editing editing(options);
    try {
        Tov::CompositeCommand commands;
        edit(editing, commands);
        return editing.finish(commands);
    } catch (vxproject::EditError const & error) {
        complain(editing.path() + QStringLiteral(": ") + QString::fromUtf8(error.what()));
        return EXIT_FINDINGS;
    }
}

} // namespace Tool
