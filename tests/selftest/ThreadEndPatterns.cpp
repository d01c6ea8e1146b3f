#include "ThreadEndPatterns.h"

#include "ProcessThreads.h"

#include <QCoreApplication>
#include <QThread>
#include <QThreadStorage>

#include <atomic>

#include <unistd.h>

using RacePattern::nShared;

namespace {

void CleanWorkerThatDeletesItself()
{
    QThread thread;
    auto* pWorker = new QObject;
    pWorker->moveToThread(&thread);
    QObject::connect(&thread, &QThread::finished, pWorker, &QObject::deleteLater);
    QObject::connect(pWorker, &QObject::destroyed, [] { ++nShared; });
    thread.start();
    thread.quit();
    thread.wait();
    ++nShared;
}

/// A thread that ends at once and says which it is.
class CBriefThread final : public QThread
{
public:
    /// Returns when the system no longer knows the thread. QThread::wait would order one that still runs by a lock.
    void RunToItsEnd()
    {
        start();
        while (nId.load(std::memory_order_relaxed) == 0) {
            yieldCurrentThread();
        }
        const QString strId = QString::number(nId.load(std::memory_order_relaxed));
        while (ProcessThreads::GetIds().contains(strId)) {
            yieldCurrentThread();
        }
    }

protected:
    void run() override
    {
        nId.store(gettid(), std::memory_order_relaxed);
    }

private:
    std::atomic_int nId{ 0 };
};

class CStored final
{
public:
    ~CStored()
    {
        ++nShared;
    }
};

void CleanThreadStorage()
{
    QThreadStorage<CStored*> storage;
    CBriefThread thread;
    QObject::connect(&thread, &QThread::started, [&storage] { storage.setLocalData(new CStored); });
    thread.RunToItsEnd();
    thread.wait();
    ++nShared;
}

/// Nothing but the thread itself orders the two workers.
void CleanDestructorsAfterFinished()
{
    CBriefThread thread;
    for (int i = 0; i < 2; ++i) {
        auto* pWorker = new QObject;
        pWorker->moveToThread(&thread);
        QObject::connect(&thread, &QThread::finished, pWorker, &QObject::deleteLater);
        QObject::connect(pWorker, &QObject::destroyed, [] { ++nShared; });
    }
    thread.RunToItsEnd();
    thread.wait();
    ++nShared;
}

/// The slot runs before the thread has ended, and without an event loop.
void CleanQueuedFinished()
{
    std::atomic_bool bFinished{ false };
    std::atomic_bool bTaken{ false };
    CBriefThread thread;
    QObject::connect(&thread, &QThread::finished, qApp, [] { ++nShared; });
    QObject::connect(
        &thread, &QThread::finished, &thread,
        [&] {
            bFinished.store(true, std::memory_order_relaxed);
            while (!bTaken.load(std::memory_order_relaxed)) {
                QThread::yieldCurrentThread();
            }
        },
        Qt::DirectConnection);
    QObject::connect(&thread, &QThread::started, [] { ++nShared; });
    thread.start();
    while (!bFinished.load(std::memory_order_relaxed)) {
        QThread::yieldCurrentThread();
    }
    QCoreApplication::sendPostedEvents(qApp);
    bTaken.store(true, std::memory_order_relaxed);
    thread.wait();
}

/// Nobody waits for the thread but its own destructor.
void CleanThreadThatDeletesItself()
{
    auto* pThread = new QThread;
    auto* pWorker = new QObject;
    pWorker->moveToThread(pThread);
    QObject::connect(pThread, &QThread::finished, pWorker, &QObject::deleteLater);
    QObject::connect(pWorker, &QObject::destroyed, [] { ++nShared; });
    bool bGone = false;
    QObject::connect(pThread, &QThread::finished, pThread, &QObject::deleteLater);
    QObject::connect(pThread, &QObject::destroyed, [&bGone] { bGone = true; });
    pThread->start();
    pThread->quit();
    while (!bGone) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    ++nShared;
}

} // namespace

RacePatterns ThreadEndPatterns::All()
{
    return {
        { "cleanWorkerThatDeletesItself", &CleanWorkerThatDeletesItself },   { "cleanThreadStorage", &CleanThreadStorage },
        { "cleanDestructorsAfterFinished", &CleanDestructorsAfterFinished }, { "cleanQueuedFinished", &CleanQueuedFinished },
        { "cleanThreadThatDeletesItself", &CleanThreadThatDeletesItself },
    };
}
