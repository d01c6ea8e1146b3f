#include "CPanel.h"
#include "CPrcBasicControlStub.h"
#include "TestMain.h"
#include "TreeText.h"
#include "interfaces/host/ICorvidWidget.h"
#include "shell/CProcessorTreeView.h"
#include "tree/CProcessorTree.h"

#include <QAction>
#include <QPushButton>
#include <QSignalSpy>
#include <QThreadPool>
#include <QToolButton>

#include <stdexcept>

namespace {

const char szScan[] = "RefreshProcessors";

void OneProcessor(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({}, { Processor("alpha").Expanded(false) });
    answers.vecDiscoveredSelection = { ProcessorId("alpha") };
}

/// A scan that breaks off.
class CFailingScan final : public CPrcBasicControlStub
{
public:
    void RefreshProcessors() override
    {
        throw std::runtime_error("the network is gone");
    }
};

bool ShowsProcessor(const CPanel& panel, const QString& strName)
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
        CPanel panel(OneProcessor);
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
        CPanel panel;
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
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    }

    void theClickReturnsWhileTheScanRuns()
    {
        CPanel panel;
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);

        panel.Click(panel.RefreshButton());

        QVERIFY(panel.control.WaitForHeld(QString::fromLatin1(szScan)));
        QCOMPARE(ends.count(), 0);
        QCOMPARE(panel.control.Commands().first(), QStringLiteral("g_pRuntimeControl.SetBusy(true)"));
        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    }

    void twoQuickClicksRunOneScan()
    {
        CPanel panel;
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        QSignalSpy clicks(panel.RefreshButton(), &QToolButton::clicked);

        panel.Click(panel.RefreshButton());
        panel.Click(panel.RefreshButton());
        QVERIFY(panel.control.WaitForHeld(QString::fromLatin1(szScan)));
        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));

        QCOMPARE(clicks.count(), 1);
        QCOMPARE(panel.control.CallCount(QString::fromLatin1(szScan)), 1);
        QCOMPARE(panel.control.CallCount(QStringLiteral("SetBusy")), 2);
    }

    void aClickThatGetsThroughIsStillRefused()
    {
        CPanel panel;
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        panel.Click(panel.RefreshButton());

        panel.RefreshButton()->blockSignals(false);
        panel.Click(panel.RefreshButton());
        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));

        QCOMPARE(panel.control.CallCount(QString::fromLatin1(szScan)), 1);
    }

    void whileScanningAChangedTreeIsNotShown()
    {
        CPanel panel(OneProcessor);
        panel.Refresh();
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        panel.Click(panel.RefreshButton());

        panel.Refresh([](SControlAnswers& answers) { answers.nodeDiscovered.listProcessor.append(Processor("beta")); });
        QVERIFY(!ShowsProcessor(panel, "beta"));

        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(ShowsProcessor(panel, "beta"));
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    }

    void whileScanningThePullOfTheHostDoesNothing()
    {
        CPanel panel;
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        panel.Click(panel.RefreshButton());
        g_pProcessorTreeData->SetCurrentTree(Root({}, { Processor("alpha") }));

        panel.pWidget->UpdateWidget();

        QVERIFY(!ShowsProcessor(panel, "alpha"));
        QVERIFY(!panel.MenuAction("Export")->isEnabled());
        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    }

    void whileScanningCommandsStillFollow()
    {
        CPanel panel(OneProcessor);
        panel.Refresh();
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        panel.Click(panel.RefreshButton());

        panel.Refresh([](SControlAnswers& answers) { answers.bListLocked = true; });

        QVERIFY(!panel.RefreshButton()->isEnabled());
        QVERIFY(!panel.MenuAction("Import")->isEnabled());
        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    }

    void whileScanningTheSelectionStillFollows()
    {
        CPanel panel(OneProcessor);
        panel.Refresh();
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        panel.Click(panel.RefreshButton());
        QVERIFY(TreeText(panel.Tree()).contains(QStringLiteral("alpha [selected]")));

        panel.Refresh([](SControlAnswers& answers) { answers.vecDiscoveredSelection = { QUuid() }; });

        QVERIFY(TreeText(panel.Tree()).startsWith(QStringLiteral("all [expanded] [selected]")));
        QVERIFY(!TreeText(panel.Tree()).contains(QStringLiteral("alpha [selected]")));
        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    }

    void whileScanningAPaneSwitchRebuildsNothing()
    {
        CPanel panel(OneProcessor);
        panel.Refresh([](SControlAnswers& answers) { answers.nodeSimulator = Root({}, { Processor("sim") }); });
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        panel.Click(panel.RefreshButton());
        const QString strBefore = TreeText(panel.Tree(true));

        panel.Click(panel.SimulatorTab());
        QCOMPARE(TreeText(panel.Tree(true)), strBefore);

        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(TreeText(panel.Tree(true)).contains(QStringLiteral("processor sim")));
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    }

    void afterTheScanTheTreeIsRebuiltOnce()
    {
        CPanel panel(OneProcessor);
        panel.Refresh();
        panel.control.Hold(QString::fromLatin1(szScan));
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        QSignalSpy rebuilds(panel.Tree()->model(), &QAbstractItemModel::rowsRemoved);
        panel.Click(panel.RefreshButton());
        for (const QString& strName : { QStringLiteral("beta"), QStringLiteral("gamma"), QStringLiteral("delta") }) {
            panel.Refresh([&](SControlAnswers& answers) { answers.nodeDiscovered.listProcessor.append(Processor(strName)); });
        }
        QCOMPARE(rebuilds.count(), 0);

        panel.control.Release(QString::fromLatin1(szScan));
        QTRY_COMPARE(ends.count(), 1);

        QCOMPARE(rebuilds.count(), 1);
        QVERIFY(ShowsProcessor(panel, "delta"));
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    }

    void theEndGoesHostThenTreeThenButton()
    {
        CPanel panel(OneProcessor);
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
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    }

    void anotherScanCanFollow()
    {
        CPanel panel;
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);

        for (int nScan = 1; nScan <= 3; ++nScan) {
            panel.Click(panel.RefreshButton());
            QTRY_COMPARE(ends.count(), nScan);
        }

        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
        QCOMPARE(panel.control.CallCount(QString::fromLatin1(szScan)), 3);
    }

    void aScanThatThrowsLeavesThePanelScanning()
    {
        CPanel panel;
        QSignalSpy ends(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        {
            const CFailingScan failing;
            panel.Click(panel.RefreshButton());
            QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
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
