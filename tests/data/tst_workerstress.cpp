#include "CWorkerRig.h"
#include "TestMain.h"
#include "double/CControlDouble.h"

#include <atomic>
#include <memory>
#include <thread>

namespace {

/// A fraction of the cycles where a sanitizer makes each of them slow.
int Cycles(int n)
{
    return qEnvironmentVariableIsEmpty("PTV_SANITIZE") ? n : n / 5;
}

/// Threads that send messages as fast as they can.
class CMessageRain
{
public:
    CMessageRain(CControlDouble& control, int nThreads)
    {
        for (int i = 0; i < nThreads; ++i) {
            vecThread.emplace_back([this, &control, i] { Send(control, i); });
        }
    }

    ~CMessageRain()
    {
        bEnd = true;
        for (std::thread& thread : vecThread) {
            thread.join();
        }
    }
    Q_DISABLE_COPY(CMessageRain)

private:
    void Send(CControlDouble& control, int nFirst)
    {
        for (int nMessage = nFirst; !bEnd; ++nMessage) {
            control.RaiseHere(nMessage % 70);
        }
    }

    std::atomic<bool> bEnd{ false };
    std::vector<std::thread> vecThread;
};

} // namespace

/// Thousands of starts and stops. A stop that is lost ends the run.
class CWorkerStressTest : public QObject
{
    Q_OBJECT

private slots:
    void noStopIsLost()
    {
        CControlDouble control;
        for (int i = 0; i < Cycles(4000); ++i) {
            CWorkerRig rig;
            rig.Start();
            if (i % 2 != 0) {
                QVERIFY(rig.WaitForIdle());
            }
            QVERIFY(rig.Stop());
            control.ClearJournal();
        }
        QCOMPARE(control.Attached(), QStringList());
    }

    void noStopIsLostRightAfterAMessage()
    {
        CControlDouble control;
        for (int i = 0; i < Cycles(2000); ++i) {
            CWorkerRig rig;
            rig.pWorker->Notify(i % 2 != 0 ? 1 : 59);
            rig.Start();
            QVERIFY(i % 2 != 0 ? control.WaitForCall("IsSimulatorPane") : rig.WaitForToolBar());
            QVERIFY(rig.Stop());
            control.ClearJournal();
        }
        QCOMPARE(control.Attached(), QStringList());
    }

    void workersComeAndGoWhileMessagesRain()
    {
        CControlDouble control;
        const CMessageRain rain(control, 4);
        for (int i = 0; i < Cycles(2000); ++i) {
            CWorkerRig rig;
            rig.Start();
            QVERIFY(i % 10 != 0 || control.WaitForCall("GetDiscoveredTree"));
            QVERIFY(rig.Stop());
            control.ClearJournal();
        }
        QCOMPARE(control.Attached(), QStringList());
    }
};

PTV_TEST_MAIN_CORE(CWorkerStressTest)

#include "tst_workerstress.moc"
