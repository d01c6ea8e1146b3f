#include "TestMain.h"
#include "controlhost/CJobs.h"
#include "double/CControlDouble.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SProjectInfo.h"
#include "interfaces/widgets/CObserver.h"
#include "journal/CControlJournal.h"

#include <atomic>
#include <thread>

namespace {

QString MessageName(int nMessage)
{
    return nMessage == 7 ? QStringLiteral("Devices") : QString();
}

/// "RuntimeControl.SetBusy(true)"
QStringList Lines(CCallLog& log)
{
    QStringList listLine;
    for (const SCallRecord& record : log.ReadAfter(0)) {
        listLine.append(QLatin1String(record.pObject) + '.' + record.strText);
    }
    return listLine;
}

class CCounter final : public CObserver
{
public:
    void Notify(int nMessage) override
    {
        nLast = nMessage;
    }
    std::atomic<int> nLast{ 0 };
};

const QUuid id("{1c0ffee0-0000-0000-0000-000000000001}");
const QUuid idGroup("{dec0de00-0000-0000-0000-000000000002}");

} // namespace

class CDecoratorsTest : public QObject
{
    Q_OBJECT

private slots:
    void commandsAreWrittenInOrderAndCarriedOut()
    {
        CControlDouble control;
        CCallLog log(64);
        CJobs jobs;
        const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);
        control.ClearJournal();

        g_pRuntimeControl->SetBusy(true);
        g_pPrcListControl->MoveProcessor(id, QUuid());
        g_pPrcListControl->RenameGroup(idGroup, "Stage");
        g_pPrcBasicControl->RenameProcessor(id, "alpha");
        g_pPrcListControl->SetExpanded(id, false);
        g_pPrcListControl->AddGroup(SProcessorGroupNode(), true);
        g_pPrcBasicControl->AddSimulators({ 12, 2, 3 });
        g_pRuntimeControl->SetSimulatorPane(true);
        g_pRuntimeControl->SetBusy(false);

