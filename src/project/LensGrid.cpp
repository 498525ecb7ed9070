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

/// The path of one line from a point to another.
QString pathOf(Gan_Camera const & camera, Carry carry, Gan_Vector2 const & from, Gan_Vector2 const & to) {
    QString path;
    bool drawing = false;
    for (int i = 0; i <= STEPS_A_LINE; ++i) {
        double const part = static_cast<double>(i) / STEPS_A_LINE;
        std::optional<Gan_Vector2> const point =
            carry(camera, {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
        if (point)
            path += QStringLiteral("%1%2 %3")
                        .arg(drawing ? QLatin1Char('L') : QLatin1Char('M'))
                        .arg(point->x, 0, 'f', 2)
                        .arg(point->y, 0, 'f', 2);
        drawing = point.has_value();
    }
    return path;
}

QString gridOf(Gan_Camera const & camera, FrameSize const & size, Carry carry) {
    double const w = size.width;
    double const h = size.height;
    double const cell = w / CELLS_ACROSS;
    QString path;
    for (double x = 0.0; x <= w; x += cell)
        path += pathOf(camera, carry, {x, 0.0}, {x, h});
    for (double y = 0.0; y <= h; y += cell)
        path += pathOf(camera, carry, {0.0, y}, {w, y});
    return path;
}

} // namespace

QByteArray lensGridSvg(Gan_Camera const & camera, FrameSize const & size) {
    QString const stroke = QStringLiteral("<path d=\"%1\" fill=\"none\" stroke=\"%2\" stroke-width=\"%3\"/>\n");
    double const unit = size.width / 640.0;
    QString svg = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %1 %2\" width=\"640\">\n"
                                 "<rect width=\"%1\" height=\"%2\" fill=\"#fbfaf7\"/>\n")
                      .arg(size.width)
                      .arg(size.height);
    svg += stroke.arg(gridOf(camera, size, &leftAlone), QStringLiteral("#c9c4ba")).arg(0.75 * unit);
    svg += stroke.arg(gridOf(camera, size, &distorted), QStringLiteral("#1f5fa8")).arg(1.25 * unit);
    return (svg + QStringLiteral("</svg>\n")).toUtf8();
}

} // namespace vxproject
