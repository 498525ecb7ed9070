#include "clip/ClipInfo.h"
#include "clip/DiscreteFrameLine.h"
#include "clip/GoldenScript.h"

#include <QRegularExpression>

#include <random>

namespace {

using Test::PRESENT;
using VX::detail::DiscreteFrameLine;
using VX::detail::parseDiscreteFrame;

/// What the two patterns find, the slow way.
DiscreteFrameLine patternsFind(QString const & line) {
    static QRegularExpression const three(
        QStringLiteral("DiscreteFrame\\(\\s*(\\S.*),\\s*([0-9]+)\\s*,\\s*([0-9]+)\\s*\\)"));
    static QRegularExpression const two(QStringLiteral("DiscreteFrame\\(\\s*(\\S.*),\\s*([0-9]+)\\s*\\)"));
    QRegularExpressionMatch match = three.match(line);
    if (!match.hasMatch())
        match = two.match(line);
    DiscreteFrameLine found;
    found.found = match.hasMatch();
    if (found.found) {
        // Views of the line itself, which outlives the match.
        found.fileName = QStringView(line).mid(match.capturedStart(1), match.capturedLength(1));
        found.frame = QStringView(line).mid(match.capturedStart(2), match.capturedLength(2));
        if (match.lastCapturedIndex() == 3)
            found.view = QStringView(line).mid(match.capturedStart(3), match.capturedLength(3));
    }
    return found;
}

std::string shown(DiscreteFrameLine const & line) {
    return line.found
               ? (line.fileName.toString() + '|' + line.frame.toString() + '|' + line.view.toString()).toStdString()
               : "refused";
}

TEST(DiscreteFrameLine, finds_what_the_patterns_find) {
    QString const texts =
        "DiscreteFrame(|DiscreteFrame(|DiscreteFrame( |discreteFrame(|DiscreteFrame|Frames.|,|,|, | ,| |"
        "\t\v|(|)| )|)|1|02|4294967296|a|x.dpx|a, b|, 3 )|, 12, 1 )|-1|%1|,,";
    QStringList const pieces = texts.split('|') + QStringList({QChar(0xa0), QChar(0xff11), QChar(0x85)});
    std::mt19937 random(20);
    int withView = 0;
    int withoutView = 0;
    int refused = 0;
    for (int i = 0; i < 20000; ++i) {
        QString line = i % 4 == 0 ? QString() : QStringLiteral("DiscreteFrame(");
        for (auto count = random() % 14; count > 0; --count)
            line += pieces[static_cast<qsizetype>(random() % static_cast<unsigned int>(pieces.size()))];
        DiscreteFrameLine const expected = patternsFind(line);
        ASSERT_EQ(shown(parseDiscreteFrame(line)), shown(expected)) << line.toStdString();
        ++(!expected.found ? refused : expected.view.isEmpty() ? withoutView : withView);
    }
    EXPECT_GT(withView, 1000);
    EXPECT_GT(withoutView, 1000);
    EXPECT_GT(refused, 1000);
}

// A pattern that goes back over a line like these takes time with its square or cube, which is hours.
TEST(DiscreteFrameLine, line_of_a_megabyte_is_answered) {
    int const repeats = 250000;
    QString const head = QStringLiteral("Frames.keyframes.append( DiscreteFrame( ");
    QString const numbers = QStringLiteral(", 1").repeated(repeats);
    EXPECT_FALSE(parseDiscreteFrame(head + 'a' + numbers).found);
    EXPECT_FALSE(parseDiscreteFrame(head + QString(4 * repeats, ',')).found);
    EXPECT_FALSE(parseDiscreteFrame(head + QString(4 * repeats, ' ')).found);
    EXPECT_FALSE(parseDiscreteFrame(QStringLiteral("DiscreteFrame(").repeated(repeats / 3) + ", 1").found);
    QString const whole = head + 'a' + numbers + QString(repeats, ' ') + ") )";
    DiscreteFrameLine const found = parseDiscreteFrame(whole);
    EXPECT_EQ(found.fileName, QStringView(whole).mid(head.size(), 1 + 3 * (repeats - 2)));
    EXPECT_EQ(found.view, QStringLiteral("1"));
}

struct Line {
    char const * text;
    char const * frame; ///< "file|frame|view", empty for a line that is refused.
};

void PrintTo(Line const & line, std::ostream * out) {
    *out << line.text;
}

class DiscreteFrame : public testing::TestWithParam<Line> {};

TEST_P(DiscreteFrame, is_read_from_its_line) {
    VX_ClipInfo clip;
    bool const taken = clip.bStreamIn(QString::fromUtf8(GetParam().text), PRESENT);
    EXPECT_EQ(taken, *GetParam().frame != '\0');
    ASSERT_EQ(clip.discreteFramesList.size(), taken ? 1 : 0);
    if (!taken)
        return;
    VX::DiscreteFrame const & read = clip.discreteFramesList[0];
    EXPECT_EQ(QStringLiteral("%1|%2|%3").arg(read.fileName).arg(read.frame.toUInt()).arg(read.view).toStdString(),
              GetParam().frame);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, DiscreteFrame,
    testing::Values(
        Line{"Frames.keyframes.append( DiscreteFrame( a, b.dpx, 12, 1 ) )", "a, b.dpx|12|1"},
        Line{"Frames.keyframes.append( DiscreteFrame( x.dpx, 3 ) )", "x.dpx|3|0"},
        Line{"fRAMES.DiscreteFrame(x,3,2)", "x|3|2"}, Line{"Frames. DiscreteFrame( ,, 007 ,\t010 ) and more", ",|7|10"},
        Line{"Frames.DiscreteFrame( a b , 3, 4294967296 )", "a b |3|0"},
        Line{"Frames.DiscreteFrame( a, 4294967296, 1 )", "a|0|1"},
        Line{"Frames.DiscreteFrame( DiscreteFrame( a, 1 ), 2 )", "DiscreteFrame( a, 1 )|2|0"},
        Line{"Frames.keyframes.append( Discreteframe( x.dpx, 3 ) )", ""}, Line{"Frames.DiscreteFrame( , 3 )", ""},
        Line{"Frames.DiscreteFrame( x.dpx, -3, 1 )", "x.dpx, -3|1|0"}, Line{"Frames.DiscreteFrame( x.dpx, 3, 1", ""},
        Line{"DiscreteFrame( x.dpx, 3, 1 )", ""}, Line{"Frames", ""}, Line{"", ""}));

} // namespace
