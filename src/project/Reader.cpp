#include "project/Reader.h"

#include "clip/ClipInfo.h"
#include "foundation/DecimalDigit.h"
#include "parameter/ScriptLine.h"
#include "project/FileError.h"
#include "project/Item.h"
#include "project/TextFile.h"

#include <algorithm>
#include <limits>

namespace vxproject {

namespace {

constexpr QLatin1String FORMAT("vxproject ");

bool isDecimal(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return VX::detail::isDecimalDigit(c.unicode()); });
}

bool isComment(QStringView line) {
    return line.startsWith(QLatin1Char('#')) || line.trimmed().isEmpty();
}

/// The item that opens a line, "Layer[3].", and how long that is. The kind is null where there is none; `wrong` then
/// says why.
struct ItemPrefix {
    ItemKey key{nullptr, 0};
    qsizetype length = 0;
    QString wrong;
};

ItemPrefix itemPrefixOf(QStringView line) {
    ItemPrefix found;
    qsizetype const dot = line.indexOf(QLatin1Char('.'));
    qsizetype const bracket = line.indexOf(QLatin1Char('['));
    QStringView const opening = line.left(dot);
    ItemKind const * const single = dot < 0 ? nullptr : findItemKind(opening);
    if (single && !single->isNumbered) {
        found.key = {single, 0};
        found.length = dot + 1;
        return found;
    }
    if (dot < 0 || bracket < 0 || bracket > dot || !opening.endsWith(QLatin1Char(']'))) {
        found.wrong = QStringLiteral("no item is named, as in Layer[1].Name.value=\"...\"");
        return found;
    }
    QStringView const digits = opening.mid(bracket + 1).chopped(1);
    bool isNumber = false;
    qulonglong const id = digits.toULongLong(&isNumber, 10);
    bool const decimal = isDecimal(digits);
    ItemKind const * const kind = findItemKind(line.left(bracket));
    if (!kind || !kind->isNumbered)
        found.wrong = quoted(line.left(bracket)) + QStringLiteral(" is no kind of item");
    else if (!isNumber || !decimal || id > std::numeric_limits<quint32>::max())
        found.wrong = quoted(digits) + QStringLiteral(" is no id, which goes from 0 to 4294967295");
    else
        found = {{kind, static_cast<quint32>(id)}, dot + 1, QString()};
    return found;
}

} // namespace

void Reader::read(QByteArray const & bytes) {
    if (bytes.isEmpty())
        throw FileError(path_, 0, QStringLiteral("is empty"));
    DecodedText const decoded = decode(bytes, path_);
    if (decoded.hadByteOrderMark)
        report(1, QStringLiteral("the file begins with a byte order mark, which is not written again"));
    Lines lines(decoded.text);
    QStringView line;
    lines.next(line);
    readFirstLine(line);
    settleForms(decoded.text);
    while (lines.next(line)) {
        number_ = lines.number();
        readLine(line);
    }
    finish(lines.wasEnded());
}

void Reader::readFirstLine(QStringView line) {
    QStringView const digits = line.mid(FORMAT.size());
    bool const isProject = line.startsWith(FORMAT) && !digits.isEmpty() && isDecimal(digits);
    bool fits = false;
    unsigned int const version = digits.toUInt(&fits, 10);
    if (!isProject || (fits && version == 0))
        throw FileError(path_, 1,
                        QStringLiteral("is no project file: its first line is not 'vxproject %1' but %2")
                            .arg(Project::NEWEST_VERSION)
                            .arg(quoted(line)));
    if (!fits || version > Project::NEWEST_VERSION)
        throw FileError(path_, 1,
                        QStringLiteral("has version %1; the newest that can be read is %2")
                            .arg(digits.left(20))
                            .arg(Project::NEWEST_VERSION));
    version_ = Kyn::StreamVersion(version);
}

/// A clip takes some of its lines in one of its two forms only, and the line that says which may stand anywhere among
/// them, so it is read beforehand. The last one counts.
void Reader::settleForms(QStringView text) {
    constexpr QLatin1String FORM("Source.Core.DiscreteFrames.");
    if (!text.contains(FORM))
        return;
    Lines lines(text);
    for (QStringView line; lines.next(line);) {
        ItemPrefix const prefix = itemPrefixOf(line);
        if (prefix.key.kind != &clipKind() || !line.mid(prefix.length).startsWith(FORM) || line.contains(u'\r'))
            continue;
        Item & clip = project_.item(prefix.key);
        clip.bStreamIn(line.mid(prefix.length).toString(), version_);
        clip.settle();
    }
}

void Reader::readLine(QStringView line) {
    if (isComment(line)) {
        waiting_.append(line.toString());
        return;
    }
    if (!anyLine_) {
        // What stands above the last blank line at the top speaks of the file, not of what happens to come first.
        auto const blank = std::find_if(waiting_.rbegin(), waiting_.rend(),
                                        [](QString const & one) { return one.trimmed().isEmpty(); });
        qsizetype const count = waiting_.rend() - blank;
        project_.head_ = waiting_.first(count);
        waiting_ = waiting_.mid(count);
        anyLine_ = true;
    }
    if (last_.member && line.startsWith(last_.opening)) {
        readItemLine(line, *last_.item, 0);
        return;
    }
    ItemPrefix const prefix = itemPrefixOf(line);
    if (prefix.key.kind)
        readItemLine(line, project_.item(prefix.key), prefix.length);
    else
        keep(line, nullptr, {prefix.wrong});
}

