#include "CDialogDriver.h"
#include "CMapTranslator.h"
#include "TestMain.h"
#include "TreeText.h"
#include "fixtures/CPanelFixture.h"
#include "interfaces/widgets/CDoubleSpinBox.h"
#include "interfaces/widgets/CIPEdit.h"
#include "interfaces/widgets/CSearchBox.h"
#include "shell/CProcessorTreeView.h"
#include "tree/CProcessorTree.h"

#include <QAction>
#include <QHostAddress>
#include <QLineEdit>
#include <QSignalSpy>
#include <QThread>
#include <QToolButton>

namespace {

void TwoProcessors(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({}, { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) });
    answers.vecDiscoveredSelection = { ProcessorId("beta") };
}

void SimulatorPane(SControlAnswers& answers)
{
    answers.bSimulatorPane = true;
}

} // namespace

/// What the tool bar's commands do: adding, deleting, searching.
class CToolBarCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void numbersWithoutACommandDoNothing_data()
    {
        QTest::addColumn<int>("id");
        for (int id : { 0, 4, 8, -1, 100, std::numeric_limits<int>::max(), std::numeric_limits<int>::min() }) {
            QTest::addRow("%d", id) << id;
        }
    }

    void numbersWithoutACommandDoNothing()
    {
        QFETCH(int, id);
        CPanelFixture panel(TwoProcessors);
        panel.Refresh();
        panel.control.ClearJournal();
        CDialogDriver driver;
        QSignalSpy told(panel.View(), &CProcessorTreeView::NodeSelectChanged);

        panel.View()->DealToolBarButton(id);

        QCOMPARE(panel.control.Calls(), QStringList());
        QCOMPARE(driver.Shown(), QStringList());
        QCOMPARE(told.count(), 0);
        QVERIFY(panel.SearchBox()->isHidden());
    }

    void aNewGroupIsAddedAndSelected()
    {
        CPanelFixture panel(TwoProcessors);
        panel.Refresh();
        panel.control.ClearJournal();

        panel.Click(panel.ToolButton("Add group"));

        QCOMPARE(panel.control.CallsWithThread(),
                 QStringList({ "gui: g_pPrcListControl.GetNextGroupIndex()", "gui: g_pPrcListControl.AddGroup(\"Group 1\", true)",
                               "gui: g_pRuntimeControl.SetSelectedNodes([Group 1])",
                               "gui: g_pRuntimeControl.IsDeleteBlocked(beta)" }));
    }

    void aNewGroupIsEmptyUnfoldedAndWithoutAChief()
    {
        CPanelFixture panel;

        panel.Click(panel.ToolButton("Add group"));

        const SProcessorGroupNode group = panel.control.Answers().listGroupAdded.value(0);
        QVERIFY(!group.idNode.isNull());
        QVERIFY(group.bExpanded);
        QCOMPARE(group.nNodeType, 2);
        QVERIFY(group.listProcessor.isEmpty());
        QVERIFY(group.idChief.isNull());
        QVERIFY(group.setAux.isEmpty());
        QCOMPARE(panel.control.Answers().vecDiscoveredSelection, std::vector<QUuid>({ group.idNode }));
    }

    void eachNewGroupHasItsOwnId()
    {
        CPanelFixture panel;

        panel.View()->DealToolBarButton(1);
        panel.View()->DealToolBarButton(1);

        const auto listGroup = panel.control.Answers().listGroupAdded;
        QCOMPARE(listGroup.size(), 2);
        QVERIFY(listGroup.at(0).idNode != listGroup.at(1).idNode);
    }

    void aCommandIsCarriedOutWhateverTheToolBarOffers()
    {
        CPanelFixture panel([](SControlAnswers& answers) {
            for (int i = 0; i < 256; ++i) {
                answers.nodeDiscovered.listGroup.append(Group(QString::number(i)));
            }
        });
        panel.Refresh();
        QVERIFY(!panel.ToolButton("Add group")->isEnabled());

        panel.View()->DealToolBarButton(1);

        QCOMPARE(panel.control.CallCount(QStringLiteral("AddGroup")), 1);
    }

    void aNewGroupTakesTheLibrarysNumber_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("name");
        QTest::newRow("5") << 5 << "Group 5";
        QTest::newRow("256") << 256 << "Group 256";
        QTest::newRow("1000") << 1000 << "Group 1000";
        QTest::newRow("negative") << -3 << "Group -3";
    }

    void aNewGroupTakesTheLibrarysNumber()
    {
        QFETCH(int, index);
        QFETCH(QString, name);
        CPanelFixture panel([&](SControlAnswers& answers) { answers.nNextGroupIndex = index; });

        panel.Click(panel.ToolButton("Add group"));

        QCOMPARE(panel.control.Commands().first(), QStringLiteral("g_pPrcListControl.AddGroup(\"%1\", true)").arg(name));
    }

    void aNewGroupIsNamedInTheUsersLanguage()
    {
        CPanelFixture panel([](SControlAnswers& answers) { answers.nNextGroupIndex = 5; });
        const CMapTranslator german({ { "CProcessorTreeView|Group %1", "%1. Gruppe" } });

        panel.View()->DealToolBarButton(1);

        QCOMPARE(panel.control.Commands().first(), QStringLiteral("g_pPrcListControl.AddGroup(\"5. Gruppe\", true)"));
    }

    void aNewGroupChangesNoRowByItself()
    {
        CPanelFixture panel(TwoProcessors);
        panel.Refresh();
        const QString strBefore = TreeText(panel.Tree());

        panel.Click(panel.ToolButton("Add group"));
        QCoreApplication::processEvents();

        QCOMPARE(TreeText(panel.Tree()), strBefore);
    }

    void theHostHearsOfANewGroupLast()
    {
        CPanelFixture panel;
        int nCallsWhenTold = 0;
        connect(
            panel.View(), &CProcessorTreeView::NodeSelectChanged, this, [&] { nCallsWhenTold = panel.control.Calls().size(); },
            Qt::DirectConnection);

        panel.Click(panel.ToolButton("Add group"));

        QVERIFY(nCallsWhenTold > 0);
        QCOMPARE(nCallsWhenTold, panel.control.Calls().size());
    }

    void aProcessorIsAddedOnAThreadOfItsOwn()
    {
        CPanelFixture panel;
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer("DialogAccept");

        panel.Click(panel.ToolButton("Add a processor"));

        QVERIFY(panel.control.WaitForCall(QStringLiteral("SetBusy"), 2));
        QCOMPARE(panel.control.CommandsWithThread(),
                 QStringList({ "gui: g_pRuntimeControl.SetBusy(true)", "other: g_pPrcBasicControl.AddProcessor(192.168.1.10)",
                               "other: g_pRuntimeControl.SetBusy(false)" }));
        QCOMPARE(driver.Shown(), QStringList("Add a processor"));
    }

    void theAddressTypedIsAdded()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.Answer([](QDialog* pDialog) {
            pDialog->findChild<CIPEdit*>()->SetAddress(QHostAddress(QStringLiteral("10.1.2.3")).toIPv4Address());
            QTest::keyClick(pDialog, Qt::Key_Return);
        });

        panel.Click(panel.ToolButton("Add a processor"));

        QVERIFY(panel.control.WaitForCall(QStringLiteral("SetBusy"), 2));
        QVERIFY(panel.control.Commands().contains(QStringLiteral("g_pPrcBasicControl.AddProcessor(10.1.2.3)")));
    }

    void theHostHearsOfANewProcessorBeforeTheBusyStateEnds()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.Answer("DialogAccept");
        QStringList listWhenTold;
        std::atomic<QThread*> pTeller{ nullptr };
        connect(
            panel.View(), &CProcessorTreeView::NodeSelectChanged, this,
            [&] {
                listWhenTold = panel.control.Commands();
                pTeller = QThread::currentThread();
            },
            Qt::DirectConnection);

        panel.Click(panel.ToolButton("Add a processor"));
        QVERIFY(panel.control.WaitForCall(QStringLiteral("SetBusy"), 2));

        QVERIFY(pTeller.load() != qApp->thread());
        QCOMPARE(listWhenTold,
                 QStringList({ "g_pRuntimeControl.SetBusy(true)", "g_pPrcBasicControl.AddProcessor(192.168.1.10)" }));
    }

    void addingReturnsWhileTheDeviceIsSlow()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.Answer("DialogAccept");
        panel.control.Hold(QStringLiteral("AddProcessor"));

        panel.Click(panel.ToolButton("Add a processor"));

        QVERIFY(panel.control.WaitForHeld(QStringLiteral("AddProcessor")));
        QCOMPARE(panel.control.CallCount(QStringLiteral("SetBusy")), 1);
        QVERIFY(!QApplication::activeModalWidget());
        panel.control.Release(QStringLiteral("AddProcessor"));
        QVERIFY(panel.control.WaitForCall(QStringLiteral("SetBusy"), 2));
    }

    void twoAddsRunSideBySide()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.Answer("DialogAccept");
        driver.Answer("DialogAccept");
        panel.control.Hold(QStringLiteral("AddProcessor"));

        panel.Click(panel.ToolButton("Add a processor"));
        panel.Click(panel.ToolButton("Add a processor"));

        QVERIFY(panel.control.WaitForCall(QStringLiteral("AddProcessor"), 2));
        QCOMPARE(panel.control.CallCount(QStringLiteral("SetBusy")), 2);
        panel.control.Release(QStringLiteral("AddProcessor"));
        QVERIFY(panel.control.WaitForCall(QStringLiteral("SetBusy"), 4));
    }

    void aCancelledAddTouchesNothing_data()
    {
        QTest::addColumn<bool>("simulator");
        QTest::addColumn<QString>("button");
        for (bool bSimulator : { false, true }) {
            const char* szPane = bSimulator ? "simulators" : "processor";
            QTest::addRow("%s, cancelled", szPane) << bSimulator << "DialogReject";
            QTest::addRow("%s, cross", szPane) << bSimulator << "DialogClose";
            QTest::addRow("%s, Escape", szPane) << bSimulator << "key Escape";
        }
    }

    void aCancelledAddTouchesNothing()
    {
        QFETCH(bool, simulator);
        QFETCH(QString, button);
        CPanelFixture panel([&](SControlAnswers& answers) { answers.bSimulatorPane = simulator; });
        panel.Refresh();
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer(button);
        QSignalSpy told(panel.View(), &CProcessorTreeView::NodeSelectChanged);

        panel.View()->DealToolBarButton(2);

        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown().size(), 1);
        QCOMPARE(panel.control.Commands(), QStringList());
        QCOMPARE(told.count(), 0);
    }

    void simulatorsAreAddedAtOnceOnTheGuiThread()
    {
        CPanelFixture panel(SimulatorPane);
        panel.Refresh();
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer("DialogAccept");
        QSignalSpy told(panel.View(), &CProcessorTreeView::NodeSelectChanged);

        panel.Click(panel.ToolButton("Add simulators"));

        QCOMPARE(panel.control.CommandsWithThread(),
                 QStringList("gui: g_pPrcBasicControl.AddSimulators(type 12, count 1, output 3)"));
        QCOMPARE(driver.Shown(), QStringList("Add simulators"));
        QCOMPARE(told.count(), 0);
    }

    void simulatorsCarryWhatTheDialogSays()
    {
        CPanelFixture panel(SimulatorPane);
        panel.Refresh();
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer([](QDialog* pDialog) {
            QTest::keyClick(pDialog->findChild<CDoubleSpinBox*>(), Qt::Key_Up);
            QTest::keyClick(pDialog, Qt::Key_Return);
        });

        panel.Click(panel.ToolButton("Add simulators"));

        QCOMPARE(panel.control.Commands(), QStringList("g_pPrcBasicControl.AddSimulators(type 12, count 2, output 3)"));
    }

    void thePaneDecidesAtThePressNotTheToolTip()
    {
        CPanelFixture panel;
        panel.Refresh();
        CDialogDriver driver;
        driver.Answer("key Escape");
        QToolButton* pAdd = panel.ToolButton("Add a processor");

        // The store has switched; nothing has told the tool bar so.
        g_pProcessorTreeData->SetSimulatorPane(true);
        QCOMPARE(pAdd->toolTip(), QStringLiteral("Add a processor"));
        panel.Click(pAdd);

        QCOMPARE(driver.Shown(), QStringList("Add simulators"));
    }

    void deleteAsksFirst()
    {
        CPanelFixture panel(TwoProcessors);
        panel.Refresh();
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer("ButtonYes");

        panel.Click(panel.ToolButton("Delete"));

        QCOMPARE(driver.Shown(), QStringList("Delete processors: Do you want to delete all the selected processors?"));
        QVERIFY(panel.control.WaitForCall(QStringLiteral("SetBusy"), 2));
        QCOMPARE(panel.control.CommandsWithThread(),
                 QStringList({ "gui: g_pRuntimeControl.SetBusy(true)", "other: g_pPrcListControl.DeleteProcessor(beta, false)",
                               "other: g_pRuntimeControl.SetSelectedNodes([alpha])", "other: g_pRuntimeControl.PostMessage(14)",
                               "other: g_pRuntimeControl.SetBusy(false)" }));
    }

    void aDeclinedDeleteStillTellsTheHost_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("no") << "ButtonNo";
        QTest::newRow("cross") << "DialogClose";
        QTest::newRow("Escape") << "key Escape";
    }

    void aDeclinedDeleteStillTellsTheHost()
    {
        QFETCH(QString, button);
        CPanelFixture panel(TwoProcessors);
        panel.Refresh();
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer(button);
        QSignalSpy told(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        QSignalSpy rebuilds(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved);

        panel.Click(panel.ToolButton("Delete"));

        QVERIFY(driver.IsDone());
        QCOMPARE(panel.control.Commands(), QStringList());
        QCOMPARE(rebuilds.count(), 1);
        QCOMPARE(told.count(), 1);
    }

    void deleteUpdatesThePanelAndTellsTheHostAtOnce()
    {
        CPanelFixture panel(TwoProcessors);
        panel.Refresh();
        panel.control.Hold(QStringLiteral("DeleteProcessor"));
        CDialogDriver driver;
        driver.Answer("ButtonYes");
        QStringList listStep;
        connect(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved, this, [&] { listStep.append("tree"); });
        connect(panel.View(), &CProcessorTreeView::NodeSelectChanged, this, [&] { listStep.append("host"); });

        panel.Click(panel.ToolButton("Delete"));

        QVERIFY(panel.control.WaitForHeld(QStringLiteral("DeleteProcessor")));
        QCOMPARE(listStep, QStringList({ "tree", "host" }));
        QVERIFY(TreeText(panel.Tree()).contains(QStringLiteral("processor beta")));
        panel.control.Release(QStringLiteral("DeleteProcessor"));
        QVERIFY(panel.control.WaitForCall(QStringLiteral("SetBusy"), 2));
    }

    void searchShowsItsRow()
    {
        CPanelFixture panel;
        panel.control.ClearJournal();

        panel.MenuAction("Search")->trigger();

        QVERIFY(panel.SearchBox()->isVisible());
        QVERIFY(panel.CloseSearchButton()->isVisible());
        QCOMPARE(panel.control.Calls(), QStringList());
    }

    void searchKeepsTextAndFocus()
    {
        CPanelFixture panel(TwoProcessors);
        panel.Refresh();
        QApplication::setActiveWindow(&panel.host);
        panel.Tree()->setFocus();
        QTRY_VERIFY(panel.Tree()->hasFocus());
        panel.SearchEdit()->setText(QStringLiteral("beta"));

        panel.MenuAction("Search")->trigger();

        QCOMPARE(panel.SearchBox()->GetText(), QStringLiteral("beta"));
        QVERIFY(panel.Tree()->hasFocus());
    }

    void commandsWorkWhileScanning()
    {
        CPanelFixture panel;
        panel.control.Hold(QStringLiteral("RefreshProcessors"));
        QSignalSpy told(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        panel.Click(panel.RefreshButton());

        panel.Click(panel.ToolButton("Add group"));

        QCOMPARE(panel.control.CallCount(QStringLiteral("AddGroup")), 1);
        QCOMPARE(told.count(), 1);
        panel.control.Release(QStringLiteral("RefreshProcessors"));
        QVERIFY(panel.control.WaitForCall(QStringLiteral("SetBusy"), 2));
        QTRY_COMPARE(told.count(), 2);
    }
};

PTV_TEST_MAIN(CToolBarCommandsTest)
#include "tst_toolbarcommands.moc"
