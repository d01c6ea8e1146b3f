// One pattern of sharing data between threads a name, right or wrong; the thread sanitizer is to tell
// them apart. Prints nothing; the sanitizer's exit code is the answer.
#include <QCoreApplication>
#include <QMutex>
#include <QReadWriteLock>
#include <QSemaphore>
#include <QThread>
#include <QWaitCondition>
#include <QtConcurrent>

#include "TestMain.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>

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

constexpr int nRounds = 200;
constexpr std::chrono::seconds timePatience{ 10 };
int s_nShared = 0;

/// Runs fn on two threads that nothing else orders.
void Twice(const std::function<void()>& fn)
{
    std::thread other(fn);
    fn();
    other.join();
}

void Repeat(const std::function<void()>& fn)
{
    for (int i = 0; i < nRounds; ++i) {
        fn();
    }
}

class CCountingThread final : public QThread
{
protected:
    void run() override
    {
        Repeat([] { ++s_nShared; });
    }
};

void RaceWithoutLock()
{
    Twice([] { Repeat([] { ++s_nShared; }); });
}

void RaceWriteUnderReadLock()
{
    QReadWriteLock lock(QReadWriteLock::Recursive);
    Twice([&lock] {
        Repeat([&lock] {
            const QReadLocker locker(&lock);
            ++s_nShared;
        });
    });
}

void RaceAfterRecursiveUnlock()
{
    QReadWriteLock lock(QReadWriteLock::Recursive);
    Twice([&lock] {
        Repeat([&lock] {
            lock.lockForWrite();
            lock.lockForWrite();
            lock.unlock();
            lock.unlock();
            ++s_nShared;
        });
    });
}

void RaceTwoMutexes()
{
    QMutex mutexA;
    QMutex mutexB;
    std::thread other([&mutexB] {
        Repeat([&mutexB] {
            const QMutexLocker locker(&mutexB);
            ++s_nShared;
        });
    });
    Repeat([&mutexA] {
        const QMutexLocker locker(&mutexA);
        ++s_nShared;
    });
    other.join();
}

void RaceWithPoolJob()
{
    const QFuture<void> future = QtConcurrent::run([] { Repeat([] { ++s_nShared; }); });
    Repeat([] { ++s_nShared; });
    QFuture<void>(future).waitForFinished();
}

void RaceWithThreadBeforeWait()
{
    CCountingThread thread;
    thread.start();
    Repeat([] { ++s_nShared; });
    thread.wait();
}

/// The write comes after the lock was given back, and the wait for a steady time orders it no more.
void RaceBehindSteadyWait()
{
    std::mutex mutex;
    std::condition_variable condition;
    bool bReady = false;
    std::thread other([&] {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            bReady = true;
            condition.notify_all();
        }
        Repeat([] { ++s_nShared; });
    });
    {
        std::unique_lock<std::mutex> lock(mutex);
        condition.wait_until(lock, std::chrono::steady_clock::now() + timePatience, [&] { return bReady; });
    }
    Repeat([] { ++s_nShared; });
    other.join();
}

void CleanReadWriteLock()
{
    QReadWriteLock lock(QReadWriteLock::Recursive);
    Twice([&lock] {
        Repeat([&lock] {
            const QWriteLocker outer(&lock);
            const QWriteLocker inner(&lock);
            ++s_nShared;
        });
    });
}

void CleanReaders()
{
    QReadWriteLock lock(QReadWriteLock::Recursive);
    int nSum = 0;
    std::thread writer([&lock] {
        Repeat([&lock] {
            const QWriteLocker locker(&lock);
            ++s_nShared;
        });
    });
    Repeat([&lock, &nSum] {
        const QReadLocker locker(&lock);
        nSum += s_nShared;
    });
    writer.join();
}

void CleanMutex()
{
    QMutex mutex;
    Twice([&mutex] {
        Repeat([&mutex] {
            const QMutexLocker locker(&mutex);
            ++s_nShared;
        });
    });
}

void CleanWaitCondition()
{
    QMutex mutex;
    QWaitCondition condition;
    bool bReady = false;
    std::thread other([&] {
        ++s_nShared;
        const QMutexLocker locker(&mutex);
        bReady = true;
        condition.wakeAll();
    });
    {
        const QMutexLocker locker(&mutex);
        while (!bReady) {
            condition.wait(&mutex);
        }
    }
    ++s_nShared;
    other.join();
}