/// A key length of 0 says that the line goes to the same member as the one before.
void Reader::readItemLine(QStringView line, Item & item, qsizetype keyLength) {
    if (line.contains(QLatin1Char('\r'))) { // A value with a line break could never be written.
        keep(line, &item, {QStringLiteral("there is a carriage return within the line")});
        return;
    }
    if (keyLength > 0)
        findTarget(line, item, keyLength);
    Target const target = last_;
    QString const rest = line.mid(keyLength > 0 ? keyLength : line.indexOf(QLatin1Char('.')) + 1).toString();
    if (!target.member) {
        // Old names, and the frames of a discrete clip, are taken without there being a member.
        if (target.isRefused || !item.bStreamIn(rest, version_)) {
            keep(line, &item, {target.missing});
        } else if (!waiting_.isEmpty()) {
            waitingOf_[&item] += waiting_;
            waiting_.clear();
        }
        return;
    }
    QStringList findings;
    QStringView const said = line.mid(target.opening.size());
    bool offered = true;
    if (target.check)
        offered = target.check->check(said, version_, findings) == LineCheck::Verdict::Read;
    else
        checkFieldLine(*target.member, said, findings);
    if (!offered || !item.bStreamIn(rest, version_)) {
        if (findings.isEmpty())
            findings.append(quoted(line) + QStringLiteral(" is not understood"));
        keep(line, &item, findings);
        return;
    }
    for (QString const & finding : findings)
        report(number_, finding);
    noteMaster(target, line);
    placeWaitingLines(target, line);
}

/// Finds the member that a line's key names, as the sets themselves go about it.
void Reader::findTarget(QStringView line, Item & item, qsizetype keyLength) {
    last_ = Target();
    last_.item = &item;
    item.expect(line.mid(keyLength));
    Kyn::ParameterSet const * set = &item;
    qsizetype start = keyLength;
    while (!last_.member) {
        qsizetype const dot = line.indexOf(QLatin1Char('.'), start);
        QStringView const name = dot < 0 ? line.mid(start) : line.mid(start, dot - start);
        QString const wanted = name.toString();
        last_.member = dot < 0 ? nullptr : set->findMember(wanted);
        Kyn::ParameterSet const * const nested = dot < 0 || last_.member ? nullptr : set->findSet(wanted);
        if (!last_.member && !nested) {
            auto const * const source = dynamic_cast<VX_ClipInfo const *>(set);
            bool const isFrame = source && name.compare(QLatin1String("Frames"), Qt::CaseInsensitive) == 0;
            last_.isRefused = isFrame && source->discreteFrames != VX_TRUE; // It would not be written again.
            if (last_.isRefused)
                last_.missing = quoted(line.mid(start)) + QStringLiteral(" is for clips whose DiscreteFrames is 1");
            else if (isFrame)
                last_.missing = quoted(line.mid(start)) +
                                QStringLiteral(" reads as no frame, which is written Frames.keyframes.append( "
                                               "DiscreteFrame( FILE, FRAME, VIEW ) )");
            else
                last_.missing =
                    QStringLiteral("%1 has no parameter %2").arg(quoted(line.left(start - 1)), quoted(name));
            return;
        }
        set = nested;
        start = dot + 1;
    }
    last_.opening = line.left(start).toString();
    if (auto * const parameter = dynamic_cast<Kyn::ParameterWithoutType *>(last_.member))
        last_.check = &checks_.try_emplace(parameter, *parameter).first->second;
}

void Reader::noteMaster(Target const & target, QStringView line) {
    auto * const parameter = dynamic_cast<Kyn::ParameterWithoutType *>(target.member);
    QStringView text = line.mid(target.opening.size());
    Kyn::View::extractStringPrefix(text); // Parameters take a view before any key, even where it means nothing.
    if (!parameter || Kyn::detail::kindOfLine(text) != Kyn::detail::LineKind::Master)
        return;
    if (masters_.contains(parameter))
        report(number_, QStringLiteral("line %1 names a master already, in whose place this one comes")
                            .arg(masters_[parameter].number));
    masters_[parameter] = {number_, line.toString(), target.item};
}

/// What waits to stand before a line has found it.
void Reader::placeWaitingLines(Target const & target, QStringView line) {
    QStringList const ofItem = waitingOf_.take(target.item);
    if (ofItem.isEmpty() && waiting_.isEmpty())
        return;
    target.item->kept.addBefore(*target.member, KeptLines::slotOf(line.mid(target.opening.size())), ofItem + waiting_);
    waiting_.clear();
}

void Reader::keep(QStringView line, Item * item, QStringList const & why) {
    for (QString const & one : why)
        report(number_, &one == &why.last() ? one + QStringLiteral("; the line is kept as it stands") : one);
    if (!item) {
        waiting_.append(line.toString());
        return;
    }
    QStringList & waitingOfItem = waitingOf_[item];
    waitingOfItem += waiting_;
    waitingOfItem.append(line.toString());
    waiting_.clear();
}

void Reader::resolveMasters() {
    for (Kyn::ParameterTree::UnresolvedMaster const & one : project_.tree_.resolveMasters()) {
        MasterLine const & line = masters_[one.parameter];
        report(line.number, QStringLiteral("the master %1 cannot be linked: %2; the line is kept as it stands")
                                .arg(quoted(one.masterName), one.reason));
        line.item->kept.addMaster(*one.parameter, line.text);
    }
}

void Reader::finish(bool lastLineEnded) {
    resolveMasters();
    for (auto waiting = waitingOf_.begin(); waiting != waitingOf_.end(); ++waiting)
        waiting.key()->kept.addLast(waiting.value());
    project_.tail_ = waiting_;
    if (!lastLineEnded)
        report(number_, QStringLiteral("the last line has no line end; the file may be cut"));
    std::stable_sort(project_.findings_.begin(), project_.findings_.end(),
                     [](Finding const & a, Finding const & b) { return a.line < b.line; });
}

} // namespace vxproject
