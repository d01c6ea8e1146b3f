#include "tree/SRowShape.h"

namespace {

// All in pixels.
constexpr int nRightMargin = 6;
constexpr int nTopGap = 1; // above the shape of a node
constexpr int nDropLineHeight = 2;
constexpr qreal fRadius = 5;
constexpr qreal fOverlap = 5; // how far an information card reaches into the row above

QPainterPath RoundedPath(const QRectF& rc)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(rc, fRadius, fRadius);
    return path;
}

} // namespace

SRowShape::SRowShape(const QRect& rcRow)
    : rcInfo(rcRow.left(), rcRow.top(), rcRow.width() - nRightMargin, rcRow.height()), rcNode(rcInfo.adjusted(0, nTopGap, 0, 0))
{ }

QPainterPath SRowShape::GetNodePath() const
{
    return RoundedPath(rcNode);
}

QRect SRowShape::GetDropLine() const
{
    return QRect(int(rcNode.x()), int(rcNode.y()), int(rcNode.width()), nDropLineHeight);
}

QPainterPath SRowShape::GetInfoCard() const
{
    const int nWidth = int(rcInfo.width());
    QPainterPath pathCard = RoundedPath(rcInfo);
    pathCard.addRect(rcInfo.x(), rcInfo.y() - fOverlap, nWidth, 2 * fOverlap);
    const QPainterPath pathAbove = RoundedPath(QRectF(rcInfo.x(), rcInfo.y() - 2 * fOverlap, nWidth, 2 * fOverlap));
    return pathCard.subtracted(pathAbove);
}
