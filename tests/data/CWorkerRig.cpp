#include "CWorkerRig.h"

#include <QDeadlineTimer>

namespace {

/// Names what is protected; there is no object of it.
class CAccess : public CBaseThread
{
public:
    static constexpr auto pIdle = &CAccess::bIdle;
    static constexpr auto pExit = &CAccess::bExit;
    static constexpr auto pQueue = &CAccess::listMessage;
    static constexpr auto pQueueMutex = &CAccess::mutexQueue;
    static constexpr auto pWakeMutex = &CAccess::mutexWake;
    static constexpr auto pWakeCondition = &CAccess::condWake;
    static constexpr auto fnActivate = &CAccess::ActivateThread;
};

} // namespace

bool CWorkerProbe::IsIdle() const
{
    return pThread->*CAccess::pIdle;
}

bool CWorkerProbe::IsToExit() const
{
    return pThread->*CAccess::pExit;
}

QList<int> CWorkerProbe::Queue() const
{
    const std::lock_guard<std::mutex> lock(QueueMutex());
    return pThread->*CAccess::pQueue;
}

std::mutex& CWorkerProbe::QueueMutex() const
{
    return pThread->*CAccess::pQueueMutex;
}

std::mutex& CWorkerProbe::WakeMutex() const
{
    return pThread->*CAccess::pWakeMutex;
}

std::condition_variable& CWorkerProbe::WakeCondition() const
{
    return pThread->*CAccess::pWakeCondition;
}

void CWorkerProbe::Activate() const
{
    (pThread->*CAccess::fnActivate)();
}

void CWorkerProbe::ExitWithOneWakeUp() const
{
    pThread->*CAccess::pExit = true;
    WakeCondition().notify_all();
}

void CWorkerProbe::Append(int nMessage) const
{
    const std::lock_guard<std::mutex> lock(QueueMutex());
    (pThread->*CAccess::pQueue).append(nMessage);
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

void CWorkerRig::RequestStopWithOneWakeUp()
{
    bStopRequested = true;
    Probe().ExitWithOneWakeUp();
    thread.quit();
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
