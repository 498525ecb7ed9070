#include "clip/DiscreteFrameLine.h"

#include "foundation/DecimalDigit.h"

#include <QString>

namespace VX::detail {

namespace {

bool isBlank(QChar c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

/// Reads one piece of a line after the other; a piece that is missing leaves it failed.
class Scanner {
public:
    Scanner(QStringView line, qsizetype at) : line_(line), at_(at) {}

    void skipBlanks() {
        while (at_ < line_.size() && isBlank(line_[at_]))
            ++at_;
    }
    void expect(QChar c) {
        skipBlanks();
        failed_ = failed_ || at_ >= line_.size() || line_[at_] != c;
        ++at_;
    }
    QStringView digits() {
        skipBlanks();
        qsizetype const start = at_;
        while (at_ < line_.size() && isDecimalDigit(line_[at_].unicode()))
            ++at_;
        failed_ = failed_ || at_ == start;
        return failed_ ? QStringView() : line_.mid(start, at_ - start);
    }
    bool failed() const { return failed_; }

private:
    QStringView line_;
    qsizetype at_;
    bool failed_ = false;
};

DiscreteFrameLine argumentsFrom(QStringView line, qsizetype comma, bool withView) {
    DiscreteFrameLine arguments;
    Scanner scanner(line, comma + 1);
    arguments.frame = scanner.digits();
    if (withView && !scanner.failed()) {
        scanner.expect(u',');
        arguments.view = scanner.digits();
    }
    if (!scanner.failed())
        scanner.expect(u')');
    arguments.found = !scanner.failed();
    return arguments;
}

/// A greedy name ends at the last comma from which the rest fits. Each stretch between two commas is looked at twice at
/// most, for a number ends at the next comma.
DiscreteFrameLine lastArguments(QStringView line, qsizetype nameStart, bool withView) {
    for (qsizetype comma = line.size(); comma > nameStart;) {
        comma = line.lastIndexOf(u',', comma - 1);
        if (comma <= nameStart)
            break;
        DiscreteFrameLine arguments = argumentsFrom(line, comma, withView);
        if (arguments.found) {
            arguments.fileName = line.mid(nameStart, comma - nameStart);
            return arguments;
        }
    }
    return {};
}

} // namespace

DiscreteFrameLine parseDiscreteFrame(QStringView line) {
    constexpr QLatin1String CALL("DiscreteFrame(");
    // The first call is the one: where it fails for want of arguments behind it, so do all later ones.
    qsizetype const call = line.indexOf(CALL);
    if (call < 0)
        return {};
    qsizetype start = call + CALL.size();
    while (start < line.size() && isBlank(line[start]))
        ++start;
    DiscreteFrameLine const three = lastArguments(line, start, true);
    return three.found ? three : lastArguments(line, start, false);
}

} // namespace VX::detail
