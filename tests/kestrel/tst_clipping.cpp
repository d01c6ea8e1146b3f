#include "CDialogDriver.h"
#include "CDoubledWindow.h"
#include "CMenuDriver.h"
#include "CPanelWindow.h"
#include "Kestrel/player/PanelAccess.h"
#include "Kestrel/status/CBusyIndicator.h"
#include "Kestrel/status/CHostStatus.h"
#include "Kestrel/status/CRefusalNote.h"
#include "Kestrel/status/RefusalText.h"
#include "TestMain.h"
#include "clipping/ClippingFaults.h"
#include "clipping/StatusFaults.h"
#include "interfaces/widgets/CMessageBox.h"
#include "interfaces/widgets/CToolTip.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>

namespace {

constexpr int nMostDialogs = 20;      ///< behind one entry of a menu, one behind the other
constexpr int nLeastWidth = 640;      ///< to which the window can be made narrower
constexpr int nUsualWidth = 1040;     ///< of the window, as it first comes up
constexpr int nGroupTextMargins = 29; ///< beside the text in the row of a group
constexpr int nMessageMargins = 36;   ///< around what the status bar says for a while, and the arc

/// A text of the sources.
struct SText
{
    const char* szContext;
    const char* szText;

    QString Get() const
    {
        return QCoreApplication::translate(szContext, szText);
    }
};

/// What the library's answers to an import or an export lead to: title and text of a box.
constexpr std::pair<const char*, const char*> arrBox[] = {
    { "Cannot import file", "The currently imported file is invalid." },
    { "Cannot import file", "The number of processors involved exceeds the limit." },
    { "Import", "Overwrite failed." },
    { "Import", "Copy failed." },
    { "Import", "Import sucessfully." },
    { "Export", "Export sucessfully." },
};

constexpr SText arrTip[] = {
    { "CProcessorTree", "Chief-Member mode enabled. This processor has been set as Chief." },
    { "CProcessorTree", "Processor redundancy enabled. This processor has been set as Primary." },
    { "CProcessorTree", "Processor redundancy enabled. This processor has been set as Backup." },
};

/// What the status bar says while something runs, beside all that it can show at the same time.
constexpr SText arrMessage[] = {
    { "CMainWindow", "Quitting as soon as the running job has ended…" },
};

/// The rows that are selected before the last one is clicked with the right button.
struct SSelection
{
    const char* szCase;
    QStringList listName;
};

const QList<SSelection>& GetSelections()
{
    static const QList<SSelection> listSelection{
        { "a processor", { "Lobby clock" } },
        { "a processor of a group", { "Wall left" } },
        { "processors", { "Lobby clock", "Roof sign" } },
        { "processors of a group", { "Wall left", "Wall centre" } },
        { "a group", { "Main stage" } },
        { "an empty group", { "Spare rack" } },
        { "groups", { "Main stage", "Side screens" } },
        { "groups and processors", { "Main stage", "Lobby clock" } },
    };
    return listSelection;
}

/// Opens what there is to open and collects the faults. With PTV_SHOTS set, a folder, it leaves a picture of each there.
class CVisitor
{
public:
    using FnReady = std::function<bool(const QDialog*)>;

    explicit CVisitor(const QString& strLanguageIn) : strLanguage(strLanguageIn) { }

    void Visit(QWidget* pWindow, const QString& strWhat)
    {
        ++nVisited;
        TakePicture(pWindow, strWhat);
        const auto* pMenu = qobject_cast<const QMenu*>(pWindow);
        QStringList listFound = pMenu ? ClippingFaults::FindInMenu(pMenu) : ClippingFaults::FindInWindow(pWindow);
        if (!qobject_cast<QMainWindow*>(pWindow) && !IsOnScreen(pWindow)) {
            listFound.append(QStringLiteral("reaches out of the screen"));
        }
        for (const QString& strFault : std::as_const(listFound)) {
            listFault.append(strWhat + QStringLiteral(": ") + strFault);
        }
    }

