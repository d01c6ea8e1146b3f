#include "CFilledStore.h"
#include "SRefreshRig.h"
#include "SStoreCall.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <future>
#include <new>

namespace {

using namespace std::chrono_literals;
using StoreSignal = void (CProcessorTreeData::*)();

/// Far longer than any call takes that does not wait for a lock.
constexpr auto timeLong = 30ms;
constexpr auto timeDeadline = 10s;

bool EndsWithin(const std::future<void>& future, std::chrono::milliseconds nTime)
{
    return future.wait_for(nTime) == std::future_status::ready;
}

/// Changes everything that can be announced.
void ChangeAll(SControlAnswers& answers)
{
    answers.nodeDiscovered.listProcessor[0].strName = "renamed";
    answers.vecDiscoveredSelection = { GroupId("Hall") };
    answers.strProject = "Ballet";
    answers.bChiefMode = true;
    answers.bListLocked = true;
}

/// Fails for want of memory where the store holds its lock.
class CFailingRuntime final : public IRuntimeControl
{
public:
    CFailingRuntime() : pInner(std::exchange(g_pRuntimeControl, this)) { }
    ~CFailingRuntime()
    {
        g_pRuntimeControl = pInner;
    }
    Q_DISABLE_COPY(CFailingRuntime)

    void Attach(CObserver*) override { }
    void Detach(CObserver*) override { }
    void PostMessage(qint32) override { }
    bool IsSimulatorPane() override
    {
        throw std::bad_alloc();
    }
    void SetSimulatorPane(bool) override { }
    bool SetSelectedNodes(const std::vector<QUuid>&) override
    {
        return false;
    }
    std::vector<QUuid> GetSelectedNodes(bool bSimulator) override
    {
        return pInner->GetSelectedNodes(bSimulator);
    }
    std::vector<QUuid> GetSelectedProcessors() override
    {
        return {};
    }
    bool IsDeleteBlocked(QUuid) override
    {
        return false;
    }
    bool IsNodeInUse(QUuid) override
    {
        return false;
    }
    void SetBusy(bool) override { }

private:
    IRuntimeControl* pInner;
};

} // namespace

Q_DECLARE_METATYPE(SStoreCall)
Q_DECLARE_METATYPE(StoreSignal)

/// The store between two threads: who waits for whom, and who must not.
class CStoreLockTest : public QObject
{
    Q_OBJECT

private slots:
    void aCallWaitsForTheRefreshThatAnnounces_data()
    {
        AddCalls();
    }

    void aCallWaitsForTheRefreshThatAnnounces()
    {
        QFETCH(SStoreCall, call);
        SRefreshRig rig;
        std::promise<void> announced;
        std::promise<void> goOn;
        const auto fnHold = [&] {
            announced.set_value();
            goOn.get_future().wait();
        };
        connect(&rig.store, &CProcessorTreeData::NotifyWindowTitle, &rig.log, fnHold, Qt::DirectConnection);
        rig.control.Set(&ChangeAll);
        const auto refresh = std::async(std::launch::async, [&] { rig.store.Refresh(); });
        announced.get_future().wait();
        const auto query = std::async(std::launch::async, [&] { call.fnCall(rig.store); });
        const bool bEarly = EndsWithin(query, timeLong);
        goOn.set_value();
        QVERIFY(!bEarly);
        QVERIFY(EndsWithin(query, timeDeadline));
    }

    void noCallWaitsForASlowLibrary_data()
    {
        QTest::addColumn<QString>("strOperation");
        for (const char* pName : { "GetDiscoveredTree", "GetSimulatorTree", "GetSelectedNodes", "IsListLocked",
                                   "IsRefreshBlocked", "GetProjectInfo", "IsChiefMode" }) {
            QTest::newRow(pName) << QString(pName);
        }
    }

    void noCallWaitsForASlowLibrary()
    {
        QFETCH(QString, strOperation);
        SRefreshRig rig;
        rig.control.Hold(strOperation);
        const auto refresh = std::async(std::launch::async, [&] { rig.store.Refresh(); });
        const bool bHeld = rig.control.WaitForHeld(strOperation);
        const auto queries = std::async(std::launch::async, [&] {
            for (const SStoreCall& call : SStoreCall::All()) {
                call.fnCall(rig.store);
            }
        });
        const bool bPassed = EndsWithin(queries, timeDeadline);
        rig.control.Release(strOperation);
        QVERIFY(bHeld);
        QVERIFY(bPassed);
    }

    void theCurrentPaneIsAskedUnderTheLock()
    {
        SRefreshRig rig;
        rig.control.Hold("IsSimulatorPane");
        const auto refresh = std::async(std::launch::async, [&] { rig.store.Refresh(); });
        QVERIFY(rig.control.WaitForHeld("IsSimulatorPane"));
        const auto query = std::async(std::launch::async, [&] { rig.store.GetProjectName(); });
        const bool bEarly = EndsWithin(query, timeLong);
        rig.control.Release("IsSimulatorPane");
        QVERIFY(!bEarly);
        QVERIFY(EndsWithin(query, timeDeadline));
    }

