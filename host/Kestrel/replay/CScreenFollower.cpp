#include "Kestrel/replay/CScreenFollower.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/journal/WidgetPath.h"
#include "Kestrel/player/PanelAccess.h"
#include "Kestrel/replay/PlainDrag.h"
#include "Kestrel/replay/WindowInput.h"
#include "Kestrel/report/CReportAction.h"
#include "journal/replay/SRecordedLine.h"

#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QJsonArray>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QStackedLayout>
#include <QTreeView>

#include <algorithm>
#include <array>

namespace {

constexpr std::array<const char*, 13> listScreen{ "screen",         "size",        "pane",         "scroll", "search",
                                                  "menu",           "menu closed", "entry",        "dialog", "answer",
                                                  "unattended end", "save",        "save answered" };

QString GetText(const SRecordedLine& line, const char* szField)
{
    return line.fields.value(QLatin1String(szField)).toString();
}

int GetNumber(const SRecordedLine& line, const char* szField)
{
    return line.fields.value(QLatin1String(szField)).toInt();
}

template <typename Window> Window* FindOpen(const SRecordedLine& line, const char* szField)
{
    auto* pWindow = qobject_cast<Window*>(WidgetPath::Find(GetText(line, szField)));
    return pWindow && pWindow->isVisible() ? pWindow : nullptr;
}

// As it is typed: several in quotation marks.
void ChooseFiles(const QFileDialog& dialog, const QJsonArray& files)
{
    auto* pEdit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!pEdit) {
        return;
    }
    QStringList listFile;
    for (const QJsonValue& file : files) {
        listFile.append(files.size() == 1 ? file.toString() : QStringLiteral("\"%1\"").arg(file.toString()));
    }
    pEdit->setText(listFile.join(QLatin1Char(' ')));
}

} // namespace

CScreenFollower::CScreenFollower(QMainWindow& windowIn, const SCircumstances& circumstancesIn)
    : window(windowIn), circumstances(circumstancesIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
}

bool CScreenFollower::IsFor(const SRecordedLine& line)
{
    return std::any_of(listScreen.begin(), listScreen.end(),
                       [&](const char* szOperation) { return line.strOperation == QLatin1String(szOperation); });
}

void CScreenFollower::Begin(const QJsonObject& screen)
{
    SRecordedLine line;
    line.fields = screen;
    FollowScreen(line);
    QLineEdit* pSearch = circumstances.bMasked ? nullptr : PanelAccess::FindSearchEdit(&window);
    if (pSearch) {
        pSearch->setText(GetText(line, "search"));
    }
}

void CScreenFollower::ExpectEntry(const SRecordedLine* pLine)
{
    pEntryNext = pLine;
}

QString CScreenFollower::FindObstacle(const SRecordedLine& line) const
{
    for (const QString& strFault : { FindMenuFault(line), FindDialogFault(line), FindScreenFault(line) }) {
        if (!strFault.isEmpty()) {
            return strFault;
        }
    }
    return {};
}

// In another language the letters that open a menu and choose in it are others, and an entry that does nothing here may leave
// its menu open.
QString CScreenFollower::FindMenuFault(const SRecordedLine& line) const
{
    const QAction* pEntry = pEntryNext ? FindEntry(*pEntryNext) : nullptr;
    if (circumstances.bOtherLanguage) {
        return {};
    }
    if (line.strOperation == QLatin1String("menu") && !FindOpen<QMenu>(line, "menu")) {
        return QStringLiteral("the menu %1 does not open").arg(GetText(line, "menu"));
    }
    const bool bEnd = line.strOperation == QLatin1String("menu closed") && !bMissing && !(pEntry && IsMissing(*pEntry));
    return bEnd && FindOpen<QMenu>(line, "menu") ? QStringLiteral("the menu %1 stays open").arg(GetText(line, "menu"))
                                                 : QString();
}