/// Each of two threads has its turn; both wait for a steady time, which also runs out now and then.
void CleanSteadyWait()
{
    std::mutex mutex;
    std::condition_variable condition;
    int nTurn = 0;
    const auto play = [&](int nMine) {
        for (int i = 0; i < nRounds; ++i) {
            std::unique_lock<std::mutex> lock(mutex);
            while (nTurn != nMine) {
                condition.wait_until(lock, std::chrono::steady_clock::now() + std::chrono::microseconds(50));
            }
            ++s_nShared;
            nTurn = 1 - nTurn;
            condition.notify_all();
        }
    };
    std::thread other([&] { play(1); });
    play(0);
    other.join();
}

void CleanSemaphore()
{
    QSemaphore semaphore;
    std::thread other([&semaphore] {
        ++s_nShared;
        semaphore.release();
    });
    semaphore.acquire();
    ++s_nShared;
    other.join();
}

/// Emits on a thread of its own; the queued slot reads what was written before. Delivered without an event
/// loop: the pipe that wakes a loop would order the two as well.
void CleanQueuedSignal()
{
    QThread thread;
    CEmitter emitter;
    std::atomic_bool bEmitted{ false };
    emitter.moveToThread(&thread);
    QObject::connect(&emitter, &CEmitter::Emitted, qApp, [] { ++s_nShared; });
    QObject::connect(&thread, &QThread::started, &emitter, [&emitter, &bEmitted] {
        ++s_nShared;
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
        ++s_nShared;
        QMetaObject::invokeMethod(&worker, [] { ++s_nShared; }, Qt::BlockingQueuedConnection);
    });
    thread.quit();
    thread.wait();
}

void CleanPoolJob()
{
    Repeat([] {
        ++s_nShared;
        QFuture<int> future = QtConcurrent::run([] { return ++s_nShared; });
        future.waitForFinished();
        ++s_nShared;
    });
}

void CleanThreadAfterWait()
{
    CCountingThread thread;
    ++s_nShared;
    thread.start();
    thread.wait();
    ++s_nShared;
}

void CleanWorkerThatDeletesItself()
{
    QThread thread;
    auto* pWorker = new QObject;
    pWorker->moveToThread(&thread);
    QObject::connect(&thread, &QThread::finished, pWorker, &QObject::deleteLater);
    QObject::connect(pWorker, &QObject::destroyed, [] { ++s_nShared; });
    thread.start();
    thread.quit();
    thread.wait();
    ++s_nShared;
}

using FnPattern = void (*)();
const std::map<std::string, FnPattern> mapPattern{
    { "raceWithoutLock", &RaceWithoutLock },
    { "raceWriteUnderReadLock", &RaceWriteUnderReadLock },
    { "raceAfterRecursiveUnlock", &RaceAfterRecursiveUnlock },
    { "raceTwoMutexes", &RaceTwoMutexes },
    { "raceWithPoolJob", &RaceWithPoolJob },
    { "raceWithThreadBeforeWait", &RaceWithThreadBeforeWait },
    { "raceBehindSteadyWait", &RaceBehindSteadyWait },
    { "cleanReadWriteLock", &CleanReadWriteLock },
    { "cleanReaders", &CleanReaders },
    { "cleanMutex", &CleanMutex },
    { "cleanWaitCondition", &CleanWaitCondition },
    { "cleanSteadyWait", &CleanSteadyWait },
    { "cleanSemaphore", &CleanSemaphore },
    { "cleanQueuedSignal", &CleanQueuedSignal },
    { "cleanQueuedRecord", &CleanQueuedRecord },
    { "cleanInvokedMethods", &CleanInvokedMethods },
    { "cleanPoolJob", &CleanPoolJob },
    { "cleanThreadAfterWait", &CleanThreadAfterWait },
    { "cleanWorkerThatDeletesItself", &CleanWorkerThatDeletesItself },
};

} // namespace

int main(int argc, char** argv)
{
    TestMain::CApplication<QCoreApplication> application(argc, argv);
    const auto it = argc == 2 ? mapPattern.find(argv[1]) : mapPattern.end();
    if (it == mapPattern.end()) {
        return 2;
    }
    it->second();
    return 0;
}
#include "race_probe.moc"