        QCOMPARE(
            Lines(log),
            (QStringList{ "RuntimeControl.SetBusy(true)", "PrcListControl.MoveProcessor(1c0ffee0, null)",
                          "PrcListControl.RenameGroup(dec0de00, \"Stage\")",
                          "PrcBasicControl.RenameProcessor(1c0ffee0, \"alpha\")", "PrcListControl.SetExpanded(1c0ffee0, false)",
                          "PrcListControl.AddGroup(\"Group 1\", true)", "PrcBasicControl.AddSimulators(12, 2, 3)",
                          "RuntimeControl.SetSimulatorPane(true)", "RuntimeControl.SetBusy(false)" }));
        QCOMPARE(control.Commands().size(), 9);
        QCOMPARE(control.Commands().constLast(), QStringLiteral("g_pRuntimeControl.SetBusy(false)"));
    }

    void readsAreWrittenWithTheirAnswerWhichPassesThrough()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) {
            answers.bListLocked = true;
            answers.strProject = "Aurora";
            answers.nNextGroupIndex = 5;
            answers.vecDiscoveredSelection = { id };
            answers.nodeDiscovered = Root({ Group("Stage", { Processor("alpha") }) }, { Processor("loose") });
        });
        CCallLog log(64);
        CJobs jobs;
        const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);
        SProcessorAllNode node;
        SProjectInfo info;

        QVERIFY(g_pPrcBasicControl->IsListLocked());
        QVERIFY(!g_pPreferenceControl->IsChiefMode());
        QCOMPARE(g_pPrcListControl->GetNextGroupIndex(), 5);
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), std::vector<QUuid>{ id });
        g_pPrcListControl->GetDiscoveredTree(node);
        g_pProjectManageControl->GetProjectInfo(info);

        QCOMPARE(node.listGroup.size(), 1);
        QCOMPARE(QString::fromStdString(info.strName), QStringLiteral("Aurora"));
        QCOMPARE(Lines(log),
                 (QStringList{ "PrcBasicControl.IsListLocked() = true", "PreferenceControl.IsChiefMode() = false",
                               "PrcListControl.GetNextGroupIndex() = 5", "RuntimeControl.GetSelectedNodes(false) = [1c0ffee0]",
                               "PrcListControl.GetDiscoveredTree() = \"1 groups, 2 processors\"",
                               "ProjectManageControl.GetProjectInfo() = \"Aurora\"" }));
    }

    void resultsOfCommandsPassThrough()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) {
            answers.bSelectionAccepted = false;
            answers.nImportResult = 5;
        });
        CCallLog log(64);
        CJobs jobs;
        const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);

        QVERIFY(!g_pRuntimeControl->SetSelectedNodes({ QUuid() }));
        QCOMPARE(g_pPrcListControl->ImportList("/a.kvtl"), 5);

        QCOMPARE(Lines(log),
                 (QStringList{ "RuntimeControl.SetSelectedNodes([null])", "RuntimeControl.SetSelectedNodes returned false",
                               "PrcListControl.ImportList(\"/a.kvtl\")", "PrcListControl.ImportList returned 5" }));
    }

    void aSlowCallIsWrittenWhenItBeginsAndWhenItEnds()
    {
        CControlDouble control;
        CCallLog log(64);
        CJobs jobs;
        const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);
        control.Hold("RefreshProcessors");

        std::thread job([] { g_pPrcBasicControl->RefreshProcessors(); });
        QVERIFY(control.WaitForHeld("RefreshProcessors"));
        QCOMPARE(Lines(log), QStringList{ "PrcBasicControl.RefreshProcessors()" });
        control.Release("RefreshProcessors");
        job.join();

        const QStringList listLine = Lines(log);
        QCOMPARE(listLine.size(), 2);
        QVERIFY2(listLine[1].startsWith("PrcBasicControl.RefreshProcessors came back after "), qPrintable(listLine[1]));
    }

    void whatBlocksIsCountedAmongTheJobs()
    {
        CControlDouble control;
        CCallLog log(64);
        CJobs jobs;
        const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);
        control.Hold("AddProcessor");

        g_pRuntimeControl->SetBusy(true);
        std::thread job([] {
            g_pPrcBasicControl->AddProcessor(0xC0A80107);
            g_pRuntimeControl->SetBusy(false);
        });
        QVERIFY(control.WaitForHeld("AddProcessor"));
        QVERIFY(jobs.IsBusy());
        QCOMPARE(jobs.GetRunning(), QStringList{ "Adding the processor at 192.168.1.7" });
        control.Release("AddProcessor");
        job.join();

        QVERIFY(!jobs.IsBusy());
        QCOMPARE(jobs.GetRunning(), QStringList());
    }

    void busyEndsWhenTheLibraryHasTakenTheLastStep()
    {
        CControlDouble control;
        CCallLog log(64);
        CJobs jobs;
        const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);
        g_pRuntimeControl->SetBusy(true);
        bool bBusyInside = false;
        control.During("SetBusy", [&] { bBusyInside = jobs.IsBusy(); });

        g_pRuntimeControl->SetBusy(false);

        QVERIFY(bBusyInside);
        QVERIFY(!jobs.IsBusy());
    }

    void theJournalEndsBehindACallUnderWay()
    {
        CControlDouble control;
        CCallLog log(64);
        CJobs jobs;
        std::thread job;
        std::thread release;
        {
            const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);
            control.Hold("RefreshProcessors");
            job = std::thread([] { g_pPrcBasicControl->RefreshProcessors(); });
            QVERIFY(control.WaitForHeld("RefreshProcessors"));
            release = std::thread([&control] { control.Release("RefreshProcessors"); });
        }
        QVERIFY(jobs.GetRunning().isEmpty());
        release.join();
        job.join();
    }

    void messagesAreWrittenWithTheirNameAndReachTheObservers()
    {
        CControlDouble control;
        CCallLog log(64);
        CJobs jobs;
        const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);
        CCounter observer;
        g_pProtocalControl->Attach(&observer);

        control.Raise(7, "g_pProtocalControl");
        control.Raise(3, "g_pRuntimeControl");

        QVERIFY(control.WaitForDelivery());
        QCOMPARE(observer.nLast.load(), 7);
        g_pProtocalControl->Detach(&observer);
        QCOMPARE(Lines(log),
                 (QStringList{ "ProtocalControl.Attach()", "ProtocalControl.message 7 Devices", "RuntimeControl.message 3",
                               "ProtocalControl.Detach()" }));
    }

    void theThreadOfACallIsWritten()
    {
        CControlDouble control;
        CCallLog log(64);
        CJobs jobs;
        const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);

        g_pRuntimeControl->SetBusy(true);
        std::thread([] { g_pRuntimeControl->SetBusy(false); }).join();

        const std::vector<SCallRecord> vecRecord = log.ReadAfter(0);
        QCOMPARE(vecRecord[0].nThread, 0);
        QVERIFY(vecRecord[1].nThread != 0);
    }

    void theObjectsAreBackWhenTheJournalEnds()
    {
        CControlDouble control;
        IRuntimeControl* const pRuntime = g_pRuntimeControl;
        IConfigControl* const pConfig = g_pConfigControl;
        CCallLog log(64);
        CJobs jobs;
        {
            const CControlJournal journal(SControlPointers::Linked(), log, jobs, &MessageName);
            QVERIFY(g_pRuntimeControl != pRuntime && g_pConfigControl != pConfig);
            QCOMPARE(control.Attached().size(), 7);
        }
        QVERIFY(g_pRuntimeControl == pRuntime && g_pConfigControl == pConfig);
        QCOMPARE(control.Attached(), QStringList());
    }
};

PTV_TEST_MAIN_CORE(CDecoratorsTest)
#include "tst_decorators.moc"