QString CScreenFollower::FindDialogFault(const SRecordedLine& line) const
{
    if (line.strOperation == QLatin1String("dialog") && !bMissing && !FindOpen<QDialog>(line, "dialog")) {
        return QStringLiteral("the dialog \"%1\" does not open").arg(GetText(line, "title"));
    }
    const bool bAnswer = line.strOperation == QLatin1String("answer") && !circumstances.bOtherLanguage;
    const auto* pDialog = bAnswer ? FindOpen<QDialog>(line, "dialog") : nullptr;
    return pDialog && !qobject_cast<const QFileDialog*>(pDialog)
        ? QStringLiteral("the dialog \"%1\" stays open").arg(pDialog->windowTitle())
        : QString();
}

bool CScreenFollower::Follow(const SRecordedLine& line)
{
    const QString& strDo = line.strOperation;
    if (strDo == QLatin1String("entry")) {
        return FollowEntry(line);
    }
    if (strDo == QLatin1String("dialog")) {
        return FollowDialog(line);
    }
    if (strDo == QLatin1String("answer")) {
        return FollowAnswer(line);
    }
    if (strDo == QLatin1String("menu closed")) {
        return FollowMenuEnd(line);
    }
    if (strDo == QLatin1String("unattended end")) {
        Unwind();
        return true;
    }
    if (strDo.startsWith(QLatin1String("save"))) {
        return true; // the host has looked them up
    }
    return strDo == QLatin1String("menu") ? FollowMenu(line) : FollowScreen(line);
}

void CScreenFollower::Scroll()
{
    const QList<QTreeView*> listTree = PanelAccess::FindTrees(&window);
    for (int n = 0; n < listTree.size(); ++n) {
        listTree[n]->verticalScrollBar()->setValue(n == 0 ? nScrollDiscovered : nScrollSimulator);
    }
}

void CScreenFollower::Unwind()
{
    PlainDrag::Cancel();
    unwinding.Begin();
}

bool CScreenFollower::IsAway(const SRecordedLine& line) const
{
    const QString strWindow = GetText(line, "window");
    const QString strTarget = GetText(line, "target"); // of a list of names under a field, which is a window of its own
    return std::any_of(setAway.begin(), setAway.end(),
                       [&](const QString& strAway) { return strWindow.startsWith(strAway) || strTarget.startsWith(strAway); });
}

bool CScreenFollower::IsBehindMenu(const SRecordedLine& line) const
{
    return setClosed.contains(GetText(line, "window"));
}

void CScreenFollower::ExpectMissing(bool bExpected)
{
    bMissing = bExpected;
}

bool CScreenFollower::IsMissing(const QAction& action) const
{
    const QStackedLayout* pPanes = PanelAccess::FindPanes(&window);
    const QObject* pPanel = pPanes ? pPanes->parentWidget() : nullptr;
    const QObject* pParent = &action;
    while (pParent && pParent != pPanel) {
        pParent = pParent->parent();
    }
    const bool bReport = qobject_cast<const CReportAction*>(&action) != nullptr; // there is no journal to save
    return !pParent && (bReport || !action.isEnabled() || !action.isVisible());
}

bool CScreenFollower::IsForeignMenuKey(const SRecordedLine& line) const
{
    return circumstances.bOtherLanguage && line.strOperation == QLatin1String("key press")
        && qobject_cast<const QMenu*>(QApplication::activePopupWidget());
}

bool CScreenFollower::IsForeignMnemonic(const SRecordedLine& line) const
{
    const QString strText = GetText(line, "text");
    return IsForeignMenuKey(line) && !strText.isEmpty() && strText.at(0).isPrint();
}

const QAction* CScreenFollower::FindEntry(const SRecordedLine& line) const
{
    const auto* pMenu = qobject_cast<QMenu*>(WidgetPath::Find(GetText(line, "menu")));
    return pMenu ? pMenu->actions().value(GetNumber(line, "number")) : nullptr;
}

bool CScreenFollower::FollowMenu(const SRecordedLine& line)
{
    setClosed.remove(GetText(line, "menu"));
    auto* pMenu = qobject_cast<QMenu*>(WidgetPath::Find(GetText(line, "menu")));
    auto* pBar = pMenu ? qobject_cast<QMenuBar*>(pMenu->parentWidget()) : nullptr;
    if (pBar && !pMenu->isVisible()) {
        pBar->setActiveAction(pMenu->menuAction());
    }
    return true;
}

