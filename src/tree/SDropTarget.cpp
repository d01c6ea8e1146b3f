#include "tree/SDropTarget.h"

#include "model/RowValue.h"
#include "nodes/EnNodeType.h"

SDropTarget SDropTarget::ForRow(const QModelIndex& indexRow)
{
    const bool bProcessor = RowValue::NodeType(indexRow) == NodeProcessor;
    const QModelIndex indexTarget = bProcessor ? indexRow.parent() : indexRow;

    SDropTarget target;
    const int nType = RowValue::NodeType(indexTarget);
    target.bValid = nType == NodeGroup || nType == NodeAll;
    if (nType == NodeGroup) {
        target.indexGroup = indexTarget;
        target.idGroup = RowValue::NodeId(indexTarget);
    }
    return target;
}
