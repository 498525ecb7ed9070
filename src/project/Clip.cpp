#include "project/Clip.h"

#include "clip/DiscreteFrameLine.h"
#include "project/Finding.h"

#include <QTextStream>

#include <stdexcept>

namespace vxproject {

namespace {

/// A file name stands bare in its line, so not every name comes back from there.
void checkFrame(VX::DiscreteFrame const & frame) {
    QString line;
    QTextStream(&line) << "DiscreteFrame( " << frame.fileName << ", " << frame.frame << ", " << frame.view << " ) )";
    VX::detail::DiscreteFrameLine const read = VX::detail::parseDiscreteFrame(line);
    bool const same = read.found && read.fileName == frame.fileName && read.view.toInt() == frame.view &&
                      !frame.fileName.contains(u'\n') && !frame.fileName.contains(u'\r') &&
                      !frame.fileName.contains(QChar::Null) && frame.fileName.isValidUtf16();
    if (!same)
        throw std::runtime_error(
            QStringLiteral("the discrete frame %1 cannot be saved: its line would not give it back")
                .arg(quoted(frame.fileName))
                .toStdString());
}

} // namespace

Clip::Clip() {
    pictureRoot_.addSet(picture);
    sourceRoot_.addSet(source);
    addSet(pictureRoot_);
    addSet(sourceRoot_);
}

QStringList Clip::settle() {
    QString text;
    QTextStream stream(&text);
    source.bStreamOut(stream, sourceRoot_.scriptName() + QLatin1Char('.'), true);
    stream.flush();
    if (source.discreteFrames != VX_TRUE)
        return QStringList();
    for (VX::DiscreteFrame const & frame : source.discreteFramesList)
        checkFrame(frame);
    QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.mid(lines.size() - source.discreteFramesList.size());
}

} // namespace vxproject
