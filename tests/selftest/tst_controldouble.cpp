#include "TestMain.h"
#include "double/CControlDouble.h"
#include "double/SCall.h"
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

#include <QtConcurrent>

#include <atomic>
#include <thread>

namespace {

class CCountingObserver final : public CObserver
{
public:
    void Notify(int nMessage) override
    {
        nLast = nMessage;
        idThread = std::this_thread::get_id();
        ++nCount;
    }

    std::atomic<int> nLast{ 0 };
    std::atomic<int> nCount{ 0 };
    std::atomic<std::thread::id> idThread{};
};

SProcessorAllNode Example()
{
    return Root({ Group("Stage", { Processor("alpha").Ip("10.0.0.1"), Processor("beta").Ip("10.0.0.2") }) },
                { Processor("loose") });
}

void SetExample(SControlAnswers& answers)
{
    answers.nodeDiscovered = Example();
}

} // namespace

class CControlDoubleTest : public QObject
{
    Q_OBJECT

private slots:
    void globalsPointToTheDoubleAsLongAsItLives()
    {
        {
            const CControlDouble control;
            QVERIFY(g_pConfigControl != nullptr);
            QVERIFY(g_pRuntimeControl != nullptr);
        }
        QVERIFY(g_pConfigControl == nullptr);
        QVERIFY(g_pRuntimeControl == nullptr);
    }

    void journalShowsCallsInTheirOrderWithNamesForIds()
    {
        CControlDouble control;
        control.Set(&SetExample);
        g_pRuntimeControl->SetSelectedNodes({ QUuid() });
        g_pRuntimeControl->SetSelectedNodes({ ProcessorId("alpha"), GroupId("Stage") });
        g_pPrcListControl->MoveProcessor(ProcessorId("alpha"), QUuid());
        g_pPrcBasicControl->AddProcessor(0x0A000005);
        QCOMPARE(
            control.Commands(),
            QStringList({ "g_pRuntimeControl.SetSelectedNodes([{null}])", "g_pRuntimeControl.SetSelectedNodes([alpha, Stage])",
                          "g_pPrcListControl.MoveProcessor(alpha, {null})", "g_pPrcBasicControl.AddProcessor(10.0.0.5)" }));
        control.ClearJournal();
        QVERIFY(control.Calls().isEmpty());
    }

    void readingCallsStayOutOfTheCommands()
    {
        CControlDouble control;
        CCountingObserver observer;
        g_pRuntimeControl->Attach(&observer);
        g_pPreferenceControl->IsChiefMode();
        g_pRuntimeControl->SetBusy(true);
        g_pRuntimeControl->Detach(&observer);
        QCOMPARE(control.Commands(), QStringList{ "g_pRuntimeControl.SetBusy(true)" });
        QCOMPARE(control.Calls().size(), 4);
        QCOMPARE(control.Subscriptions(),
                 QStringList({ "g_pRuntimeControl.Attach(observer)", "g_pRuntimeControl.Detach(observer)" }));
    }

    void journalTellsTheThreadOfACall()
    {
        CControlDouble control;
        const auto fnCall = [] { g_pRuntimeControl->SetBusy(true); };
        fnCall();
        QtConcurrent::run(fnCall).waitForFinished();
        const QScopedPointer<QThread> pThread(QThread::create(fnCall));
        pThread->start();
        QVERIFY(pThread->wait());
        std::thread(fnCall).join();
        QStringList listThread;
        for (const SCall& call : control.Journal()) {
            listThread.append(call.strThread);
        }
        QCOMPARE(listThread, QStringList({ "gui", "pool", "worker", "other" }));
    }