    void aDirectSlotMayCallEverything_data()
    {
        AddSignals();
    }

    void aDirectSlotMayCallEverything()
    {
        QFETCH(StoreSignal, fnSignal);
        SRefreshRig rig;
        rig.control.Set([](SControlAnswers& answers) { answers.bListLocked = true; });
        if (fnSignal != &CProcessorTreeData::NotifyButton) {
            rig.control.Set(&ChangeAll);
        }
        int nSlots = 0;
        const auto fnCallAll = [&] {
            ++nSlots;
            for (const SStoreCall& call : SStoreCall::All()) {
                call.fnCall(rig.store);
            }
        };
        connect(&rig.store, fnSignal, &rig.log, fnCallAll, Qt::DirectConnection);
        const auto refresh = std::async(std::launch::async, [&] { rig.store.Refresh(); });
        if (!EndsWithin(refresh, timeDeadline)) {
            qFatal("a slot waits for the lock that its own thread holds");
        }
        QCOMPARE(nSlots, 1);
    }

    void aDirectSlotSeesAllThatIsNew_data()
    {
        QTest::addColumn<StoreSignal>("fnSignal");
        QTest::newRow("NotifyChiefChanged") << &CProcessorTreeData::NotifyChiefChanged;
        QTest::newRow("NotifyNodeInfo") << &CProcessorTreeData::NotifyNodeInfo;
        QTest::newRow("NotifyNodeSelectChanged") << &CProcessorTreeData::NotifyNodeSelectChanged;
        QTest::newRow("NotifyWindowTitle") << &CProcessorTreeData::NotifyWindowTitle;
    }

    void aDirectSlotSeesAllThatIsNew()
    {
        QFETCH(StoreSignal, fnSignal);
        SRefreshRig rig;
        rig.control.Set(&ChangeAll);
        QStringList listSeen;
        const auto fnRead = [&] {
            listSeen = QStringList{ rig.store.GetNodeName(ProcessorId("d")), rig.store.GetProjectName() };
            listSeen += rig.store.GetSelectedNodes() == std::vector<QUuid>{ GroupId("Hall") } ? "selection" : "";
            listSeen += rig.store.IsChiefMode() && rig.store.IsListLocked() && !rig.store.IsRefreshEnabled() ? "flags" : "";
        };
        connect(&rig.store, fnSignal, &rig.log, fnRead, Qt::DirectConnection);
        rig.store.Refresh();
        QCOMPARE(listSeen, (QStringList{ "renamed", "Ballet", "selection", "flags" }));
    }

    void theLockIsFreeForOthersAfterADirectSlotHasRead()
    {
        SRefreshRig rig;
        connect(
            &rig.store, &CProcessorTreeData::NotifyNodeInfo, &rig.log, [&] { rig.store.GetProcessorCount(); },
            Qt::DirectConnection);
        rig.control.Set(&ChangeAll);
        rig.store.Refresh();
        rig.store.GetProcessorCount();
        const auto query = std::async(std::launch::async, [&] { rig.store.SetSimulatorPane(true); });
        QVERIFY(EndsWithin(query, timeDeadline));
        QCOMPARE(rig.store.IsSimulatorPane(), true);
    }

    void aRefreshThatFailsUnderTheLockReleasesIt()
    {
        SRefreshRig rig;
        {
            const CFailingRuntime runtime;
            QVERIFY_EXCEPTION_THROWN(rig.store.Refresh(), std::bad_alloc);
        }
        const auto query = std::async(std::launch::async, [&] { rig.store.SetExpanded(QUuid(), true); });
        QVERIFY(EndsWithin(query, timeDeadline));
        QCOMPARE(rig.RefreshAfter(&ChangeAll), listChief + listNodeInfo + listSelection + listTitle);
    }

private:
    static void AddCalls()
    {
        QTest::addColumn<SStoreCall>("call");
        for (const SStoreCall& call : SStoreCall::All()) {
            QTest::newRow(call.pName) << call;
        }
    }

    static void AddSignals()
    {
        QTest::addColumn<StoreSignal>("fnSignal");
        QTest::newRow("NotifyNodeInfo") << &CProcessorTreeData::NotifyNodeInfo;
        QTest::newRow("NotifyButton") << &CProcessorTreeData::NotifyButton;
        QTest::newRow("NotifyNodeSelectChanged") << &CProcessorTreeData::NotifyNodeSelectChanged;
        QTest::newRow("NotifyWindowTitle") << &CProcessorTreeData::NotifyWindowTitle;
        QTest::newRow("NotifyChiefChanged") << &CProcessorTreeData::NotifyChiefChanged;
    }
};

PTV_TEST_MAIN_CORE(CStoreLockTest)

#include "tst_storelock.moc"
