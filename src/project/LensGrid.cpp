#include "project/LensGrid.h"

#include "project/LayerWarp.h"

#include <QString>

namespace vxproject {

namespace {

constexpr int CELLS_ACROSS = 16;
constexpr int STEPS_A_LINE = 64;

typedef std::optional<Gan_Vector2> (*Carry)(Gan_Camera const & camera, Gan_Vector2 const & pixel);

std::optional<Gan_Vector2> leftAlone(Gan_Camera const &, Gan_Vector2 const & pixel) {
    return pixel;
}

typedef std::vector<Gan_Vector2> Line;

/// Adds one line from a point to another, in as many pieces as it comes in.
void appendLine(std::vector<Line> & lines, Gan_Camera const & camera, Carry carry, Gan_Vector2 const & from,
                Gan_Vector2 const & to) {
    bool drawing = false;
    for (int i = 0; i <= STEPS_A_LINE; ++i) {
        double const part = static_cast<double>(i) / STEPS_A_LINE;
        std::optional<Gan_Vector2> const point =
            carry(camera, {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
        if (point && !drawing)
            lines.push_back(Line());
        if (point)
            lines.back().push_back(*point);
        drawing = point.has_value();
    }
}

std::vector<Line> gridOf(Gan_Camera const & camera, FrameSize const & size, Carry carry) {
    double const w = size.width;
    double const h = size.height;
    double const cell = w / CELLS_ACROSS;
    std::vector<Line> lines;
    for (double x = 0.0; x <= w; x += cell)
        appendLine(lines, camera, carry, {x, 0.0}, {x, h});
    for (double y = 0.0; y <= h; y += cell)
        appendLine(lines, camera, carry, {0.0, y}, {w, y});
    return lines;
}

QString pathOf(std::vector<Line> const & lines) {
    QString path;
    for (Line const & line : lines) {
        QLatin1Char verb('M');
        for (Gan_Vector2 const & point : line) {
            path += QStringLiteral("%1%2 %3").arg(verb).arg(point.x, 0, 'f', 2).arg(point.y, 0, 'f', 2);
            verb = QLatin1Char('L');
        }
    }
    return path;
}

} // namespace

std::vector<std::vector<Gan_Vector2>> lensGridLines(Gan_Camera const & camera, FrameSize const & size) {
    return gridOf(camera, size, &distorted);
}

QByteArray lensGridSvg(Gan_Camera const & camera, FrameSize const & size) {
    QString const stroke = QStringLiteral("<path d=\"%1\" fill=\"none\" stroke=\"%2\" stroke-width=\"%3\"/>\n");
    double const unit = size.width / 640.0;
    QString svg = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %1 %2\" width=\"640\">\n"
                                 "<rect width=\"%1\" height=\"%2\" fill=\"#fbfaf7\"/>\n")
                      .arg(size.width)
                      .arg(size.height);
    svg += stroke.arg(pathOf(gridOf(camera, size, &leftAlone)), QStringLiteral("#c9c4ba")).arg(0.75 * unit);
    svg += stroke.arg(pathOf(lensGridLines(camera, size)), QStringLiteral("#1f5fa8")).arg(1.25 * unit);
    return (svg + QStringLiteral("</svg>\n")).toUtf8();
}

} // namespace vxproject
