#include "parameter/kyn/SerialisedKeyframe.h"

namespace Kyn::detail {

namespace {

/// What stands between the brackets of "Key( ... )": behind the first bracket that follows "Key", up to the closing
/// brackets of the two calls. A line without brackets gives nothing.
QStringView argumentsOf(QStringView line) {
    // The word that opens the line has any case, and as "Keyframes" it would be taken for the call.
    constexpr QLatin1String OPENING("keyframes");
    qsizetype const from = line.startsWith(OPENING, Qt::CaseInsensitive) ? OPENING.size() : 0;
    qsizetype const call = line.indexOf(QLatin1String("Key"), from);
    qsizetype const open = call < 0 ? -1 : line.indexOf(QLatin1Char('('), call);
    if (open < 0)
        return {};
    QStringView arguments = line.mid(open + 1).trimmed();
    for (int closing = 0; closing < 2 && arguments.endsWith(QLatin1Char(')')); ++closing)
        arguments = arguments.chopped(1).trimmed();
    return arguments;
}

/// How many fields stand behind the value: the four handles, or the type word.
int fieldsBehindValue(bool bezier) {
    return bezier ? 4 : 1;
}

} // namespace

KeyframeDeclaration splitKeyframeDeclaration(QStringView line, bool bezier) {
    KeyframeDeclaration found;
    QStringView rest = argumentsOf(line);
    if (rest.isEmpty())
        return found;
    std::array<QStringView, 4> behind;
    int behindCount = 0;
    qsizetype const firstComma = rest.indexOf(QLatin1Char(','));
    found.fields[0] = (firstComma < 0 ? rest : rest.left(firstComma)).trimmed();
    found.count = 1;
    if (firstComma < 0)
        return found;
    rest = rest.mid(firstComma + 1);
    while (behindCount < fieldsBehindValue(bezier)) {
        qsizetype const comma = rest.lastIndexOf(QLatin1Char(','));
        if (comma < 0)
            break;
        behind[static_cast<std::size_t>(behindCount++)] = rest.mid(comma + 1).trimmed();
        rest = rest.left(comma);
    }
    found.fields[static_cast<std::size_t>(found.count++)] = rest.trimmed();
    while (behindCount > 0)
        found.fields[static_cast<std::size_t>(found.count++)] = behind[static_cast<std::size_t>(--behindCount)];
    return found;
}

QStringList parseKeyframeDeclaration(QString line) {
    KeyframeDeclaration const found =
        splitKeyframeDeclaration(line, line.contains(QLatin1String("BezierKey"), Qt::CaseSensitive));
    QStringList fields;
    for (int i = 0; i < found.count; ++i)
        fields.append(found.fields[static_cast<std::size_t>(i)].toString());
    return fields;
}

} // namespace Kyn::detail
