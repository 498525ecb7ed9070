#include "project/ClipFiles.h"

#include "clip/InterlaceMode.h"
#include "clip/Pulldown.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>
#include <limits>

namespace vxproject {

namespace {

constexpr qint64 LARGEST_INDEX = std::numeric_limits<unsigned int>::max();

qint64 remainder(qint64 number, qint64 divisor) {
    qint64 const rest = number % divisor;
    return rest < 0 ? rest + divisor : rest;
}

/// Frames of a clip that is not empty run forth and back; the two ends are shown once in each turn.
qint64 pingPong(qint64 frame, qint64 length) {
    if (length == 1)
        return 0;
    qint64 const turn = 2 * (length - 1);
    qint64 const place = remainder(frame, turn);
    return std::min(place, turn - place);
}

bool isInterlaceMode(VX_INTERLACE_MODE mode) {
    return VX::pulldownFileFromFrame(0, mode) != VX::NO_FILE; // Every mode has a file for the first frame.
}

bool isRepeatMode(VX_CLIP_MODE mode) {
    return VX_CLIP_MODE_NO_REPEAT <= mode && mode <= VX_CLIP_MODE_PING_PONG;
}

/// A number of any length, ordered by what it counts and then by its zeros.
struct Digits {
    explicit Digits(QStringView digits) : text(digits) {
        while (significant() > 1 && text[zeros] == QLatin1Char('0'))
            ++zeros;
    }
    qsizetype significant() const { return text.size() - zeros; }

    friend bool operator<(Digits const & a, Digits const & b) {
        if (a.significant() != b.significant())
            return a.significant() < b.significant();
        int const order = a.text.mid(a.zeros).compare(b.text.mid(b.zeros));
        return order != 0 ? order < 0 : a.zeros < b.zeros;
    }

