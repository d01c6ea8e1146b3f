#include "CDialogDriver.h"
#include "CMenuDriver.h"
#include "TestMain.h"
#include "fixtures/CPanelFixture.h"
#include "shell/CProcessorTreeView.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QApplication>
#include <QEventLoop>
#include <QThreadPool>
#include <QToolButton>
#include <QWindow>

namespace {

const QStringList listSaved{ QStringLiteral("g_pPrcListControl.ExportList(\"\", 0)") };

void Site(SControlAnswers& answers)
{
    answers.nodeDiscovered
        = Root({ Group("Stage", { Processor("alpha").Expanded(false) }), Group("Hall") }, { Processor("loose").Expanded(false) });
    answers.vecDiscoveredSelection = { ProcessorId("loose") };
}

/// Rows of Site() on the screen, counted from the root.
enum EnRow
{
    RowStage = 1,
    RowLoose = 4,
};

/// Presses and releases through the window. Blocks while a menu is open that the press has opened.
void Click(QWidget* pTarget, const QPoint& pos, Qt::MouseButton button = Qt::LeftButton)
{
    QWidget* const pWindow = pTarget->window();
    QTest::mouseClick(pWindow->windowHandle(), button, Qt::NoModifier, pTarget->mapTo(pWindow, pos));
}

void OpenTreeMenu(const CPanelFixture& panel, int nRow)
{
    const CProcessorTree* const pTree = panel.Tree();
    QModelIndex index = pTree->model()->index(0, 0);
    for (int i = 0; i < nRow; ++i) {
        index = pTree->indexBelow(index);
    }
    Click(pTree->viewport(), pTree->visualRect(index).center(), Qt::RightButton);
}

void OpenToolBarMenu(const CPanelFixture& panel)
{
    QToolButton* const pButton = panel.ToolButton(QStringLiteral("Menu"));
    Click(pButton, pButton->rect().center());
}

/// How the host comes to end the panel under an open dialog.
enum EnEnd
{
    EndAtOnce,
    EndInALoopOfItsOwn, ///< as where the host asks first, over the dialog, and goes on afterwards
};

void End(CPanelFixture& panel, EnEnd end)
{
    if (end == EndAtOnce) {
        panel.Delete();
        return;
    }
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        panel.Delete();
        loop.quit();
    });
    loop.exec();
    QCoreApplication::processEvents();
}

using FnChoose = void (*)(QMenu*, const QString&);

void ByMouse(QMenu* pMenu, const QString& strEntry)
{
    CMenuDriver::Choose(pMenu, { strEntry });
}

void ByKey(QMenu* pMenu, const QString& strEntry)
{
    CMenuDriver::ChooseByKey(pMenu, strEntry);
}

} // namespace

Q_DECLARE_METATYPE(FnChoose)

