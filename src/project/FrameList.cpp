#include "project/FrameList.h"

#include <QList>

#include <algorithm>
#include <cmath>

namespace vxproject {

namespace {

/// Takes an unsigned or negative decimal number off the start of a text.
std::optional<double> takeNumber(QStringView & text) {
    qsizetype length = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    while (length < text.size() && (text[length].unicode() == u'.' || (text[length] >= u'0' && text[length] <= u'9')))
        ++length;
    bool isNumber = false;
    double const number = text.left(length).toDouble(&isNumber);
    text = text.mid(length);
    return isNumber ? std::optional<double>(number) : std::nullopt;
}

bool takeLetter(QStringView & text, char letter) {
    if (!text.startsWith(QLatin1Char(letter)))
        return false;
    text = text.mid(1);
    return true;
}

} // namespace

std::optional<FrameList::Range> FrameList::parseRange(QStringView text) {
    constexpr double MOST_FRAMES = 1e15;
    constexpr double ALMOST_MET = 1e-9; // of a step, for steps such as 0.1
    std::optional<double> const first = takeNumber(text);
    if (!first)
        return std::nullopt;
    std::optional<double> last = first;
    std::optional<double> step = 1.0;
    if (takeLetter(text, '-')) {
        last = takeNumber(text);
        if (takeLetter(text, 'x'))
            step = takeNumber(text);
    }
    if (!text.isEmpty() || !last || !step || *last < *first || !(*step > 0.0))
        return std::nullopt;
    double const steps = (*last - *first) / *step;
    if (!(steps < MOST_FRAMES))
        return std::nullopt;
    return Range{*first, *step, static_cast<long long>(std::floor(steps + ALMOST_MET)) + 1};
}

std::optional<FrameList> FrameList::parse(QStringView text) {
    FrameList list;
    for (QStringView const piece : text.split(QLatin1Char(','))) {
        std::optional<Range> const range = parseRange(piece.trimmed());
        if (!range)
            return std::nullopt;
        list.ranges_.push_back(*range);
    }
    return list;
}

bool FrameList::isWholeWithin(double lowest, double highest) const {
    auto const isWhole = [](double number) { return number == std::floor(number); };
    return std::all_of(ranges_.begin(), ranges_.end(), [&](Range const & range) {
        double const last = range.first + static_cast<double>(range.count - 1) * range.step;
        return isWhole(range.first) && (range.count == 1 || isWhole(range.step)) && range.first >= lowest &&
               last <= highest;
    });
}

} // namespace vxproject
