#pragma once

#include "data/CProcessorTreeThread.h"

#include <QSemaphore>
#include <QThread>

/// The worker with its inside open to a test.
class CProbeWorker : public CProcessorTreeThread
{
    Q_OBJECT

public:
    using CBaseThread::ActivateThread;
    using CBaseThread::bExit;
    using CBaseThread::bIdle;
    using CBaseThread::mutexQueue;

    QList<int> Queue();

    /// Past the filter, without a wake-up.
    void Append(int nMessage);
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
    bool Stop(int nTimeout = 10000);
    void RequestStop();

    /// True when the signal for message 59 has come once more.
    bool WaitForToolBar(int nTimeout = 5000);

    /// True when the loop has nothing to do.
    bool WaitForIdle(int nTimeout = 5000);

    CProbeWorker* pWorker; ///< ends itself when its thread has run
    QThread thread;

private:
    QSemaphore semaphoreToolBar;
    bool bStarted = false;
};