    /// The menu and all below it.
    void VisitMenu(QMenu* pMenu, const QString& strWhat)
    {
        pMenu->popup(QPoint(0, 0));
        Visit(pMenu, strWhat);
        pMenu->close();
        const QList<QAction*> listAction = pMenu->actions();
        for (const QAction* pAction : listAction) {
            if (pAction->isVisible() && pAction->menu()) {
                VisitMenu(pAction->menu(), strWhat + QStringLiteral(" > ") + pAction->text());
            }
        }
    }

    /// Does what the user does, and visits each dialog that comes of it, which is then rejected.
    /// fnReady says when there is all in it that it will have.
    void VisitDialogs(const std::function<void()>& fnAct, const FnReady& fnReady = {})
    {
        CDialogDriver driver;
        for (int n = 0; n < nMostDialogs; ++n) {
            driver.Answer([this, fnReady](QDialog* pDialog) {
                if (fnReady) {
                    QTRY_VERIFY(fnReady(pDialog));
                }
                VisitDialog(pDialog);
            });
        }
        fnAct();
    }

    QStringList GetDialogs() const
    {
        return listDialog;
    }

    void Report(int nLeast) const
    {
        QVERIFY2(listFault.isEmpty(), qPrintable(QStringLiteral("\n") + listFault.join(QLatin1Char('\n'))));
        QVERIFY2(nVisited >= nLeast, qPrintable(QStringLiteral("only %1 visited").arg(nVisited)));
    }

private:
    // Qt lets the border of a menu that is too large hang out by one pixel.
    static bool IsOnScreen(const QWidget* pWindow)
    {
        return pWindow->screen()->availableGeometry().adjusted(0, 0, 1, 1).contains(pWindow->geometry());
    }

    void VisitDialog(QDialog* pDialog)
    {
        listDialog.append(pDialog->windowTitle());
        // The file dialog is Qt's.
        if (!qobject_cast<QFileDialog*>(pDialog)) {
            const int nBefore = listDialog.count(pDialog->windowTitle());
            Visit(pDialog,
                  nBefore > 1 ? QStringLiteral("%1 %2").arg(pDialog->windowTitle()).arg(nBefore) : pDialog->windowTitle());
            const QList<QMenu*> listMenu = pDialog->findChildren<QMenu*>();
            for (QMenu* pMenu : listMenu) {
                if (!pMenu->isEmpty()) {
                    VisitMenu(pMenu, pDialog->windowTitle() + QStringLiteral(" > choice"));
                }
            }
        }
        pDialog->reject();
    }

    void TakePicture(QWidget* pWindow, const QString& strWhat) const
    {
        const QString strFolder = qEnvironmentVariable("PTV_SHOTS");
        if (!strFolder.isEmpty()) {
            QString strName = QStringLiteral("%1-%2-%3").arg(strLanguage, qEnvironmentVariable("QT_SCALE_FACTOR", "1"), strWhat);
            strName.replace(QRegularExpression(QStringLiteral("[/ &>]+")), QStringLiteral("_"));
            pWindow->grab().save(strFolder + QLatin1Char('/') + strName + QStringLiteral(".png"));
        }
    }

    const QString strLanguage;
    QStringList listFault;
    QStringList listDialog;
    int nVisited = 0;
};

/// Whether the entry of a menu may be chosen here: not what ends the window, and not what only changes its state.
bool OpensMaybe(const QAction* pAction)
{
    return pAction->isEnabled() && pAction->isVisible() && !pAction->isCheckable() && !pAction->menu() && !pAction->isSeparator()
        && pAction->shortcut() != QKeySequence(QStringLiteral("Ctrl+Q"));
}

void Collect(QList<QAction*>& listResult, const QWidget* pMenu)
{
    const QList<QAction*> listAction = pMenu->actions();
    for (QAction* pAction : listAction) {
        if (pAction->menu() && pAction->isVisible()) {
            Collect(listResult, pAction->menu());
        } else if (OpensMaybe(pAction)) {
            listResult.append(pAction);
        }
    }
}

/// The window in a language.
class CScene : public CPanelWindow
{
public:
    explicit CScene(const QString& strLanguage)
    {
        language.Set(strLanguage);
        window.move(0, 0);
        window.resize(window.size().boundedTo(window.screen()->availableSize()));
        QCoreApplication::processEvents(); // which tell the widgets
        // What the panel shows at first is what it has read of the window before.
        AddGroup(QStringLiteral("Night shift"));
        QTRY_VERIFY(Row(QStringLiteral("Night shift")).isValid());
    }

