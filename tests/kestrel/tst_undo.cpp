#include "CDialogDriver.h"
#include "CListWindow.h"
#include "Kestrel/player/PanelAccess.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SSimulatorRequest.h"

#include <QAbstractButton>
#include <QAction>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTreeView>

#include <functional>
#include <thread>

namespace {

using FnCommand = std::function<void(CListWindow&)>;

/// A command as a user gives it, and what its step is called.
struct SCommand
{
    QString strStep;
    FnCommand fnGive;
    FnCommand fnPrepare; ///< what must be so before; steps of their own
};

QWidget* Panel(const CListWindow& kestrel)
{
    return kestrel.pPanel->GetWidget();
}

void PressTool(CListWindow& kestrel, const QString& strToolTip)
{
    PanelAccess::FindButton(Panel(kestrel), strToolTip)->click();
}

void PressMenu(CListWindow& kestrel, const char* szEntry)
{
    PanelAccess::FindAction(Panel(kestrel), "CProcessorTreeToolBar", szEntry)->trigger();
}

void Rename(CListWindow& kestrel, const QString& strName, const QString& strNew)
{
    kestrel.Select({ strName });
    kestrel.Key(Qt::Key_F2);
    kestrel.Type(strNew);
    kestrel.Key(Qt::Key_Return);
}

void Delete(CListWindow& kestrel, const QStringList& listName)
{
    kestrel.Select(listName);
    kestrel.Key(Qt::Key_Delete);
}

/// With the question that comes for a group that is not empty.
void DeleteGroupOnly(CListWindow& kestrel)
{
    CDialogDriver driver;
    driver.Answer("Delete group only");
    kestrel.Select({ "Main stage" });
    PressTool(kestrel, "Delete");
    QVERIFY(driver.IsDone());
}

/// As the panel's own jobs, on a thread of its own.
void AddProcessor(CListWindow& /*kestrel*/)
{
    g_pRuntimeControl->SetBusy(true);
    std::thread([] {
        g_pPrcBasicControl->AddProcessor(0xC0A8012A);
        g_pRuntimeControl->SetBusy(false);
    }).join();
}

void AddSimulators(CListWindow& /*kestrel*/)
{
    g_pPrcBasicControl->AddSimulators({ CListWindow::List().listProcessor.first().nModel, 2, 3 });
}

void Import(CListWindow& kestrel)
{
    CDialogDriver driver;
    driver.Answer("ButtonYes");
    driver.AnswerByFile(kestrel.folder.filePath("other.kvtl"));
    driver.Answer("ButtonOk");
    PressMenu(kestrel, "Import");
    QTRY_VERIFY(driver.IsDone());
}

void ExportAndRename(CListWindow& kestrel)
{
    g_pPrcListControl->ExportList(kestrel.folder.filePath("other.kvtl"), 0);
    Rename(kestrel, "Empty", "Full");
    QTRY_VERIFY(kestrel.Row("Full").isValid());
}

void ImportAnother(CListWindow& kestrel)
{
    ExportAndRename(kestrel);
    Import(kestrel); // the list before is kept as an earlier one
    QTRY_VERIFY(kestrel.IsOn("Undo: Import"));
}

void TakeEarlier(CListWindow& kestrel)
{
    QVERIFY(kestrel.pHost->TakeEarlierList(kestrel.pHost->GetEarlierLists().first().strPath));
}

/// The entry of the list menu, whose state is that of the open menu.
void ToggleChief(CListWindow& kestrel)
{
    kestrel.Select({ "Wall 2" });
    QAction* pChief = kestrel.Action("Chief of its group");
    auto* pMenu = qobject_cast<QMenu*>(pChief->associatedWidgets().value(0));
    QVERIFY(pMenu);
    emit pMenu->aboutToShow();
    QVERIFY(pChief->isEnabled() && !pChief->isChecked());
    pChief->trigger();
}

const QList<QPair<const char*, SCommand>>& Commands()
{
    static const QList<QPair<const char*, SCommand>> listCommand{
        { "add a group",
          { QStringLiteral("Add the group “Group 1”"), [](CListWindow& kestrel) { PressTool(kestrel, "Add group"); }, {} } },
        { "add a processor", { "Add the processor 192.168.1.42", AddProcessor, {} } },
        { "add simulators", { "Add 2 simulators", AddSimulators, {} } },
        { "delete a processor", { "Delete Door 2", [](CListWindow& kestrel) { Delete(kestrel, { "Door 2" }); }, {} } },
        { "delete processors",
          { "Delete 3 processors", [](CListWindow& kestrel) { Delete(kestrel, { "Door 1", "Wall 2", "Door 3" }); }, {} } },
        { "delete a group",
          { QStringLiteral("Delete the group “Main stage” with 4 processors"),
            [](CListWindow& kestrel) { Delete(kestrel, { "Main stage" }); },
            {} } },
        { "delete a group only", { "Ungroup Main stage", DeleteGroupOnly, {} } },
        { "rename a processor", { "Rename to Left", [](CListWindow& kestrel) { Rename(kestrel, "Wall 1", "Left"); }, {} } },
        { "rename a group", { "Rename to Hall", [](CListWindow& kestrel) { Rename(kestrel, "Main stage", "Hall"); }, {} } },
        { "drop", { "Move 2 processors", [](CListWindow& kestrel) { kestrel.Drop({ "Door 1", "Door 2" }, "Empty"); }, {} } },
        { "move to a group",
          { "Move 2 processors",
            [](CListWindow& kestrel) { kestrel.Choose({ "Door 1", "Door 3" }, { "Move to group", "Main stage" }); },
            {} } },
        { "remove from a group",
          { "Move Wall 2", [](CListWindow& kestrel) { kestrel.Choose({ "Wall 2" }, { "Remove from group" }); }, {} } },
        { "group",
          { "Group 3 processors",
            [](CListWindow& kestrel) { kestrel.Choose({ "Door 1", "Wall 1", "Door 2" }, { "Group" }); },
            {} } },
        { "ungroup",
          { "Ungroup Main stage", [](CListWindow& kestrel) { kestrel.Choose({ "Main stage" }, { "Ungroup" }); }, {} } },
        { "earlier list", { "Restore an earlier list", TakeEarlier, ImportAnother } },
        { "import", { "Import", Import, ExportAndRename } },
        { "Chief", { "Chief of Main stage", ToggleChief, {} } },
    };
    return listCommand;
}

QLineEdit* FindEditor(const CListWindow& kestrel)
{
    return kestrel.Tree()->viewport()->findChild<QLineEdit*>();
}

/// With the mouse: the menu, then its entry, which begins with the second text when the menu is open.
void ClickEntry(CListWindow& kestrel, const QString& strBegin, const QString& strOpen)
{
    QAction* pAction = kestrel.Action(strBegin);
    QMenuBar* pBar = kestrel.window.menuBar();
    const QList<QMenu*> listMenu = pBar->findChildren<QMenu*>();
    for (QMenu* pMenu : listMenu) {
        if (pMenu->actions().contains(pAction)) {
            QTest::mouseClick(pBar, Qt::LeftButton, {}, pBar->actionGeometry(pMenu->menuAction()).center());
            QTRY_VERIFY(pMenu->isVisible());
            QTRY_VERIFY(kestrel.IsOn(strOpen));
            QTest::mouseClick(pMenu, Qt::LeftButton, {}, pMenu->actionGeometry(pAction).center());
        }
    }
}

} // namespace

