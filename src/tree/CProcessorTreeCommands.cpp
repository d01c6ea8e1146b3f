// The commands of CProcessorTree: menu, keys, deletion, grouping and renaming.

#include "tree/CProcessorTree.h"

#include "delegate/RowLook.h"
#include "interfaces/widgets/CMenu.h"
#include "model/CProcessorTreeModel.h"
#include "model/RowValue.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorGroupNode.h"
#include "tree/CEditorName.h"
#include "tree/CRenameWatch.h"
#include "tree/CTreeKeys.h"
#include "tree/CTreeMenu.h"
#include "tree/TreeAction.h"
#include "tree/commands/DeleteCommand.h"
#include "tree/commands/GroupCommands.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>

namespace {

bool HasMenu(const QModelIndex& index)
{
    const int nType = RowValue::NodeType(index);
    return nType == NodeGroup || nType == NodeProcessor;
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
    menu.setMinimumWidth(RowLook::nMenuMinimumWidth);
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
        GroupCommands::RemoveFromGroup(selectedIndexes());
        break;
    default:
        break;
    }
}

void CProcessorTree::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F2) {
        DealAction(ActionRename);
    }
    if (!pKeys->Deal(event)) {
        QTreeView::keyPressEvent(event);
    }
}

void CProcessorTree::DeleteNode(bool bAsk)
{
    DeleteCommand::Run(this, bAsk, [this] { return GetNodeAboveSelection(); });
}

// The suppression is set before the editor opens, as the contract with the host requires: where none opens, on the
// root and on an information row, it stays on until the next editor has closed.
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
    const CEditorName editorName(viewport(), RowValue::NodeId(index));
    edit(index, AllEditTriggers, nullptr);
    if (QWidget* const pEditor = indexWidget(index)) {
        pRenameWatch->Start(pEditor);
    } else if (state() != EditingState) {
        pRenameWatch->Stop(); // an editor that a rebuild has taken must not end this rename when it dies
    }
}

void CProcessorTree::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const QUuid id = RowValue::NodeId(currentIndex());
    if (!id.isNull()) {
        selectionModel()->select(pModel->GetIndexById(id), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    bSuppressSelection = false;
    if (pRenameWatch->GetEditor() == editor) {
        pRenameWatch->Stop();
    }
    QTreeView::closeEditor(editor, hint);
}

// Closed by the base class alone, so that neither the text nor a selection is sent. The focus that it gives to the
// tree is taken away again, or the keys that were meant for the name would act on rows. An editor that still stood
// while its row goes would let the view scroll to its top.
void CProcessorTree::DropEditor()
{
    if (pRenameWatch->GetEditor() && state() == EditingState) {
        QTreeView::closeEditor(pRenameWatch->GetEditor(), QAbstractItemDelegate::NoHint);
        clearFocus();
    }
}

void CProcessorTree::Group()
{
    const QPointer<CProcessorTree> pSelf(this); // the host may end it in a call of the library
    bSuppressSelection = true;
    GroupCommands::Group(selectedIndexes());
    if (pSelf) {
        bSuppressSelection = false;
    }
}

void CProcessorTree::Ungroup()
{
    const QUuid idNext = GetNodeAboveSelection(); // while its rows are still there
    GroupCommands::Ungroup(selectedIndexes(), idNext);
}

void CProcessorTree::MoveToGroup(const SProcessorGroupNode& group)
{
    const QPointer<CProcessorTree> pSelf(this); // the host may end it in a call of the library
    GroupCommands::MoveToGroup(selectedIndexes(), group.idNode);
    if (pSelf) {
        expand(pModel->GetIndexById(group.idNode));
    }
}
