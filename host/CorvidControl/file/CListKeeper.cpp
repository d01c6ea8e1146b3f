#include "CorvidControl/file/CListKeeper.h"

#include <QtGlobal>

#include <algorithm>

CListKeeper::CListKeeper(const std::function<bool()>& saveIn, const SListClock& clockIn)
    : save(saveIn), clock(clockIn), threadSave([this] { Run(); })
{ }

CListKeeper::~CListKeeper()
{
    Stop();
}

void CListKeeper::Touch()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        timeLast = clock.now();
        if (!timeFirst) {
            timeFirst = timeLast;
        }
    }
    condWork.notify_all();
}

void CListKeeper::Wake()
{
    // Under the lock: the thread may be between its look at the clock and its wait.
    const std::lock_guard<std::mutex> lock(mutex);
    condWork.notify_all();
}

void CListKeeper::Stop()
{
    Q_ASSERT(std::this_thread::get_id() != threadSave.get_id());
    {
        const std::lock_guard<std::mutex> lock(mutex);
        bStop = true;
    }
    condWork.notify_all();
    if (threadSave.joinable()) {
        threadSave.join();
    }
}

void CListKeeper::Run()
{
    Lock lock(mutex);
    while (!bStop) {
        const std::optional<Time> timeDue = FindDue(lock);
        if (!timeDue) {
            condWork.wait(lock);
        } else if (clock.now() < *timeDue) {
            condWork.wait_for(lock, *timeDue - clock.now());
        } else {
            SaveNow(lock);
        }
    }
    if (timeFirst) {
        SaveNow(lock);
    }
}

// Lets go of the lock while it saves. A change that comes meanwhile waits anew.
void CListKeeper::SaveNow(Lock& lock)
{
    timeFirst.reset();
    lock.unlock();
    const bool bDone = save();
    lock.lock();
    if (!bDone && !timeFirst) {
        timeFirst = clock.now();
        timeLast = *timeFirst + timeLongest; // no sooner, nothing else has changed
    }
}

std::optional<CListKeeper::Time> CListKeeper::FindDue(const Lock& /*lock*/) const
{
    return timeFirst ? std::make_optional(std::min(timeLast + timeQuiet, *timeFirst + timeLongest)) : std::nullopt;
}