/// Undo and redo in the window, with the real panel on the real control library.
class CUndoTest : public QObject
{
    Q_OBJECT

private slots:
    void everyCommandIsTakenBackAndMadeAgain_data()
    {
        QTest::addColumn<int>("nCommand");
        for (int n = 0; n < Commands().size(); ++n) {
            QTest::newRow(Commands().at(n).first) << n;
        }
    }

    void everyCommandIsTakenBackAndMadeAgain()
    {
        QFETCH(int, nCommand);
        const SCommand& command = Commands().at(nCommand).second;
        CListWindow kestrel;
        if (command.fnPrepare) {
            command.fnPrepare(kestrel);
        }
        const QString strBefore = CListWindow::ListText();
        command.fnGive(kestrel);
        QTRY_COMPARE(kestrel.Action("Undo")->text(), "&Undo: " + command.strStep);
        QTRY_VERIFY(kestrel.IsOn("Undo"));
        const QString strAfter = CListWindow::ListText();
        QVERIFY(strAfter != strBefore);
        kestrel.Focus();

        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(CListWindow::ListText(), strBefore);
        QTRY_COMPARE(kestrel.Action("Redo")->text(), "&Redo: " + command.strStep);

        kestrel.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(CListWindow::ListText(), strAfter);

        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        kestrel.Key(Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(CListWindow::ListText(), strAfter);
    }

    void manyStepsAreTakenBackOneByOne()
    {
        CListWindow kestrel;
        QStringList listText{ CListWindow::ListText() };
        const auto note = [&] { listText.append(CListWindow::ListText()); };
        kestrel.AndShown([&] { Rename(kestrel, "Door 1", "Gate"); });
        note();
        kestrel.AndShown([&] { kestrel.Drop({ "Door 2" }, "Main stage"); });
        note();
        kestrel.Choose({ "Main stage" }, { "Ungroup" });
        note();

        while (listText.size() > 1) {
            QCOMPARE(CListWindow::ListText(), listText.takeLast());
            kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        }
        QCOMPARE(CListWindow::ListText(), listText.first());
        QTRY_COMPARE(kestrel.Action("Undo")->text(), QStringLiteral("&Undo"));
    }

    void whatIsNoCommandStays()
    {
        CListWindow kestrel;
        kestrel.AndShown([&] { Rename(kestrel, "Door 1", "Gate"); });
        QTRY_VERIFY(kestrel.IsOn("Undo: Rename to Gate"));
        kestrel.pHost->SetChiefMode(true);
        kestrel.Tree()->collapse(kestrel.Row("Main stage"));
        QVERIFY(!CListWindow::List().listGroup.first().bExpanded);

        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);

        QVERIFY(CListWindow::ListText().contains("Door 1"));
        QVERIFY(!CListWindow::List().listGroup.first().bExpanded);
        QVERIFY(kestrel.pHost->IsChiefMode());
    }

