#include "support/Warnings.h"

#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <mutex>

namespace Test {

/// Who waits for warnings: innermost last.
class WarningWatch {
public:
    static WarningWatch & instance() {
        static WarningWatch watch;
        return watch;
    }

    void begin(ExpectWarning & expectation) {
        std::lock_guard const lock(mutex);
        expectations.push_back(&expectation);
    }

    void end(ExpectWarning & expectation) {
        std::lock_guard const lock(mutex);
        expectations.erase(std::remove(expectations.begin(), expectations.end(), &expectation), expectations.end());
    }

    bool takes(std::string const & text) {
        std::lock_guard const lock(mutex);
        auto const taker = std::find_if(expectations.rbegin(), expectations.rend(), [&](ExpectWarning const * one) {
            return text.find(one->expected) != std::string::npos;
        });
        if (taker == expectations.rend())
            return false;
        (*taker)->caught.push_back(text);
        return true;
    }

    std::vector<std::string> texts(ExpectWarning const & expectation) {
        std::lock_guard const lock(mutex);
        return expectation.caught;
    }

private:
    std::mutex mutex;
    std::vector<ExpectWarning *> expectations;
};

namespace {

void onMessage(QtMsgType type, QMessageLogContext const &, QString const & message) {
    std::string const text = message.toStdString();
    bool const isWarning = type == QtWarningMsg || type == QtCriticalMsg;
    if (isWarning && !WarningWatch::instance().takes(text))
        ADD_FAILURE() << "unexpected Qt warning: " << text;
    if (!isWarning)
        std::fprintf(stderr, "%s\n", text.c_str());
}

} // namespace

ExpectWarning::ExpectWarning(std::string text) : expected(std::move(text)) {
    WarningWatch::instance().begin(*this);
}

ExpectWarning::~ExpectWarning() {
    WarningWatch::instance().end(*this);
    if (caught.empty())
        ADD_FAILURE() << "no Qt warning with the text \"" << expected << "\"";
}

std::vector<std::string> ExpectWarning::texts() const {
    return WarningWatch::instance().texts(*this);
}

void watchWarnings() {
    WarningWatch::instance();
    qInstallMessageHandler(onMessage);
}

} // namespace Test
