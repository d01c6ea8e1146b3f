#include "tree/RowToolTip.h"

#include "data/GuiThread.h"
#include "interfaces/widgets/CToolTip.h"
#include "model/EnItemRole.h"
#include "model/RowValue.h"
#include "model/SPrcNodeItem.h"
#include "nodes/EnNodeType.h"

#include <QCoreApplication>
#include <QModelIndex>

namespace {

constexpr int nDelay = 40; // ms

// Only the corners are rounded, so that the mark's area is the pixels that it covers.
bool IsIn(const QRectF& rc, const QPoint& pos)
{
    return QRectF(QPointF(rc.topLeft().toPoint()), QPointF(rc.bottomRight().toPoint())).contains(QPointF(pos));
}

QString GetMarkText(const SPrcNodeItem& item, const QPoint& pos)
{
    if (item.bChief && IsIn(item.rcChief, pos)) {
        return QCoreApplication::translate("CProcessorTree", "Chief-Member mode enabled. This processor has been set as Chief.");
    }
    const bool bInFailover = IsIn(item.rcFailover, pos);
    if (bInFailover && item.bPrimary) {
        return QCoreApplication::translate("CProcessorTree",
                                           "Processor redundancy enabled. This processor has been set as Primary.");
    }
    if (bInFailover && item.bBackup) {
        return QCoreApplication::translate("CProcessorTree",
                                           "Processor redundancy enabled. This processor has been set as Backup.");
    }
    return QString();
}

} // namespace

QString RowToolTip::GetText(const QModelIndex& index, const QPoint& pos)
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

void RowToolTip::Show(const QModelIndex& index, const QPoint& pos, bool bDelay)
{
    Q_ASSERT(GuiThread::IsCurrent());
    const QString strText = GetText(index, pos);
    if (strText.isEmpty()) {
        CToolTip::HideText();
    } else if (bDelay) {
        CToolTip::ShowTextDelay(strText, nDelay);
    } else {
        CToolTip::ShowText(strText);
    }
}
