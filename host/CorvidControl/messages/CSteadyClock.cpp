#include "CorvidControl/messages/CSteadyClock.h"

CSteadyClock::Time CSteadyClock::GetNow() const
{
    return std::chrono::steady_clock::now();
}

void CSteadyClock::Wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock, Time timeEnd) const
{
    condition.wait_until(lock, timeEnd);
}
