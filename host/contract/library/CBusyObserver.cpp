#include "contract/library/CBusyObserver.h"

void CBusyObserver::Notify(int /*nMessage*/)
{
    std::unique_lock<std::mutex> lock(mutex);
    ++nRunning;
    const bool bFirst = nCount++ == 0;
    cond.notify_all();
    if (bFirst) {
        lock.unlock();
        action();
        lock.lock();
        bEnded = true;
    }
    --nRunning;
    cond.notify_all();
}

bool CBusyObserver::AwaitStart(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    return cond.wait_for(lock, time, [this] { return nCount > 0; });
}

bool CBusyObserver::AwaitEnd(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    return cond.wait_for(lock, time, [this] { return bEnded; });
}

bool CBusyObserver::IsRunning() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return nRunning > 0;
}

int CBusyObserver::GetCount() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return nCount;
}
