#include "CEventCounter.h"
#include "TestMain.h"
#include "TreeText.h"
#include "fixtures/CPanelFixture.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/widgets/CSearchBox.h"
#include "shell/CProcessorTreeView.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QAction>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedLayout>
#include <QThreadPool>
#include <QToolButton>

namespace {

void FillBothPanes(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({}, { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) });
    answers.nodeSimulator = Root({}, { Processor("sim alpha").Expanded(false), Processor("sim beta").Expanded(false) });
    answers.vecDiscoveredSelection = { ProcessorId("alpha") };
    answers.vecSimulatorSelection = { ProcessorId("sim beta") };
}

const char szDiscovered[] = "all [expanded]\n"
                            "  processor alpha [selected]\n"
                            "    info alpha\n"
                            "  processor beta\n"
                            "    info beta\n";

const char szSimulator[] = "all [expanded]\n"
                           "  processor sim alpha\n"
                           "    info sim alpha\n"
                           "  processor sim beta [selected]\n"
                           "    info sim beta\n";

/// Writes down in which order things happen to the panel while it is updated.
class CUpdateLog : public QObject
{
public:
    explicit CUpdateLog(const CPanelFixture& panel) : pRefresh(panel.RefreshButton()), pTree(panel.Tree())
    {
        pRefresh->installEventFilter(this);
        connect(pTree->model(), &QAbstractItemModel::rowsRemoved, this, [this] { listStep.append("rows removed"); });
        connect(panel.MenuAction("Export"), &QAction::changed, this, [this] {
            listStep.append(pTree->isRowHidden(0, pTree->model()->index(0, 0)) ? "tool bar, filtered" : "tool bar");
        });
    }

    /// Each step once, in the order of its first time.
    QStringList Steps() const
    {
        QStringList listOnce = listStep;
        listOnce.removeDuplicates();
        return listOnce;
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::EnabledChange) {
            listStep.append("refresh button");
        }
        return false;
    }

private:
    QToolButton* pRefresh;
    CProcessorTree* pTree;
    QStringList listStep;
};

} // namespace

/// How the store's contents get onto the screen.
class CEventFlowTest : public QObject
{
    Q_OBJECT

private slots:
    void aChangedTreeIsShown()
    {
        CPanelFixture panel;

        panel.Refresh(FillBothPanes);

        QCOMPARE(TreeText(panel.Tree(false)), QString::fromLatin1(szDiscovered));
    }

    void anUpdateGoesButtonTreeToolBarFilter()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.SearchEdit()->setText(QStringLiteral("beta"));
        CUpdateLog log(panel);

        panel.Refresh([](SControlAnswers& answers) {
            answers.nodeDiscovered.listProcessor.append(Processor("gamma"));
            answers.bRefreshBlocked = true;
        });

