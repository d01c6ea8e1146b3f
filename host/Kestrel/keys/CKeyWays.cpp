#include "Kestrel/keys/CKeyWays.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/player/PanelAccess.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QTreeView>

namespace {

bool HasFocus(const QWidget* pArea)
{
    const QWidget* const pFocus = pArea->window()->focusWidget();
    return pFocus && (pFocus == pArea || pArea->isAncestorOf(pFocus));
}

} // namespace

CKeyWays::CKeyWays(QMainWindow& windowIn, QMenu& menuView) : QObject(&windowIn), window(windowIn), lostKeys(windowIn)
{
    menuView.addSeparator();
    pFind = menuView.addAction(QString(), this, &CKeyWays::Find, QKeySequence::Find);
    pNext = menuView.addAction(QString(), this, [this] { Go(1); }, QKeySequence(Qt::Key_F6));
    pPrevious = menuView.addAction(QString(), this, [this] { Go(-1); }, QKeySequence(Qt::SHIFT + Qt::Key_F6));
    UpdateText();
}

void CKeyWays::SetPanel(QWidget* pPanelIn)
{
    pPanel = pPanelIn;
    lostKeys.SetPanel(pPanelIn);
}

void CKeyWays::UpdateText()
{
    pFind->setText(tr("&Search the list"));
    pNext->setText(tr("&Next part of the window"));
    pPrevious->setText(tr("&Previous part of the window"));
}

void CKeyWays::Find()
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (!pPanel || !pPanel->isEnabled()) {
        return;
    }
    QAction* const pSearch = PanelAccess::FindAction(pPanel, "CProcessorTreeToolBar", "Search");
    QLineEdit* const pEdit = PanelAccess::FindSearchEdit(pPanel);
    if (pSearch && pEdit) {
        pSearch->trigger();
        pEdit->setFocus(Qt::ShortcutFocusReason);
        pEdit->selectAll();
    }
}

void CKeyWays::Go(int nStep)
{
    Q_ASSERT(GuiThread::IsCurrent() && (nStep == 1 || nStep == -1));
    const std::vector<SPart> vecPart = GetParts();
    const int nParts = static_cast<int>(vecPart.size());
    if (nParts < 1) {
        return;
    }
    int nHere = nStep == 1 ? -1 : 0;
    for (int i = 0; i < nParts; ++i) {
        if (HasFocus(vecPart[i].pArea)) {
            nHere = i;
        }
    }
    vecPart[(nHere + nStep + nParts) % nParts].pTarget->setFocus(Qt::ShortcutFocusReason);
}

std::vector<CKeyWays::SPart> CKeyWays::GetParts() const
{
    std::vector<SPart> vecPart;
    if (pPanel) {
        AddTree(vecPart);
        AddSearch(vecPart);
        AddToolBar(vecPart);
    }
    AddJournal(vecPart);
    return vecPart;
}

void CKeyWays::AddTree(std::vector<SPart>& vecPart) const
{
    if (QTreeView* const pTree = PanelAccess::FindCurrentTree(pPanel)) {
        vecPart.push_back({ pTree, pTree });
    }
}

void CKeyWays::AddSearch(std::vector<SPart>& vecPart) const
{
    QLineEdit* const pEdit = PanelAccess::FindSearchEdit(pPanel);
    if (pEdit && pEdit->isVisible()) {
        vecPart.push_back({ pEdit->parentWidget(), pEdit });
    }
}

void CKeyWays::AddToolBar(std::vector<SPart>& vecPart) const
{
    auto* const pToolBar = pPanel->findChild<QWidget*>(QStringLiteral("ProcessorTreeToolBar"));
    auto* const pFirst = pToolBar ? pToolBar->findChild<QAbstractButton*>() : nullptr; // the menu, which is never disabled
    if (pFirst) {
        vecPart.push_back({ pToolBar, pFirst });
    }
}

void CKeyWays::AddJournal(std::vector<SPart>& vecPart) const
{
    auto* const pDock = window.findChild<QDockWidget*>();
    auto* const pView = pDock ? pDock->findChild<QAbstractItemView*>() : nullptr;
    if (pView && pDock->isVisible()) {
        vecPart.push_back({ pDock, pView });
    }
}
