#include "tree/NeighbourNode.h"

#include "data/GuiThread.h"
#include "model/RowValue.h"
#include "nodes/EnNodeType.h"

#include <QTreeView>

namespace {

// Children of other rows, as of a processor, are no nodes.
int ShownChildren(const QTreeView& tree, const QModelIndex& index)
{
    const bool bOpenGroup = RowValue::NodeType(index) == NodeGroup && tree.isExpanded(index);
    return bOpenGroup ? tree.model()->rowCount(index) : 0;
}

// The last node under indexParent before the first one for which fnStop holds; indexParent when that is the first.
template <typename FnStop> QModelIndex LastBefore(const QTreeView& tree, const QModelIndex& indexParent, FnStop fnStop)
{
    const QAbstractItemModel* const pModel = tree.model();
    QModelIndex indexLast = indexParent;
    for (int i = 0; i < pModel->rowCount(indexParent); ++i) {
        const QModelIndex indexRow = pModel->index(i, 0, indexParent);
        if (fnStop(indexRow)) {
            return indexLast;
        }
        indexLast = indexRow;
        const int nChildren = ShownChildren(tree, indexRow);
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

} // namespace

QModelIndex NeighbourNode::AboveSelection(const QTreeView& tree, const QModelIndex& indexRoot)
{
    Q_ASSERT(GuiThread::IsCurrent());
    const QItemSelectionModel* const pSelection = tree.selectionModel();
    return LastBefore(tree, indexRoot, [pSelection](const QModelIndex& index) { return pSelection->isSelected(index); });
}

QModelIndex NeighbourNode::Above(const QTreeView& tree, const QModelIndex& indexCurrent)
{
    Q_ASSERT(GuiThread::IsCurrent());
    const auto fnIsCurrent = [&indexCurrent](const QModelIndex& index) { return index == indexCurrent; };
    return LastBefore(tree, indexCurrent.parent(), fnIsCurrent);
}

QModelIndex NeighbourNode::Below(const QTreeView& tree, const QModelIndex& indexRoot, const QModelIndex& indexCurrent)
{
    Q_ASSERT(GuiThread::IsCurrent());
    const QAbstractItemModel* const pModel = tree.model();
    QModelIndex indexNext = indexRoot;
    for (int i = pModel->rowCount(indexRoot) - 1; i >= 0; --i) {
        const QModelIndex indexRow = pModel->index(i, 0, indexRoot);
        for (int j = ShownChildren(tree, indexRow) - 1; j >= 0; --j) {
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
