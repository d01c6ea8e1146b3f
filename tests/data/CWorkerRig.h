#pragma once

#include "Patience.h"
#include "data/CProcessorTreeThread.h"

#include <QSemaphore>
#include <QThread>

/// The inside of a worker, which nothing can derive from: it is heard before its constructor ends.
class CWorkerProbe
{
public:
    explicit CWorkerProbe(CBaseThread* pThreadIn) : pThread(pThreadIn) { }

    bool IsIdle() const;
    bool IsToExit() const;
    QList<int> Queue() const;
    std::mutex& QueueMutex() const;
    std::mutex& WakeMutex() const;
    std::condition_variable& WakeCondition() const;
    void Activate() const;
    void ExitWithOneWakeUp() const;

    /// Past the filter, without a wake-up.
    void Append(int nMessage) const;

private:
    CBaseThread* pThread;
};

/// A worker and its thread, made, started and stopped in the order in which the panel does it.
class CWorkerRig
{
public:
    /// Makes the worker, which attaches at once; its thread does not run yet.
    CWorkerRig();
    ~CWorkerRig();
    Q_DISABLE_COPY(CWorkerRig)

    void Start();

    /// Asks the worker to end and waits for it; false when it has not ended within nTimeout milliseconds.
    bool Stop(int nTimeout = nPatience);
    void RequestStop();

    /// A stop as it would be without the thread that repeats the wake-up.
    void RequestStopWithOneWakeUp();

    /// True when the signal for message 59 has come once more.
    bool WaitForToolBar(int nTimeout = nPatience);

    /// True when the loop has nothing to do.
    bool WaitForIdle(int nTimeout = nPatience);

    CWorkerProbe Probe() const
    {
        return CWorkerProbe(pWorker);
    }

    CProcessorTreeThread* pWorker; ///< ends itself when its thread has run
    QThread thread;

private:
    QSemaphore semaphoreToolBar;
    bool bStarted = false;
    bool bStopRequested = false;
};