/// A panel that the host ends while the panel is at work. Memcheck runs this too: it alone sees what Qt's own
/// handlers touch when the panel's have returned.
class CEndInHandlerTest : public QObject
{
    Q_OBJECT

private slots:
    void thePanelMayEndUnderADialogOfTheTreesMenu_data()
    {
        QTest::addColumn<int>("nRow");
        QTest::addColumn<FnChoose>("fnChoose");
        QTest::addColumn<int>("nEnd");
        QTest::addColumn<QString>("strTitle");
        QTest::newRow("processor") << int(RowLoose) << &ByMouse << int(EndAtOnce) << "Delete processors";
        QTest::newRow("processor, by key") << int(RowLoose) << &ByKey << int(EndAtOnce) << "Delete processors";
        QTest::newRow("processor, deep") << int(RowLoose) << &ByMouse << int(EndInALoopOfItsOwn) << "Delete processors";
        QTest::newRow("group") << int(RowStage) << &ByMouse << int(EndAtOnce) << "Delete";
    }
    void thePanelMayEndUnderADialogOfTheTreesMenu()
    {
        QFETCH(int, nRow);
        QFETCH(FnChoose, fnChoose);
        QFETCH(int, nEnd);
        QFETCH(QString, strTitle);
        CPanelFixture panel(Site);
        panel.Refresh();
        CDialogDriver driver;
        driver.Answer([&](QDialog*) { End(panel, EnEnd(nEnd)); });
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            panel.control.ClearJournal();
            fnChoose(pMenu, "Delete");
        });

        OpenTreeMenu(panel, nRow);

        QVERIFY(driver.IsDone());
        QVERIFY(driver.Shown().constFirst().startsWith(strTitle));
        QCOMPARE(panel.control.Commands(), listSaved);
    }

    void thePanelMayEndUnderADialogOfTheToolBarsMenu_data()
    {
        QTest::addColumn<bool>("bEmptyList");
        QTest::addColumn<QString>("strEntry");
        QTest::addColumn<FnChoose>("fnChoose");
        QTest::addColumn<int>("nEnd");
        QTest::addColumn<QString>("strTitle");
        const QString strQuestion = QStringLiteral("Overwrite confirmation");
        QTest::newRow("question") << false << "Import" << &ByMouse << int(EndAtOnce) << strQuestion;
        QTest::newRow("question, by key") << false << "Import" << &ByKey << int(EndAtOnce) << strQuestion;
        QTest::newRow("question, deep") << false << "Import" << &ByMouse << int(EndInALoopOfItsOwn) << strQuestion;
        QTest::newRow("file to import") << true << "Import" << &ByMouse << int(EndAtOnce) << "Import...";
        QTest::newRow("file to export") << false << "Export" << &ByMouse << int(EndAtOnce) << "Save...";
    }
    void thePanelMayEndUnderADialogOfTheToolBarsMenu()
    {
        QFETCH(bool, bEmptyList);
        QFETCH(QString, strEntry);
        QFETCH(FnChoose, fnChoose);
        QFETCH(int, nEnd);
        QFETCH(QString, strTitle);
        CPanelFixture panel(bEmptyList ? CPanelFixture::FnAnswers() : Site);
        panel.Refresh();
        CDialogDriver driver;
        driver.Answer([&](QDialog*) { End(panel, EnEnd(nEnd)); });
        QPointer<QMenu> pOpened;
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            pOpened = pMenu;
            panel.control.ClearJournal();
            fnChoose(pMenu, strEntry);
        });

        OpenToolBarMenu(panel);

        QVERIFY(driver.IsDone());
        QVERIFY(driver.Shown().constFirst().startsWith(strTitle));
        QCOMPARE(panel.control.Commands(), listSaved);
        QTRY_VERIFY2(!pOpened, "the menu is not left over");
    }

    void aDialogThatWasCancelledLeavesTheToolBarItsMenu()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.Answer("key Escape");
        QPointer<QMenu> pOpened;
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            pOpened = pMenu;
            ByMouse(pMenu, "Import");
        });

        OpenToolBarMenu(panel);

        QVERIFY(driver.IsDone());
        QCOMPARE(pOpened->parent(), panel.ToolBar());
        panel.Delete();
        QVERIFY2(!pOpened, "it goes with its tool bar");
    }

    void thePanelMayEndWhileItMovesAProcessorToAGroup()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        panel.control.During("MoveProcessor", [&] { panel.Delete(); });
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            panel.control.ClearJournal();
            CMenuDriver::Choose(pMenu, { "Move to group", "Hall" });
        });

        OpenTreeMenu(panel, RowLoose);

        QCOMPARE(panel.control.Commands(), QStringList{ "g_pPrcListControl.MoveProcessor(loose, Hall)" } + listSaved);
    }

    void thePanelMayEndWhileItGroupsProcessors()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        panel.control.During("AddGroup", [&] { panel.Delete(); });
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            panel.control.ClearJournal();
            CMenuDriver::Choose(pMenu, { "Group" });
        });

        OpenTreeMenu(panel, RowLoose);

        QCOMPARE(panel.control.CallCount("ExportList"), 1);
        QCOMPARE(panel.control.Commands().filter("MoveProcessor(loose").size(), 1);
    }

    void thePanelMayEndWhileAMenuIsOpen_data()
    {
        QTest::addColumn<bool>("bToolBar");
        QTest::newRow("the tree's") << false;
        QTest::newRow("the tool bar's") << true;
    }
    void thePanelMayEndWhileAMenuIsOpen()
    {
        QFETCH(bool, bToolBar);
        CPanelFixture panel(Site);
        panel.Refresh();
        const CMenuDriver menuDriver([&](QMenu*) { panel.Delete(); });

        bToolBar ? OpenToolBarMenu(panel) : OpenTreeMenu(panel, RowLoose);

        QVERIFY(menuDriver.HasActed());
        QVERIFY(!QApplication::activePopupWidget());
    }

    void thePanelMayEndWhileASubMenuIsOpen()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            CMenuDriver::Choose(pMenu, { "Move to group" });
            QTRY_VERIFY(QApplication::activePopupWidget() != pMenu);
            panel.Delete();
        });

        OpenTreeMenu(panel, RowLoose);

        QVERIFY(menuDriver.HasActed());
        QVERIFY(!QApplication::activePopupWidget());
    }

    void thePanelMayEndUnderTheQuestionOfTheDeleteButton()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer([&](QDialog*) { panel.Delete(); });
        const QPointer<QToolButton> pButton = panel.ToolButton("Delete");

        Click(pButton, pButton->rect().center());

        QVERIFY(driver.IsDone());
        QCOMPARE(panel.control.Commands(), listSaved);
        QTRY_VERIFY2(!pButton, "the button is not left over");
    }

    void thePanelMayEndWhenTheHostHearsOfANewGroup()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        connect(panel.View(), &CProcessorTreeView::NodeSelectChanged, this, [&] { panel.Delete(); });
        const QPointer<QToolButton> pButton = panel.ToolButton("Add group");

        Click(pButton, pButton->rect().center());

        QVERIFY(!panel.pWidget);
        QTRY_VERIFY2(!pButton, "the button is not left over");
    }

    void thePanelMayEndWhenTheHostHearsOfAScansEnd()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        panel.control.ClearJournal();
        connect(panel.View(), &CProcessorTreeView::NodeSelectChanged, this, [&] { panel.Delete(); });

        Click(panel.RefreshButton(), QPoint(5, 5)); // without a style sheet the header shows no more of it

        QTRY_VERIFY(!panel.pWidget);
        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
        QCOMPARE(panel.control.Commands().filter("ExportList"), listSaved);
        QCOMPARE(panel.control.CallCount("SetBusy"), 2);
    }
};

PTV_TEST_MAIN(CEndInHandlerTest)
#include "tst_endinhandler.moc"