    /// As the next window expects it: what the panel has read lives as long as the process.
    void ShowDiscovered()
    {
        PanelAccess::FindTab(window.GetPanel(), false)->click();
        QTRY_VERIFY(Row(QStringLiteral("Wall left")).isValid());
    }
};

/// Everything that the window can show by itself is shown.
void ShowAll(CPanelWindow& kestrel)
{
    kestrel.pHost->OpenProject(QStringLiteral("Aurora"));
    kestrel.pHost->SetChiefMode(true);
    kestrel.pHost->SetListLocked(true);
    kestrel.pHost->SetRefreshBlocked(true);
    kestrel.window.findChild<QDockWidget*>()->show();
    PanelAccess::FindAction(kestrel.window.GetPanel(), "CProcessorTreeToolBar", "Search")->trigger();
    const auto* pBadge = kestrel.window.statusBar()->findChildren<QLabel*>(QStringLiteral("Badge")).constLast();
    QTRY_VERIFY(pBadge->isVisible());
}

/// A name as long as a list takes one, and of one word.
QString LongName()
{
    return QString(64, QLatin1Char('W'));
}

/// The list cannot be saved, rows are selected and hidden by a search, something was refused and something runs.
void ShowAllTexts(CScene& kestrel)
{
    QVERIFY(QFile::remove(kestrel.ListPath()) && QDir().mkdir(kestrel.ListPath()));
    CWindowFixture::AddGroup(QStringLiteral("Day shift"));
    ExpectWarning("The list is not being saved.*");
    QVERIFY(!kestrel.pHost->SaveList().isEmpty());
    PanelAccess::ClickRow(kestrel.Tree(), kestrel.Row(QStringLiteral("Wall left")), Qt::NoModifier);
    ShowAll(kestrel);
    auto* pSearch = kestrel.window.findChild<QLineEdit*>(QStringLiteral("SearchEdit"));
    pSearch->setText(QStringLiteral("Roof"));
    auto* pStatus = qobject_cast<CHostStatus*>(kestrel.window.statusBar());
    const SRefusal refusal{ CommandRename, QStringLiteral("Wall left"), ReasonTooManyNumbers, {}, {} };
    pStatus->GetRefusalNote().Say(refusal, [refusal] { return RefusalText::Get(refusal); });
    const QDateTime time = QDateTime::currentDateTime();
    pStatus->findChild<CBusyIndicator*>()->SetState(true, time, { { "Adding the processor at 192.168.100.200", time, 12, 40 } });
    QTRY_COMPARE(StatusFaults::CountTexts(*pStatus), 9);
}

/// The list can be saved again, and nothing is searched for.
void ResetTexts(CScene& kestrel)
{
    QVERIFY(QDir().rmdir(kestrel.ListPath()));
    QCOMPARE(kestrel.pHost->SaveList(), QString());
    kestrel.window.findChild<QLineEdit*>(QStringLiteral("SearchEdit"))->clear();
}

/// The window on a host that has earlier lists, a refused one and steps of long names, and refuses to take any back.
class CUndoScene : public CDoubledWindow
{
public:
    explicit CUndoScene(const QString& strLanguage) : CDoubledWindow(&Prepare)
    {
        theme.Apply(*qApp);
        language.Set(strLanguage);
        pWindow->move(0, 0);
        SListEdit edit;
        edit.command = CommandAddGroup;
        edit.strName = LongName();
        edit.before.nEdition = 1;
        edit.after.nEdition = 2;
        emit host.ListEdited(edit);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    QMenu* ListMenu() const
    {
        return pWindow->menuBar()->actions().at(1)->menu();
    }

    void Press(const QString& strText) const
    {
        const QList<QAction*> listAction = ListMenu()->actions();
        const auto it = std::find_if(listAction.begin(), listAction.end(), [&strText](const QAction* pAction) {
            return pAction->text().startsWith(strText) && pAction->isEnabled() && pAction->isVisible();
        });
        QVERIFY2(it != listAction.end(), qPrintable(strText));
        (*it)->trigger();
    }

private:
    static void Prepare(CHostDouble& host)
    {
        const QDateTime time(QDate(2026, 12, 24), QTime(22, 58, 58));
        host.listEarlier = { { "/lists/new", time, 255, 256, {} },
                             { "/lists/torn", time.addDays(-1), 0, 0, "/lists/torn: not a list file" },
                             { "/lists/old", time.addDays(-2), 1, 256, {} } };
        host.reason = ReasonTooManyNumbers;
        host.strListError = "the sum is wrong";
        host.refused.strPath = "/media/" + LongName() + "/own.kvtl";
        host.refused.bUsable = true;
        host.refused.nGroups = 255;
        host.refused.nProcessors = 256;
        for (int n = 0; n < 6; ++n) {
            host.refused.listFault.append("processors/" + LongName() + "/name: it holds control characters");
        }
    }
};

bool HasRows(const QDialog* pDialog, int nRows)
{
    const auto* pTable = pDialog->findChild<QTreeWidget*>();
    const auto* pNote = pDialog->findChild<QLabel*>(QStringLiteral("EarlierNote"));
    return pTable->topLevelItemCount() == nRows
        && (nRows > 0 || pNote->text() == SText{ "CEarlierLists", "There is no earlier list." }.Get());
}

void AddLanguages()
{
    QTest::addColumn<QString>("strLanguage");
    const QStringList listCode = CLanguage::GetCodes() << CLanguage::GetPseudoCode();
    for (const QString& strCode : listCode) {
        QTest::newRow(qPrintable(strCode)) << strCode;
    }
}

} // namespace

/// No text of the window, its menus, its dialogs and its tips is cut off, in any language; the scale is that of the
/// environment (QT_SCALE_FACTOR). Menus and dialogs are found by opening what can be opened: one more is looked at
/// without a change here, unless it needs something to have happened before.
class CClippingTest : public QObject
{
    Q_OBJECT

private slots:
    void theWindowInEachSize_data()
    {
        AddLanguages();
    }

