#pragma once

#include "parameter/kyn/ParameterSet.h"
#include "parameter/support/ScriptLines.h"

#include <QFile>

#include <sstream>

namespace Test {

/// A whole section as a record writes it, with digits enough for every real number.
inline std::string sectionOf(Kyn::ParameterSet & record, QString const & prefix = QString()) {
    QString text;
    QTextStream stream(&text);
    stream.setRealNumberPrecision(17);
    EXPECT_TRUE(record.bStreamOut(stream, prefix, true));
    stream.flush();
    return text.toStdString();
}

/// A file of tests/clip/scripts.
inline std::string golden(char const * name) {
    QFile file(QStringLiteral(VX_TEST_DATA "/clip/scripts/%1.txt").arg(QLatin1String(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    return file.readAll().toStdString();
}

/// Gives each line of a section "Core" to a record and returns those that it refuses.
inline QStringList refusedOf(Kyn::ParameterSet & record, std::string const & section) {
    QStringList refused;
    for (QString const & line : QString::fromStdString(section).split('\n', Qt::SkipEmptyParts)) {
        EXPECT_TRUE(line.startsWith(QLatin1String("Core."))) << line.toStdString();
        if (!record.bStreamIn(line.mid(5), PRESENT))
            refused << line;
    }
    return refused;
}

/// Values as one text, a blank between them.
template <class First, class... Others>
std::string joined(First const & first, Others const &... others) {
    std::ostringstream text;
    text << first;
    ((text << ' ' << others), ...);
    return text.str();
}

} // namespace Test
