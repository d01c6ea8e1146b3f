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

int CJobs::Begin(const QString& strJob)
{
    int nJob = 0;
    QStringList listNow;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        vecJob.append({ strJob, QDateTime::currentDateTime() });
        nJob = ++nLast;
        vecNumber.append(nJob);
        listNow = GetNames(lock);
        ++nSignals;
    }
    emit JobsChanged(listNow);
    EndSignal();
    return nJob;
}

void CJobs::End(int nJob)
{
    QStringList listNow;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const int nAt = FindJob(lock, nJob);
        if (nAt >= 0) {
            vecJob.removeAt(nAt);
            vecNumber.removeAt(nAt);
        }
        listNow = GetNames(lock);
        ++nSignals;
    }
    emit JobsChanged(listNow);
    EndSignal();
}

QStringList CJobs::GetRunning() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return GetNames(lock);
}

void CJobs::SetProgress(int nJob, int nDone, int nAll)
{
    QVector<SRunningJob> vecNow;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const int nAt = FindJob(lock, nJob);
        if (nAt < 0) {
            return;
        }
        vecJob[nAt].nDone = nDone;
        vecJob[nAt].nAll = nAll;
        vecNow = vecJob;
        ++nSignals;
    }
    emit Progressed(vecNow);
    EndSignal();
}

QVector<SRunningJob> CJobs::GetProgress() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return vecJob;
}

void CJobs::AwaitIdle(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    const auto isQuiet = [this] { return vecJob.isEmpty() && nSignals == 0; };
    condEnd.wait(lock, isQuiet);
    condEnd.wait_until(lock, std::chrono::steady_clock::now() + time, [&] { return nBusy == 0 && isQuiet(); });
}

// -1 when it does not run.
int CJobs::FindJob(const std::lock_guard<std::mutex>& /*lock*/, int nJob) const
{
    return vecNumber.indexOf(nJob);
}

QStringList CJobs::GetNames(const std::lock_guard<std::mutex>& /*lock*/) const
{
    QStringList listName;
    for (const SRunningJob& job : vecJob) {
        listName.append(job.strJob);
    }
    return listName;
}

// Notifies under the lock: the waiter may destroy this object as soon as it gets the lock.
void CJobs::EndSignal()
{
    const std::lock_guard<std::mutex> lock(mutex);
    --nSignals;
    condEnd.notify_all();
}
