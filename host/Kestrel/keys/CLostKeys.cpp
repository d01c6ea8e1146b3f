#include "Kestrel/keys/CLostKeys.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/player/PanelAccess.h"
#include "nodes/EnNodeType.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>

namespace {

bool IsIn(const QWidget* pArea, const QWidget* pFocus)
{
    return pArea && pFocus && (pFocus == pArea || pArea->isAncestorOf(pFocus));
}

void PressSpace(QWidget* pButton)
{
    const QPointer<QWidget> pAlive = pButton; // what it does may end it
    for (const QEvent::Type type : { QEvent::KeyPress, QEvent::KeyRelease }) {
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
        if (pAlive) {
            QCoreApplication::sendEvent(pAlive, &event);
        }
    }
}

} // namespace

CLostKeys::CLostKeys(QWidget& windowIn) : window(windowIn)
{
    window.installEventFilter(this);
}

void CLostKeys::SetPanel(QWidget* pPanelIn)
{
    pPanel = pPanelIn;
}

bool CLostKeys::eventFilter(QObject* watched, QEvent* event)
{
    Q_ASSERT(GuiThread::IsCurrent());
    return (event->type() == QEvent::KeyPress && Take(static_cast<QKeyEvent*>(event))) || QObject::eventFilter(watched, event);
}

bool CLostKeys::Take(const QKeyEvent* pEvent)
{
    switch (pEvent->key()) {
    case Qt::Key_Escape:
        return TakeEscape();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return TakeReturn(pEvent);
    case Qt::Key_Up:
    case Qt::Key_Down:
        return TakeMove(pEvent);
    case Qt::Key_F10:
        return pEvent->modifiers() == Qt::ShiftModifier && TakeMenuKey();
    default:
        return false;
    }
}

// An editor in the list keeps its Escape.
bool CLostKeys::TakeEscape()
{
    return !IsIn(FindTree(), window.focusWidget()) && GoToTree();
}

bool CLostKeys::TakeReturn(const QKeyEvent* pEvent)
{
    QWidget* const pFocus = window.focusWidget();
    if (pPanel && pFocus && pFocus == PanelAccess::FindSearchEdit(pPanel)) {
        return GoToTree();
    }
    auto* const pButton = qobject_cast<QAbstractButton*>(pFocus);
    if (!pButton || pEvent->isAutoRepeat() || (pEvent->modifiers() & ~Qt::KeypadModifier) != 0) {
        return false;
    }
    PressSpace(pButton);
    return true;
}

// The list moves only where one row is selected, and with Ctrl adds the next one to it: here it goes on. Only with
// processors: what else is selected would have no drag.
bool CLostKeys::TakeMove(const QKeyEvent* pEvent)
{
    QTreeView* const pTree = FindTree();
    if (pEvent->modifiers() != Qt::ControlModifier || !pTree || window.focusWidget() != pTree) {
        return false;
    }
    const auto next = [pTree, bDown = pEvent->key() == Qt::Key_Down](const QModelIndex& index) {
        return bDown ? pTree->indexBelow(index) : pTree->indexAbove(index);
    };
    QModelIndex index = next(pTree->currentIndex());
    while (index.isValid() && PanelAccess::GetNodeType(index) != NodeProcessor) {
        index = next(index);
    }
    if (index.isValid()) {
        pTree->selectionModel()->setCurrentIndex(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    return index.isValid();
}

// As the toolkit does it for the menu key.
bool CLostKeys::TakeMenuKey()
{
    QWidget* const pFocus = window.focusWidget();
    if (!pFocus) {
        return false;
    }
    const QPoint pos = pFocus->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, pos, pFocus->mapToGlobal(pos));
    QCoreApplication::sendEvent(pFocus, &event);
    return true;
}

QTreeView* CLostKeys::FindTree() const
{
    return pPanel ? PanelAccess::FindCurrentTree(pPanel) : nullptr;
}

bool CLostKeys::GoToTree()
{
    QTreeView* const pTree = FindTree();
    if (pTree) {
        pTree->setFocus(Qt::OtherFocusReason);
    }
    return pTree;
}
