#include "CWorkerRig.h"

#include <QDeadlineTimer>

QList<int> CProbeWorker::Queue()
{
    const std::lock_guard<std::mutex> lock(mutexQueue);
    return listMessage;
}

void CProbeWorker::Append(int nMessage)
{
    const std::lock_guard<std::mutex> lock(mutexQueue);
    listMessage.append(nMessage);
}

CWorkerRig::CWorkerRig() : pWorker(new CProbeWorker)
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

void CWorkerRig::RequestStop()
{
    if (pWorker != nullptr) {
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
        if (pWorker->bIdle && pWorker->Queue().isEmpty()) {
            return true;
        }
        QThread::yieldCurrentThread();
    }
    return false;
}