    void theWindowInEachSize()
    {
        QFETCH(QString, strLanguage);
        CScene kestrel(strLanguage);
        ShowAll(kestrel);
        CVisitor visitor(strLanguage);
        visitor.Visit(&kestrel.window, QStringLiteral("window"));
        kestrel.window.resize(1, 1);
        QCoreApplication::processEvents();
        visitor.Visit(&kestrel.window, QStringLiteral("smallest window"));
        PanelAccess::FindTab(kestrel.window.GetPanel(), true)->click();
        QCoreApplication::processEvents();
        visitor.Visit(&kestrel.window, QStringLiteral("simulators"));
        kestrel.ShowDiscovered();
        visitor.Report(3);
    }

    void eachMenuOfTheMenuBarAndItsDialogs_data()
    {
        AddLanguages();
    }

    void eachMenuOfTheMenuBarAndItsDialogs()
    {
        QFETCH(QString, strLanguage);
        CScene kestrel(strLanguage);
        CVisitor visitor(strLanguage);
        const QMenuBar* pBar = kestrel.window.menuBar();
        const QList<QAction*> listTitle = pBar->actions();
        for (const QAction* pTitle : listTitle) {
            visitor.VisitMenu(pTitle->menu(), pTitle->text());
        }
        QList<QAction*> listAction;
        Collect(listAction, pBar);
        for (QAction* pAction : std::as_const(listAction)) {
            visitor.VisitDialogs([pAction] { pAction->trigger(); });
        }
        QVERIFY(visitor.GetDialogs().contains(SText{ "CHostMenu", "Open project" }.Get()));
        visitor.Report(5);
    }

    void eachButtonOfTheToolBarAndItsDialogs_data()
    {
        AddLanguages();
    }

