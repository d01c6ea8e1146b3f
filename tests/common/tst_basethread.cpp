#include "CRecordingThread.h"
#include "TestMain.h"

#include <QElapsedTimer>
#include <QThread>

#include <memory>
#include <vector>

namespace {

constexpr int nCycles = 200; ///< each place where a stop may fall, with a message and without

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
        QVERIFY(worker.Join(thread));
    }

    void stopWakesTheSleepingLoop()
    {
        CRecordingThread worker;
        std::thread thread(&CRecordingThread::ThreadStart, &worker);
        QTRY_VERIFY(worker.nWaits > 0);
        worker.ThreadExit();
        QVERIFY(worker.Join(thread));
        QCOMPARE(worker.nTaken.load(), 0);
    }

    void stopBeforeTheLoopLetsItEndAtOnce()
    {
        CRecordingThread worker;
        worker.Notify(1);
        worker.ThreadExit();
        std::thread thread(&CRecordingThread::ThreadStart, &worker);
        QVERIFY(worker.Join(thread));
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
        QVERIFY(worker.Join(thread));
        worker.ThreadExit();
    }

    void stopReturnsAtOnceWhileTheLoopIsBusy()
    {
        CRecordingThread worker;
        QSemaphore semaphoreStopped;
        // The thread stands for a refresh that goes on until the stop has been asked for.
        std::thread thread([&worker, &semaphoreStopped] {
            semaphoreStopped.acquire();
            worker.ThreadStart();
        });
        worker.ThreadExit();
        semaphoreStopped.release();
        QVERIFY(worker.Join(thread));
    }

    void stopThatFallsBeforeTheWaitStillEndsTheLoop()
    {
        auto pWorker = std::make_unique<CRecordingThread>();
        QSemaphore semaphoreInGap;
        QSemaphore semaphoreStopped;
        pWorker->fnBeforeWait = [&semaphoreInGap, &semaphoreStopped] {
            semaphoreInGap.release();
            semaphoreStopped.acquire();
        };
        std::thread thread(&CRecordingThread::ThreadStart, pWorker.get());
        semaphoreInGap.acquire();
        pWorker->ThreadExit();
        semaphoreStopped.release();
        const bool bJoined = pWorker->Join(thread);
        if (!bJoined) {
            pWorker.release(); // its loop still sleeps
        }
        QVERIFY(bJoined);
    }

    void noStopEverHangs()
    {
        QCOMPARE(FirstHangingStop(nCycles), -1);
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
        const bool bJoined = worker.Join(thread);
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
