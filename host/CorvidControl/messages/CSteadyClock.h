#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

/// The time by which messages wait. It only goes forward, whatever is done to the machine's wall clock. A
/// test has a clock of its own that it turns by hand.
class CSteadyClock
{
public:
    using Time = std::chrono::steady_clock::time_point;

    virtual ~CSteadyClock() = default;

    virtual Time GetNow() const;

    /// Lets go of the lock and returns with it at timeEnd, when condition is notified, or for no reason
    /// before: the caller looks again at what it waits for.
    virtual void Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Time timeEnd) const;
};