        QCOMPARE(log.Steps(), QStringList({ "refresh button", "rows removed", "tool bar" }));
        QVERIFY(panel.Tree()->isRowHidden(0, panel.Tree()->model()->index(0, 0)));
    }

    void theHostPullsTheSnapshotOntoTheScreen()
    {
        CPanelFixture panel;
        SProcessorAllNode node = Root({}, { Processor("alpha").Expanded(false) });
        g_pProcessorTreeData->SetCurrentTree(node);

        panel.pWidget->UpdateWidget();

        QVERIFY(TreeText(panel.Tree()).contains(QStringLiteral("processor alpha")));
        QVERIFY(panel.MenuAction("Export")->isEnabled());
    }

    void aBlockedRefreshDisablesItsButton()
    {
        CPanelFixture panel;
        QVERIFY(panel.RefreshButton()->isEnabled());

        panel.Refresh([](SControlAnswers& answers) { answers.bRefreshBlocked = true; });
        QVERIFY(!panel.RefreshButton()->isEnabled());

        panel.Refresh([](SControlAnswers& answers) { answers.bRefreshBlocked = false; });
        QVERIFY(panel.RefreshButton()->isEnabled());
    }

    void aLockedListDisablesRefreshAndImportWithoutARebuild()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        QSignalSpy rebuilds(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved);

        panel.Refresh([](SControlAnswers& answers) { answers.bListLocked = true; });

        QVERIFY(!panel.RefreshButton()->isEnabled());
        QVERIFY(!panel.MenuAction("Import")->isEnabled());
        QVERIFY(!panel.ToolButton("Delete")->isEnabled());
        QCOMPARE(rebuilds.count(), 0);
    }

    void aSelectionOfTheLibraryIsShownThenTheToolBarFollows()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.control.ClearJournal();

        panel.Refresh([](SControlAnswers& answers) { answers.vecDiscoveredSelection = { ProcessorId("beta") }; });

        QVERIFY(TreeText(panel.Tree()).contains(QStringLiteral("processor beta [selected]")));
        QVERIFY(!TreeText(panel.Tree()).contains(QStringLiteral("processor alpha [selected]")));
        const QStringList listCall = panel.control.CallsWithThread();
        const int nReport = listCall.indexOf(QStringLiteral("gui: g_pRuntimeControl.SetSelectedNodes([beta])"));
        const int nToolBar = listCall.lastIndexOf(QStringLiteral("gui: g_pRuntimeControl.IsDeleteBlocked(beta)"));
        QVERIFY(nReport >= 0);
        QVERIFY(nToolBar > nReport);
    }

    // While a scan runs the rows stay as they are, also those of nodes that the store has lost.
    void aSelectedRowThatIsGoneStaysMarkedUntilTheScanEnds()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh([](SControlAnswers& answers) { answers.vecDiscoveredSelection = { ProcessorId("beta") }; });
        panel.control.Hold(QStringLiteral("RefreshProcessors"));
        panel.Click(panel.RefreshButton());
        QVERIFY(panel.control.WaitForHeld(QStringLiteral("RefreshProcessors")));

        panel.Refresh([](SControlAnswers& answers) {
            answers.nodeDiscovered = Root({}, { Processor("beta").Expanded(false) });
            answers.vecDiscoveredSelection = { ProcessorId("alpha") };
        });

        QVERIFY(TreeText(panel.Tree()).contains(QStringLiteral("processor alpha [selected]")));
        panel.control.Release(QStringLiteral("RefreshProcessors"));
        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
        QTRY_VERIFY(!TreeText(panel.Tree()).contains(QStringLiteral("alpha")));
    }

    void aSelectionThatIsGoneStillReachesTheToolBar()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.control.ClearJournal();

        // No row can be selected, so no report of the tree leads to the tool bar.
        panel.Refresh([](SControlAnswers& answers) {
            answers.vecDiscoveredSelection = { ProcessorId("gone") };
            answers.setDeleteBlocked = { ProcessorId("gone") };
        });

        QCOMPARE(panel.control.Commands(), QStringList());
        QVERIFY(panel.Tree()->selectionModel()->selectedIndexes().isEmpty());
        QVERIFY(!panel.ToolButton("Delete")->isEnabled());
    }

    void aSelectionChangeRebuildsNoRows()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        QSignalSpy rebuilds(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved);

        panel.Refresh([](SControlAnswers& answers) { answers.vecDiscoveredSelection = { ProcessorId("beta") }; });

        QCOMPARE(rebuilds.count(), 0);
    }

    void chiefModeAsksForARepaintOnly()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        QSignalSpy rebuilds(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved);
        CEventCounter paints(panel.View(), QEvent::Paint);
        panel.control.ClearJournal();

        panel.Refresh([](SControlAnswers& answers) { answers.bChiefMode = true; });

        QTRY_VERIFY(paints.nCount > 0);
        QCOMPARE(rebuilds.count(), 0);
        QCOMPARE(panel.control.Commands(), QStringList());
    }

    void updateRepaintsTheView()
    {
        CPanelFixture panel;
        CEventCounter paints(panel.View(), QEvent::Paint);

        QVERIFY(QMetaObject::invokeMethod(panel.View(), "Update"));

        QTRY_VERIFY(paints.nCount > 0);
    }

    void updateTreeToolbarLooksAgain()
    {
        CPanelFixture panel;
        g_pProcessorTreeData->SetCurrentTree(Root({ Group("Stage") }));
        QVERIFY(!panel.MenuAction("Export")->isEnabled());

        QVERIFY(QMetaObject::invokeMethod(panel.View(), "UpdateTreeToolbar"));

        QVERIFY(panel.MenuAction("Export")->isEnabled());
    }

    void aTabSwitchTellsStoreAndLibrary()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.control.ClearJournal();

        panel.Click(panel.SimulatorTab());
        QVERIFY(g_pProcessorTreeData->IsSimulatorPane());
        QCOMPARE(panel.control.CommandsWithThread(), QStringList("gui: g_pRuntimeControl.SetSimulatorPane(true)"));

        panel.Click(panel.DiscoveredTab());
        QVERIFY(!g_pProcessorTreeData->IsSimulatorPane());
        QCOMPARE(panel.control.CommandsWithThread().last(), QStringLiteral("gui: g_pRuntimeControl.SetSimulatorPane(false)"));
        QCOMPARE(panel.control.Commands().size(), 2);
    }

    void aTabSwitchShowsTheOtherTree()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();

        panel.Click(panel.SimulatorTab());

        QCOMPARE(panel.Stack()->currentIndex(), 1);
        QCOMPARE(TreeText(panel.Tree(true)), QString::fromLatin1(szSimulator));
        QCOMPARE(panel.View()->childAt(panel.Tree(true)->geometry().center()), panel.Tree(true)->viewport());
        QVERIFY(panel.ToolButton("Add simulators"));
        QVERIFY(!panel.MenuAction("Import")->isEnabled());
    }

    void aTabSwitchReadsNothingFromTheLibrary()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.control.ClearJournal();

        panel.Click(panel.SimulatorTab());
        QVERIFY(panel.control.WaitForDelivery());

        QCOMPARE(panel.control.CallCount(QStringLiteral("GetSimulatorTree")), 0);
        QCOMPARE(panel.control.CallCount(QStringLiteral("GetSelectedNodes")), 0);
    }

    void switchingBackShowsTheFirstPaneAgain()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();

        panel.Click(panel.SimulatorTab());
        panel.Click(panel.DiscoveredTab());

        QCOMPARE(panel.Stack()->currentIndex(), 0);
        QCOMPARE(TreeText(panel.Tree(false)), QString::fromLatin1(szDiscovered));
        QVERIFY(panel.DiscoveredTab()->isChecked());
        QVERIFY(!panel.SimulatorTab()->isChecked());
    }

    void clickingTheCheckedTabChangesNothing()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        QSignalSpy rebuilds(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved);
        panel.control.ClearJournal();

        panel.Click(panel.DiscoveredTab());

        QVERIFY(panel.DiscoveredTab()->isChecked());
        QCOMPARE(panel.control.Calls(), QStringList());
        QCOMPARE(rebuilds.count(), 0);
    }

    void aPaneSwitchOfTheLibraryMovesNoTab()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();

        panel.Refresh([](SControlAnswers& answers) { answers.bSimulatorPane = true; });

        QVERIFY(g_pProcessorTreeData->IsSimulatorPane());
        QVERIFY(panel.DiscoveredTab()->isChecked());
        QCOMPARE(panel.Stack()->currentIndex(), 0);
    }

    void afterAPaneSwitchOfTheLibraryHandlersWorkOnTheOtherTree()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();

        panel.Refresh([](SControlAnswers& answers) {
            answers.bSimulatorPane = true;
            answers.nodeSimulator.listProcessor.append(Processor("sim gamma"));
        });

        QVERIFY(TreeText(panel.Tree(true)).contains(QStringLiteral("processor sim gamma")));
        QCOMPARE(TreeText(panel.Tree(false)), QString::fromLatin1(szDiscovered));
    }

    void aSearchTextFiltersTheCurrentTree()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.MenuAction("Search")->trigger();

        QTest::keyClicks(panel.SearchEdit(), QStringLiteral("bet"));

        QCOMPARE(TreeText(panel.Tree()),
                 QStringLiteral("all [expanded]\n"
                                "  processor alpha [hidden] [selected]\n"
                                "    info alpha\n"
                                "  processor beta\n"
                                "    info beta\n"));
    }

    void aRebuiltTreeStaysFiltered()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.SearchEdit()->setText(QStringLiteral("bet"));

        panel.Refresh([](SControlAnswers& answers) {
            answers.nodeDiscovered.listProcessor.append(Processor("gamma"));
            answers.nodeDiscovered.listProcessor.append(Processor("better"));
        });

        const QModelIndex root = panel.Tree()->model()->index(0, 0);
        QVERIFY(panel.Tree()->isRowHidden(0, root));
        QVERIFY(!panel.Tree()->isRowHidden(1, root));
        QVERIFY(panel.Tree()->isRowHidden(2, root));
        QVERIFY(!panel.Tree()->isRowHidden(3, root));
    }

    void aSearchTextIsAppliedToTheOtherPaneAtTheSwitch()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.SearchEdit()->setText(QStringLiteral("alpha"));

        panel.Click(panel.SimulatorTab());

        const QModelIndex root = panel.Tree(true)->model()->index(0, 0);
        QVERIFY(!panel.Tree(true)->isRowHidden(0, root));
        QVERIFY(panel.Tree(true)->isRowHidden(1, root));
    }

    void aRebuildWithoutASearchTextShowsAllRowsAsRecorded()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.control.ClearJournal();

        panel.Refresh([](SControlAnswers& answers) { answers.nodeDiscovered.listProcessor[0].bExpanded = true; });

        QVERIFY(TreeText(panel.Tree()).contains(QStringLiteral("processor alpha [expanded]")));
        QCOMPARE(panel.control.CallCount(QStringLiteral("SetExpanded")), 0);
    }

    void closingTheSearchRowShowsAllRowsAndHidesIt()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.MenuAction("Search")->trigger();
        QTest::keyClicks(panel.SearchEdit(), QStringLiteral("bet"));
        QVERIFY(panel.Tree()->isRowHidden(0, panel.Tree()->model()->index(0, 0)));

        panel.Click(panel.CloseSearchButton());

        QVERIFY(panel.SearchBox()->isHidden());
        QVERIFY(panel.CloseSearchButton()->isHidden());
        QCOMPARE(panel.SearchBox()->GetText(), QString());
        QCOMPARE(TreeText(panel.Tree()), QString::fromLatin1(szDiscovered));
    }

    void theMenuBarReachesTheTreeOfTheCurrentPane()
    {
        CPanelFixture panel(FillBothPanes);
        panel.Refresh();
        panel.Click(panel.SimulatorTab());
        QApplication::setActiveWindow(&panel.host);
        panel.Tree(true)->setFocus();
        QTRY_VERIFY(panel.Tree(true)->hasFocus());

        QVERIFY(QMetaObject::invokeMethod(panel.View(), "DealMenuBar", Q_ARG(int, 18), Q_ARG(QVariant, true)));

        QVERIFY(TreeText(panel.Tree(true)).contains(QStringLiteral("processor sim alpha [selected]")));
        QCOMPARE(TreeText(panel.Tree(false)), QString::fromLatin1(szDiscovered));
    }

    void aListAtTheLimitsAndAboveGoesAllTheWay_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("256 groups, 256 processors") << 256;
        QTest::newRow("2560 groups, 2560 processors") << 2560;
    }

    void aListAtTheLimitsAndAboveGoesAllTheWay()
    {
        QFETCH(int, count);
        CPanelFixture panel;
        panel.Refresh([&](SControlAnswers& answers) {
            for (int i = 0; i < count; ++i) {
                answers.nodeDiscovered.listGroup.append(
                    Group(QStringLiteral("g%1").arg(i), { Processor(QStringLiteral("p%1").arg(i)).Expanded(false) }));
            }
        });
        const QModelIndex root = panel.Tree()->model()->index(0, 0);
        QCOMPARE(panel.Tree()->model()->rowCount(root), count);
        QVERIFY(!panel.ToolButton("Add group")->isEnabled());
        QVERIFY(!panel.ToolButton("Add a processor")->isEnabled());

        panel.SearchEdit()->setText(QStringLiteral("p%1").arg(count - 1));
        QVERIFY(panel.Tree()->isRowHidden(0, root));
        QVERIFY(!panel.Tree()->isRowHidden(count - 1, root));
        panel.Click(panel.SimulatorTab());
        panel.Click(panel.DiscoveredTab());
        QVERIFY(panel.Tree()->isRowHidden(0, panel.Tree()->model()->index(0, 0)));
        panel.Click(panel.CloseSearchButton());
        panel.pWidget->UpdateWidget();
        QVERIFY(!panel.Tree()->isRowHidden(0, panel.Tree()->model()->index(0, 0)));
    }

    void theTitleFollowsTheProject_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("project");
        QTest::addColumn<QString>("title");
        QTest::newRow("opened") << QString() << "Alpha"
                                << "Alpha - Kestrel";
        QTest::newRow("changed") << "Alpha"
                                 << "Beta"
                                 << "Beta - Kestrel";
        QTest::newRow("closed") << "Alpha" << QString() << "Kestrel";
        QTest::newRow("beyond Latin") << "Alpha" << QStringLiteral("舞台 Ü") << QStringLiteral("舞台 Ü - Kestrel");
    }

    void theTitleFollowsTheProject()
    {
        QFETCH(QString, before);
        QFETCH(QString, project);
        CPanelFixture panel;
        QMainWindow window;
        panel.Refresh([&](SControlAnswers& answers) { answers.strProject = before; });

        panel.Refresh([&](SControlAnswers& answers) { answers.strProject = project; });

        QTEST(window.windowTitle(), "title");
        QCOMPARE(panel.host.windowTitle(), QString());
    }

    void theTitleIsNotTouchedBeforeAProjectIsKnown()
    {
        CPanelFixture panel(FillBothPanes);
        QMainWindow window;
        window.setWindowTitle(QStringLiteral("starting"));

        panel.Refresh();

        QCOMPARE(window.windowTitle(), QStringLiteral("starting"));
    }

    void ofTwoMainWindowsOneIsTitled()
    {
        CPanelFixture panel;
        const QMainWindow first;
        const QMainWindow second;

        panel.Refresh([](SControlAnswers& answers) { answers.strProject = QStringLiteral("Alpha"); });

        QCOMPARE(first.windowTitle() + second.windowTitle(), QStringLiteral("Alpha - Kestrel"));
    }

    void withoutAMainWindowNoTitleChanges()
    {
        CPanelFixture panel;
        panel.host.setWindowTitle(QStringLiteral("no main window"));
        QMainWindow embedded;
        embedded.setParent(&panel.host, Qt::Widget);

        panel.Refresh([](SControlAnswers& answers) { answers.strProject = QStringLiteral("Alpha"); });

        QCOMPARE(panel.host.windowTitle(), QStringLiteral("no main window"));
        QCOMPARE(embedded.windowTitle(), QString());
    }

    void storeSignalsAreHandledOnTheGuiThreadInTheOrderOfEmission()
    {
        CPanelFixture panel(FillBothPanes);
        QMainWindow window;
        panel.Refresh();
        QStringList listStep;
        connect(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved, this, [&] { listStep.append("tree"); });
        connect(panel.Tree()->selectionModel(), &QItemSelectionModel::selectionChanged, this, [&] {
            if (QThread::currentThread() == qApp->thread() && listStep.contains("tree")) {
                listStep.append("selection");
            }
        });
        connect(&window, &QWidget::windowTitleChanged, this, [&] { listStep.append("title"); });

        panel.control.Set([](SControlAnswers& answers) {
            answers.nodeDiscovered.listProcessor.append(Processor("gamma"));
            answers.vecDiscoveredSelection = { ProcessorId("beta") };
            answers.strProject = QStringLiteral("Alpha");
        });
        panel.RefreshStore();
        QCOMPARE(listStep, QStringList());
        QCoreApplication::processEvents();

        listStep.removeDuplicates();
        QCOMPARE(listStep, QStringList({ "tree", "selection", "title" }));
    }
};

PTV_TEST_MAIN(CEventFlowTest)
#include "tst_eventflow.moc"
