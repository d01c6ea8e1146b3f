#include "tree/CNodeWalk.h"

#include "model/RowValue.h"
#include "nodes/EnNodeType.h"

#include <QTreeView>

CNodeWalk::CNodeWalk(const QTreeView& treeIn) : tree(treeIn) { }

QModelIndex CNodeWalk::AboveSelection(const QModelIndex& indexRoot) const
{
    const QItemSelectionModel* const pSelection = tree.selectionModel();
    return LastBefore(indexRoot, [pSelection](const QModelIndex& index) { return pSelection->isSelected(index); });
}

QModelIndex CNodeWalk::Above(const QModelIndex& indexCurrent) const
{
    return LastBefore(indexCurrent.parent(), [&indexCurrent](const QModelIndex& index) { return index == indexCurrent; });
}

QModelIndex CNodeWalk::Below(const QModelIndex& indexRoot, const QModelIndex& indexCurrent) const
{
    const QAbstractItemModel* const pModel = tree.model();
    QModelIndex indexNext = indexRoot;
    for (int i = pModel->rowCount(indexRoot) - 1; i >= 0; --i) {
        const QModelIndex indexRow = pModel->index(i, 0, indexRoot);
        const int nChildren = IsOpenGroup(indexRow) ? pModel->rowCount(indexRow) : 0;
        for (int j = nChildren - 1; j >= 0; --j) {
            const QModelIndex indexChild = pModel->index(j, 0, indexRow);
            if (indexChild == indexCurrent) {
                return indexNext;
            }
            indexNext = indexChild;
        }
        if (indexRow == indexCurrent) {
            return indexNext;
        }
        indexNext = indexRow;
    }
    return indexNext;
}

template <typename FnStop> QModelIndex CNodeWalk::LastBefore(const QModelIndex& indexParent, FnStop fnStop) const
{
    const QAbstractItemModel* const pModel = tree.model();
    QModelIndex indexLast = indexParent;
    for (int i = 0; i < pModel->rowCount(indexParent); ++i) {
        const QModelIndex indexRow = pModel->index(i, 0, indexParent);
        if (fnStop(indexRow)) {
            return indexLast;
        }
        indexLast = indexRow;
        const int nChildren = IsOpenGroup(indexRow) ? pModel->rowCount(indexRow) : 0;
        for (int j = 0; j < nChildren; ++j) {
            const QModelIndex indexChild = pModel->index(j, 0, indexRow);
            if (fnStop(indexChild)) {
                return indexLast;
            }
            indexLast = indexChild;
        }
    }
    return indexLast;
}

bool CNodeWalk::IsOpenGroup(const QModelIndex& index) const
{
    return RowValue::NodeType(index) == NodeGroup && tree.isExpanded(index);
}
