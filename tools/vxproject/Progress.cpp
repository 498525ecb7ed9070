#include "vxproject/Progress.h"

#include <QtGlobal>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace Tool {

namespace {

constexpr std::chrono::milliseconds PATIENCE(1000);
constexpr std::chrono::milliseconds PAUSE(200);
constexpr char ERASED_LINE[] = "\r\x1b[K";

bool isTerminal(int descriptor) {
#ifdef Q_OS_UNIX
    return ::isatty(descriptor) == 1;
#else
    Q_UNUSED(descriptor)
    return false;
#endif
}

} // namespace

Progress::Progress(QString const & verb, QString const & noun)
    : verb_(verb), noun_(noun), shows_(isTerminal(2)), sharesScreen_(isTerminal(1)), next_(Clock::now() + PATIENCE) {}

Progress::~Progress() {
    erase();
}

void Progress::step() {
    ++done_;
    if (!shows_ || Clock::now() < next_)
        return;
    next_ = Clock::now() + PAUSE;
    isShown_ = true;
    QString const text = QStringLiteral("%1 %2 %3").arg(verb_).arg(done_).arg(noun_);
    std::fputs((ERASED_LINE + text.toUtf8()).constData(), stderr);
}

void Progress::makeRoom() {
    if (sharesScreen_)
        erase();
}

void Progress::erase() {
    if (isShown_)
        std::fputs(ERASED_LINE, stderr);
    isShown_ = false;
}

} // namespace Tool
