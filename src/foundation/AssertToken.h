#pragma once

class QTextStream;

namespace VX::detail {
/// Skips white space and consumes one character. Where it is not `expected`, one line goes to Qt's warning log and
/// reading goes on: the wrong character stays consumed. At the end of the stream the character found is the null one.
///
/// The line names this function `assertChar`, as the logs of users have always had it.
void assertToken(QTextStream & stream, char expected);
} // namespace VX::detail
