#include "foundation/AssertToken.h"
#include "foundation/Strings.h"
#include "foundation/Translation.h"
#include "support/Warnings.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

using ::Test::ExpectWarning;

TEST(AssertToken, expected_character_is_consumed_with_the_blanks_before_it) {
    QString text("  (7");
    QTextStream stream(&text);
    VX::detail::assertToken(stream, '(');
    EXPECT_EQ(stream.readAll(), QString("7"));
}

TEST(AssertToken, wrong_character_costs_one_warning_and_stays_consumed) {
    QString text("\t[7");
    QTextStream stream(&text);
    ExpectWarning const warning;
    VX::detail::assertToken(stream, '(');
    EXPECT_EQ(warning.texts(), std::vector<std::string>{"VX::detail::assertChar(): found '[' where '(' expected"});
    EXPECT_EQ(stream.readAll(), QString("7"));
}

TEST(AssertToken, end_of_stream_reads_a_null_character) {
    QString text(" ");
    QTextStream stream(&text);
    ExpectWarning const warning;
    VX::detail::assertToken(stream, ')');
    // How the null character is shown is Qt's choice.
    ASSERT_EQ(warning.texts().size(), 1u);
    EXPECT_EQ(warning.texts()[0].rfind("VX::detail::assertChar(): found '\\", 0), 0u);
    EXPECT_NE(warning.texts()[0].find("where ')' expected"), std::string::npos);
}

// Answers every text with what it was asked.
class EchoTranslator : public QTranslator {
public:
    QString translate(char const * context, char const * text, char const * comment, int n) const override {
        return QString("%1|%2|%3|%4").arg(context, text, comment ? comment : "").arg(n);
    }
    bool isEmpty() const override { return false; }
};

class Translation : public testing::Test {
protected:
    int m_argumentCount = 1;
    char m_name[5] = "test";
    char * m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
};

class Translated {
    VX_DECLARE_TRANSLATION("SomeSet")
};

TEST_F(Translation, without_a_translator_the_source_text_comes_back) {
    EXPECT_EQ(VX::Strings::tr(VX::Strings::LAYER), QString("Layer"));
    EXPECT_EQ(VX::Strings::tr(VX::Strings::REMOVE), QString::fromUtf8(VX::Strings::ModuleName::REMOVE));
    EXPECT_EQ(Translated::trUtf8("移除"), QString::fromUtf8("移除"));
    EXPECT_EQ(Translated::tr("%n clips", nullptr, 3), QString("3 clips"));
}

TEST_F(Translation, clip_name_prefix_is_looked_up_with_its_own_context_and_comment) {
    EchoTranslator translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(VX::Strings::tr(VX::Strings::WARPED), QString("VX_Strings|Warped|Warped clip name prefix|-1"));
    EXPECT_EQ(VX::Strings::tr(VX::Strings::REMOVE), QString::fromUtf8("VX_Strings|移除|Remove clip name prefix|-1"));
}

TEST_F(Translation, both_declared_functions_ask_alike) {
    EchoTranslator translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(Translated::tr("Name"), QString("SomeSet|Name||-1"));
    EXPECT_EQ(Translated::trUtf8("Name"), Translated::tr("Name"));
    EXPECT_EQ(Translated::tr("Name", "of a clip", 2), QString("SomeSet|Name|of a clip|2"));
    EXPECT_EQ(Translated::trUtf8("Name", "of a clip", 2), Translated::tr("Name", "of a clip", 2));
}

} // namespace
