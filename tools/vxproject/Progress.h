#pragma once

#include <QString>

#include <chrono>

namespace Tool {

/// Tells, on a terminal, how far a work has come that takes more than a second. Says nothing where standard error is no
/// terminal, and leaves nothing behind.
class Progress {
public:
    /// "checked 1200 files"
    Progress(QString const & verb, QString const & noun);
    Progress(Progress const &) = delete;
    Progress & operator=(Progress const &) = delete;
    ~Progress();

    /// One more is done.
    void step();
    /// To be called before a line of results: takes the progress away where both go to the same screen.
    void makeRoom();

private:
    typedef std::chrono::steady_clock Clock;

    void erase();

    QString verb_;
    QString noun_;
    bool shows_;
    bool sharesScreen_;
    bool isShown_ = false;
    long long done_ = 0;
    Clock::time_point next_;
};

} // namespace Tool
