#include "CWorkerRig.h"
#include "TestMain.h"
#include "data/CProcessorTreeData.h"
#include "double/CControlDouble.h"

#include <atomic>
#include <future>
#include <limits>
#include <thread>

namespace {

using namespace std::chrono_literals;

/// Far longer than anything takes that does not wait for a lock.
constexpr int nLongMs = 30;

const QSet<int> setRefreshing{ 1, 7, 9, 10, 14, 15, 32, 53, 54 };
const QStringList listSubject{ "g_pPrcBasicControl",      "g_pPrcListControl",  "g_pRuntimeControl",   "g_pPrcRuntimeControl",
                               "g_pProjectManageControl", "g_pProtocalControl", "g_pPreferenceControl" };

QStringList CallsOf(const char* pOperation, const QString& strThread)
{
    QStringList listCall;
    for (const QString& strSubject : listSubject) {
        listCall.append(strThread + ": " + strSubject + "." + pOperation + "(observer)");
    }
    return listCall;
}

void SpinUntil(const std::atomic<bool>& bFlag)
{
    while (!bFlag.load(std::memory_order_relaxed)) {
        QThread::yieldCurrentThread();
    }
}

} // namespace

/// Who is heard, what is filed, and what each message leads to.
class CWorkerQueueTest : public QObject
{
    Q_OBJECT

private slots:
    void theWorkerIsAnObjectFirstAndAnObserverSecond()
    {
        CControlDouble control;
        CProcessorTreeThread worker;
        QCOMPARE(static_cast<void*>(static_cast<QObject*>(&worker)), static_cast<void*>(&worker));
        QVERIFY(static_cast<void*>(static_cast<CObserver*>(&worker)) != static_cast<void*>(&worker));
        QVERIFY(worker.inherits("CBaseThread"));
        QCOMPARE(sizeof(CProcessorTreeThread), sizeof(CBaseThread));
        QCOMPARE(worker.parent(), nullptr);
    }

    void theLoopIsASlotAndTheToolBarMessageASignal()
    {
        const QMetaObject& meta = CProcessorTreeThread::staticMetaObject;
        const QMetaMethod loop = meta.method(meta.indexOfMethod("ThreadStart()"));
        QCOMPARE(loop.methodType(), QMetaMethod::Slot);
        QCOMPARE(loop.access(), QMetaMethod::Public);
        const QMetaMethod toolBar = meta.method(meta.indexOfMethod("UpdateToolBar()"));
        QCOMPARE(toolBar.methodType(), QMetaMethod::Signal);
        QCOMPARE(toolBar.access(), QMetaMethod::Public);
    }

    void aNewWorkerIsIdleWithAnEmptyQueue()
    {
        CControlDouble control;
        CWorkerRig rig;
        QCOMPARE(rig.Probe().IsIdle(), true);
        QCOMPARE(rig.Probe().IsToExit(), false);
        QCOMPARE(rig.Probe().Queue(), QList<int>());
    }

    void sevenObjectsAreHeardFromTheStart()
    {
        CControlDouble control;
        CWorkerRig rig;
        QCOMPARE(control.CallsWithThread(), CallsOf("Attach", "gui"));
        QCOMPARE(control.Attached(), listSubject);
    }

    void theConstructorOnlyAttaches()
    {
        CControlDouble control;
        CWorkerRig rig;
        QCOMPARE(control.Calls(), control.Subscriptions());
    }

    void theWorkerDetachesInTheSameOrderOnItsOwnThread()
    {
        CControlDouble control;
        CWorkerRig rig;
        rig.Start();
        control.ClearJournal();
        QVERIFY(rig.Stop());
        QCOMPARE(control.CallsWithThread(), CallsOf("Detach", "worker"));
        QCOMPARE(control.Attached(), QStringList());
    }

    void aWorkerThatNeverRanDetachesToo()
    {
        CControlDouble control;
        {
            CWorkerRig rig;
            rig.pWorker->Notify(1);
            rig.pWorker->ThreadExit();
            control.ClearJournal();
        }
        QCOMPARE(control.CallsWithThread(), CallsOf("Detach", "gui"));
    }

    void everySubjectIsHeard_data()
    {
        QTest::addColumn<QString>("strSubject");
        for (const QString& strSubject : listSubject) {
            QTest::newRow(qPrintable(strSubject)) << strSubject;
        }
    }

    void everySubjectIsHeard()
    {
        QFETCH(QString, strSubject);
        CControlDouble control;
        CWorkerRig rig;
        control.Raise(1, strSubject);
        QVERIFY(control.WaitForDelivery());
        QCOMPARE(rig.Probe().Queue(), QList<int>{ 1 });
    }

    void onlyTenNumbersAreFiled_data()
    {
        QTest::addColumn<int>("nMessage");
        QTest::addColumn<bool>("bFiled");
        const auto fnAdd = [](int nMessage, bool bFiled) { QTest::addRow("%d", nMessage) << nMessage << bFiled; };
        for (int nMessage = -1; nMessage <= 70; ++nMessage) {
            fnAdd(nMessage, setRefreshing.contains(nMessage) || nMessage == 59);
        }
        // A shift by 64 and more would wrap to the wanted numbers.
        for (const int nBase : { 64, 128, 256, 1 << 16, -64 }) {
            for (const int nMessage : { 1, 7, 59 }) {
                fnAdd(nBase + nMessage, false);
            }
        }
        fnAdd(std::numeric_limits<int>::max(), false);
        fnAdd(std::numeric_limits<int>::min(), false);
        fnAdd(std::numeric_limits<int>::min() + 1, false);
    }

