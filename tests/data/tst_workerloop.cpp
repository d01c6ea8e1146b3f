#include "CSignalLog.h"
#include "CWorkerRig.h"
#include "TestMain.h"
#include "data/CProcessorTreeData.h"
#include "double/CControlDouble.h"
#include "double/SCall.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPreferenceControl.h"

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

/// Notes when each reading came to its end.
class CReadingClock final : public IPreferenceControl
{
public:
    CReadingClock() : pInner(std::exchange(g_pPreferenceControl, this)) { }
    ~CReadingClock()
    {
        g_pPreferenceControl = pInner;
    }
    Q_DISABLE_COPY(CReadingClock)

    void Attach(CObserver* pObserver) override
    {
        pInner->Attach(pObserver);
    }
    void Detach(CObserver* pObserver) override
    {
        pInner->Detach(pObserver);
    }
    bool IsChiefMode() override
    {
        vecTime.push_back(Clock::now());
        return pInner->IsChiefMode();
    }

    std::vector<Clock::time_point> vecTime; ///< written by the worker, read after its end

private:
    IPreferenceControl* pInner;
};

bool IsOnWorker(const SCall& call)
{
    return call.strThread == "worker";
}

} // namespace

/// The loop on its thread: one refresh a message, its pace, its sleep and its end.
class CWorkerLoopTest : public QObject
{
    Q_OBJECT

private slots:
    void theStartAsksForNoRefresh()
    {
        CControlDouble control;
        CWorkerRig rig;
        rig.Start();
        rig.pWorker->Notify(59);
        QVERIFY(rig.Stop());
        QCOMPARE(control.CallCount("GetDiscoveredTree"), 0);
    }

    void messagesThatCameBeforeTheStartAreServed()
    {
        CControlDouble control;
        CWorkerRig rig;
        control.RaiseHere(32);
        rig.Start();
        QVERIFY(control.WaitForCall("IsSimulatorPane"));
    }

    void threeMessagesAreThreeRefreshes()
    {
        CControlDouble control;
        CWorkerRig rig;
        for (const int nMessage : { 1, 1, 1, 59 }) {
            control.RaiseHere(nMessage);
        }
        rig.Start();
        QVERIFY(rig.WaitForToolBar());
        QCOMPARE(control.CallCount("GetDiscoveredTree"), 3);
        QVERIFY(rig.WaitForIdle());
        QCOMPARE(control.CallCount("GetDiscoveredTree"), 3);
    }

    void messagesThatWaitTogetherAreServedAtLeastTenMillisecondsApart()
    {
        CControlDouble control;
        CReadingClock clock;
        CWorkerRig rig;
        for (const int nMessage : { 1, 7, 9, 10, 14, 15, 32, 53, 54, 59 }) {
            control.RaiseHere(nMessage);
        }
        rig.Start();
        QVERIFY(rig.WaitForToolBar());
        QVERIFY(rig.Stop());
        QCOMPARE(clock.vecTime.size(), size_t(9));
        for (size_t i = 1; i < clock.vecTime.size(); ++i) {
            QVERIFY(clock.vecTime[i] - clock.vecTime[i - 1] >= std::chrono::milliseconds(10));
        }
    }

    void theLibraryIsReadOnTheWorkersThread()
    {
        CControlDouble control;
        CWorkerRig rig;
        control.RaiseHere(1);
        control.RaiseHere(59);
        control.ClearJournal();
        rig.Start();
        QVERIFY(rig.WaitForToolBar());
        const QList<SCall> listCall = control.Journal();
        QCOMPARE(listCall.size(), 9);
        QVERIFY(std::all_of(listCall.cbegin(), listCall.cend(), &IsOnWorker));
        QCOMPARE(listCall.first().Text(), QString("g_pPrcListControl.GetDiscoveredTree()"));
        QCOMPARE(listCall.last().Text(), QString("g_pRuntimeControl.IsSimulatorPane()"));
    }

    void aMessageStaysInTheQueueDuringItsRefresh()
    {
        CControlDouble control;
        control.Hold("GetDiscoveredTree");
        CWorkerRig rig;
        control.RaiseHere(1);
        rig.Start();
        QVERIFY(control.WaitForHeld("GetDiscoveredTree"));
        QCOMPARE(rig.Probe().Queue(), QList<int>{ 1 });
        control.RaiseHere(7);
        QCOMPARE(rig.Probe().Queue(), (QList<int>{ 1, 7 }));
        control.Release("GetDiscoveredTree");
        QVERIFY(control.WaitForCall("IsSimulatorPane", 2));
        QVERIFY(rig.WaitForIdle());
        QCOMPARE(control.CallCount("IsSimulatorPane"), 2);
    }

    void aSleepingWorkerWakesForAMessage()
    {
        CControlDouble control;
        CWorkerRig rig;
        rig.Start();
        QVERIFY(rig.WaitForIdle());
        // A message can fall into the gap before the sleep and then waits for the next one.
        const auto fnServed = [&] {
            control.Raise(1);
            return control.WaitForCall("IsSimulatorPane", 1, 100);
        };
        QTRY_VERIFY(fnServed());
    }

