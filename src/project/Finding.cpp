#include "project/Finding.h"

namespace vxproject {

QString Finding::toString(QString const & path) const {
    return line > 0 ? QStringLiteral("%1:%2: ").arg(path).arg(line) + what : path + QStringLiteral(": ") + what;
}

QString quoted(QStringView text) {
    constexpr qsizetype LONGEST = 72;
    bool const cut = text.size() > LONGEST;
    QString shown = text.left(cut ? LONGEST - 1 : LONGEST).toString();
    for (QChar & c : shown)
        if (c.category() == QChar::Other_Control)
            c = QChar::ReplacementCharacter;
    return QLatin1Char('\'') + shown + (cut ? QStringLiteral("…'") : QStringLiteral("'"));
}

} // namespace vxproject
