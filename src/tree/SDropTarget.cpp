#include "tree/SDropTarget.h"

#include "model/EnItemRole.h"
#include "nodes/EnNodeType.h"

SDropTarget SDropTarget::ForRow(const QModelIndex& indexRow)
{
    const bool bProcessor = indexRow.data(RoleNodeType).toInt() == NodeProcessor;
    const QModelIndex indexTarget = bProcessor ? indexRow.parent() : indexRow;

    SDropTarget target;
    const int nType = indexTarget.data(RoleNodeType).toInt();
    target.bValid = nType == NodeGroup || nType == NodeAll;
    if (nType == NodeGroup) {
        target.indexGroup = indexTarget;
        target.idGroup = indexTarget.data(RoleNodeId).toUuid();
    }
    return target;
}
