#include "delegate/EditorGeometry.h"

#include "nodes/EnNodeType.h"

namespace {

constexpr int nBelowTop = 23; // from the first to the last line of pixels

QRect CentredRect(const QRect& rcRow, int nIndent, int nNarrower)
{
    const int nLeft = rcRow.left() + nIndent;
    const int nTop = (rcRow.bottom() - rcRow.top() - nBelowTop) / 2 + rcRow.top();
    return QRect(QPoint(nLeft, nTop), QPoint(nLeft + (rcRow.right() - rcRow.left()) - nNarrower, nTop + nBelowTop));
}

} // namespace

QRect EditorRect(int nNodeType, const QRect& rcRow)
{
    switch (nNodeType) {
    case NodeGroup:
        return CentredRect(rcRow, 18, 25);
    case NodeProcessor:
        return CentredRect(rcRow, 9, 15);
    default:
        return {};
    }
}
