#include "vxproject/Arguments.h"

#include "vxproject/Command.h"
#include "vxproject/Output.h"

#include <cmath>
#include <limits>

namespace Tool {

namespace {

[[noreturn]] void refuse(char const * option, std::string const & text, char const * expected) {
    throw UsageError(std::string(option) + " '" + text + "': " + expected);
}

vxproject::FrameList framesOf(char const * option, std::string const & text) {
    std::optional<vxproject::FrameList> const frames = vxproject::FrameList::parse(textOf(text));
    if (!frames)
        refuse(option, text, "frames are written 7, 1-100, 1-100x2, 1-10x0.25, or a list of these between commas");
    return *frames;
}

} // namespace

vxproject::FrameList framesOf(std::string const & text) {
    return framesOf("--frames", text);
}

vxproject::FrameList wholeFramesOf(char const * option, std::string const & text, double lowest, double highest) {
    vxproject::FrameList const frames = framesOf(option, text);
    if (!frames.isWholeWithin(lowest, highest)) {
        QString const range = QStringLiteral("these are whole numbers from %1 to %2");
        refuse(option, text, range.arg(lowest, 0, 'f', 0).arg(highest, 0, 'f', 0).toUtf8().constData());
    }
    return frames;
}

Kyn::View viewOf(int id) {
    if (id < 0)
        refuse("--view", std::to_string(id), "views count from 0");
    return Kyn::View(id);
}

std::optional<vxproject::FrameSize> sizeOf(char const * option, std::string const & text) {
    if (text.empty())
        return std::nullopt;
    QList<QString> const numbers = textOf(text).split(QLatin1Char('x'));
    bool isWidth = false;
    bool isHeight = false;
    vxproject::FrameSize const size{numbers.value(0).toInt(&isWidth), numbers.value(1).toInt(&isHeight)};
    if (numbers.size() != 2 || !isWidth || !isHeight || size.width <= 0 || size.height <= 0)
        refuse(option, text, "a frame size in pixels is written 1920x1080");
    return size;
}

std::vector<Gan_Vector2> pointsOf(char const * option, std::string const & text) {
    std::vector<Gan_Vector2> points;
    for (QString const & piece : textOf(text).split(QLatin1Char(';'))) {
        QStringList const numbers = piece.simplified().split(QLatin1Char(' '));
        bool isX = false;
        bool isY = false;
        Gan_Vector2 const point{numbers.value(0).toDouble(&isX), numbers.value(1).toDouble(&isY)};
        if (numbers.size() != 2 || !isX || !isY || !std::isfinite(point.x) || !std::isfinite(point.y))
            refuse(option, text, "points are written \"x y; x y; x y; x y\"");
        points.push_back(point);
    }
    return points;
}

quint32 idOf(char const * option, long long id) {
    if (id < 0 || id > std::numeric_limits<quint32>::max())
        refuse(option, std::to_string(id), "ids go from 0 to 4294967295");
    return static_cast<quint32>(id);
}

namespace {

/// `found` as it is; without one, names those that there are.
template <class Found>
Found * orComplain(Found * found, vxproject::ItemKind const & kind, vxproject::Project const & project, quint32 id,
                   QString const & path) {
    if (found)
        return found;
    QStringList present;
    for (auto const & entry : project.items())
        if (entry.first.kind == &kind)
            present.append(QString::number(entry.first.id));
    complain(path + QStringLiteral(": there is no %1 %2; ").arg(QString::fromLatin1(kind.key).toLower()).arg(id) +
             (present.isEmpty() ? QStringLiteral("the project has none")
                                : QStringLiteral("those that there are: ") + present.join(QLatin1String(", "))));
    return nullptr;
}

} // namespace

vxproject::Layer * findLayer(vxproject::Project const & project, quint32 id, QString const & path) {
    return orComplain(project.findLayer(id), vxproject::layerKind(), project, id, path);
}

vxproject::Clip * findClip(vxproject::Project const & project, quint32 id, QString const & path) {
    return orComplain(project.findClip(id), vxproject::clipKind(), project, id, path);
}

vxproject::Lens * findLens(vxproject::Project const & project, quint32 id, QString const & path) {
    return orComplain(project.findLens(id), vxproject::lensKind(), project, id, path);
}

LensOnClip lensOnClip(vxproject::Project const & project, quint32 lensId, std::optional<long long> clip,
                      QString const & path) {
    LensOnClip found{findLens(project, lensId, path), nullptr};
    if (!found.lens)
        return found;
    quint32 const clipId = clip ? idOf("--clip", *clip) : found.lens->camera.inputClipId.staticValue(Kyn::View());
    if (!clip && clipId == 0)
        complain(path + QStringLiteral(": lens %1 has no input clip; name one with --clip").arg(lensId));
    else
        found.clip = findClip(project, clipId, path);
    return found;
}

void addFrames(CLI::App & command, std::string & frames) {
    command.add_option("--frames", frames, "Such as 7, 1-100, 1-100x2, 1-10x0.25, or a list of these")->required();
}

void addSize(CLI::App & command, std::string & size, std::string const & meaning) {
    command.add_option("--size", size, "Frame size, WIDTHxHEIGHT" + meaning);
}

} // namespace Tool
