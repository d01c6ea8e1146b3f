#include "CorvidControl/file/CListKeeper.h"

#include <QtGlobal>

#include <algorithm>

CListKeeper::CListKeeper(const std::function<bool()>& saveIn, const CControlClock& clockIn)
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
        timeLast = clock.GetNow();
        if (!timeFirst) {
            timeFirst = timeLast;
        }
    }
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
        } else if (clock.GetNow() < *timeDue) {
            clock.Wait(condWork, lock, *timeDue);
        } else {
            SaveNow(lock);
        }
    }
    if (timeFirst) {
        SaveNow(lock);
    }
}

// Releases the lock while it saves. A change that arrives meanwhile starts a new wait.
void CListKeeper::SaveNow(Lock& lock)
{
    timeFirst.reset();
    lock.unlock();
    const bool bDone = save();
    lock.lock();
    if (!bDone && !timeFirst) {
        timeFirst = clock.GetNow();
        timeLast = *timeFirst + timeLongest; // no sooner, nothing else has changed
    }
}

std::optional<CListKeeper::Time> CListKeeper::FindDue(const Lock& /*lock*/) const
{
    return timeFirst ? std::make_optional(std::min(timeLast + timeQuiet, *timeFirst + timeLongest)) : std::nullopt;
}
