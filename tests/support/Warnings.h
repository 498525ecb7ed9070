#pragma once

#include <string>
#include <vector>

namespace Test {

/// Expects Qt warnings while it lives. Without one, a warning (or a critical message) of Qt fails the running test.
///
///     ExpectWarning const warning("cannot be linked");
///     parameter.setMaster("nowhere");
///
/// Every message that holds the given text is caught; any other goes to the next outer ExpectWarning, and fails the
/// test where there is none. At the end of its life it fails the test if nothing was caught. They end in the reverse
/// order of their making, on the thread that made them; messages may come from any thread.
class ExpectWarning {
public:
    /// The empty text is held by every message.
    explicit ExpectWarning(std::string text = {});
    ~ExpectWarning();

    ExpectWarning(ExpectWarning const &) = delete;
    ExpectWarning & operator=(ExpectWarning const &) = delete;

    /// The whole texts caught so far, in UTF-8, in order.
    std::vector<std::string> texts() const;

private:
    friend class WarningWatch;

    std::string expected;
    std::vector<std::string> caught;
};

/// From now on a Qt warning that nobody expects fails the running test.
void watchWarnings();

} // namespace Test
