#include "foundation/XMLErrorHandler.h"

#include <QXmlInputSource>
#include <QXmlParseException>
#include <QXmlSimpleReader>

#include <gtest/gtest.h>

#include <sstream>

namespace {

TEST(XMLErrorHandler, Reports_ofEachSeverity_areALineEachAndSayWhetherToGoOn) {
    std::ostringstream output;
    VX_XMLErrorHandler handler(output);
    EXPECT_EQ(handler.errorString(), QString());

    EXPECT_TRUE(handler.warning(QXmlParseException(QStringLiteral("odd"), 3, 4)));
    EXPECT_EQ(handler.errorString(), QStringLiteral("odd"));
    EXPECT_FALSE(handler.error(QXmlParseException(QStringLiteral("wrong"), 5, 6)));
    EXPECT_EQ(handler.errorString(), QStringLiteral("wrong"));
    EXPECT_FALSE(handler.fatalError(QXmlParseException(QStringLiteral("镜头坏了"))));
    EXPECT_EQ(handler.errorString(), QStringLiteral("镜头坏了"));

    EXPECT_EQ(output.str(), "Warning: odd\nError: wrong\nFatal Error: 镜头坏了\n");
}

TEST(XMLErrorHandler, Copy_ofAHandler_hasItsLastErrorAndItsStream) {
    std::ostringstream output;
    VX_XMLErrorHandler handler(output);
    handler.error(QXmlParseException(QStringLiteral("first")));
    VX_XMLErrorHandler copy(handler);
    EXPECT_EQ(copy.errorString(), QStringLiteral("first"));
    copy.warning(QXmlParseException(QStringLiteral("second")));
    EXPECT_EQ(handler.errorString(), QStringLiteral("first"));
    EXPECT_EQ(output.str(), "Error: first\nWarning: second\n");
}

/// What Qt's reader makes of a document: whether it read it, and what the handler wrote.
std::pair<bool, std::string> parsed(char const * document, QString & lastError) {
    std::ostringstream output;
    VX_XMLErrorHandler handler(output);
    QXmlInputSource source;
    source.setData(QByteArray(document));
    QXmlSimpleReader reader;
    reader.setErrorHandler(&handler);
    bool const isRead = reader.parse(&source);
    lastError = handler.errorString();
    return {isRead, output.str()};
}

TEST(XMLErrorHandler, QtsReader_onABrokenDocument_stopsAtTheFatalError) {
    QString lastError;
    auto const [isRead, written] = parsed("<?xml version=\"1.0\"?>\n<clip><name>plate</clip>\n", lastError);
    EXPECT_FALSE(isRead);
    EXPECT_FALSE(lastError.isEmpty());
    EXPECT_EQ(written, "Fatal Error: " + lastError.toStdString() + "\n");
}

TEST(XMLErrorHandler, QtsReader_onASoundDocument_reportsNothing) {
    QString lastError;
    auto const [isRead, written] = parsed("<clip><name>plate</name></clip>", lastError);
    EXPECT_TRUE(isRead);
    EXPECT_EQ(written, "");
    EXPECT_EQ(lastError, QString());
}

} // namespace
