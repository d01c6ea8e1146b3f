// The commands of CProcessorTree: menu, keys, deletion, grouping and renaming.

#include "tree/CProcessorTree.h"

#include "data/CProcessorTreeData.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/widgets/CMenu.h"
#include "model/CProcessorTreeModel.h"
#include "model/RowValue.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorGroupNode.h"
#include "tree/CDeleteDialog.h"
#include "tree/CDeleteJob.h"
#include "tree/CNodeWalk.h"
#include "tree/CSelectionAnchor.h"
#include "tree/CTreeMenu.h"
#include "tree/DeleteBlock.h"
#include "tree/EnTreeAction.h"
#include "tree/SNodeSelection.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>

#include <algorithm>

namespace {

const int nMenuMinimumWidth = 180;

bool HasMenu(const QModelIndex& index)
{
    const int nType = RowValue::NodeType(index);
    return nType == NodeGroup || nType == NodeProcessor;
}

bool IsGroup(const QModelIndex& index)
{
    return RowValue::NodeType(index) == NodeGroup;
}

} // namespace

void CProcessorTree::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    const QModelIndexList listSelected = selectedIndexes();
    if (!index.isValid() || !listSelected.contains(index) || !HasMenu(index)) {
        return;
    }
    CMenu menu(this);
    // The host may end this tree while exec() runs, also under a dialog that an entry has opened. Qt's handler
    // of the click on that entry uses the menu to its end, so the menu leaves a tree that goes and dies here.
    connect(this, &QObject::destroyed, &menu, [&menu] { menu.setParent(nullptr); });
    menu.setMinimumWidth(nMenuMinimumWidth);
    CTreeMenu filler(mapAction, [this](const SProcessorGroupNode& group) { MoveToGroup(group); });
    filler.Fill(&menu, index, listSelected.size());
    menu.exec(mapToGlobal(event->pos()));
}

void CProcessorTree::DealAction(int nAction)
{
    switch (nAction) {
    case ActionRename:
        Rename();
        break;
    case ActionDelete:
        DeleteNode(true);
        break;
    case ActionGroup:
        Group();
        break;
    case ActionUngroup:
        Ungroup();
        break;
    case ActionRemoveFromGroup:
        RemoveFromGroup();
        break;
    default:
        break;
    }
}

void CProcessorTree::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Delete:
        DealDeleteKey(event);
        break;
    case Qt::Key_F2:
        DealAction(ActionRename);
        QTreeView::keyPressEvent(event);
        break;
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
        DealArrowKey(event);
        break;
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        DealMoveKey(event);
        break;
    default:
        QTreeView::keyPressEvent(event);
        break;
    }
}

// Reads the action as the last menu has left it, on purpose: the key asks neither the lock nor the user.
// What a held key repeats, or what an open editor passes on, was not meant for the rows.
void CProcessorTree::DealDeleteKey(QKeyEvent* pEvent)
{
    if (!mapAction[ActionDelete]->isEnabled() || IsRepeat(pEvent) || state() == EditingState) {
        return;
    }
    DeleteNode(false);
    emit g_pProcessorTreeData->NotifyNodeInfo();
    QTreeView::keyPressEvent(pEvent);
}

// X11 repeats a key by a release and a press of the same time. The toolkit knows the pair only if both have
// arrived when it looks at the release, and takes about every second repeat for a new press.
bool CProcessorTree::IsRepeat(const QKeyEvent* pEvent) const
{
    return pEvent->isAutoRepeat() || (pEvent->timestamp() != 0 && pEvent->timestamp() == nDeleteReleased);
}

void CProcessorTree::NoteRelease(const QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Delete) {
        nDeleteReleased = pEvent->timestamp();
    }
}

