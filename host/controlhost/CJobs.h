#pragma once

#include "controlhost/ControlHostGlobal.h"
#include "controlhost/SRunningJob.h"

#include <QObject>
#include <QStringList>

#include <condition_variable>
#include <mutex>

/// What is under way: the busy state that the panel sets around its jobs, and the calls that block
/// inside the library. The signals of both come on the thread that called, without a lock. All operations may
/// be called on any thread.
class CONTROLHOST_EXPORT CJobs : public QObject
{
    Q_OBJECT

public:
    /// The calls of two jobs may overlap: busy ends with the last of them. A false without a true changes nothing.
    void SetBusy(bool bNow);
    bool IsBusy() const;            ///< a job of the panel is under way
    QDateTime GetBusySince() const; ///< invalid when idle

    /// A blocking call begins or ends; strJob says what it does, for display. Each Begin has its End, with the
    /// number that it has returned, or AwaitIdle never returns.
    int Begin(const QString& strJob);
    void End(int nJob);             ///< as Begin
    QStringList GetRunning() const; ///< oldest first

    /// How far a job is that has begun; nAll is 0 where nobody knows. One that does not run changes nothing.
    void SetProgress(int nJob, int nDone, int nAll);
    QVector<SRunningJob> GetProgress() const; ///< of all that run, oldest first

    /// Blocks until nothing runs inside the library and no signal about it is being emitted, and then at most time for
    /// the busy state to end: its job may have died.
    void AwaitIdle(std::chrono::milliseconds time);

signals:
    void BusyChanged(bool bBusy, const QDateTime& timeSince); ///< timeSince is invalid at the end
    void JobsChanged(const QStringList& listJob);             ///< all that run, oldest first
    void Progressed(const QVector<SRunningJob>& vecJob);      ///< all that run: one of them got further

private:
    int FindJob(const std::lock_guard<std::mutex>& lock, int nJob) const;
    QStringList GetNames(const std::lock_guard<std::mutex>& lock) const;
    void EndSignal();

    mutable std::mutex mutex; ///< guards all below
    std::condition_variable condEnd;
    QVector<SRunningJob> vecJob;
    QVector<int> vecNumber; ///< of the jobs, in their order
    int nLast = 0;          ///< number
    int nBusy = 0;
    int nSignals = 0; ///< that are being emitted just now
    QDateTime timeSince;
};