    void aRefusedCommandIsNoStepAndItsReasonIsShown()
    {
        CListWindow kestrel;
        kestrel.pHost->SetListLocked(true);
        kestrel.Drop({ "Door 1" }, "Main stage");

        QTRY_VERIFY(kestrel.Label("RefusalBadge", "Move Door 1: the list is locked"));
        kestrel.pHost->SetListLocked(false);
        QTRY_COMPARE(kestrel.Action("Undo")->text(), QStringLiteral("&Undo"));
    }

    void nothingIsTakenBackWhileBusyOrLocked()
    {
        CListWindow kestrel;
        Rename(kestrel, "Door 1", "Gate");
        QTRY_VERIFY(kestrel.IsOn("Undo: Rename to Gate"));
        const QString strAfter = CListWindow::ListText();

        kestrel.pHost->SetListLocked(true);
        QTRY_VERIFY(!kestrel.IsOn("Undo"));
        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(CListWindow::ListText(), strAfter);
        kestrel.pHost->SetListLocked(false);
        QTRY_VERIFY(kestrel.IsOn("Undo"));

        g_pRuntimeControl->SetBusy(true);
        QTRY_VERIFY(!kestrel.IsOn("Undo"));
        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(CListWindow::ListText(), strAfter);
        g_pRuntimeControl->SetBusy(false);
        QTRY_VERIFY(kestrel.IsOn("Undo"));
    }

    void anOpenEditorKeepsTheKeysForItself()
    {
        CListWindow kestrel;
        kestrel.AndShown([&] { Rename(kestrel, "Door 1", "Gate"); });
        QTRY_VERIFY(kestrel.IsOn("Undo: Rename to Gate"));
        const QString strAfter = CListWindow::ListText();
        kestrel.Select({ "Door 2" });
        kestrel.Key(Qt::Key_F2);
        kestrel.Type("Bar");
        QVERIFY(FindEditor(kestrel));

        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);

