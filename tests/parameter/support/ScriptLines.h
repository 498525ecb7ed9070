#pragma once

#include "parameter/Parameter.h"

#include <QString>
#include <QStringList>
#include <QTextStream>

#include <gtest/gtest.h>

#include <string>

namespace Test {

inline constexpr Kyn::StreamVersion PRESENT{Kyn::StreamVersion::anyViewList};
inline constexpr Kyn::StreamVersion BEFORE_VIEW_LISTS{Kyn::StreamVersion::anyViewList - 1};

/// The lines of anything that writes itself on a stream.
template <class Writer>
QStringList linesOf(Writer && writer, QString const & prefix = QString(), bool bUseName = false) {
    QString text;
    QTextStream stream(&text);
    EXPECT_TRUE(writer.bStreamOut(stream, prefix, bUseName));
    stream.flush();
    EXPECT_TRUE(text.isEmpty() || text.endsWith('\n'));
    return text.split('\n', Qt::SkipEmptyParts);
}

/// The same as one text, which a failed comparison shows.
template <class Writer>
std::string scriptOf(Writer && writer) {
    return linesOf(writer).join('\n').toStdString();
}

/// Gives each line to a parameter. What it refuses fails the test.
inline void readLines(Kyn::ParameterWithoutType & parameter, QStringList const & lines) {
    for (QString const & line : lines)
        EXPECT_TRUE(parameter.setFromScriptString(line, PRESENT)) << line.toStdString();
}

} // namespace Test