void CProcessorTree::DealArrowKey(QKeyEvent* pEvent)
{
    const QModelIndexList listSelected = selectedIndexes();
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
void CProcessorTree::DealMoveKey(QKeyEvent* pEvent)
{
    const bool bRange = selectionCommand(currentIndex(), pEvent).testFlag(QItemSelectionModel::Current);
    if (bRange && !pAnchor->PrepareMove()) {
        return;
    }
    const QPersistentModelIndex indexBefore = currentIndex();
    QTreeView::keyPressEvent(pEvent);
    if (!bRange && currentIndex() != indexBefore) {
        pAnchor->StartAt(SRowKey::Of(currentIndex()));
    }
}

void CProcessorTree::MoveTo(const QModelIndex& index)
{
    if (!selectionCommand(index).testFlag(QItemSelectionModel::Current)) {
        pAnchor->StartAt(SRowKey::Of(index));
    }
    setCurrentIndex(index);
}

void CProcessorTree::MoveUp(QKeyEvent* pEvent, const QModelIndex& index)
{
    if (index.parent().isValid()) {
        MoveTo(CNodeWalk(*this).Above(index));
    } else if (index.row() == 0) {
        pEvent->ignore();
    } else {
        DealMoveKey(pEvent);
    }
}

void CProcessorTree::MoveDown(QKeyEvent* pEvent, const QModelIndex& index)
{
    const QModelIndex indexRoot = pModel->GetRootIndex();
    if (indexRoot.isValid()) {
        MoveTo(CNodeWalk(*this).Below(indexRoot, index));
    } else {
        DealMoveKey(pEvent);
    }
}

// Left on a folded row and Right on an open one have nothing to do and go to the parent widget.
void CProcessorTree::Fold(QKeyEvent* pEvent, const QModelIndex& index)
{
    const bool bOpens = pEvent->key() == Qt::Key_Right;
    if (pModel->hasChildren(index) && isExpanded(index) == bOpens) {
        pEvent->ignore();
    } else {
        DealMoveKey(pEvent);
    }
}

void CProcessorTree::DeleteNode(bool bAsk)
{
    if (IsDeleteBlocked()) {
        return;
    }
    SDeletePlan plan = SDeletePlan::ForNodes(g_pProcessorTreeData->GetSelectedNodes());
    if (plan.mapNode.isEmpty()) {
        return;
    }
    plan.bWithProcessors = true;
    if (bAsk && !CDeleteDialog(this).Ask(plan.GetQuestion(), plan.bWithProcessors)) {
        return;
    }
    g_pRuntimeControl->SetBusy(true);
    plan.idNext = GetNodeAboveSelection();
    CDeleteJob::Start(plan);
}

// The suppression comes before the editor, on purpose: where no editor opens, on the root and on an
// information row, it stays on until the next editor has closed.
void CProcessorTree::Rename()
{
    const QModelIndexList listSelected = selectedIndexes();
    if (listSelected.size() != 1) {
        return;
    }
    const QModelIndex index = listSelected.first();
    if (!visualRect(index).isEmpty()) { // scrollTo() would unfold a group for its member
        scrollTo(index);
    }
    bSuppressSelection = true;
    edit(index, AllEditTriggers, nullptr);
    if (QWidget* const pEditor = indexWidget(index)) {
        ForgetEditor();
        pRenameEditor = pEditor;
        connect(pEditor, &QObject::destroyed, this, &CProcessorTree::DealEditorDestroyed);
    } else if (state() != EditingState) {
        ForgetEditor(); // one that a rebuild has taken must not end this rename when it dies
    }
}

void CProcessorTree::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const QUuid id = RowValue::NodeId(currentIndex());
    if (!id.isNull()) {
        selectionModel()->select(pModel->GetIndexById(id), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    bSuppressSelection = false;
    if (pRenameEditor == editor) {
        ForgetEditor();
    }
    QTreeView::closeEditor(editor, hint);
}

// Before the rows go. Closed by the base class alone, on purpose: neither the text nor a selection is sent.
// The focus that it gives to the tree is taken away again, or the keys that were meant for the name would
// act on rows. An editor that still stood while its row goes would let the view scroll to its top.
void CProcessorTree::DropEditor()
{
    if (!pRenameEditor || state() != EditingState) {
        return;
    }
    QTreeView::closeEditor(pRenameEditor, QAbstractItemDelegate::NoHint);
    clearFocus();
}

// Its editor went with a rebuild, not through closeEditor(): the rename ends here.
void CProcessorTree::DealEditorDestroyed()
{
    pRenameEditor = nullptr;
    bSuppressSelection = false;
}

// An editor that was closed is destroyed later, which must neither end the next rename nor reach a tree
// that is being destroyed itself.
void CProcessorTree::ForgetEditor()
{
    if (pRenameEditor) {
        disconnect(pRenameEditor, &QObject::destroyed, this, nullptr);
        pRenameEditor = nullptr;
    }
}

void CProcessorTree::Group()
{
    const QPointer<CProcessorTree> pSelf(this); // the host may end it in a call of the library
    bSuppressSelection = true;
    SProcessorGroupNode group;
    group.strName = tr("Group %1").arg(g_pPrcListControl->GetNextGroupIndex());
    group.idNode = QUuid::createUuid();
    const QModelIndexList listSelected = selectedIndexes();
    const std::vector<QUuid> vecProcessor = SNodeSelection::GetProcessorIds(listSelected);
    g_pPrcListControl->AddGroup(group, listSelected.isEmpty());
    MoveProcessors(vecProcessor, group.idNode);
    g_pRuntimeControl->SetSelectedNodes({ group.idNode });
    if (pSelf) {
        bSuppressSelection = false;
    }
}

void CProcessorTree::Ungroup()
{
    const QUuid idNext = GetNodeAboveSelection();
    for (const QUuid& id : SNodeSelection::GetGroupIds(selectedIndexes())) {
        g_pPrcListControl->DeleteGroup(id, false);
    }
    g_pRuntimeControl->SetSelectedNodes({ idNext });
}

void CProcessorTree::RemoveFromGroup()
{
    QModelIndexList listMember = selectedIndexes();
    const auto fnOutside = [](const QModelIndex& index) { return !IsGroup(index.parent()); };
    listMember.erase(std::remove_if(listMember.begin(), listMember.end(), fnOutside), listMember.end());
    MoveProcessors(SNodeSelection::GetProcessorIds(listMember), QUuid());
}

void CProcessorTree::MoveToGroup(const SProcessorGroupNode& group)
{
    const QPointer<CProcessorTree> pSelf = this; // the host may end it in a call of the library
    MoveProcessors(SNodeSelection::GetProcessorIds(selectedIndexes()), group.idNode);
    if (pSelf) {
        expand(pModel->GetIndexById(group.idNode));
    }
}

void CProcessorTree::MoveProcessors(const std::vector<QUuid>& vecId, const QUuid& idGroup)
{
    for (const QUuid& id : vecId) {
        g_pPrcListControl->MoveProcessor(id, idGroup);
    }
}
