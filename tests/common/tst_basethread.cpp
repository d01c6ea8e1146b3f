#include "TestMain.h"
#include "interfaces/widgets/CBaseThread.h"

#include <QElapsedTimer>
#include <QThread>

#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace {

constexpr int nCycles = 4000;
constexpr int nPatience = 10000; // milliseconds; a stop that takes longer hangs

/// The loop that the panel runs on the base class, with a list of what it took out of the queue.
class CRecordingThread : public CBaseThread
{
    Q_OBJECT

public:
    using CBaseThread::ActivateThread;
    using CBaseThread::bIdle;
    using CBaseThread::GetFrontType;
    using CBaseThread::RemoveFront;

    void Notify(int nMessage) override
    {
        {
            const std::lock_guard<std::mutex> lock(mutexQueue);
            listMessage.append(nMessage);
        }
        ActivateThread();
    }

    void ThreadStart() override
    {
        while (!bExit) {
            if (bIdle) {
                if (fnBeforeWait) {
                    fnBeforeWait();
                }
                std::unique_lock<std::mutex> lock(mutexWake);
                nWaits++;
                condWake.wait(lock);
                continue;
            }
            nLastMessage = GetFrontType();
            nTaken++;
            if (RemoveFront() == 0) {
                bIdle = true;
            }
        }
        bEnded = true;
        ThreadFinished();
    }

    std::function<void()> fnBeforeWait; ///< runs in the gap between the test of bIdle and the wait
    std::atomic<int> nWaits{ 0 };
    std::atomic<int> nTaken{ 0 };
    std::atomic<int> nLastMessage{ -1 };
    std::atomic<bool> bEnded{ false };
};

/// True when the thread has ended in time. A hung one is left alone, since nothing can end it.
bool Join(std::thread& thread, const std::atomic<bool>& bEnded)
{
    QElapsedTimer timer;
    timer.start();
    while (!bEnded && timer.elapsed() < nPatience) {
        std::this_thread::yield();
    }
    const bool bInTime = bEnded;
    bInTime ? thread.join() : thread.detach();
    return bInTime;
}

} // namespace

class CBaseThreadTest : public QObject
{
    Q_OBJECT

private slots:
    void newThreadIsIdleWithAnEmptyQueue()
    {
        CRecordingThread worker;
        QVERIFY(worker.bIdle);
        QCOMPARE(worker.GetFrontType(), 0);
    }

    void emptyQueueAnswersZeroToALateWakeUp()
    {
        CRecordingThread worker;
        worker.ActivateThread();
        QCOMPARE(worker.GetFrontType(), 0);
        QCOMPARE(worker.RemoveFront(), 0);
        QCOMPARE(worker.RemoveFront(), 0);
    }

    void frontIsTheOldestAndStaysUntilRemoved()
    {
        CRecordingThread worker;
        worker.Notify(7);
        worker.Notify(14);
        worker.Notify(9);
        QCOMPARE(worker.GetFrontType(), 7);
        QCOMPARE(worker.GetFrontType(), 7);
        QCOMPARE(worker.RemoveFront(), 2);
        QCOMPARE(worker.GetFrontType(), 14);
        QCOMPARE(worker.RemoveFront(), 1);
        QCOMPARE(worker.RemoveFront(), 0);
        QCOMPARE(worker.GetFrontType(), 0);
    }

    void activateEndsTheIdleState()
    {
        CRecordingThread worker;
        worker.ActivateThread();
        QVERIFY(!worker.bIdle);
    }

    void messageWakesTheSleepingLoop()
    {
        CRecordingThread worker;
        std::thread thread(&CRecordingThread::ThreadStart, &worker);
        QTRY_VERIFY(worker.nWaits > 0);
        // The wait has no predicate, so that a message in the gap before it waits for the next one.
        QTRY_VERIFY((worker.Notify(32), worker.nTaken > 0));
        QCOMPARE(worker.nLastMessage.load(), 32);
        worker.ThreadExit();
        QVERIFY(Join(thread, worker.bEnded));
    }

    void stopWakesTheSleepingLoop()
    {
        CRecordingThread worker;
        std::thread thread(&CRecordingThread::ThreadStart, &worker);
        QTRY_VERIFY(worker.nWaits > 0);
        worker.ThreadExit();
        QVERIFY(Join(thread, worker.bEnded));
        QCOMPARE(worker.nTaken.load(), 0);
    }

    void stopBeforeTheLoopLetsItEndAtOnce()
    {
        CRecordingThread worker;
        worker.Notify(1);
        worker.ThreadExit();
        std::thread thread(&CRecordingThread::ThreadStart, &worker);
        QVERIFY(Join(thread, worker.bEnded));
        QCOMPARE(worker.nTaken.load(), 0);
    }