    void eachButtonOfTheToolBarAndItsDialogs()
    {
        QFETCH(QString, strLanguage);
        CScene kestrel(strLanguage);
        CVisitor visitor(strLanguage);
        for (const bool bSimulator : { false, true }) {
            PanelAccess::FindTab(kestrel.window.GetPanel(), bSimulator)->click();
            VisitToolBar(visitor, kestrel.window.GetPanel(), bSimulator);
        }
        kestrel.ShowDiscovered();
        for (const SText& title :
             { SText{ "CAddProcessorDlg", "Add a processor" }, SText{ "CAddSimulatorDlg", "Add simulators" },
               SText{ "CProcessorTreeView", "Overwrite confirmation" }, SText{ "CProcessorTreeView", "Save..." } }) {
            QVERIFY2(visitor.GetDialogs().contains(title.Get()), title.szText);
        }
        visitor.Report(5);
    }

    void eachMenuOfTheRowsAndItsQuestion_data()
    {
        AddLanguages();
    }

    void eachMenuOfTheRowsAndItsQuestion()
    {
        QFETCH(QString, strLanguage);
        CScene kestrel(strLanguage);
        CVisitor visitor(strLanguage);
        for (const SSelection& selection : GetSelections()) {
            Select(kestrel, selection.listName);
            VisitRowMenu(visitor, kestrel, selection);
        }
        for (const SText& title :
             { SText{ "CProcessorTree", "Delete processors" }, SText{ "CProcessorTree", "Delete groups and processors" },
               SText{ "CProcessorTree", "Delete" } }) {
            QVERIFY2(visitor.GetDialogs().contains(title.Get()), title.szText);
        }
        visitor.Report(GetSelections().size() * 2);
    }

    void eachBoxAfterAnImportOrExport_data()
    {
        AddLanguages();
    }

    void eachBoxAfterAnImportOrExport()
    {
        QFETCH(QString, strLanguage);
        CScene kestrel(strLanguage);
        CVisitor visitor(strLanguage);
        for (const auto& [szTitle, szText] : arrBox) {
            const SText title{ "CProcessorTreeView", szTitle };
            const SText text{ "CProcessorTreeView", szText };
            visitor.VisitDialogs([&] {
                CMessageBox::information(kestrel.window.GetPanel(), title.Get(), text.Get(), CMessageBox::ButtonOk,
                                         CMessageBox::ButtonOk);
            });
        }
        visitor.Report(int(std::size(arrBox)));
    }

    void theQuestionOfAListThatCannotBeSaved_data()
    {
        AddLanguages();
    }

    void theQuestionOfAListThatCannotBeSaved()
    {
        QFETCH(QString, strLanguage);
        CWindowFixture kestrel([](const QString& strList) {
            QDir().mkdir(strList);
            ExpectWarning("The list was not read.*");
        });
        kestrel.theme.Apply(*qApp);
        kestrel.language.Set(strLanguage);
        CWindowFixture::AddGroup("Night shift");
        CVisitor visitor(strLanguage);
        ExpectWarning("The list is not being saved.*");
        visitor.Visit(&kestrel.window, QStringLiteral("trouble"));
        visitor.VisitDialogs([&] { kestrel.window.close(); });
        QCOMPARE(visitor.GetDialogs(), QStringList(SText{ "CFinalSave", "List not saved" }.Get()));
        visitor.Report(2);
    }

    void eachTipOfTheRowsAndMessageOfTheStatusBar_data()
    {
        AddLanguages();
    }

    void eachTipOfTheRowsAndMessageOfTheStatusBar()
    {
        QFETCH(QString, strLanguage);
        CScene kestrel(strLanguage);
        ShowAll(kestrel);
        CVisitor visitor(strLanguage);
        for (const SText& tip : arrTip) {
            CToolTip::ShowText(tip.Get());
            QWidget* pTip = kestrel.window.findChild<QLabel*>(QStringLiteral("ToolTip"));
            QVERIFY(pTip && pTip->isVisible());
            visitor.Visit(pTip, QStringLiteral("tip"));
        }
        CToolTip::HideText();
        kestrel.window.resize(nUsualWidth, kestrel.window.height());
        QCoreApplication::processEvents();
        for (const SText& message : arrMessage) {
            const QStatusBar* pBar = kestrel.window.statusBar();
            const int nRoom = pBar->findChild<QWidget*>(QStringLiteral("BusyIndicator"))->width();
            QVERIFY2(pBar->fontMetrics().horizontalAdvance(message.Get()) + nMessageMargins <= nRoom, message.szText);
        }
        visitor.Report(int(std::size(arrTip)));
    }

