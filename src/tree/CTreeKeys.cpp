#include "tree/CTreeKeys.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "model/CProcessorTreeModel.h"
#include "model/SRowKey.h"
#include "tree/CProcessorTree.h"
#include "tree/CSelectionAnchor.h"
#include "tree/NeighbourNode.h"

#include <QAction>
#include <QKeyEvent>

CTreeKeys::CTreeKeys(CProcessorTree& treeIn, const CProcessorTreeModel& modelIn, CSelectionAnchor& anchorIn,
                     const QAction& actionDeleteIn)
    : tree(treeIn), model(modelIn), anchor(anchorIn), actionDelete(actionDeleteIn)
{ }

bool CTreeKeys::Deal(QKeyEvent* pEvent)
{
    Q_ASSERT(GuiThread::IsCurrent());
    switch (pEvent->key()) {
    case Qt::Key_Delete:
        DealDeleteKey(pEvent);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
        DealArrowKey(pEvent);
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        DealMoveKey(pEvent);
        return true;
    default:
        return false;
    }
}

// Reads the menu's entry as its last opening has left it, and asks the user nothing: the contract with the host
// fixes both. What a held key repeats, or what an open editor passes on, was not meant for the rows.
void CTreeKeys::DealDeleteKey(QKeyEvent* pEvent)
{
    if (!actionDelete.isEnabled() || IsRepeat(pEvent) || tree.state() == CProcessorTree::EditingState) {
        return;
    }
    tree.DeleteNode(false);
    emit g_pProcessorTreeData->NotifyNodeInfo();
    tree.QTreeView::keyPressEvent(pEvent);
}

// X11 repeats a key by a release and a press of the same time. The toolkit knows the pair only if both have
// arrived when it looks at the release, and takes about every second repeat for a new press.
bool CTreeKeys::IsRepeat(const QKeyEvent* pEvent) const
{
    return pEvent->isAutoRepeat() || (pEvent->timestamp() != 0 && pEvent->timestamp() == nDeleteReleased);
}

void CTreeKeys::NoteRelease(const QKeyEvent* pEvent)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (pEvent->key() == Qt::Key_Delete) {
        nDeleteReleased = pEvent->timestamp();
    }
}

void CTreeKeys::DealArrowKey(QKeyEvent* pEvent)
{
    const QModelIndexList listSelected = tree.selectedIndexes();
    if (listSelected.size() != 1) {
        pEvent->ignore();
        return;
    }
    const QModelIndex index = listSelected.first();
    switch (pEvent->key()) {
    case Qt::Key_Up:
        MoveUp(pEvent, index);
        break;
    case Qt::Key_Down:
        MoveDown(pEvent, index);
        break;
    default:
        Fold(pEvent, index);
        break;
    }
}

// The base class moves the current row, and with Shift draws a range to it.
void CTreeKeys::DealMoveKey(QKeyEvent* pEvent)
{
    const bool bRange = DrawsRange(tree.currentIndex(), pEvent);
    if (bRange && !anchor.PrepareMove()) {
        return;
    }
    const QPersistentModelIndex indexBefore = tree.currentIndex();
    tree.QTreeView::keyPressEvent(pEvent);
    if (!bRange && tree.currentIndex() != indexBefore) {
        anchor.StartAt(SRowKey::Of(tree.currentIndex()));
    }
}

bool CTreeKeys::DrawsRange(const QModelIndex& index, const QKeyEvent* pEvent) const
{
    return tree.selectionCommand(index, pEvent).testFlag(QItemSelectionModel::Current);
}

void CTreeKeys::MoveTo(const QModelIndex& index)
{
    if (!DrawsRange(index, nullptr)) { // by the modifiers that are held now, as setCurrentIndex() does it
        anchor.StartAt(SRowKey::Of(index));
    }
    tree.setCurrentIndex(index);
}

void CTreeKeys::MoveUp(QKeyEvent* pEvent, const QModelIndex& index)
{
    if (index.parent().isValid()) {
        MoveTo(NeighbourNode::Above(tree, index));
    } else if (index.row() == 0) {
        pEvent->ignore();
    } else {
        DealMoveKey(pEvent);
    }
}

void CTreeKeys::MoveDown(QKeyEvent* pEvent, const QModelIndex& index)
{
    const QModelIndex indexRoot = model.GetRootIndex();
    if (indexRoot.isValid()) {
        MoveTo(NeighbourNode::Below(tree, indexRoot, index));
    } else {
        DealMoveKey(pEvent);
    }
}

// Left on a folded row and Right on an open one have nothing to do and go to the parent widget.
void CTreeKeys::Fold(QKeyEvent* pEvent, const QModelIndex& index)
{
    const bool bOpens = pEvent->key() == Qt::Key_Right;
    if (model.hasChildren(index) && tree.isExpanded(index) == bOpens) {
        pEvent->ignore();
    } else {
        DealMoveKey(pEvent);
    }
}
