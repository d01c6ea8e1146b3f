#include "CorvidControl/objects/CControlClock.h"

const CControlClock& CControlClock::GetSystem()
{
    static const CControlClock clock;
    return clock;
}

CControlClock::Time CControlClock::GetNow() const
{
    return std::chrono::steady_clock::now();
}

QDateTime CControlClock::GetDate() const
{
    return QDateTime::currentDateTime();
}

void CControlClock::Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Time timeEnd) const
{
    Q_ASSERT(lock.owns_lock());
    condition.wait_until(lock, timeEnd);
}