    void theStatusBarWithAllThatItCanShow_data()
    {
        AddLanguages();
    }

    void theStatusBarWithAllThatItCanShow()
    {
        QFETCH(QString, strLanguage);
        CScene kestrel(strLanguage);
        ShowAllTexts(kestrel);
        CVisitor visitor(strLanguage);
        const QStatusBar& bar = *kestrel.window.statusBar();
        for (const int nWidth : { nUsualWidth, nLeastWidth }) {
            // Beside the panel the journal needs more room than the least.
            kestrel.window.findChild<QDockWidget*>()->setVisible(nWidth > nLeastWidth);
            QCoreApplication::processEvents(); // what the window needs at least is another then
            kestrel.window.resize(nWidth, kestrel.window.height());
            QTRY_COMPARE(kestrel.window.width(), nWidth);
            QCoreApplication::processEvents();
            visitor.Visit(&kestrel.window, QStringLiteral("all texts at %1").arg(nWidth));
            QCOMPARE(StatusFaults::Find(bar), QStringList());
            QVERIFY2(nWidth < nUsualWidth || StatusFaults::GetGone(bar).isEmpty(),
                     qPrintable(StatusFaults::GetGone(bar).join('|')));
        }
        ResetTexts(kestrel);
        visitor.Report(2);
    }

    void theMenuAndTheDialogsOfUndo_data()
    {
        AddLanguages();
    }

    void theMenuAndTheDialogsOfUndo()
    {
        QFETCH(QString, strLanguage);
        CUndoScene kestrel(strLanguage);
        CVisitor visitor(strLanguage);
        visitor.VisitMenu(kestrel.ListMenu(), QStringLiteral("list menu"));
        const auto openEarlier = [&] { kestrel.Press(SText{ "CUndoMenu", "&Earlier lists…" }.Get()); };
        visitor.VisitDialogs(openEarlier, [](const QDialog* pDialog) { return HasRows(pDialog, 3); });
        kestrel.host.listEarlier.clear();
        visitor.VisitDialogs(openEarlier, [](const QDialog* pDialog) { return HasRows(pDialog, 0); });
        const auto openRefused = [&] {
            const int nBefore = visitor.GetDialogs().size();
            kestrel.Press(SText{ "CUndoMenu", "Use this list &nevertheless…" }.Get());
            QTRY_COMPARE(visitor.GetDialogs().size(), nBefore + 1);
        };
        visitor.VisitDialogs(openRefused);
        kestrel.host.refused.bUsable = false;
        visitor.VisitDialogs(openRefused);
        const auto undo = [&] { kestrel.Press(SText{ "CUndoMenu", "&Undo: %1" }.Get().section(QLatin1Char('%'), 0, 0)); };
        undo(); // the second time it asks
        visitor.VisitDialogs(undo);
        QCOMPARE(visitor.GetDialogs().size(), 5);
        visitor.Report(6);
    }

    void eachTipOfAWidget_data()
    {
        AddLanguages();
    }

    void eachTipOfAWidget()
    {
        QFETCH(QString, strLanguage);
        CScene kestrel(strLanguage);
        ShowAllTexts(kestrel);
        CVisitor visitor(strLanguage);
        QStringList listTip;
        const QList<QWidget*> listWidget = kestrel.window.findChildren<QWidget*>();
        for (QWidget* pWidget : listWidget) {
            if (pWidget->isVisible() && !pWidget->toolTip().isEmpty() && !listTip.contains(pWidget->toolTip())) {
                listTip.append(pWidget->toolTip());
                VisitTip(visitor, *pWidget);
            }
        }
        ResetTexts(kestrel);
        visitor.Report(14);
    }

    void theRowOfAllProcessors_data()
    {
        AddLanguages();
    }