    void stopWithoutALoopReturnsAndTheObjectCanGo()
    {
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 100; ++i) {
            CRecordingThread worker;
            worker.ThreadExit();
        }
        QVERIFY(timer.elapsed() < nPatience);
    }

    void secondStopIsHarmless()
    {
        CRecordingThread worker;
        std::thread thread(&CRecordingThread::ThreadStart, &worker);
        worker.ThreadExit();
        worker.ThreadExit();
        QVERIFY(Join(thread, worker.bEnded));
        worker.ThreadExit();
    }

    void stopReturnsAtOnceWhileTheLoopIsBusy()
    {
        CRecordingThread worker;
        std::atomic<bool> bStopped{ false };
        // The thread stands for a refresh that goes on until the stop has been asked for.
        std::thread thread([&worker, &bStopped] {
            while (!bStopped) {
                std::this_thread::yield();
            }
            worker.ThreadStart();
        });
        worker.ThreadExit();
        bStopped = true;
        QVERIFY(Join(thread, worker.bEnded));
    }

    void stopThatFallsBeforeTheWaitStillEndsTheLoop()
    {
        auto pWorker = std::make_unique<CRecordingThread>();
        std::atomic<bool> bInGap{ false };
        std::atomic<bool> bStopped{ false };
        pWorker->fnBeforeWait = [&bInGap, &bStopped] {
            bInGap = true;
            while (!bStopped) {
                std::this_thread::yield();
            }
        };
        std::thread thread(&CRecordingThread::ThreadStart, pWorker.get());
        QTRY_VERIFY(bInGap);
        pWorker->ThreadExit();
        bStopped = true;
        const bool bJoined = Join(thread, pWorker->bEnded);
        if (!bJoined) {
            pWorker.release(); // its loop still sleeps
        }
        QVERIFY(bJoined);
    }

    void noStopEverHangs()
    {
        for (int i = 0; i < nCycles; ++i) {
            auto pWorker = std::make_unique<CRecordingThread>();
            std::thread thread(&CRecordingThread::ThreadStart, pWorker.get());
            if (i % 2 == 0) {
                pWorker->Notify(1);
            }
            for (int nSpin = i % 97; nSpin > 0; --nSpin) {
                std::this_thread::yield();
            }
            pWorker->ThreadExit();
            if (!Join(thread, pWorker->bEnded)) {
                pWorker.release(); // its loop still runs
                QFAIL(qPrintable(QStringLiteral("stop %1 hangs").arg(i)));
            }
        }
    }

    void stopWhileMessagesRainFromManyThreads()
    {
        CRecordingThread worker;
        std::atomic<bool> bRain{ true };
        std::vector<std::thread> vecRain;
        for (int i = 0; i < 4; ++i) {
            vecRain.emplace_back([&worker, &bRain] {
                while (bRain) {
                    worker.Notify(1);
                    std::this_thread::yield();
                }
            });
        }
        std::thread thread(&CRecordingThread::ThreadStart, &worker);
        const bool bWorked = QTest::qWaitFor([&worker] { return worker.nTaken > 100; }, nPatience);
        worker.ThreadExit();
        const bool bJoined = Join(thread, worker.bEnded);
        bRain = false;
        for (std::thread& rain : vecRain) {
            rain.join();
        }
        QVERIFY(bWorked);
        QVERIFY(bJoined);
    }

    void wholeLifeOnAQThread()
    {
        for (int i = 0; i < 200; ++i) {
            QThread thread;
            QPointer<CRecordingThread> pWorker = new CRecordingThread;
            pWorker->moveToThread(&thread);
            connect(&thread, &QThread::started, pWorker.data(), &CBaseThread::ThreadStart);
            connect(&thread, &QThread::finished, pWorker.data(), &QObject::deleteLater);
            thread.start();
            pWorker->ThreadExit();
            thread.quit();
            QVERIFY(thread.wait(nPatience));
            QVERIFY(pWorker.isNull());
        }
    }

    void messageThatComesDuringALateWakeUpIsNotLost()
    {
        CRecordingThread worker;
        worker.ActivateThread(); // late: the queue is empty already
        QCOMPARE(worker.GetFrontType(), 0);
        worker.Notify(7);
        QCOMPARE(worker.RemoveFront(), 1);
        QCOMPARE(worker.GetFrontType(), 7);
        QCOMPARE(worker.RemoveFront(), 0);
    }
};

PTV_TEST_MAIN_CORE(CBaseThreadTest)
#include "tst_basethread.moc"
