#include "parameter/kyn/View.h"

#include "foundation/DecimalDigit.h"

#include <QTextStream>

#include <limits>

namespace Kyn {

View const & View::INVALID() {
    static View const none(-1);
    return none;
}

QString View::toString() const {
    return isValid() ? QStringLiteral("view[%1].").arg(id_) : QString();
}

View View::extractStringPrefix(QStringView & text) {
    constexpr QLatin1String OPENING("view[");
    constexpr QLatin1String CLOSING("].");
    if (!text.startsWith(OPENING))
        return INVALID();
    qint64 id = 0;
    qsizetype at = OPENING.size();
    qsizetype const firstDigit = at;
    for (; at < text.size() && VX::detail::isDecimalDigit(text[at].unicode()); ++at) {
        id = id * 10 + (text[at].unicode() - u'0');
        if (id > std::numeric_limits<int>::max())
            return INVALID();
    }
    if (at == firstDigit || !text.mid(at).startsWith(CLOSING))
        return INVALID();
    text = text.mid(at + CLOSING.size());
    return View(static_cast<int>(id));
}

View View::extractStringPrefix(QString & text) {
    QStringView rest(text);
    View const view = extractStringPrefix(rest);
    if (view.isValid())
        text.remove(0, text.size() - rest.size());
    return view;
}

QTextStream & operator<<(QTextStream & stream, View const & view) {
    return stream << view.id();
}

QTextStream & operator>>(QTextStream & stream, View & view) {
    int id = 0;
    stream >> id;
    view = View(id);
    return stream;
}

} // namespace Kyn