    void theRowOfAllProcessors()
    {
        QFETCH(QString, strLanguage);
        CScene kestrel(strLanguage);
        kestrel.window.resize(1, 1);
        QCoreApplication::processEvents();

        const QString strText = SText{ "CProcessorTreeDelegate", "All processors(%1)" }.Get().arg(256);
        const int nRoom = kestrel.Tree()->visualRect(kestrel.Tree()->model()->index(0, 0)).width() - nGroupTextMargins;

        QVERIFY2(QFontMetrics(QApplication::font()).horizontalAdvance(strText) <= nRoom, qPrintable(strText));
    }

private:
    static void VisitTip(CVisitor& visitor, QWidget& widget)
    {
        QToolTip::showText(widget.mapToGlobal(widget.rect().center()), widget.toolTip(), &widget);
        const auto findTip = [] {
            const QWidgetList listTop = QApplication::topLevelWidgets();
            const auto it = std::find_if(listTop.begin(), listTop.end(), [](const QWidget* pTop) {
                return pTop->isVisible() && pTop->objectName() == QLatin1String("qtooltip_label");
            });
            return it == listTop.end() ? nullptr : *it;
        };
        QVERIFY2(findTip(), qPrintable(widget.toolTip()));
        visitor.Visit(findTip(), QStringLiteral("tip of ") + widget.objectName());
        QToolTip::hideText();
        QTRY_VERIFY(!findTip());
    }

    static void VisitToolBar(CVisitor& visitor, const QWidget* pPanel, bool bSimulator)
    {
        const QWidget* pBar = pPanel->findChild<QWidget*>(QStringLiteral("ProcessorTreeToolBar"));
        const QList<QToolButton*> listButton = pBar->findChildren<QToolButton*>();
        for (QToolButton* pButton : listButton) {
            if (QMenu* pMenu = pButton->menu()) {
                visitor.VisitMenu(pMenu, QStringLiteral("tool bar"));
                const QList<QAction*> listAction = pMenu->actions();
                for (QAction* pAction : listAction) {
                    visitor.VisitDialogs([pAction] { pAction->trigger(); });
                }
            } else {
                visitor.VisitDialogs([pButton] { pButton->click(); });
            }
        }
        QVERIFY(bSimulator || !visitor.GetDialogs().isEmpty());
    }

    static void Select(const CPanelWindow& kestrel, const QStringList& listName)
    {
        Qt::KeyboardModifiers modifiers = Qt::NoModifier;
        for (const QString& strName : listName) {
            const QModelIndex index = kestrel.Row(strName);
            QVERIFY2(index.isValid(), qPrintable(strName));
            kestrel.Tree()->expand(index.parent());
            PanelAccess::ClickRow(kestrel.Tree(), index, modifiers);
            modifiers = Qt::ControlModifier;
        }
    }

    // The menu, and then what its last entry asks, which deletes.
    static void VisitRowMenu(CVisitor& visitor, const CPanelWindow& kestrel, const SSelection& selection)
    {
        QTreeView* pTree = kestrel.Tree();
        visitor.VisitDialogs([&] {
            const CMenuDriver driver([&](QMenu* pMenu) {
                visitor.Visit(pMenu, QLatin1String(selection.szCase));
                const QList<QAction*> listAction = pMenu->actions();
                for (const QAction* pAction : listAction) {
                    if (pAction->menu()) {
                        visitor.VisitMenu(pAction->menu(), QStringLiteral("%1 > %2").arg(selection.szCase, pAction->text()));
                    }
                }
                CMenuDriver::ChooseByKey(pMenu, SText{ "CProcessorTree", "Delete" }.Get());
            });
            const QPoint ptRow = pTree->visualRect(kestrel.Row(selection.listName.constLast())).center();
            const QPoint ptWindow = pTree->viewport()->mapTo(&kestrel.window, ptRow);
            QTest::mouseClick(kestrel.window.windowHandle(), Qt::RightButton, Qt::NoModifier, ptWindow);
            QVERIFY2(driver.HasActed(), selection.szCase);
        });
    }
};

PTV_TEST_MAIN(CClippingTest)
#include "tst_clipping.moc"
