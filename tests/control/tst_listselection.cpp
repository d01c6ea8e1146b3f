#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"

using Ids = std::vector<QUuid>;

/// The selection that the library keeps for both panes.
class CListSelectionTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Start(Root({ Group("Stage", { Processor("alpha"), Processor("beta") }) }, { Processor("loose") }));
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void theRootIsSelectedAtTheStartInBothPanes()
    {
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), Ids{ QUuid() });
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(true), Ids{ QUuid() });
    }

    void aNewSelectionIsKeptInItsOrderAndTold()
    {
        const Ids vecId{ ProcessorId("loose"), GroupId("Stage"), QUuid() };
        QVERIFY(g_pRuntimeControl->SetSelectedNodes(vecId));
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), vecId);
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageSelectionChanged });
    }

    void theSameSelectionAgainIsTrueAndNotTold()
    {
        const Ids vecId{ ProcessorId("loose"), ProcessorId("alpha") };
        g_pRuntimeControl->SetSelectedNodes(vecId);
        pFixture->recorder.Clear();
        QVERIFY(g_pRuntimeControl->SetSelectedNodes(vecId));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>());
    }

    void anEmptySelectionIsTaken()
    {
        QVERIFY(g_pRuntimeControl->SetSelectedNodes({}));
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), Ids());
    }

    void idsThatAreGoneAreLeftOut()
    {
        QVERIFY(g_pRuntimeControl->SetSelectedNodes({ ProcessorId("nobody"), ProcessorId("beta") }));
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), Ids{ ProcessorId("beta") });
    }

    void aSelectionOfNodesThatAreAllGoneIsRefused()
    {
        g_pRuntimeControl->SetSelectedNodes({ ProcessorId("beta") });
        QVERIFY(!g_pRuntimeControl->SetSelectedNodes({ ProcessorId("nobody") }));
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), Ids{ ProcessorId("beta") });
    }

    void aNodeOfTheOtherPaneCannotBeSelected()
    {
        g_pRuntimeControl->SetSimulatorPane(true);
        QVERIFY(!g_pRuntimeControl->SetSelectedNodes({ ProcessorId("beta") }));
    }

    void aDeletedNodeLeavesTheSelection()
    {
        g_pRuntimeControl->SetSelectedNodes({ ProcessorId("alpha"), ProcessorId("loose") });
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), Ids{ ProcessorId("loose") });
    }

    void theRootIsSelectedWhenTheLastSelectedNodeGoes()
    {
        g_pRuntimeControl->SetSelectedNodes({ ProcessorId("alpha") });
        g_pPrcListControl->DeleteProcessor(ProcessorId("alpha"), false);
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), Ids{ QUuid() });
    }

    void aMovedNodeStaysSelected()
    {
        g_pRuntimeControl->SetSelectedNodes({ ProcessorId("alpha") });
        g_pPrcListControl->MoveProcessor(ProcessorId("alpha"), QUuid());
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), Ids{ ProcessorId("alpha") });
    }

    void aGroupThatWasJustAddedCanBeSelectedAtOnce()
    {
        g_pPrcListControl->AddGroup(Group("Foyer"), true);
        QVERIFY(g_pRuntimeControl->SetSelectedNodes({ GroupId("Foyer") }));
        QCOMPARE(CControlFixture::GetText(), QString("all\n  Stage\n    alpha\n    beta\n  Foyer*\n  loose"));
    }

    void theSelectedProcessorsAreThoseOfSelectedGroupsToo()
    {
        g_pRuntimeControl->SetSelectedNodes({ QUuid(), ProcessorId("beta"), GroupId("Stage"), ProcessorId("loose") });
        QCOMPARE(g_pRuntimeControl->GetSelectedProcessors(),
                 (Ids{ ProcessorId("beta"), ProcessorId("alpha"), ProcessorId("loose") }));
    }

    void switchingThePaneIsToldOnce()
    {
        g_pRuntimeControl->SetSimulatorPane(true);
        g_pRuntimeControl->SetSimulatorPane(true);
        QVERIFY(g_pRuntimeControl->IsSimulatorPane());
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageSelectionChanged });
    }

    void eachPaneKeepsItsSelection()
    {
        g_pRuntimeControl->SetSelectedNodes({ ProcessorId("alpha") });
        g_pRuntimeControl->SetSimulatorPane(true);
        g_pRuntimeControl->SetSelectedNodes({});
        g_pRuntimeControl->SetSimulatorPane(false);
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), Ids{ ProcessorId("alpha") });
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(true), Ids());
    }

private:
    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CListSelectionTest)
#include "tst_listselection.moc"
