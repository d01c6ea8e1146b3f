#include "TestMain.h"
#include "TreeText.h"
#include "fixtures/CPanelFixture.h"
#include "shell/CProcessorTreeView.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QApplication>
#include <QDrag>
#include <QLineEdit>
#include <QThreadPool>
#include <QToolButton>

namespace {

void Site(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({}, { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) });
    answers.vecDiscoveredSelection = { ProcessorId("alpha") };
}

QPoint At(const CPanelFixture& panel, int nRow)
{
    const CProcessorTree* const pTree = panel.Tree();
    const QModelIndex indexRoot = pTree->model()->index(0, 0);
    return pTree->visualRect(pTree->model()->index(nRow, 0, indexRoot)).center();
}

enum EnRow
{
    RowAlpha = 0,
    RowBeta = 1,
};

QString Select(const QString& strName)
{
    return QStringLiteral("g_pRuntimeControl.SetSelectedNodes([%1])").arg(strName);
}

} // namespace

/// What a host's engineer is told under "Things to know" and no other test shows.
class CThingsToKnowTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pPanel.reset(new CPanelFixture(Site));
        pPanel->Refresh();
        pPanel->control.ClearJournal();
    }

    void cleanup()
    {
        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
        pPanel.reset();
    }

    void deleteTakesSelectedRowsThatTheSearchHides()
    {
        pPanel->Tree()->SetSearchText("beta");
        QVERIFY(TreeText(pPanel->Tree()).contains("alpha [hidden] [selected]"));
        QTest::keyClick(pPanel->Tree(), Qt::Key_Delete);
        QTRY_VERIFY(pPanel->control.Commands().contains("g_pRuntimeControl.SetBusy(false)"));
        QCOMPARE(pPanel->control.Commands().filter("Delete"), QStringList{ "g_pPrcListControl.DeleteProcessor(alpha, false)" });
    }

    void afterAClickOnTheToolBarDeleteActsOnTheList()
    {
        QApplication::setActiveWindow(&pPanel->host);
        QVERIFY(QTest::qWaitForWindowActive(&pPanel->host));
        pPanel->Click(pPanel->ToolBar());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        QTRY_VERIFY(pPanel->control.Commands().contains("g_pRuntimeControl.SetBusy(false)"));
        QCOMPARE(pPanel->control.Commands().filter("Delete"), QStringList{ "g_pPrcListControl.DeleteProcessor(alpha, false)" });
    }

    void aClickDuringTheReadingOfARefreshIsUndone()
    {
        pPanel->control.Hold("GetProjectInfo"); // the selection has been read by then
        pPanel->control.Raise(1);
        QVERIFY(pPanel->control.WaitForHeld("GetProjectInfo"));
        QTest::mouseClick(pPanel->Tree()->viewport(), Qt::LeftButton, Qt::NoModifier, At(*pPanel, RowBeta));
        QVERIFY(TreeText(pPanel->Tree()).contains("beta [selected]"));
        pPanel->control.Release("GetProjectInfo");
        QTRY_VERIFY(TreeText(pPanel->Tree()).contains("alpha [selected]"));
        QCOMPARE(pPanel->control.Commands(), (QStringList{ Select("beta"), Select("alpha") }));
    }

    void aNodeWithoutARowThatIsSelectedDuringAScanSelectsTheRoot()
    {
        pPanel->control.Hold("RefreshProcessors");
        pPanel->Click(pPanel->RefreshButton());
        QVERIFY(pPanel->control.WaitForHeld("RefreshProcessors"));
        pPanel->Refresh([](SControlAnswers& answers) {
            answers.nodeDiscovered.listProcessor.append(Processor("new"));
            answers.vecDiscoveredSelection = { ProcessorId("new") };
        });
        QVERIFY(TreeText(pPanel->Tree()).startsWith("all [expanded] [selected]"));
        QCOMPARE(pPanel->control.Commands().last(), Select("{null}"));
        pPanel->control.Release("RefreshProcessors");
    }

    void theSecondPressOfADoubleClickStartsNoDrag()
    {
        CProcessorTree* const pTree = pPanel->Tree();
        QTest::mouseClick(pTree->viewport(), Qt::LeftButton, Qt::NoModifier, At(*pPanel, RowBeta));
        QMouseEvent second(QEvent::MouseButtonDblClick, At(*pPanel, RowBeta), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QMouseEvent move(QEvent::MouseMove, At(*pPanel, RowAlpha), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(pTree->viewport(), &second);
        QCoreApplication::sendEvent(pTree->viewport(), &move);
        QVERIFY(!pTree->findChild<QDrag*>());
    }

private:
    QScopedPointer<CPanelFixture> pPanel;
};

PTV_TEST_MAIN(CThingsToKnowTest)
#include "tst_thingstoknow.moc"
