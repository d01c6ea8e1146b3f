#include "CFailingScan.h"
#include "TestMain.h"
#include "TreeText.h"
#include "fixtures/CPanelFixture.h"
#include "interfaces/host/ICorvidWidget.h"
#include "shell/CProcessorTreeView.h"
#include "tree/CProcessorTree.h"

#include <QAction>
#include <QPushButton>
#include <QSignalSpy>
#include <QThreadPool>
#include <QToolButton>

namespace {

const char szScan[] = "RefreshProcessors";

void OneProcessor(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({}, { Processor("alpha").Expanded(false) });
    answers.vecDiscoveredSelection = { ProcessorId("alpha") };
}

/// A panel whose scan for processors has been started by its button and does not end until Finish().
class CScanningPanel : public CPanelFixture
{
public:
    explicit CScanningPanel(const FnAnswers& fnAnswers = FnAnswers()) : CPanelFixture(fnAnswers)
    {
        if (fnAnswers) {
            Refresh();
        }
        control.Hold(QString::fromLatin1(szScan));
        Click(RefreshButton());
    }

    /// Returns when the panel has shown the end.
    void Finish()
    {
        control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
    }

    QSignalSpy ends{ View(), &CProcessorTreeView::NodeSelectChanged };
};

bool ShowsProcessor(const CPanelFixture& panel, const QString& strName)
{
    return TreeText(panel.Tree()).contains(QStringLiteral("processor ") + strName);
}

} // namespace

/// The refresh button: a scan for processors that leaves the panel usable.
class CRefreshTest : public QObject
{
    Q_OBJECT

private slots:
    void aScanRunsOnThePoolBetweenBusyAndIdle()
    {
        CPanelFixture panel(OneProcessor);
        panel.Refresh();
        panel.control.ClearJournal();
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);

        panel.Click(panel.RefreshButton());
        QTRY_COMPARE(ends.count(), 1);