// By the entry that was chosen, where it can be: closing it alone would choose none.
bool CScreenFollower::FollowMenuEnd(const SRecordedLine& line)
{
    setClosed.insert(GetText(line, "menu"));
    auto* pMenu = FindOpen<QMenu>(line, "menu");
    auto* pMenuOfEntry = pEntryNext ? FindOpen<QMenu>(*pEntryNext, "menu") : nullptr;
    const QAction* pEntry = pMenuOfEntry ? FindEntry(*pEntryNext) : nullptr;
    if (pMenu && pEntry && pEntry->isEnabled() && pEntry->isVisible() && !IsMissing(*pEntry)) {
        pMenuOfEntry->setActiveAction(const_cast<QAction*>(pEntry));
        WindowInput::SKey key;
        key.nKey = Qt::Key_Return;
        WindowInput::PutKey(*pMenuOfEntry, key);
    } else if (pMenu) {
        pMenu->close();
    }
    return true;
}

bool CScreenFollower::FollowEntry(const SRecordedLine& line)
{
    const QAction* pEntry = FindEntry(line);
    const bool bMissingEntry = pEntry && IsMissing(*pEntry);
    bMissing = bMissing || bMissingEntry;
    return !bMissingEntry;
}

// One that is missing without a reason counts as there: the walk reports it.
bool CScreenFollower::FollowDialog(const SRecordedLine& line)
{
    const auto* pDialog = FindOpen<QDialog>(line, "dialog");
    if (!pDialog || qobject_cast<const QFileDialog*>(pDialog)) {
        setAway.insert(GetText(line, "dialog"));
    }
    return pDialog || !bMissing;
}

bool CScreenFollower::FollowAnswer(const SRecordedLine& line)
{
    setAway.remove(GetText(line, "dialog"));
    auto* pDialog = FindOpen<QDialog>(line, "dialog");
    if (pDialog) {
        if (const auto* pFileDialog = qobject_cast<QFileDialog*>(pDialog)) {
            ChooseFiles(*pFileDialog, line.fields.value(QLatin1String("files")).toArray());
        }
        QMetaObject::invokeMethod(pDialog, "done", Qt::QueuedConnection, Q_ARG(int, GetNumber(line, "result")));
    }
    return true;
}

bool CScreenFollower::FollowScreen(const SRecordedLine& line)
{
    nScrollDiscovered = GetNumber(line, "scrollDiscovered");
    nScrollSimulator = GetNumber(line, "scrollSimulator");
    const QSize size(GetNumber(line, "width"), GetNumber(line, "height"));
    if (!size.isEmpty() && window.size() != size) {
        window.resize(size);
    }
    if (line.fields.contains(QLatin1String("journal"))) {
        ShowJournal(GetNumber(line, "journal"));
    }
    return true;
}

void CScreenFollower::ShowJournal(int nWidth)
{
    auto* pDock = window.findChild<QDockWidget*>(QStringLiteral("JournalDock"));
    if (!pDock || pDock->isVisible() == (nWidth > 0)) {
        return;
    }
    pDock->setVisible(nWidth > 0);
    if (nWidth > 0) {
        window.resizeDocks({ pDock }, { nWidth }, Qt::Horizontal);
    }
}

QString CScreenFollower::FindScreenFault(const SRecordedLine& line) const
{
    const QStackedLayout* pPanes = PanelAccess::FindPanes(&window);
    if (line.strOperation == QLatin1String("pane") && pPanes && pPanes->currentIndex() != GetNumber(line, "pane")) {
        return QStringLiteral("the pane stays the other one");
    }
    const QLineEdit* pSearch = circumstances.bMasked ? nullptr : PanelAccess::FindSearchEdit(&window);
    if (line.strOperation == QLatin1String("search") && pSearch && pSearch->text() != GetText(line, "search")) {
        return QStringLiteral("the search is \"%1\", not \"%2\"").arg(pSearch->text(), GetText(line, "search"));
    }
    return {};
}
