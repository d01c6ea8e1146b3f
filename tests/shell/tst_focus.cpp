#include "TestMain.h"
#include "fixtures/CPanelFixture.h"
#include "shell/CProcessorTreeView.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedLayout>
#include <QThreadPool>
#include <QToolButton>
#include <QWindow>

namespace {

void Site(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({}, { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) });
    answers.nodeSimulator = Root({}, { Processor("sim").Expanded(false) });
    answers.vecDiscoveredSelection = { ProcessorId("alpha") };
    answers.vecSimulatorSelection = { ProcessorId("sim") };
}

/// Through the window, near the upper edge: without a style sheet the header shows no more of its parts.
void Click(QWidget* pTarget)
{
    QWidget* const pWindow = pTarget->window();
    QTest::mouseClick(pWindow->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      pTarget->mapTo(pWindow, QPoint(pTarget->width() / 2, 5)));
}

void Press(const CPanelFixture& panel, Qt::Key key)
{
    QTest::keyClick(panel.host.windowHandle(), key);
}

} // namespace

/// Where the keys go after a click on a part of the panel that takes none itself.
class CFocusTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pPanel.reset(new CPanelFixture(Site));
        pPanel->Refresh();
        QApplication::setActiveWindow(&pPanel->host);
        QVERIFY(QTest::qWaitForWindowActive(&pPanel->host));
    }

    void cleanup()
    {
        pPanel.reset();
    }

    void afterAddGroupF2RenamesTheNewGroup()
    {
        Click(pPanel->ToolButton("Add group"));
        pPanel->Refresh([](SControlAnswers& answers) { answers.nodeDiscovered.listGroup = answers.listGroupAdded; });
        Press(*pPanel, Qt::Key_F2);

        auto* const pEditor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QVERIFY(pEditor);
        QCOMPARE(pEditor->text(), QStringLiteral("Group 1"));
    }

    void aClickBesideTheListGivesItTheKeys_data()
    {
        QTest::addColumn<QString>("strPart");
        for (const char* const szPart : { "a button", "a disabled button", "the refresh button", "the strip" }) {
            QTest::newRow(szPart) << szPart;
        }
    }
    void aClickBesideTheListGivesItTheKeys()
    {
        QFETCH(QString, strPart);
        pPanel->Refresh([&](SControlAnswers& answers) { answers.bListLocked = strPart == "a disabled button"; });
        QVERIFY(QApplication::focusWidget() != pPanel->Tree());
        Click(Part(strPart));
        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
        QCOMPARE(QApplication::focusWidget(), pPanel->Tree());
        pPanel->control.ClearJournal();
        Press(*pPanel, Qt::Key_Down);
        QCOMPARE(pPanel->control.Commands(), QStringList{ "g_pRuntimeControl.SetSelectedNodes([beta])" });
    }

    void theKeysFollowThePane()
    {
        Click(pPanel->SimulatorTab());
        QCOMPARE(QApplication::focusWidget(), pPanel->SimulatorTab());
        Click(pPanel->ToolButton("Add group"));
        QCOMPARE(QApplication::focusWidget(), pPanel->Tree(true));
        Click(pPanel->DiscoveredTab());
        Click(pPanel->ToolButton("Add group"));
        QCOMPARE(QApplication::focusWidget(), pPanel->Tree());
    }

    void aSwitchWithoutAClickTakesTheKeysAlong()
    {
        Click(pPanel->Tree()->viewport());
        QCOMPARE(QApplication::focusWidget(), pPanel->Tree());
        pPanel->SimulatorTab()->setChecked(true);
        QCOMPARE(QApplication::focusWidget(), pPanel->Tree(true));
    }

    // The library's own change of the pane shows nothing else until the user switches.
    void aPaneOfTheLibrarysLeavesTheKeysToTheListInSight()
    {
        pPanel->Refresh([](SControlAnswers& answers) { answers.bSimulatorPane = true; });
        pPanel->View()->UpdateWidget();
        QVERIFY(g_pProcessorTreeData->IsSimulatorPane());
        Click(pPanel->ToolBar());
        QCOMPARE(QApplication::focusWidget(), pPanel->Tree());
        QCOMPARE(pPanel->Stack()->currentWidget(), pPanel->Tree());
    }

    void theHostGivesTheListTheKeysThroughThePanel()
    {
        QVERIFY(!pPanel->View()->hasFocus());
        pPanel->View()->setFocus();
        QCOMPARE(QApplication::focusWidget(), pPanel->Tree());
        QVERIFY(pPanel->View()->hasFocus());
    }

private:
    QWidget* Part(const QString& strPart) const
    {
        const QHash<QString, QWidget*> hashPart{ { "a button", pPanel->ToolButton("Add group") },
                                                 { "a disabled button", pPanel->ToolButton("Delete") },
                                                 { "the refresh button", pPanel->RefreshButton() },
                                                 { "the strip", pPanel->ToolBar() } };
        return hashPart.value(strPart);
    }

    QScopedPointer<CPanelFixture> pPanel;
};

PTV_TEST_MAIN(CFocusTest)
#include "tst_focus.moc"