    void theToolBarMessageIsSignalledOnTheWorkersThread()
    {
        CControlDouble control;
        CWorkerRig rig;
        QThread* pSignalThread = nullptr;
        const auto fnNote = [&] { pSignalThread = QThread::currentThread(); };
        connect(rig.pWorker, &CProcessorTreeThread::UpdateToolBar, rig.pWorker, fnNote, Qt::DirectConnection);
        rig.pWorker->Notify(59);
        rig.Start();
        QVERIFY(rig.WaitForToolBar());
        QVERIFY(rig.Stop());
        QCOMPARE(pSignalThread, &rig.thread);
        QCOMPARE(control.CallCount("GetDiscoveredTree"), 0);
    }

    void theStoresSignalsReachTheGuiThreadAsQueuedCalls()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) { answers.strProject = QUuid::createUuid().toString(); });
        QThread* pDirectThread = nullptr;
        QThread* pQueuedThread = nullptr;
        QString strSeen;
        QObject context;
        CWorkerRig rig;
        const auto fnDirect = [&] { pDirectThread = QThread::currentThread(); };
        const auto fnQueued = [&] {
            pQueuedThread = QThread::currentThread();
            strSeen = g_pProcessorTreeData->GetProjectName();
        };
        connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyWindowTitle, &context, fnDirect, Qt::DirectConnection);
        connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyWindowTitle, &context, fnQueued);
        rig.pWorker->Notify(1);
        rig.Start();
        QTRY_COMPARE(strSeen, control.Answers().strProject);
        QVERIFY(rig.Stop());
        QCOMPARE(pDirectThread, &rig.thread);
        QCOMPARE(pQueuedThread, QThread::currentThread());
    }

    void aSleepingWorkerCanBeStopped()
    {
        CControlDouble control;
        CWorkerRig rig;
        rig.pWorker->Notify(59);
        rig.Start();
        QVERIFY(rig.WaitForToolBar());
        QVERIFY(rig.WaitForIdle());
        QVERIFY(rig.Stop());
        QVERIFY(rig.thread.isFinished());
    }

    void aStopBeforeTheStartEndsTheLoopAtOnce()
    {
        CControlDouble control;
        CWorkerRig rig;
        rig.pWorker->Notify(1);
        rig.pWorker->ThreadExit();
        rig.Start();
        QVERIFY(rig.Stop());
        QCOMPARE(control.CallCount("GetDiscoveredTree"), 0);
    }

    void aStopDropsWhatIsQueued()
    {
        CControlDouble control;
        control.Hold("GetDiscoveredTree");
        CWorkerRig rig;
        for (int i = 0; i < 1000; ++i) {
            rig.pWorker->Notify(1);
        }
        rig.Start();
        QVERIFY(control.WaitForHeld("GetDiscoveredTree"));
        rig.RequestStop();
        control.Release("GetDiscoveredTree");
        QVERIFY(rig.Stop());
        QCOMPARE(control.CallCount("GetDiscoveredTree"), 1);
        QCOMPARE(control.CallCount("IsSimulatorPane"), 1);
    }

    void aStopWaitsForTheRefreshThatRunsAndOnlyForIt()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) { answers.strProject = QUuid::createUuid().toString(); });
        control.Hold("GetSimulatorTree");
        CWorkerRig rig;
        rig.pWorker->Notify(1);
        rig.Start();
        QVERIFY(control.WaitForHeld("GetSimulatorTree"));
        rig.RequestStop();
        QVERIFY(!rig.thread.wait(50));
        QCOMPARE(control.CallCount("Detach"), 0);
        control.Release("GetSimulatorTree");
        QVERIFY(rig.Stop());
        QCOMPARE(g_pProcessorTreeData->GetProjectName(), control.Answers().strProject);
        QCOMPARE(control.CallCount("Detach"), 7);
    }

    void aStopMayBeAskedForTwice()
    {
        CControlDouble control;
        control.Hold("GetSimulatorTree");
        CWorkerRig rig;
        rig.pWorker->Notify(1);
        rig.Start();
        QVERIFY(control.WaitForHeld("GetSimulatorTree"));
        rig.pWorker->ThreadExit();
        rig.pWorker->ThreadExit();
        control.Release("GetSimulatorTree");
        QVERIFY(rig.Stop());
    }

    void theWorkerIsDestroyedOnItsThreadBeforeTheStopReturns()
    {
        CControlDouble control;
        CWorkerRig rig;
        QThread* pEndThread = nullptr;
        connect(rig.pWorker, &QObject::destroyed, [&] { pEndThread = QThread::currentThread(); });
        rig.Start();
        QVERIFY(rig.Stop());
        QCOMPARE(pEndThread, &rig.thread);
    }

    void messagesDuringTheStopHarmNobody()
    {
        CControlDouble control;
        CWorkerRig rig;
        rig.Start();
        for (int i = 0; i < 1000; ++i) {
            control.Raise(1 + i % 59);
        }
        QVERIFY(rig.Stop());
        QVERIFY(control.WaitForDelivery());
        QCOMPARE(control.Attached(), QStringList());
    }
};

PTV_TEST_MAIN_CORE(CWorkerLoopTest)

#include "tst_workerloop.moc"