    void onlyTenNumbersAreFiled()
    {
        QFETCH(int, nMessage);
        QFETCH(bool, bFiled);
        CControlDouble control;
        CProcessorTreeThread worker;
        worker.Notify(nMessage);
        QCOMPARE(CWorkerProbe(&worker).Queue(), bFiled ? QList<int>{ nMessage } : QList<int>());
        QCOMPARE(CWorkerProbe(&worker).IsIdle(), !bFiled);
    }

    void eachMessageLeadsToItsOwnAction_data()
    {
        QTest::addColumn<int>("nMessage");
        for (int nMessage = -1; nMessage <= 70; ++nMessage) {
            QTest::addRow("%d", nMessage) << nMessage;
        }
    }

    void eachMessageLeadsToItsOwnAction()
    {
        QFETCH(int, nMessage);
        CControlDouble control;
        CWorkerRig rig;
        rig.pWorker->Notify(nMessage);
        rig.pWorker->Notify(59);
        rig.Start();
        QVERIFY(rig.WaitForToolBar());
        QCOMPARE(rig.WaitForIdle(), true);
        QCOMPARE(control.CallCount("GetDiscoveredTree"), setRefreshing.contains(nMessage) ? 1 : 0);
        QCOMPARE(rig.WaitForToolBar(0), nMessage == 59);
    }

    void messagesAreFiledInOrderAndNeverMerged()
    {
        CControlDouble control;
        CWorkerRig rig;
        for (const int nMessage : { 54, 1, 1, 2, 59, 1, 0, 59, 14 }) {
            rig.pWorker->Notify(nMessage);
        }
        QCOMPARE(rig.Probe().Queue(), (QList<int>{ 54, 1, 1, 59, 1, 59, 14 }));
    }

    void aDroppedMessageTakesNoLock()
    {
        CControlDouble control;
        CProcessorTreeThread worker;
        std::unique_lock<std::mutex> lock(CWorkerProbe(&worker).QueueMutex());
        const auto dropped = std::async(std::launch::async, [&] { worker.Notify(2); });
        const bool bDropped = dropped.wait_for(std::chrono::milliseconds(nPatience)) == std::future_status::ready;
        const auto filed = std::async(std::launch::async, [&] { worker.Notify(1); });
        const bool bFiledEarly = filed.wait_for(30ms) == std::future_status::ready;
        lock.unlock();
        QVERIFY(bDropped);
        QVERIFY(!bFiledEarly);
    }

    void theFrontIsReadUnderTheLockOfTheQueue()
    {
        CControlDouble control;
        CWorkerRig rig;
        rig.pWorker->Notify(1);
        std::unique_lock<std::mutex> lock(rig.Probe().QueueMutex());
        rig.Start();
        const bool bEarly = control.WaitForCall("GetDiscoveredTree", 1, nLongMs);
        lock.unlock();
        QVERIFY(!bEarly);
        QVERIFY(control.WaitForCall("GetDiscoveredTree"));
    }

    void theFrontIsRemovedUnderTheLockOfTheQueue()
    {
        CControlDouble control;
        control.Hold("GetDiscoveredTree");
        CWorkerRig rig;
        rig.pWorker->Notify(1);
        rig.Start();
        QVERIFY(control.WaitForHeld("GetDiscoveredTree"));
        std::unique_lock<std::mutex> lock(rig.Probe().QueueMutex());
        control.Release("GetDiscoveredTree");
        const bool bEarly = QTest::qWaitFor([&] { return rig.Probe().IsIdle(); }, nLongMs);
        lock.unlock();
        QVERIFY(!bEarly);
        QVERIFY(rig.WaitForIdle());
    }

    /// For the thread sanitizer: nothing but the lock of the queue orders the two threads, for it overlooks relaxed
    /// operations.
    void aMessageIsFiledOnAThreadOfItsOwnDuringARefresh()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) { answers.strProject = QUuid::createUuid().toString(); });
        std::atomic<bool> bRefreshing{ false };
        std::atomic<bool> bFiled{ false };
        QObject context;
        const auto fnWait = [&] {
            bRefreshing.store(true, std::memory_order_relaxed);
            SpinUntil(bFiled);
        };
        connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyWindowTitle, &context, fnWait, Qt::DirectConnection);
        CWorkerRig rig;
        rig.pWorker->Notify(1);
        std::thread other([&] {
            SpinUntil(bRefreshing);
            rig.pWorker->Notify(1);
            bFiled.store(true, std::memory_order_relaxed);
        });
        rig.Start();
        other.join();
        QVERIFY(control.WaitForCall("IsSimulatorPane", 2));
    }

    void anUnknownNumberInTheQueueIsOnlyRemoved()
    {
        CControlDouble control;
        CWorkerRig rig;
        for (const int nMessage : { 2, 63, 0, 65, -1, 64 + 32, std::numeric_limits<int>::min() }) {
            rig.Probe().Append(nMessage);
        }
        rig.pWorker->Notify(59);
        rig.Start();
        QVERIFY(rig.WaitForToolBar());
        QVERIFY(rig.WaitForIdle());
        QCOMPARE(control.CallCount("GetDiscoveredTree"), 0);
    }

    void anEmptyQueueAnswersZero()
    {
        CControlDouble control;
        CWorkerRig rig;
        rig.Probe().Activate();
        QCOMPARE(rig.Probe().IsIdle(), false);
        rig.Start();
        QVERIFY(rig.WaitForIdle());
        QCOMPARE(control.CallCount("GetDiscoveredTree"), 0);
        QVERIFY(!rig.WaitForToolBar(0));
    }
};

PTV_TEST_MAIN_CORE(CWorkerQueueTest)

#include "tst_workerqueue.moc"
