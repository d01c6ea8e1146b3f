#include "CorvidControl/CJobs.h"

#include "CorvidControl/CHostEvents.h"

#include <algorithm>

void CJobs::SetBusy(bool bNow)
{
    QDateTime timeNow;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const int nBefore = nBusy;
        nBusy = std::max(0, nBusy + (bNow ? 1 : -1));
        if ((nBefore > 0) == (nBusy > 0))
            return;
        timeSince = timeNow = nBusy > 0 ? QDateTime::currentDateTime() : QDateTime();
        condEnd.notify_all();
    }
    emit events.BusyChanged(bNow, timeNow);
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
    }
    emit events.JobsChanged(listNow);
}

void CJobs::End(const QString& strJob)
{
    QStringList listNow;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        listJob.removeOne(strJob);
        listNow = listJob;
    }
    emit events.JobsChanged(listNow);
    condEnd.notify_all();
}

QStringList CJobs::GetRunning() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return listJob;
}

void CJobs::AwaitIdle(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    condEnd.wait(lock, [this] { return listJob.isEmpty(); });
    condEnd.wait_until(lock, std::chrono::system_clock::now() + time, [this] { return nBusy == 0; });
}
