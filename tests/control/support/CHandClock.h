#pragma once

#include "CorvidControl/objects/CControlClock.h"

/// A clock that stands still until the test turns it; it begins a second past noon. Any thread; one waits at a time.
class CHandClock final : public CControlClock
{
public:
    Time GetNow() const override;
    QDateTime GetDate() const override;
    void Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Time timeEnd) const override;

    /// Not with the lock of who waits. Returns how many waits had begun before.
    int Turn(std::chrono::milliseconds time);

    /// Somebody sets the date of the machine; the steady time stays as it is.
    void SetDateBy(std::chrono::seconds time);

    /// Until when somebody waits now; Time() when nobody does.
    Time GetAlarm() const;

    /// How many waits have begun. One that begins has looked at the clock.
    int GetWaits() const;

    /// False when no wait more than those before has begun in time.
    bool AwaitWait(int nWaitsBefore, std::chrono::milliseconds timeMost) const;

private:
    mutable std::mutex mutexClock; ///< guards all below; taken within the lock of who waits, never round it
    Time timeNow{ std::chrono::hours(1) };
    std::chrono::milliseconds timeDateBy{ 0 };
    mutable Time timeAlarm;
    mutable int nWaits = 0;
    mutable std::condition_variable conditionWaits;        ///< a wait has begun
    mutable std::condition_variable* pCondition = nullptr; ///< of who waits, or waited last
    mutable std::mutex* pMutex = nullptr;
};
