#pragma once

#include <QDateTime>
#include <QStringList>

#include <condition_variable>
#include <mutex>

class CHostEvents;

/// What is under way: the busy state that the panel sets around its jobs, and the calls that block
/// inside the library. All operations may be called on any thread.
class CJobs
{
public:
    explicit CJobs(CHostEvents& eventsIn) : events(eventsIn) { }

    /// The calls of two jobs may overlap: busy ends with the last of them.
    void SetBusy(bool bNow);
    bool IsBusy() const;
    QDateTime GetBusySince() const; ///< invalid when idle

    void Begin(const QString& strJob);
    void End(const QString& strJob);
    QStringList GetRunning() const; ///< oldest first

    /// Waits until nothing runs inside the library, and at most time for the busy state to end: its job
    /// may have died.
    void AwaitIdle(std::chrono::milliseconds time);

private:
    void Told();

    CHostEvents& events;

    mutable std::mutex mutex; ///< guards all below
    std::condition_variable condEnd;
    QStringList listJob;
    int nBusy = 0;
    int nTelling = 0; ///< calls that are emitting a signal just now
    QDateTime timeSince;
};
