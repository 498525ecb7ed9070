#include "foundation/AssertToken.h"

#include <QDebug>
#include <QTextStream>

namespace VX::detail {
void assertToken(QTextStream & stream, char expected) {
    QChar found;
    stream.skipWhiteSpace();
    stream >> found;
    QChar const wanted(expected);
    if (found != wanted)
        qWarning() << "VX::detail::assertChar(): found" << found << "where" << wanted << "expected";
}
} // namespace VX::detail
