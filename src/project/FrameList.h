#pragma once

#include <QStringView>

#include <optional>
#include <vector>

namespace vxproject {

/// A list of times in frames, as people write it: "7", "1-100", "1-100x2" (every second one), "1-10x0.25", and lists of
/// these between commas. Numbers may be negative and have fractions: "-5--1", "0.5". The last number is reached if the
/// step meets it.
class FrameList {
public:
    /// Nothing for a text that is no such list: not a number, a range that runs backwards, a step of 0 or below.
    static std::optional<FrameList> parse(QStringView text);

    void append(double frame) { ranges_.push_back({frame, 1.0, 1}); }
    /// The frames from 0 up to, and not including, a count.
    void appendFirst(unsigned int count) {
        if (count > 0)
            ranges_.push_back({0.0, 1.0, count});
    }

    /// Whether every time is a whole frame from `lowest` to `highest`, which lie within 2^53.
    bool isWholeWithin(double lowest, double highest) const;

    /// Calls with each time, in the order in which they are written. A list costs no memory for the times in it.
    template <class Visit>
    void forEach(Visit visit) const {
        for (Range const & range : ranges_)
            for (long long i = 0; i < range.count; ++i)
                visit(range.first + static_cast<double>(i) * range.step);
    }

private:
    struct Range {
        double first;
        double step;
        long long count;
    };

    static std::optional<Range> parseRange(QStringView text);

    std::vector<Range> ranges_;
};

} // namespace vxproject
