#include "CHandClock.h"

CSteadyClock::Time CHandClock::GetNow() const
{
    const std::lock_guard<std::mutex> lock(mutexClock);
    return timeNow;
}

void CHandClock::Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Time timeEnd) const
{
    {
        const std::lock_guard<std::mutex> lockClock(mutexClock);
        if (timeNow >= timeEnd) {
            return;
        }
        timeAlarm = timeEnd;
        pCondition = &condition;
        pMutex = lock.mutex();
    }
    condition.wait(lock);
    const std::lock_guard<std::mutex> lockClock(mutexClock);
    timeAlarm = Time();
}

void CHandClock::Turn(std::chrono::milliseconds time)
{
    std::mutex* pMutexOfWaiter = nullptr;
    std::condition_variable* pConditionOfWaiter = nullptr;
    {
        const std::lock_guard<std::mutex> lock(mutexClock);
        timeNow += time;
        pMutexOfWaiter = pMutex;
        pConditionOfWaiter = pCondition;
    }
    if (pMutexOfWaiter) {
        // Who is about to wait holds this from its look at the clock until it can be notified.
        const std::lock_guard<std::mutex> lock(*pMutexOfWaiter);
        pConditionOfWaiter->notify_all();
    }
}

CSteadyClock::Time CHandClock::GetAlarm() const
{
    const std::lock_guard<std::mutex> lock(mutexClock);
    return timeAlarm;
}