    QStringView text;
    qsizetype zeros = 0;
};

bool isNumber(QStringView text) {
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

} // namespace

ClipFiles::ClipFiles(VX_ClipInfo const & source, VX_INTERLACE_MODE mode, Kyn::View const & projectView)
    : source_(source),
      mode_(mode),
      projectView_(projectView),
      clipView_(source.clipViewForProjectView(projectView)),
      isDiscrete_(source.discreteFrames == VX_TRUE) {
    if (!hasView())
        return;
    length_ = source.lengthForView(clipView_);
    minimum_ = source.minIndex(clipView_, true);
    maximum_ = source.maxIndex(clipView_, true);
    before_ = source.repeatModeBefore(clipView_, true);
    after_ = source.repeatModeAfter(clipView_, true);
    hasIndex_ = source.hasIndex.value(Kyn::Context().withView(clipView_));
    for (VX::DiscreteFrame const & one : source.discreteFramesList)
        if (isDiscrete_ && one.view == clipView_.id())
            listed_.insert(one.frame.toUInt(), one.fileName);
}

FrameList ClipFiles::frames() const {
    FrameList list;
    list.appendFirst(length_);
    if (length_ == 0) {
        QList<qint64> frames = listed_.keys();
        std::sort(frames.begin(), frames.end());
        for (qint64 const frame : frames)
            list.append(static_cast<double>(frame));
    }
    return list;
}

std::optional<qint64> ClipFiles::withinLength(qint64 frame) const {
    qint64 const length = length_;
    bool const isBefore = frame < 0;
    if (length == 0)
        return std::nullopt;
    if (!isBefore && frame < length)
        return frame;
    switch (isBefore ? before_ : after_) {
    case VX_CLIP_MODE_NO_REPEAT:
        break;
    case VX_CLIP_MODE_REPEAT:
        return isBefore ? 0 : length - 1;
    case VX_CLIP_MODE_LOOP:
        return remainder(frame, length);
    case VX_CLIP_MODE_PING_PONG:
        return pingPong(frame, length);
    }
    return std::nullopt;
}

std::optional<qint64> ClipFiles::indexOf(qint64 frame) const {
    auto const number = static_cast<unsigned int>(frame);
    unsigned int const file = VX::pulldownFileFromFrame(VX::bIsInterlaced(mode_) ? number / 2 * 2 : number, mode_);
    return file == VX::NO_FILE ? std::nullopt : std::optional<qint64>(qint64(minimum_) + file);
}

qint64 ClipFiles::lastIndexOfLength() const {
    return (length_ == 0 ? std::nullopt : indexOf(qint64(length_) - 1)).value_or(-1);
}

qint64 ClipFiles::greatestIndex() const {
    return std::max<qint64>(maximum_, std::min(lastIndexOfLength(), LARGEST_INDEX));
}

QString ClipFiles::fileOf(qint64 frame) const {
    if (auto const entry = listed_.find(frame); entry != listed_.end())
        return *entry;
    std::optional<qint64> const place = withinLength(frame);
    if (!place || isDiscrete_)
        return place ? listed_.value(*place) : QString();
    std::optional<qint64> const index = indexOf(*place);
    // An index that wraps would name the file of another frame.
    if (!index || *index > LARGEST_INDEX)
        return QString();
    return source_.fileName(static_cast<unsigned int>(*index), clipView_);
}

bool ClipFiles::hasNames() const {
    return hasView() && (isDiscrete_ || !source_.fileName(minimum_, clipView_).isNull());
}

QStringList ClipFiles::problems() const {
    if (!hasView())
        return {QStringLiteral("project view %1 shows clip view %2, which is none")
                    .arg(projectView_.id())
                    .arg(clipView_.id())};
    QStringList found;
    for (VX_CLIP_MODE const mode : {before_, after_})
        if (!isRepeatMode(mode))
            found.append(QStringLiteral("repeat mode %1 is none of 0 to 3; no frame there has a file").arg(int(mode)));
    if (length_ == 0 && listed_.isEmpty())
        found.append(QStringLiteral("its length is 0, so no frame has a file"));
    if (isDiscrete_)
        return found;
    if (!hasNames())
        found.append(QStringLiteral("no file system takes names with an index of %1 digits; %2 are the most")
                         .arg(source_.indexWidth(clipView_, true))
                         .arg(VX_ClipInfo::WIDEST_INDEX));
    if (!isInterlaceMode(mode_))
        found.append(QStringLiteral("interlace mode %1 is none of 0 to 13, so no frame has a file").arg(int(mode_)));
    if (!isSequence() || !isInterlaceMode(mode_))
        return found;
    qint64 const last = lastIndexOfLength();
    if (maximum_ < minimum_)
        found.append(QStringLiteral("the range of indices is the wrong way round: it goes from %1 to %2")
                         .arg(minimum_)
                         .arg(maximum_));
    else if (last > maximum_)
        found.append(QStringLiteral("its length of %1 frames goes to index %2, beyond the greatest, %3")
                         .arg(length_)
                         .arg(last)
                         .arg(maximum_));
    if (last > LARGEST_INDEX)
        found.append(QStringLiteral("there is no index beyond %1; the frames there have no file").arg(LARGEST_INDEX));
    return found;
}

// The folder

QString ClipFiles::rangeText() const {
    return QStringLiteral("%1 to %2").arg(minimum_).arg(greatestIndex());
}

std::vector<ClipFiles::Other> ClipFiles::othersInFolder() const {
    if (!isSequence() || !hasNames())
        return {};
    // The naming rule has put a folder, perhaps one in the prefix, before the name and the index before the suffix.
    QString const first = source_.fileName(minimum_, clipView_);
    QString const suffix = source_.clipSuffix(clipView_, true).text();
    qsizetype const digits = std::max(static_cast<qsizetype>(source_.indexWidth(clipView_, true)),
                                      static_cast<qsizetype>(QString::number(minimum_).size()));
    QString const head = first.chopped(suffix.size() + digits);
    QString const folder = head.left(head.lastIndexOf(QLatin1Char('/')) + 1);
    QString const prefix = head.mid(folder.size());

    auto const digitsOf = [&](QString const & name) {
        return QStringView(name).mid(prefix.size()).chopped(suffix.size());
    };
    std::vector<Other> others;
    for (QDirIterator entry(folder, QDir::Files | QDir::Hidden); entry.hasNext();) {
        entry.next();
        QString const name = entry.fileName();
        bool const isLongEnough = name.size() > prefix.size() + suffix.size();
        if (!isLongEnough || !name.startsWith(prefix) || !name.endsWith(suffix) || !isNumber(digitsOf(name)))
            continue;
        bool isIndex = false;
        unsigned int const index = digitsOf(name).toUInt(&isIndex);
        bool const isWithin = isIndex && minimum_ <= index && index <= greatestIndex();
        if (!isWithin)
            others.push_back({name, Other::Why::OutsideRange});
        else if (source_.fileName(index, clipView_) != folder + name)
            others.push_back({name, Other::Why::PaddedOtherwise});
    }
    std::sort(others.begin(), others.end(),
              [&](Other const & a, Other const & b) { return Digits(digitsOf(a.file)) < Digits(digitsOf(b.file)); });
    for (Other & other : others)
        other.file.prepend(folder);
    return others;
}

} // namespace vxproject
