#include "CHandClock.h"

namespace {

constexpr CControlClock::Time timeStart{ std::chrono::hours(1) };

} // namespace

CControlClock::Time CHandClock::GetNow() const
{
    const std::lock_guard<std::mutex> lock(mutexClock);
    return timeNow;
}

QDateTime CHandClock::GetDate() const
{
    const std::lock_guard<std::mutex> lock(mutexClock);
    const auto timePassed = std::chrono::duration_cast<std::chrono::milliseconds>(timeNow - timeStart + timeDateBy);
    return QDateTime(QDate(2024, 5, 1), QTime(12, 0, 1)).addMSecs(timePassed.count());
}

void CHandClock::Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Time timeEnd) const
{
    {
        const std::lock_guard<std::mutex> lockClock(mutexClock);
        if (timeNow >= timeEnd) {
            return;
        }
        timeAlarm = timeEnd;
        ++nWaits;
        conditionWaits.notify_all();
        pCondition = &condition;
        pMutex = lock.mutex();
    }
    condition.wait(lock);
    const std::lock_guard<std::mutex> lockClock(mutexClock);
    timeAlarm = Time();
}

int CHandClock::Turn(std::chrono::milliseconds time)
{
    int nWaitsBefore = 0;
    std::mutex* pMutexOfWaiter = nullptr;
    std::condition_variable* pConditionOfWaiter = nullptr;
    {
        const std::lock_guard<std::mutex> lock(mutexClock);
        timeNow += time;
        nWaitsBefore = nWaits;
        pMutexOfWaiter = pMutex;
        pConditionOfWaiter = pCondition;
    }
    if (pMutexOfWaiter) {
        // Who is about to wait holds this from its look at the clock until it can be notified.
        const std::lock_guard<std::mutex> lock(*pMutexOfWaiter);
        pConditionOfWaiter->notify_all();
    }
    return nWaitsBefore;
}

void CHandClock::SetDateBy(std::chrono::seconds time)
{
    const std::lock_guard<std::mutex> lock(mutexClock);
    timeDateBy += time;
}

CControlClock::Time CHandClock::GetAlarm() const
{
    const std::lock_guard<std::mutex> lock(mutexClock);
    return timeAlarm;
}

int CHandClock::GetWaits() const
{
    const std::lock_guard<std::mutex> lock(mutexClock);
    return nWaits;
}

bool CHandClock::AwaitWait(int nWaitsBefore, std::chrono::milliseconds timeMost) const
{
    std::unique_lock<std::mutex> lock(mutexClock);
    return conditionWaits.wait_for(lock, timeMost, [&] { return nWaits > nWaitsBefore; });
}
