#include "end-to-end/ToolRun.h"

#include <QColor>
#include <QImage>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

char const * const CORNERS = " --corners '362.667 17.778; 597.333 74.667; 549.333 184.889; 296.000 99.556'";

/// The example host, as an outside project built it, on the project of the box that the demo makes.
class ExampleHost : public ToolRun {
protected:
    void SetUp() override { ASSERT_EQ(shell(quoted(VX_EXAMPLES "/box_lid/run.sh") + " vxproject .").code, 0); }

    /// Where there is no display and no session.
    Answer draw(std::string const & arguments) const {
        return shell("unset DISPLAY QT_QPA_PLATFORM XDG_RUNTIME_DIR; " + quoted(VX_HOST) + " " + arguments);
    }

    QImage picture(char const * name) const { return QImage(QString::fromStdString(pathOf(name))); }

    /// The points that a command of vxproject prints as its last line, "frame,x1,y1,x2,y2,...".
    std::vector<QPointF> pointsBy(std::string const & command) const {
        QStringList const numbers =
            QString::fromStdString(run(command).out).trimmed().section(QLatin1Char('\n'), -1).split(QLatin1Char(','));
        std::vector<QPointF> points;
        for (qsizetype i = 1; i + 1 < numbers.size(); i += 2)
            points.push_back(QPointF(numbers[i].toDouble(), numbers[i + 1].toDouble()));
        return points;
    }
};

/// The share of pixels that differ plainly: by more than what a JPEG writer of another version may make of the same
/// picture. 1 for pictures of different sizes.
double difference(QImage const & a, QImage const & b) {
    constexpr int PLAIN = 40;
    if (a.isNull() || a.size() != b.size())
        return 1.0;
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            QColor const left(a.pixel(x, y));
            QColor const right(b.pixel(x, y));
            int const largest = std::max({std::abs(left.red() - right.red()), std::abs(left.green() - right.green()),
                                          std::abs(left.blue() - right.blue())});
            count += largest > PLAIN ? 1 : 0;
        }
    return static_cast<double>(count) / (a.width() * a.height());
}

/// A quad one pixel beside the right one differs at 0.0014 of the pixels, a missing grid at 0.02.
constexpr double TOLERANCE = 0.0007;

TEST_F(ExampleHost, Picture_ofTheTrackedLid_isTheOneInTheReadme) {
    QImage const stored(QStringLiteral(VX_DOCS "/box_lid.jpg"));
    Answer const answer = draw("box_lid.vxp --frames 130 --flat --grid -o box.###.jpg" + std::string(CORNERS));
    EXPECT_EQ(answer.code, 0);
    EXPECT_EQ(answer.out + answer.err, "");
    EXPECT_LE(difference(picture("box.130.jpg"), stored), TOLERANCE);

    draw("box_lid.vxp --frames 130 --flat --grid -o beside.jpg "
         "--corners '363.667 17.778; 598.333 74.667; 550.333 184.889; 297.000 99.556'");
    EXPECT_GT(difference(picture("beside.jpg"), stored), TOLERANCE);
    draw("box_lid.vxp --frames 130 --flat -o bare.jpg" + std::string(CORNERS));
    EXPECT_GT(difference(picture("bare.jpg"), stored), TOLERANCE);
}

// The middles of the dots, against where another program says that the corners go: with the lens, and without.
TEST_F(ExampleHost, Quad_withAndWithoutTheLens_hasItsCornersWhereTheCommandLineHasThem) {
    std::string const points = std::string(CORNERS + 11);
    struct Case {
        char const * option;
        std::string command;
    } const cases[] = {
        {"", "warp box_lid.vxp --layer 1 --frames 260 --points " + points},
        {"--flat ", "track box_lid.vxp --layer 1 --frames 260 --size 640x480 --corners " + points},
    };
    for (Case const & way : cases) {
        ASSERT_EQ(draw(std::string("box_lid.vxp --frames 260 -o quad.png ") + way.option + CORNERS).code, 0);
        QImage const drawn = picture("quad.png");
        std::vector<QPointF> const corners = pointsBy(way.command);
        ASSERT_EQ(corners.size(), 4u);
        for (QPointF const & corner : corners) {
            // A whole number is a pixel's centre, so the pixel that the corner lies in is the nearest.
            QColor const dot(drawn.pixel(corner.toPoint()));
            EXPECT_TRUE(dot.red() < 60 && dot.green() > 220 && dot.blue() < 110)
                << way.option << corner.x() << " " << corner.y() << " " << dot.name().toStdString();
        }
    }
}

