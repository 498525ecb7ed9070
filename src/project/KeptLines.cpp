#include "project/KeptLines.h"

#include "parameter/ScriptLine.h"
#include "parameter/ValueText.h"
#include "parameter/kyn/ParameterWithoutType.h"
#include "project/TextFile.h"

#include <QHash>

namespace vxproject {

void KeptLines::addBefore(Kyn::BasicParameter const & member, QString const & slot, QStringList const & lines) {
    if (!lines.isEmpty())
        kept_.push_back({&member, nullptr, slot, lines});
}

void KeptLines::addMaster(Kyn::ParameterWithoutType const & parameter, QString const & line) {
    kept_.push_back({&parameter, &parameter, slotOf(u"MasterParameterId="), {line}});
}

QString KeptLines::slotOf(QStringView line) {
    QStringView rest = line;
    QString const view = Kyn::View::extractStringPrefix(rest).toString();
    if (Kyn::detail::kindOfLine(rest) != Kyn::detail::LineKind::Keyframe)
        return line.left(line.indexOf(QLatin1Char('='))).toString().toLower();
    // A time as a key line holds it: six digits of a number in single precision.
    QStringView const time = Kyn::detail::splitKeyframeDeclaration(rest, false).fields[0];
    double const read = static_cast<double>(Kyn::detail::wholeToFloat(time));
    return view + QLatin1Char('@') + QString::number(read, 'g', 6);
}

QString KeptLines::woven(Kyn::BasicParameter const & member, QString const & written, QString const & opening) const {
    std::vector<Kept const *> waiting;
    QMultiHash<QString, std::size_t> bySlot;
    for (Kept const & one : kept_) {
        if (one.member != &member || (one.withoutMaster && one.withoutMaster->isConstrained()))
            continue;
        bySlot.insert(one.slot, waiting.size());
        waiting.push_back(&one);
    }
    if (waiting.empty())
        return written;

    QString text;
    auto const append = [&](QStringList const & lines) {
        for (QString const & line : lines)
            text += line + QLatin1Char('\n');
    };
    Lines lines(written);
    for (QStringView line; lines.next(line);) {
        QString const slot = slotOf(line.mid(opening.size()));
        QList<std::size_t> places = bySlot.values(slot);
        bySlot.remove(slot);
        for (auto place = places.rbegin(); place != places.rend(); ++place) { // values() gives the newest first
            append(waiting[*place]->lines);
            waiting[*place] = nullptr;
        }
        text += line;
        text += QLatin1Char('\n');
    }
    for (Kept const * one : waiting)
        if (one)
            append(one->lines);
    return text;
}

} // namespace vxproject
