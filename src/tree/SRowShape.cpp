#include "tree/SRowShape.h"

namespace {

const int nRightMargin = 6;
const qreal fRadius = 5;
const qreal fOverlap = 5; // how far an information card reaches into the row above

QPainterPath RoundedPath(const QRectF& rc)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(rc, fRadius, fRadius);
    return path;
}

} // namespace

SRowShape::SRowShape(const QRect& rcRow)
    : rcInfo(rcRow.left(), rcRow.top(), rcRow.width() - nRightMargin, rcRow.height()), rcNode(rcInfo.adjusted(0, 1, 0, 0))
{ }

QPainterPath SRowShape::GetNodePath() const
{
    return RoundedPath(rcNode);
}

QRect SRowShape::GetDropLine() const
{
    const int nLeft = int(rcNode.x());
    const int nTop = int(rcNode.y());
    return QRect(QPoint(nLeft, nTop), QPoint(nLeft + int(rcNode.width()) - 1, nTop + 1));
}

QPainterPath SRowShape::GetInfoCard() const
{
    const int nWidth = int(rcInfo.width());
    QPainterPath pathCard = RoundedPath(rcInfo);
    pathCard.addRect(rcInfo.x(), rcInfo.y() - fOverlap, nWidth, 2 * fOverlap);
    const QPainterPath pathAbove = RoundedPath(QRectF(rcInfo.x(), rcInfo.y() - 2 * fOverlap, nWidth, 2 * fOverlap));
    return pathCard.subtracted(pathAbove);
}
