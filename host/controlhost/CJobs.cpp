#include "controlhost/CJobs.h"

#include <algorithm>

void CJobs::SetBusy(bool bNow)
{
    QDateTime timeNow;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const int nBefore = nBusy;
        nBusy = std::max(0, nBusy + (bNow ? 1 : -1));
        if ((nBefore > 0) == (nBusy > 0)) {
            condEnd.notify_all();
            return;
        }
        timeSince = timeNow = nBusy > 0 ? QDateTime::currentDateTime() : QDateTime();
        ++nSignals;
    }
    emit BusyChanged(bNow, timeNow);
    EndSignal();
}

bool CJobs::IsBusy() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return nBusy > 0;
}

QDateTime CJobs::GetBusySince() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return timeSince;
}

void CJobs::Begin(const QString& strJob)
{
    QStringList listNow;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        listJob.append(strJob);
        listNow = listJob;
        ++nSignals;
    }
    emit JobsChanged(listNow);
    EndSignal();
}

void CJobs::End(const QString& strJob)
{
    QStringList listNow;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        listJob.removeOne(strJob);
        listNow = listJob;
        ++nSignals;
    }
    emit JobsChanged(listNow);
    EndSignal();
}

QStringList CJobs::GetRunning() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return listJob;
}

void CJobs::AwaitIdle(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    const auto isQuiet = [this] { return listJob.isEmpty() && nSignals == 0; };
    condEnd.wait(lock, isQuiet);
    condEnd.wait_until(lock, std::chrono::steady_clock::now() + time, [&] { return nBusy == 0 && isQuiet(); });
}

// Notifies under the lock: the waiter may destroy this object as soon as it gets the lock.
void CJobs::EndSignal()
{
    const std::lock_guard<std::mutex> lock(mutex);
    --nSignals;
    condEnd.notify_all();
}
