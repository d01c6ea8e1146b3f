#include "ThreadPatterns.h"

#include <QCoreApplication>
#include <QThread>
#include <QtConcurrent>

#include <atomic>
#include <thread>

using RacePattern::nShared;
using RacePattern::Repeat;

/// A record that Qt copies for a queued signal, by code of the program.
struct SNumber
{
    int n = 0;
};
Q_DECLARE_METATYPE(SNumber)

/// Signals that the program emits, not Qt itself.
class CEmitter final : public QObject
{
    Q_OBJECT

signals:
    void Emitted();
    void Counted(const SNumber& number);
};

namespace {

class CCountingThread final : public QThread
{
protected:
    void run() override
    {
        Repeat([] { ++nShared; });
    }
};

void RaceWithPoolJob()
{
    const QFuture<void> future = QtConcurrent::run([] { Repeat([] { ++nShared; }); });
    Repeat([] { ++nShared; });
    QFuture<void>(future).waitForFinished();
}

void RaceWithThreadBeforeWait()
{
    CCountingThread thread;
    thread.start();
    Repeat([] { ++nShared; });
    thread.wait();
}

/// Emits on a thread of its own; the queued slot reads what was written before. Delivered without an event
/// loop: the pipe that wakes a loop would order the two as well.
void CleanQueuedSignal()
{
    QThread thread;
    CEmitter emitter;
    std::atomic_bool bEmitted{ false };
    emitter.moveToThread(&thread);
    QObject::connect(&emitter, &CEmitter::Emitted, qApp, [] { ++nShared; });
    QObject::connect(&thread, &QThread::started, &emitter, [&emitter, &bEmitted] {
        ++nShared;
        emit emitter.Emitted();
        bEmitted.store(true, std::memory_order_relaxed);
    });
    thread.start();
    while (!bEmitted.load(std::memory_order_relaxed)) {
        QThread::yieldCurrentThread();
    }
    QCoreApplication::sendPostedEvents(qApp);
    thread.quit();
    thread.wait();
}

// Qt copies the record when the signal has been emitted.
void CleanQueuedRecord()
{
    qRegisterMetaType<SNumber>();
    CEmitter emitter;
    QObject receiver;
    int nSum = 0;
    std::atomic_bool bEmitted{ false };
    QObject::connect(&emitter, &CEmitter::Counted, &receiver, [&nSum](const SNumber& number) { nSum += number.n; });
    std::thread other([&emitter, &bEmitted] {
        emit emitter.Counted({ 1 });
        bEmitted.store(true, std::memory_order_relaxed);
    });
    while (!bEmitted.load(std::memory_order_relaxed)) {
        QThread::yieldCurrentThread();
    }
    QCoreApplication::sendPostedEvents(&receiver);
    other.join();
}

void CleanInvokedMethods()
{
    QThread thread;
    QObject worker;
    worker.moveToThread(&thread);
    thread.start();
    Repeat([&worker] {
        ++nShared;
        QMetaObject::invokeMethod(&worker, [] { ++nShared; }, Qt::BlockingQueuedConnection);
    });
    thread.quit();
    thread.wait();
}

void CleanPoolJob()
{
    Repeat([] {
        ++nShared;
        QFuture<int> future = QtConcurrent::run([] { return ++nShared; });
        future.waitForFinished();
        ++nShared;
    });
}

void CleanThreadAfterWait()
{
    CCountingThread thread;
    ++nShared;
    thread.start();
    thread.wait();
    ++nShared;
}

} // namespace

RacePatterns ThreadPatterns::All()
{
    return {
        { "raceWithPoolJob", &RaceWithPoolJob },           { "raceWithThreadBeforeWait", &RaceWithThreadBeforeWait },
        { "cleanQueuedSignal", &CleanQueuedSignal },       { "cleanQueuedRecord", &CleanQueuedRecord },
        { "cleanInvokedMethods", &CleanInvokedMethods },   { "cleanPoolJob", &CleanPoolJob },
        { "cleanThreadAfterWait", &CleanThreadAfterWait },
    };
}
#include "ThreadPatterns.moc"
