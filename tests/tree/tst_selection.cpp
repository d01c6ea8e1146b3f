#include "TestMain.h"
#include "data/CProcessorTreeData.h"
#include "fixtures/CTreeFixture.h"
#include "model/EnItemRole.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <thread>

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) }),
                  Group("Hall", { Processor("gamma").Expanded(false) }) },
                { Processor("loose").Expanded(false), Processor("open").Expanded(true) });
}

} // namespace

class CSelectionTest : public QObject
{
    Q_OBJECT

private slots:
    void aClickIsReportedToStoreLibraryAndToolBar()
    {
        CTreeFixture fixture(Site());
        const QSignalSpy spyButton(g_pProcessorTreeData, &CProcessorTreeData::NotifyButton);
        fixture.Click(fixture.Row("beta"));
        QCOMPARE(fixture.control.CommandsWithThread(), QStringList{ "gui: " + SelectCall("beta") });
        QCOMPARE(g_pProcessorTreeData->GetSelectedNodes(), std::vector<QUuid>{ ProcessorId("beta") });
        QCOMPARE(spyButton.count(), 1);
    }

    void theStoreIsToldBeforeTheLibraryAndTheToolBarLast()
    {
        CTreeFixture fixture(Site());
        int nCallsAtToolBar = 0;
        connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyButton, this,
                [&] { nCallsAtToolBar = fixture.control.CallCount("SetSelectedNodes"); });
        fixture.control.Hold("SetSelectedNodes");
        std::vector<QUuid> vecAtLibrary;
        std::thread library([&] {
            fixture.control.WaitForHeld("SetSelectedNodes");
            vecAtLibrary = g_pProcessorTreeData->GetSelectedNodes();
            fixture.control.Release("SetSelectedNodes");
        });
        fixture.Click(fixture.Row("beta"));
        library.join();
        g_pProcessorTreeData->disconnect(this);
        QCOMPARE(vecAtLibrary, std::vector<QUuid>{ ProcessorId("beta") });
        QCOMPARE(nCallsAtToolBar, 1);
    }

    void aRefusalOfTheLibraryChangesNothingOnTheScreen()
    {
        CTreeFixture fixture(Site());
        fixture.control.Set([](SControlAnswers& answers) { answers.bSelectionAccepted = false; });
        fixture.Click(fixture.Row("beta"));
        QCOMPARE(fixture.Selected(), QStringList{ "beta" });
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("beta") });
    }

    void theReportHasTheOrderOfSelecting()
    {
        CTreeFixture fixture(Site());
        fixture.Click(fixture.Row("loose"));
        fixture.Click(fixture.Row("alpha"), Qt::ControlModifier);
        fixture.Click(fixture.Row("Hall"), Qt::ControlModifier);
        QCOMPARE(fixture.control.Commands(),
                 (QStringList{ SelectCall("loose"), SelectCall("loose, alpha"), SelectCall("loose, alpha, Hall") }));
        QCOMPARE(fixture.Selected(), (QStringList{ "loose", "alpha", "Hall" }));
    }

    void ctrlClickingTheLastRowAwayIsNotReported()
    {
        CTreeFixture fixture(Site());
        fixture.Click(fixture.Row("beta"));
        fixture.Clear();
        const QSignalSpy spyButton(g_pProcessorTreeData, &CProcessorTreeData::NotifyButton);
        fixture.Click(fixture.Row("beta"), Qt::ControlModifier);
        QCOMPARE(fixture.Selected(), QStringList());
        QCOMPARE(fixture.control.Commands(), QStringList());
        QCOMPARE(g_pProcessorTreeData->GetSelectedNodes(), std::vector<QUuid>{ ProcessorId("beta") });
        QCOMPARE(spyButton.count(), 0);
    }

    void theRootIsReportedAsANullIdAndDoesNotEndTheList()
    {
        CTreeFixture fixture(Site());
        fixture.Click(fixture.Root());
        fixture.Click(fixture.Row("Hall"), Qt::ControlModifier);
        QCOMPARE(fixture.control.Commands().last(), SelectCall("{null}, Hall"));
    }

    void aNodeWithoutAnIdCutsTheReportShort()
    {
        CTreeFixture fixture(Site());
        fixture.Click(fixture.Row("alpha"));
        fixture.pTree->model()->setData(fixture.Row("Hall"), QUuid(), RoleNodeId);
        fixture.Clear();
        const QModelIndex indexHall = fixture.pTree->model()->index(1, 0, fixture.Root());
        fixture.Click(indexHall, Qt::ControlModifier);
        fixture.Click(fixture.Row("loose"), Qt::ControlModifier);
        QCOMPARE(fixture.control.Commands(), (QStringList{ SelectCall("alpha"), SelectCall("alpha") }));
    }

    void informationRowsSweptAlongAreLeftOutOfTheReport()
    {
        CTreeFixture fixture(Site());
        fixture.Click(fixture.Row("loose"));
        fixture.pTree->setExpanded(fixture.Row("loose"), true);
        fixture.Clear();
        fixture.Click(fixture.Row("open"), Qt::ShiftModifier);
        QVERIFY(fixture.Selected().contains("info loose"));
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("loose, open") });
    }

    void aReportRepaintsTheRows()
    {
        CTreeFixture fixture(Site());
        const QImage before = fixture.Grab();
        fixture.Click(fixture.Row("beta"));
        QVERIFY(fixture.Grab() != before);
    }

    void aListOfTheLibraryIsPutOntoTheRowsInItsOrder()
    {
        CTreeFixture fixture(Site());
        fixture.Load(Site(), { ProcessorId("open"), GroupId("Hall"), ProcessorId("alpha"), QUuid() });
        QCOMPARE(fixture.Selected(), (QStringList{ "open", "Hall", "alpha", "all" }));
    }

    void idsThatHaveGoneAreDroppedAndNothingTakesTheirPlace_data()
    {
        QTest::addColumn<QStringList>("listStored");
        QTest::addColumn<QStringList>("listSelected");
        QTest::newRow("one of two") << QStringList{ "gone", "beta" } << QStringList{ "beta" };
        QTest::newRow("the only one") << QStringList{ "gone" } << QStringList();
    }
    void idsThatHaveGoneAreDroppedAndNothingTakesTheirPlace()
    {
        QFETCH(QStringList, listStored);
        QFETCH(QStringList, listSelected);
        std::vector<QUuid> vecId;
        for (const QString& strName : std::as_const(listStored)) {
            vecId.push_back(ProcessorId(strName));
        }
        CTreeFixture fixture(Site());
        fixture.Load(Site(), vecId);
        QCOMPARE(fixture.Selected(), listSelected);
        fixture.pTree->RestoreSelection();
        QCOMPARE(fixture.Selected(), listSelected);
    }

    void theSimulatorsSelectionIsLeftOutOfTheDiscoveredTree()
    {
        CTreeFixture fixture(Site());
        fixture.control.Set([](SControlAnswers& answers) {
            answers.vecSimulatorSelection = { ProcessorId("alpha") };
            answers.vecDiscoveredSelection = { ProcessorId("beta") };
        });
        fixture.ReadStore();
        fixture.pTree->RestoreSelection();
        QCOMPARE(fixture.Selected(), QStringList{ "beta" });
    }

    void eachTreeTakesTheListOfItsOwnPane()
    {
        CTreeFixture fixture(Site());
        fixture.control.Set([](SControlAnswers& answers) {
            answers.vecSimulatorSelection = { ProcessorId("alpha") };
            answers.vecDiscoveredSelection = { ProcessorId("beta") };
        });
        fixture.ReadStore();
        CTestTree simulatorTree(nullptr, false);
        simulatorTree.RefreshTree();
        simulatorTree.RestoreSelection();
        QCOMPARE(simulatorTree.selectedIndexes().size(), 1);
        QCOMPARE(simulatorTree.selectedIndexes().first().data(RoleNodeId).toUuid(), ProcessorId("alpha"));
    }

    void aRestoredSelectionIsReportedNodeByNode()
    {
        CTreeFixture fixture(Site());
        fixture.control.Set([](SControlAnswers& answers) {
            answers.vecDiscoveredSelection = { ProcessorId("open"), GroupId("Hall"), ProcessorId("alpha") };
        });
        fixture.ReadStore();
        fixture.Clear();
        fixture.pTree->RestoreSelection();
        QCOMPARE(fixture.control.Commands(),
                 (QStringList{ SelectCall("open"), SelectCall("open, Hall"), SelectCall("open, Hall, alpha") }));
    }

    void aSlotThatRebuildsTheRowsDuringAReportDoesNoHarm()
    {
        CTreeFixture fixture(Site());
        connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyButton, this, [&] { fixture.pTree->RefreshTree(); });
        fixture.Click(fixture.Row("beta"));
        QCOMPARE(fixture.Selected(), QStringList{ "beta" });
        fixture.control.Set([](SControlAnswers& answers) {
            answers.vecDiscoveredSelection = { ProcessorId("open"), GroupId("Hall"), ProcessorId("alpha") };
        });
        fixture.ReadStore();
        fixture.pTree->RestoreSelection();
        g_pProcessorTreeData->disconnect(this);
        QCOMPARE(fixture.Selected(), (QStringList{ "open", "Hall", "alpha" }));
    }

    void anEmptyListSelectsTheRootAndIsReportedAsSuch()
    {
        CTreeFixture fixture(Site(), { ProcessorId("alpha") });
        fixture.control.Set([](SControlAnswers& answers) { answers.vecDiscoveredSelection.clear(); });
        fixture.ReadStore();
        fixture.Clear();
        fixture.pTree->RestoreSelection();
        QCOMPARE(fixture.Selected(), QStringList{ "all" });
        // Once by the selection that changed, once by the operation itself.
        QCOMPARE(fixture.control.Commands(), (QStringList{ SelectCall("{null}"), SelectCall("{null}") }));
        QCOMPARE(g_pProcessorTreeData->GetSelectedNodes(), std::vector<QUuid>{ QUuid() });
    }

    void oneCallForAllRowsSelectsAsOneCallARowDoes_data()
    {
        QTest::addColumn<QStringList>("listName");
        QTest::newRow("order of the rows") << QStringList{ "alpha", "beta", "gamma" };
        QTest::newRow("another order") << QStringList{ "open", "Hall", "beta", "alpha", "loose" };
        QTest::newRow("neighbours backwards") << QStringList{ "beta", "alpha" };
        QTest::newRow("twice") << QStringList{ "alpha", "beta", "alpha", "gamma", "beta" };
        QTest::newRow("group and members") << QStringList{ "alpha", "Stage", "beta" };
        QTest::newRow("gone") << QStringList{ "alpha", "gone", "loose" };
    }
    void oneCallForAllRowsSelectsAsOneCallARowDoes()
    {
        QFETCH(QStringList, listName);
        CTreeFixture fixture(Site());
        std::vector<QUuid> vecId;
        for (const QString& strName : std::as_const(listName)) {
            const bool bGroup = strName == "Stage" || strName == "Hall";
            vecId.push_back(bGroup ? GroupId(strName) : ProcessorId(strName));
        }
        fixture.Load(Site(), vecId);
        const QStringList listAtOnce = fixture.Selected();
        fixture.control.Set([](SControlAnswers& answers) { answers.bFaithful = false; });
        fixture.pTree->RestoreSelection(); // not inside a refresh: one call a row
        QVERIFY(!listAtOnce.isEmpty());
        QCOMPARE(listAtOnce, fixture.Selected());
    }

    void aSingleProcessorOfTheLibraryTakesTheSelectionOverQuietly()
    {
        CTreeFixture fixture(Site(), { ProcessorId("alpha") });
        g_pProcessorTreeData->SetSelectedNodes({ ProcessorId("gamma") });
        fixture.pTree->UpdateCurrentNode();
        QCOMPARE(fixture.Selected(), QStringList{ "gamma" });
        QCOMPARE(fixture.control.Commands(), QStringList());
        QVERIFY(!fixture.pTree->selectionModel()->signalsBlocked());
    }

    void aProcessorInAFoldedGroupIsFound()
    {
        CTreeFixture fixture(Root({ Group("Stage", { Processor("alpha") }).Expanded(false) }), { QUuid() });
        g_pProcessorTreeData->SetSelectedNodes({ ProcessorId("alpha") });
        fixture.pTree->UpdateCurrentNode();
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
    }

    void theCurrentRowStaysWhenTheLibrarySelects()
    {
        CTreeFixture fixture(Site());
        fixture.Click(fixture.Row("alpha"));
        g_pProcessorTreeData->SetSelectedNodes({ ProcessorId("gamma") });
        fixture.pTree->UpdateCurrentNode();
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("alpha"));
    }

    void whatTheLibrarySelectsIsPainted()
    {
        CTreeFixture fixture(Site(), { ProcessorId("alpha") });
        const QRgb colour = fixture.Grab().pixel(fixture.At(fixture.Row("alpha")));
        g_pProcessorTreeData->SetSelectedNodes({ ProcessorId("gamma") });
        fixture.pTree->UpdateCurrentNode();
        QCOMPARE(fixture.Grab().pixel(fixture.At(fixture.Row("gamma"))), colour);
    }

    void aListThatIsNoSingleProcessorIsLeftAlone_data()
    {
        QTest::addColumn<QVariantList>("listStored");
        QTest::newRow("two processors") << QVariantList{ ProcessorId("gamma"), ProcessorId("beta") };
        QTest::newRow("a group") << QVariantList{ GroupId("Hall") };
        QTest::newRow("the root") << QVariantList{ QUuid() };
        QTest::newRow("a node that has gone") << QVariantList{ ProcessorId("gone") };
    }
    void aListThatIsNoSingleProcessorIsLeftAlone()
    {
        QFETCH(QVariantList, listStored);
        CTreeFixture fixture(Site(), { ProcessorId("alpha") });
        std::vector<QUuid> vecId;
        for (const QVariant& id : std::as_const(listStored)) {
            vecId.push_back(id.toUuid());
        }
        g_pProcessorTreeData->SetSelectedNodes(vecId);
        fixture.pTree->UpdateCurrentNode();
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void anEmptyListSelectsTheRootWithoutAReport()
    {
        CTreeFixture fixture(Site(), { ProcessorId("alpha") });
        g_pProcessorTreeData->SetSelectedNodes({});
        fixture.pTree->UpdateCurrentNode();
        QCOMPARE(fixture.Selected(), QStringList{ "all" });
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void theSelectionThatIsThereAlreadyIsNotTouched()
    {
        CTreeFixture fixture(Site(), { ProcessorId("alpha") });
        QSignalSpy spy(fixture.pTree->selectionModel(), &QItemSelectionModel::selectionChanged);
        fixture.pTree->UpdateCurrentNode();
        QCOMPARE(spy.count(), 0);
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
    }

    void aGroupThatTheLibrarySelectsStaysSelected()
    {
        CTreeFixture fixture(Site());
        fixture.ConnectLikeTheView();
        fixture.control.Set([](SControlAnswers& answers) { answers.vecDiscoveredSelection = { GroupId("Hall") }; });
        fixture.ReadStore();
        QCOMPARE(fixture.Selected(), QStringList{ "Hall" });
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("Hall") });
    }

    void theNodeAboveTheSelectionIsTheVisibleOneJustAboveIt_data()
    {
        QTest::addColumn<QStringList>("listSelected");
        QTest::addColumn<QUuid>("idAbove");
        QTest::newRow("first row") << QStringList{ "Stage" } << QUuid();
        QTest::newRow("first member") << QStringList{ "alpha" } << GroupId("Stage");
        QTest::newRow("second member") << QStringList{ "beta" } << ProcessorId("alpha");
        QTest::newRow("group behind members") << QStringList{ "Hall" } << ProcessorId("beta");
        QTest::newRow("behind a folded group") << QStringList{ "loose" } << GroupId("Hall");
        QTest::newRow("behind an open information row") << QStringList{ "last" } << ProcessorId("loose");
        QTest::newRow("the first of several counts") << QStringList{ "last", "beta" } << ProcessorId("alpha");
        QTest::newRow("the root itself is not looked at") << QStringList{ "all" } << ProcessorId("last");
    }
    void theNodeAboveTheSelectionIsTheVisibleOneJustAboveIt()
    {
        QFETCH(QStringList, listSelected);
        QFETCH(QUuid, idAbove);
        CTreeFixture fixture(Root({ Group("Stage", { Processor("alpha"), Processor("beta").Expanded(false) }),
                                    Group("Hall", { Processor("gamma") }).Expanded(false) },
                                  { Processor("loose"), Processor("last").Expanded(false) }));
        fixture.Select(listSelected);
        QCOMPARE(fixture.pTree->GetNodeAboveSelection(), idAbove);
    }

    void withNothingSelectedTheNodeAboveIsTheLastOne()
    {
        CTreeFixture fixture(Site(), { ProcessorId("gone") });
        QCOMPARE(fixture.Selected(), QStringList());
        QCOMPARE(fixture.pTree->GetNodeAboveSelection(), ProcessorId("open"));
    }

    void selectAllReportsTheRootAndEveryVisibleNode()
    {
        CTreeFixture fixture(
            Root({ Group("Stage", { Processor("alpha") }), Group("Hall", { Processor("gamma") }).Expanded(false) },
                 { Processor("loose") }));
        fixture.pTree->setFocus();
        QTRY_VERIFY(fixture.pTree->hasFocus());
        fixture.pTree->DealMenuBar(18, true);
        QCOMPARE(fixture.control.CallCount("SetSelectedNodes"), 1);
        QStringList listSelected = fixture.Selected();
        listSelected.sort();
        QCOMPARE(listSelected, (QStringList{ "Hall", "Stage", "all", "alpha", "info alpha", "info loose", "loose" }));
        const auto vecId = g_pProcessorTreeData->GetSelectedNodes();
        QCOMPARE(vecId.size(), std::size_t(5));
        QVERIFY(std::find(vecId.cbegin(), vecId.cend(), QUuid()) != vecId.cend());
    }

    void selectAllLeavesFilteredRowsOut()
    {
        CTreeFixture fixture(Site());
        QTRY_VERIFY(fixture.pTree->hasFocus());
        fixture.pTree->SetSearchText("alpha");
        fixture.pTree->DealMenuBar(18, true);
        QStringList listSelected = fixture.Selected();
        listSelected.sort();
        QCOMPARE(listSelected, (QStringList{ "Stage", "all", "alpha" }));
    }

    void otherCommandsOfTheMenuBarDoNothing_data()
    {
        QTest::addColumn<int>("nId");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("false") << 18 << QVariant(false);
        QTest::newRow("no value") << 18 << QVariant();
        QTest::newRow("17") << 17 << QVariant(true);
        QTest::newRow("0") << 0 << QVariant(true);
    }
    void otherCommandsOfTheMenuBarDoNothing()
    {
        QFETCH(int, nId);
        QFETCH(QVariant, value);
        CTreeFixture fixture(Site(), { ProcessorId("alpha") });
        QTRY_VERIFY(fixture.pTree->hasFocus());
        fixture.pTree->DealMenuBar(nId, value);
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
    }

    void selectAllWithoutTheFocusDoesNothing()
    {
        CTreeFixture fixture(Site(), { ProcessorId("alpha") });
        fixture.pTree->clearFocus();
        fixture.pTree->DealMenuBar(18, true);
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
    }

    void aModelTesterFindsNoFaultInAWholeRoundOfSelections()
    {
        CTreeFixture fixture(Site());
        QAbstractItemModelTester tester(fixture.pTree->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        fixture.ConnectLikeTheView();
        fixture.Click(fixture.Row("alpha"));
        fixture.Load(Root({ Group("Hall", { Processor("alpha") }) }), { ProcessorId("alpha") });
        fixture.Load(Root({}), {});
        QCOMPARE(fixture.Selected(), QStringList{ "all" });
    }
};

PTV_TEST_MAIN(CSelectionTest)
#include "tst_selection.moc"