    void answersComeFromTheFields()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) {
            SetExample(answers);
            answers.strProject = QStringLiteral("Tosca");
            answers.vecDiscoveredSelection = { GroupId("Stage") };
            answers.setInUse = { ProcessorId("beta") };
        });
        SProcessorAllNode node;
        g_pPrcListControl->GetDiscoveredTree(node);
        QVERIFY(node.listGroup == Example().listGroup);
        SProjectInfo info;
        g_pProjectManageControl->GetProjectInfo(info);
        QCOMPARE(info.strName, std::string("Tosca"));
        QCOMPARE(g_pRuntimeControl->GetSelectedProcessors(), std::vector<QUuid>({ ProcessorId("alpha"), ProcessorId("beta") }));
        QVERIFY(g_pRuntimeControl->IsNodeInUse(ProcessorId("beta")));
        QVERIFY(!g_pRuntimeControl->IsNodeInUse(ProcessorId("alpha")));
        QCOMPARE(g_pPrcListControl->GetNodeType(GroupId("Stage")), 2);
    }

    void faithfulDoubleKeepsSelectionPaneAndExpansion()
    {
        CControlDouble control;
        control.Set(&SetExample);
        QVERIFY(g_pRuntimeControl->SetSelectedNodes({ ProcessorId("alpha") }));
        g_pPrcListControl->SetExpanded(GroupId("Stage"), false);
        g_pRuntimeControl->SetSimulatorPane(true);
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), std::vector<QUuid>{ ProcessorId("alpha") });
        QVERIFY(g_pRuntimeControl->GetSelectedNodes(true).empty());
        QVERIFY(!control.Answers().nodeDiscovered.listGroup.first().bExpanded);
        QVERIFY(g_pRuntimeControl->IsSimulatorPane());
    }

    void unfaithfulDoubleKeepsItsAnswers()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) { answers.bFaithful = false; });
        QVERIFY(g_pRuntimeControl->SetSelectedNodes({ ProcessorId("alpha") }));
        g_pPrcListControl->SetExpanded(QUuid(), false);
        g_pRuntimeControl->SetSimulatorPane(true);
        QVERIFY(g_pRuntimeControl->GetSelectedNodes(false).empty());
        QVERIFY(control.Answers().nodeDiscovered.bExpanded);
        QVERIFY(!g_pRuntimeControl->IsSimulatorPane());
    }

    void refusedSelectionIsNotKept()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) { answers.bSelectionAccepted = false; });
        QVERIFY(!g_pRuntimeControl->SetSelectedNodes({ ProcessorId("alpha") }));
        QVERIFY(g_pRuntimeControl->GetSelectedNodes(false).empty());
    }

    void heldCallIsWrittenDownAndWaits()
    {
        CControlDouble control;
        control.Hold("RefreshProcessors");
        std::atomic<bool> bReturned{ false };
        std::thread thread([&bReturned] {
            g_pPrcBasicControl->RefreshProcessors();
            bReturned = true;
        });
        QVERIFY(control.WaitForHeld("RefreshProcessors"));
        QCOMPARE(control.CallCount("g_pPrcBasicControl.RefreshProcessors"), 1);
        QVERIFY(!bReturned);
        control.Release("RefreshProcessors");
        thread.join();
        QVERIFY(bReturned);
        QVERIFY(!control.WaitForHeld("RefreshProcessors", 0));
    }

    void whatTheLibraryDoesMeanwhileRunsOnceInsideTheCall()
    {
        CControlDouble control;
        QStringList listAtThatTime;
        control.During("SetBusy", [&] {
            g_pPrcListControl->GetNextGroupIndex();
            listAtThatTime = control.Calls();
        });

        g_pRuntimeControl->SetBusy(true);
        g_pRuntimeControl->SetBusy(false);

        QCOMPARE(listAtThatTime, (QStringList{ "g_pRuntimeControl.SetBusy(true)", "g_pPrcListControl.GetNextGroupIndex()" }));
        QCOMPARE(control.CallCount("GetNextGroupIndex"), 1);
    }

    void messageReachesEachObserverOnceOnAThreadOfItsOwn()
    {
        CControlDouble control;
        CCountingObserver observer;
        g_pPrcBasicControl->Attach(&observer);
        g_pRuntimeControl->Attach(&observer);
        control.Raise(32);
        QVERIFY(control.WaitForDelivery());
        QCOMPARE(observer.nCount.load(), 1);
        QCOMPARE(observer.nLast.load(), 32);
        QVERIFY(observer.idThread.load() != std::this_thread::get_id());
        QCOMPARE(control.Attached(), QStringList({ "g_pPrcBasicControl", "g_pRuntimeControl" }));
    }

    void messageOfOneObjectReachesItsObserversOnly()
    {
        CControlDouble control;
        CCountingObserver observer;
        CCountingObserver other;
        g_pProtocalControl->Attach(&observer);
        g_pRuntimeControl->Attach(&other);
        control.RaiseHere(7, "g_pProtocalControl");
        QCOMPARE(observer.nCount.load(), 1);
        QCOMPARE(other.nCount.load(), 0);
    }

    void postedMessageIsDelivered()
    {
        CControlDouble control;
        CCountingObserver observer;
        g_pRuntimeControl->Attach(&observer);
        g_pRuntimeControl->PostMessage(14);
        QVERIFY(control.WaitForDelivery());
        QCOMPARE(observer.nLast.load(), 14);
    }

    void detachedObserverHearsNothing()
    {
        CControlDouble control;
        CCountingObserver observer;
        g_pRuntimeControl->Attach(&observer);
        g_pRuntimeControl->Detach(&observer);
        control.RaiseHere(1);
        QCOMPARE(observer.nCount.load(), 0);
    }

    void detachWaitsForARunningNotify()
    {
        struct SSlowObserver final : CObserver
        {
            void Notify(int) override
            {
                semaphoreArrived.release();
                semaphoreGo.acquire();
                bDone = true;
            }
            QSemaphore semaphoreArrived;
            QSemaphore semaphoreGo;
            std::atomic<bool> bDone{ false };
        };
        CControlDouble control;
        SSlowObserver observer;
        g_pRuntimeControl->Attach(&observer);
        control.Raise(1);
        QVERIFY(observer.semaphoreArrived.tryAcquire(1, nPatience));
        std::thread thread([&] {
            QVERIFY(control.WaitForCall("Detach"));
            observer.semaphoreGo.release();
        });
        g_pRuntimeControl->Detach(&observer);
        QVERIFY(observer.bDone);
        thread.join();
    }
};

PTV_TEST_MAIN_CORE(CControlDoubleTest)
#include "tst_controldouble.moc"