        QVERIFY(FindEditor(kestrel));
        QVERIFY(FindEditor(kestrel)->text() != "Bar");
        for (const Qt::KeyboardModifiers modifiers :
             { Qt::KeyboardModifiers(Qt::ControlModifier | Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::ControlModifier) }) {
            kestrel.Key(modifiers & Qt::ShiftModifier ? Qt::Key_Z : Qt::Key_Y, modifiers);
        }
        QVERIFY(FindEditor(kestrel));
        kestrel.Key(Qt::Key_Escape);
        QCOMPARE(CListWindow::ListText(), strAfter);
    }

    void anOpenDialogKeepsTheKeysForItself()
    {
        CListWindow kestrel;
        kestrel.AndShown([&] { Rename(kestrel, "Door 1", "Gate"); });
        QTRY_VERIFY(kestrel.IsOn("Undo: Rename to Gate"));
        const QString strAfter = CListWindow::ListText();
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(CListWindow::ListText(), strAfter);
            CDialogDriver::Press(pDialog, "key Esc");
        });

        kestrel.Select({ "Main stage" });
        PressTool(kestrel, "Delete");

        QVERIFY(driver.IsDone());
        QCOMPARE(CListWindow::ListText(), strAfter);
        QVERIFY(kestrel.IsOn("Undo: Rename to Gate"));
        kestrel.Focus();
        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(CListWindow::ListText().contains("Door 1"));
    }

    void anOpenMenuKeepsTheTextOfAnEditorAndTakesItBackWhenItSaysSo()
    {
        CListWindow kestrel;
        kestrel.AndShown([&] { Rename(kestrel, "Door 1", "Gate"); });
        QTRY_VERIFY(kestrel.IsOn("Undo: Rename to Gate"));
        kestrel.Select({ "Door 2" });
        kestrel.Key(Qt::Key_F2);
        kestrel.Type("Bar");
        QVERIFY(FindEditor(kestrel));

        ClickEntry(kestrel, "Undo: Rename to Gate", "Undo: Rename to Bar");

        QVERIFY(CListWindow::ListText().contains("Gate"));
        QVERIFY(CListWindow::ListText().contains("Door 2"));
        QTRY_VERIFY(kestrel.IsOn("Redo: Rename to Bar"));
        QVERIFY(kestrel.IsOn("Undo: Rename to Gate"));
    }

    void theSearchBoxKeepsTheKeysForItself()
    {
        CListWindow kestrel;
        kestrel.AndShown([&] { Rename(kestrel, "Door 1", "Gate"); });
        kestrel.AndShown([&] { Rename(kestrel, "Door 2", "Bar"); });
        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        QTRY_VERIFY(kestrel.IsOn("Redo: Rename to Bar"));
        const QString strAfter = CListWindow::ListText();
        PressMenu(kestrel, "Search");
        QLineEdit* pSearch = PanelAccess::FindSearchEdit(Panel(kestrel));
        pSearch->setFocus();
        kestrel.Type("Door");

        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(pSearch->text() != "Door");
        kestrel.Key(Qt::Key_Y, Qt::ControlModifier);
        kestrel.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);

        QCOMPARE(CListWindow::ListText(), strAfter);
        kestrel.Focus();
        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(CListWindow::ListText().contains("Door 1"));
    }

    void outsideThePanelTheKeysDoNothingAndTheMenuDoes()
    {
        CListWindow kestrel;
        Rename(kestrel, "Door 1", "Gate");
        QTRY_VERIFY(kestrel.IsOn("Undo: Rename to Gate"));
        auto* pJournal = kestrel.window.findChild<QDockWidget*>();
        pJournal->show();
        pJournal->findChild<QTreeView*>()->setFocus();
        QVERIFY(!kestrel.Tree()->hasFocus());

        kestrel.Key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!CListWindow::ListText().contains("Door 1"));

        ClickEntry(kestrel, "Undo: Rename to Gate", "Undo: Rename to Gate");
        QVERIFY(CListWindow::ListText().contains("Door 1"));
    }

    void theTextsFollowTheLanguage()
    {
        CListWindow kestrel;
        kestrel.Drop({ "Door 1", "Door 2" }, "Empty");
        QTRY_COMPARE(kestrel.Action("Undo")->text(), QStringLiteral("&Undo: Move 2 processors"));
        QAction* pUndo = kestrel.Action("Undo");
        kestrel.language.Set("de");
        QTRY_COMPARE(pUndo->text(), QStringLiteral("&Rückgängig: 2 Prozessoren verschieben"));
        kestrel.language.Set("zh_CN");
        QTRY_COMPARE(pUndo->text(), QStringLiteral("撤销(&U)：移动 2 台处理器"));
    }

    void aNameWithAnAmpersandIsShownAsItIs()
    {
        CListWindow kestrel;
        Rename(kestrel, "Door 1", "A&B");
        QTRY_COMPARE(kestrel.Action("Undo")->text(), QStringLiteral("&Undo: Rename to A&&B"));
    }

    void theChiefIsThatOfTheSelectedProcessor()
    {
        CListWindow kestrel;
        kestrel.AndShown([&] { ToggleChief(kestrel); });
        QVERIFY(CListWindow::ListText().contains("Main stage (Chief)"));
        QAction* pChief = kestrel.Action("Chief of its group");
        auto* pMenu = qobject_cast<QMenu*>(pChief->associatedWidgets().value(0));
        for (const QString& strName : { QStringLiteral("Door 1"), QStringLiteral("Main stage") }) {
            kestrel.Select({ strName });
            emit pMenu->aboutToShow();
            QVERIFY2(!pChief->isEnabled(), qPrintable(strName));
        }
        kestrel.Select({ "Wall 2" });
        emit pMenu->aboutToShow();
        QVERIFY(pChief->isChecked());
        pChief->trigger();
        QVERIFY(!CListWindow::ListText().contains("(Chief)"));
    }
};

PTV_TEST_MAIN(CUndoTest)
#include "tst_undo.moc"
