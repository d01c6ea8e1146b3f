#include "tree/SRowShape.h"

#include "delegate/RowLook.h"

namespace {

QPainterPath RoundedPath(const QRectF& rc)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(rc, RowLook::fShapeRadius, RowLook::fShapeRadius);
    return path;
}

} // namespace

SRowShape::SRowShape(const QRect& rcRow)
    : rcInfo(rcRow.left(), rcRow.top(), rcRow.width() - RowLook::nShapeRightMargin, rcRow.height()),
      rcNode(rcInfo.adjusted(0, RowLook::nShapeTopGap, 0, 0))
{ }

QPainterPath SRowShape::GetNodePath() const
{
    return RoundedPath(rcNode);
}

QRect SRowShape::GetDropLine() const
{
    return QRect(int(rcNode.x()), int(rcNode.y()), int(rcNode.width()), RowLook::nDropLineHeight);
}

QPainterPath SRowShape::GetInfoCard() const
{
    const int nWidth = int(rcInfo.width());
    QPainterPath pathCard = RoundedPath(rcInfo);
    pathCard.addRect(rcInfo.x(), rcInfo.y() - RowLook::fCardOverlap, nWidth, 2 * RowLook::fCardOverlap);
    const QPainterPath pathAbove
        = RoundedPath(QRectF(rcInfo.x(), rcInfo.y() - 2 * RowLook::fCardOverlap, nWidth, 2 * RowLook::fCardOverlap));
    return pathCard.subtracted(pathAbove);
}
