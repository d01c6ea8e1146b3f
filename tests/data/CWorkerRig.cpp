#include "CWorkerRig.h"

#include <QDeadlineTimer>

namespace
{
/// Names what is protected; there is no object of it.
class CAccess : public CBaseThread
{
public:
    static constexpr auto IDLE = &CAccess::bIdle;
    static constexpr auto EXIT = &CAccess::bExit;
    static constexpr auto QUEUE = &CAccess::listMessage;
    static constexpr auto QUEUE_MUTEX = &CAccess::mutexQueue;
    static constexpr auto ACTIVATE = &CAccess::ActivateThread;
};
} // namespace

bool CWorkerProbe::IsIdle() const
{
    return pThread->*CAccess::IDLE;
}

bool CWorkerProbe::IsToExit() const
{
    return pThread->*CAccess::EXIT;
}

QList<int> CWorkerProbe::Queue() const
{
    const std::lock_guard<std::mutex> lock(QueueMutex());
    return pThread->*CAccess::QUEUE;
}

std::mutex& CWorkerProbe::QueueMutex() const
{
    return pThread->*CAccess::QUEUE_MUTEX;
}

void CWorkerProbe::Activate() const
{
    (pThread->*CAccess::ACTIVATE)();
}

void CWorkerProbe::Append(int nMessage) const
{
    const std::lock_guard<std::mutex> lock(QueueMutex());
    (pThread->*CAccess::QUEUE).append(nMessage);
}

CWorkerRig::CWorkerRig() : pWorker(new CProcessorTreeThread)
{
    QObject::connect(
        pWorker, &CProcessorTreeThread::UpdateToolBar, pWorker, [this] { semaphoreToolBar.release(); }, Qt::DirectConnection);
    QObject::connect(&thread, &QThread::started, pWorker, &CProcessorTreeThread::ThreadStart);
    QObject::connect(&thread, &QThread::finished, pWorker, &QObject::deleteLater);
    pWorker->moveToThread(&thread);
}

CWorkerRig::~CWorkerRig()
{
    if (!bStarted) {
        delete pWorker;
    } else if (!Stop()) {
        qFatal("the worker does not end");
    }
}

void CWorkerRig::Start()
{
    bStarted = true;
    thread.start();
}

// Once: with the end of the thread, which may come at any time from now on, the worker dies.
void CWorkerRig::RequestStop()
{
    if (!bStopRequested) {
        bStopRequested = true;
        pWorker->ThreadExit();
        thread.quit();
    }
}

bool CWorkerRig::Stop(int nTimeout)
{
    RequestStop();
    if (!thread.wait(static_cast<unsigned long>(nTimeout))) {
        return false;
    }
    pWorker = nullptr;
    return true;
}

bool CWorkerRig::WaitForToolBar(int nTimeout)
{
    return semaphoreToolBar.tryAcquire(1, nTimeout);
}

bool CWorkerRig::WaitForIdle(int nTimeout)
{
    const QDeadlineTimer deadline(nTimeout);
    while (!deadline.hasExpired()) {
        if (Probe().IsIdle() && Probe().Queue().isEmpty()) {
            return true;
        }
        QThread::yieldCurrentThread();
    }
    return false;
}