TEST_F(ExampleHost, Frames_ofWhichOneHasNoPicture_areDrawnButForThatOne) {
    Answer const answer = draw("box_lid.vxp --frames 0,1,130 -o f#.png --sheet sheet.png");
    EXPECT_EQ(answer.code, 1);
    QRegularExpression const report(QStringLiteral("\\A===> Bad file provided \nFile:PlateRenderer.cpp:\\d+:\n"
                                                   "Context: no picture in .*box.0001.jpg\n"
                                                   "Message: The picture of frame 1 is missing.\n\n\\z"));
    EXPECT_TRUE(report.match(QString::fromStdString(answer.err)).hasMatch()) << answer.err;
    EXPECT_FALSE(picture("f0.png").isNull());
    EXPECT_TRUE(picture("f1.png").isNull());
    EXPECT_FALSE(picture("f130.png").isNull());
    EXPECT_EQ(picture("sheet.png").size(), QSize(640, 240));
}

TEST_F(ExampleHost, Picture_atHalfScale_isTheWholePictureMadeSmaller) {
    draw("box_lid.vxp --frames 130 -o full.png");
    draw("box_lid.vxp --frames 130 --scale half -o half.png");
    QImage const smaller = picture("full.png").scaled(320, 240, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_LE(difference(picture("half.png"), smaller), 0.01);
}

TEST_F(ExampleHost, Picture_ofAClipWithoutASize_isAsLargeAsItsFile) {
    ASSERT_EQ(shell("sed '/FrameWidth\\|FrameHeight/d' box_lid.vxp > bare.vxp").code, 0);
    ASSERT_EQ(draw("bare.vxp --frames 130 -o bare.png --flat" + std::string(CORNERS)).code, 0);
    ASSERT_EQ(draw("box_lid.vxp --frames 130 -o full.png --flat" + std::string(CORNERS)).code, 0);
    EXPECT_EQ(picture("bare.png"), picture("full.png"));
}

TEST_F(ExampleHost, Request_thatCannotBeMet_isReportedByKind) {
    shell("sed 's/^Clip.1..Picture.Core.FrameWidth.*/&\\nClip[1].Picture.Core.eInterlaceMode.value=1/' box_lid.vxp > "
          "fields.vxp;"
          "sed '/^Lens/d' box_lid.vxp > lensless.vxp; head -c 3 box_lid.vxp > cut.vxp");
    struct Case {
        std::string arguments;
        int code;
        char const * banner;
    } const cases[] = {
        {"nowhere.vxp --frames 0 -o x.png", 2, "===> Bad file provided \n"},
        {"cut.vxp --frames 0 -o x.png", 2, "===> Bad file provided \n"},
        {"box_lid.vxp --frames 0 -o x.png --layer 7", 2, "===> Bad argument provided \n"},
        {"box_lid.vxp --frames 3-1 -o x.png", 2, "===> Bad argument provided \n"},
        {"box_lid.vxp --frames 0", 2, "===> Bad argument provided \n"},
        {"box_lid.vxp --frames 0,130 -o x.png", 2, "===> Bad argument provided \n"},
        {"fields.vxp --frames 0 -o x.png", 2, "===> Not implemented (sorry)\n"},
        {"lensless.vxp --frames 0 -o x.png --grid", 1, "===> Bad state \n"},
        {"box_lid.vxp --frames 0 -o nowhere/x.png", 1, "===> Operation Failed\n"},
        {"box_lid.vxp --frames 0 -o x.nothing", 1, "===> Operation Failed\n"},
    };
    for (Case const & request : cases) {
        Answer const answer = draw(request.arguments);
        EXPECT_EQ(answer.code, request.code) << request.arguments;
        EXPECT_EQ(answer.err.rfind(request.banner, 0), 0u) << request.arguments << "\n" << answer.err;
    }
}

} // namespace