        QTRY_COMPARE(panel.control.CommandsWithThread(),
                     QStringList({ "gui: g_pRuntimeControl.SetBusy(true)", "pool: g_pPrcBasicControl.RefreshProcessors()",
                                   "pool: g_pRuntimeControl.SetBusy(false)" }));
    }

    void theEndIsAnnouncedBeforeTheBusyStateEnds()
    {
        CPanelFixture panel;
        QStringList listAtEnd;
        bool bOnPool = false;
        connect(
            panel.View(), &CProcessorTreeView::RefreshEnable, this,
            [&] {
                listAtEnd = panel.control.Commands();
                bOnPool = QThread::currentThread() != qApp->thread();
            },
            Qt::DirectConnection);
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);

        panel.Click(panel.RefreshButton());
        QTRY_COMPARE(ends.count(), 1);

        QVERIFY(bOnPool);
        QCOMPARE(listAtEnd, QStringList({ "g_pRuntimeControl.SetBusy(true)", "g_pPrcBasicControl.RefreshProcessors()" }));
        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
    }

    void theClickReturnsWhileTheScanRuns()
    {
        CScanningPanel panel;

        QVERIFY(panel.control.WaitForHeld(QString::fromLatin1(szScan)));
        QCOMPARE(panel.ends.count(), 0);
        QCOMPARE(panel.control.Commands().first(), QStringLiteral("g_pRuntimeControl.SetBusy(true)"));
        panel.Finish();
    }

    void twoQuickClicksRunOneScan()
    {
        CPanelFixture panel;
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        QSignalSpy clicks(panel.RefreshButton(), &QToolButton::clicked);

        panel.Click(panel.RefreshButton());
        panel.Click(panel.RefreshButton());
        QVERIFY(panel.control.WaitForHeld(QString::fromLatin1(szScan)));
        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));

        QCOMPARE(clicks.count(), 1);
        QCOMPARE(panel.control.CallCount(QString::fromLatin1(szScan)), 1);
        QCOMPARE(panel.control.CallCount(QStringLiteral("SetBusy")), 2);
    }

    void aClickThatGetsThroughIsStillRefused()
    {
        CScanningPanel panel;

        panel.RefreshButton()->blockSignals(false);
        panel.Click(panel.RefreshButton());
        panel.Finish();

        QCOMPARE(panel.control.CallCount(QString::fromLatin1(szScan)), 1);
    }

    void whileScanningAChangedTreeIsNotShown()
    {
        CScanningPanel panel(OneProcessor);

        panel.Refresh([](SControlAnswers& answers) { answers.nodeDiscovered.listProcessor.append(Processor("beta")); });
        QVERIFY(!ShowsProcessor(panel, "beta"));

        panel.Finish();
        QVERIFY(ShowsProcessor(panel, "beta"));
    }

    void whileScanningThePullOfTheHostDoesNothing()
    {
        CScanningPanel panel;
        g_pProcessorTreeData->SetCurrentTree(Root({}, { Processor("alpha") }));

        panel.pWidget->UpdateWidget();

        QVERIFY(!ShowsProcessor(panel, "alpha"));
        QVERIFY(!panel.MenuAction("Export")->isEnabled());
        panel.Finish();
    }

    void whileScanningCommandsStillFollow()
    {
        CScanningPanel panel(OneProcessor);

        panel.Refresh([](SControlAnswers& answers) { answers.bListLocked = true; });

        QVERIFY(!panel.RefreshButton()->isEnabled());
        QVERIFY(!panel.MenuAction("Import")->isEnabled());
        panel.Finish();
    }

    void whileScanningTheSelectionStillFollows()
    {
        CScanningPanel panel(OneProcessor);
        QVERIFY(TreeText(panel.Tree()).contains(QStringLiteral("alpha [selected]")));

        panel.Refresh([](SControlAnswers& answers) { answers.vecDiscoveredSelection = { QUuid() }; });

        QVERIFY(TreeText(panel.Tree()).startsWith(QStringLiteral("all [expanded] [selected]")));
        QVERIFY(!TreeText(panel.Tree()).contains(QStringLiteral("alpha [selected]")));
        panel.Finish();
    }

    void whileScanningAPaneSwitchRebuildsNothing()
    {
        CScanningPanel panel([](SControlAnswers& answers) {
            OneProcessor(answers);
            answers.nodeSimulator = Root({}, { Processor("sim") });
        });
        const QString strBefore = TreeText(panel.Tree(true));

        panel.Click(panel.SimulatorTab());
        QCOMPARE(TreeText(panel.Tree(true)), strBefore);

        panel.Finish();
        QVERIFY(TreeText(panel.Tree(true)).contains(QStringLiteral("processor sim")));
    }

    void afterTheScanTheTreeIsRebuiltOnce()
    {
        CScanningPanel panel(OneProcessor);
        QSignalSpy rebuilds(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved);
        for (const QString& strName : { QStringLiteral("beta"), QStringLiteral("gamma"), QStringLiteral("delta") }) {
            panel.Refresh([&](SControlAnswers& answers) { answers.nodeDiscovered.listProcessor.append(Processor(strName)); });
        }
        QCOMPARE(rebuilds.count(), 0);

        panel.Finish();

        QCOMPARE(rebuilds.count(), 1);
        QVERIFY(ShowsProcessor(panel, "delta"));
    }

    void theEndGoesHostThenTreeThenButton()
    {
        CPanelFixture panel(OneProcessor);
        panel.Refresh();
        QStringList listStep;
        const auto note = [&](const QString& strStep) {
            listStep.append(strStep + (panel.RefreshButton()->signalsBlocked() ? ", clicks off" : ", clicks on"));
        };
        connect(panel.View(), &CProcessorTreeView::NodeSelectChanged, this,
                [&] { note(QThread::currentThread() == qApp->thread() ? "host" : "host on a foreign thread"); });
        connect(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved, this, [&] { note("tree"); });

        panel.Click(panel.RefreshButton());
        QTRY_COMPARE(listStep, QStringList({ "host, clicks off", "tree, clicks off" }));

        QVERIFY(!panel.RefreshButton()->signalsBlocked());
        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
    }

    void anotherScanCanFollow()
    {
        CPanelFixture panel;
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);

        for (int nScan = 1; nScan <= 3; ++nScan) {
            panel.Click(panel.RefreshButton());
            QTRY_COMPARE(ends.count(), nScan);
        }

        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
        QCOMPARE(panel.control.CallCount(QString::fromLatin1(szScan)), 3);
    }

    void aScanThatThrowsLeavesThePanelScanning()
    {
        CPanelFixture panel;
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        {
            const CFailingScan failing;
            panel.Click(panel.RefreshButton());
            QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
        }
        QCoreApplication::processEvents();

        QCOMPARE(ends.count(), 0);
        QCOMPARE(panel.control.Commands(), QStringList("g_pRuntimeControl.SetBusy(true)"));
        QVERIFY(panel.RefreshButton()->signalsBlocked());
        panel.Refresh(OneProcessor);
        QVERIFY(!ShowsProcessor(panel, "alpha"));
    }
};

PTV_TEST_MAIN(CRefreshTest)
#include "tst_refresh.moc"
