#include "LockPatterns.h"

#include <QMutex>
#include <QReadWriteLock>
#include <QSemaphore>
#include <QWaitCondition>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

using RacePattern::nRounds;
using RacePattern::nShared;
using RacePattern::Repeat;
using RacePattern::Twice;

namespace {

constexpr std::chrono::seconds timePatience{ 10 };

void RaceWithoutLock()
{
    Twice([] { Repeat([] { ++nShared; }); });
}

void RaceWriteUnderReadLock()
{
    QReadWriteLock lock(QReadWriteLock::Recursive);
    Twice([&lock] {
        Repeat([&lock] {
            const QReadLocker locker(&lock);
            ++nShared;
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
            ++nShared;
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
            ++nShared;
        });
    });
    Repeat([&mutexA] {
        const QMutexLocker locker(&mutexA);
        ++nShared;
    });
    other.join();
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
        Repeat([] { ++nShared; });
    });
    {
        std::unique_lock<std::mutex> lock(mutex);
        condition.wait_until(lock, std::chrono::steady_clock::now() + timePatience, [&] { return bReady; });
    }
    Repeat([] { ++nShared; });
    other.join();
}

void CleanReadWriteLock()
{
    QReadWriteLock lock(QReadWriteLock::Recursive);
    Twice([&lock] {
        Repeat([&lock] {
            const QWriteLocker outer(&lock);
            const QWriteLocker inner(&lock);
            ++nShared;
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
            ++nShared;
        });
    });
    Repeat([&lock, &nSum] {
        const QReadLocker locker(&lock);
        nSum += nShared;
    });
    writer.join();
}

void CleanMutex()
{
    QMutex mutex;
    Twice([&mutex] {
        Repeat([&mutex] {
            const QMutexLocker locker(&mutex);
            ++nShared;
        });
    });
}

void CleanWaitCondition()
{
    QMutex mutex;
    QWaitCondition condition;
    bool bReady = false;
    std::thread other([&] {
        ++nShared;
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
    ++nShared;
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
            ++nShared;
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
        ++nShared;
        semaphore.release();
    });
    semaphore.acquire();
    ++nShared;
    other.join();
}

} // namespace

RacePatterns LockPatterns::All()
{
    return {
        { "raceWithoutLock", &RaceWithoutLock },
        { "raceWriteUnderReadLock", &RaceWriteUnderReadLock },
        { "raceAfterRecursiveUnlock", &RaceAfterRecursiveUnlock },
        { "raceTwoMutexes", &RaceTwoMutexes },
        { "raceBehindSteadyWait", &RaceBehindSteadyWait },
        { "cleanReadWriteLock", &CleanReadWriteLock },
        { "cleanReaders", &CleanReaders },
        { "cleanMutex", &CleanMutex },
        { "cleanWaitCondition", &CleanWaitCondition },
        { "cleanSteadyWait", &CleanSteadyWait },
        { "cleanSemaphore", &CleanSemaphore },
    };
}
