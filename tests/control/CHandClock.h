#pragma once

#include "CorvidControl/messages/CSteadyClock.h"

/// A clock that stands still until the test turns it. Any thread; one waits at a time.
class CHandClock final : public CSteadyClock
{
public:
    Time GetNow() const override;
    void Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Time timeEnd) const override;

    /// Not with the lock of who waits.
    void Turn(std::chrono::milliseconds time);

    /// Until when somebody waits now; Time() when nobody does.
    Time GetAlarm() const;

private:
    mutable std::mutex mutexClock; ///< guards all below; taken within the lock of who waits, never round it
    Time timeNow{ std::chrono::hours(1) };
    mutable Time timeAlarm;
    mutable std::condition_variable* pCondition = nullptr; ///< of who waits, or waited last
    mutable std::mutex* pMutex = nullptr;
};
