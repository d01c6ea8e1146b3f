#include "CFilledStore.h"
#include "CRefreshFixture.h"
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
constexpr std::chrono::milliseconds timeDeadline{ nPatience };

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
        CRefreshFixture fixture;
        std::promise<void> announced;
        std::promise<void> goOn;
        const auto fnHold = [&] {
            announced.set_value();
            goOn.get_future().wait();
        };
        connect(&fixture.store, &CProcessorTreeData::NotifyWindowTitle, &fixture.log, fnHold, Qt::DirectConnection);
        fixture.control.Set(&ChangeAll);
        const auto refresh = std::async(std::launch::async, [&] { fixture.store.Refresh(); });
        announced.get_future().wait();
        const auto query = std::async(std::launch::async, [&] { call.fnCall(fixture.store); });
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
        CRefreshFixture fixture;
        fixture.control.Hold(strOperation);
        const auto refresh = std::async(std::launch::async, [&] { fixture.store.Refresh(); });
        const bool bHeld = fixture.control.WaitForHeld(strOperation);
        const auto queries = std::async(std::launch::async, [&] {
            for (const SStoreCall& call : SStoreCall::All()) {
                call.fnCall(fixture.store);
            }
        });
        const bool bPassed = EndsWithin(queries, timeDeadline);
        fixture.control.Release(strOperation);
        QVERIFY(bHeld);
        QVERIFY(bPassed);
    }

    void theCurrentPaneIsAskedUnderTheLock()
    {
        CRefreshFixture fixture;
        fixture.control.Hold("IsSimulatorPane");
        const auto refresh = std::async(std::launch::async, [&] { fixture.store.Refresh(); });
        QVERIFY(fixture.control.WaitForHeld("IsSimulatorPane"));
        const auto query = std::async(std::launch::async, [&] { fixture.store.GetProjectName(); });
        const bool bEarly = EndsWithin(query, timeLong);
        fixture.control.Release("IsSimulatorPane");
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
        CRefreshFixture fixture;
        fixture.control.Set([](SControlAnswers& answers) { answers.bListLocked = true; });
        if (fnSignal != &CProcessorTreeData::NotifyButton) {
            fixture.control.Set(&ChangeAll);
        }
        int nSlots = 0;
        const auto fnCallAll = [&] {
            ++nSlots;
            for (const SStoreCall& call : SStoreCall::All()) {
                call.fnCall(fixture.store);
            }
        };
        connect(&fixture.store, fnSignal, &fixture.log, fnCallAll, Qt::DirectConnection);
        const auto refresh = std::async(std::launch::async, [&] { fixture.store.Refresh(); });
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
        CRefreshFixture fixture;
        fixture.control.Set(&ChangeAll);
        QStringList listSeen;
        const auto fnRead = [&] {
            listSeen = QStringList{ fixture.store.GetNodeName(ProcessorId("d")), fixture.store.GetProjectName() };
            listSeen += fixture.store.GetSelectedNodes() == std::vector<QUuid>{ GroupId("Hall") } ? "selection" : "";
            listSeen += fixture.store.IsChiefMode() && fixture.store.IsListLocked() && !fixture.store.IsRefreshEnabled() ? "flags"
                                                                                                                         : "";
        };
        connect(&fixture.store, fnSignal, &fixture.log, fnRead, Qt::DirectConnection);
        fixture.store.Refresh();
        QCOMPARE(listSeen, (QStringList{ "renamed", "Ballet", "selection", "flags" }));
    }

    void theLockIsFreeForOthersAfterADirectSlotHasRead()
    {
        CRefreshFixture fixture;
        connect(
            &fixture.store, &CProcessorTreeData::NotifyNodeInfo, &fixture.log, [&] { fixture.store.GetProcessorCount(); },
            Qt::DirectConnection);
        fixture.control.Set(&ChangeAll);
        fixture.store.Refresh();
        fixture.store.GetProcessorCount();
        const auto query = std::async(std::launch::async, [&] { fixture.store.SetSimulatorPane(true); });
        QVERIFY(EndsWithin(query, timeDeadline));
        QCOMPARE(fixture.store.IsSimulatorPane(), true);
    }

    void aRefreshThatFailsUnderTheLockReleasesIt()
    {
        CRefreshFixture fixture;
        {
            const CFailingRuntime runtime;
            QVERIFY_EXCEPTION_THROWN(fixture.store.Refresh(), std::bad_alloc);
        }
        const auto query = std::async(std::launch::async, [&] { fixture.store.SetExpanded(QUuid(), true); });
        QVERIFY(EndsWithin(query, timeDeadline));
        QCOMPARE(fixture.RefreshAfter(&ChangeAll), listChief + listNodeInfo + listSelection + listTitle);
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
