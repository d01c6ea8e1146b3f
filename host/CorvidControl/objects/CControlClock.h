#pragma once

#include <QDateTime>

#include <chrono>
#include <condition_variable>
#include <mutex>

/// The clock by which messages and saves wait, and by which files are dated. The steady time only goes forward,
/// whatever is done to the machine's wall clock; the date is for names of files. A test has a clock of its own
/// that it turns by hand. All operations may be called on any thread.
class CControlClock
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// The machine's own. Lives until the process ends.
    static const CControlClock& GetSystem();

    virtual ~CControlClock() = default;

    /// The steady time.
    virtual Time GetNow() const;

    /// Local date and time of day; may jump in either direction.
    virtual QDateTime GetDate() const;

    /// Releases the lock, which must be held, and returns with it at timeEnd, when condition is notified, or
    /// for no reason before: the caller looks again at what it waits for.
    virtual void Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Time timeEnd) const;

protected:
    CControlClock() = default; // an object of its own dies too soon where a reference to it is kept
};
