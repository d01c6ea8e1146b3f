#include "tree/CRowToolTip.h"

#include "model/EnItemRole.h"
#include "model/RowValue.h"
#include "model/SPrcNodeItem.h"
#include "nodes/EnNodeType.h"
#include "tree/CProcessorTree.h"

namespace {

// Only the corners are rounded, so that the mark's area is the pixels that it covers.
bool IsIn(const QRectF& rc, const QPoint& pos)
{
    return QRectF(QPointF(rc.topLeft().toPoint()), QPointF(rc.bottomRight().toPoint())).contains(QPointF(pos));
}

} // namespace

QString CRowToolTip::GetText(const QModelIndex& index, const QPoint& pos)
{
    const int nType = RowValue::NodeType(index);
    if (nType < NodeAll || nType > NodeInfo) {
        return QString();
    }
    if (nType == NodeProcessor) {
        const QString strMark = GetMarkText(index.data(RoleNodeItem).value<SPrcNodeItem>(), pos);
        if (!strMark.isEmpty()) {
            return strMark;
        }
    }
    return index.data(RoleToolTip).toString();
}

QString CRowToolTip::GetMarkText(const SPrcNodeItem& item, const QPoint& pos)
{
    if (item.bChief && IsIn(item.rcChief, pos)) {
        return CProcessorTree::tr("Chief-Member mode enabled. This processor has been set as Chief.");
    }
    const bool bInFailover = IsIn(item.rcFailover, pos);
    if (bInFailover && item.bPrimary) {
        return CProcessorTree::tr("Processor redundancy enabled. This processor has been set as Primary.");
    }
    if (bInFailover && item.bBackup) {
        return CProcessorTree::tr("Processor redundancy enabled. This processor has been set as Backup.");
    }
    return QString();
}
