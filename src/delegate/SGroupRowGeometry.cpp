#include "delegate/SGroupRowGeometry.h"

namespace {

constexpr int nIconSize = 16;
constexpr int nTextHeight = 16;
constexpr int nTextIndent = 19;
constexpr int nRightMargin = 10;

int CentredTop(const QRect& rcRow)
{
    return (rcRow.bottom() - rcRow.top() - 15) / 2 + rcRow.top();
}

QRectF TextRect(const QRect& rcRow)
{
    const int nLeft = rcRow.left() + nTextIndent;
    const int nRight = rcRow.right() - nRightMargin;
    return { qreal(nLeft), qreal(CentredTop(rcRow)), qreal(nRight - nLeft + 1), qreal(nTextHeight) };
}

} // namespace

SGroupRowGeometry::SGroupRowGeometry(const QRect& rcRow)
    : rcIcon(rcRow.left(), CentredTop(rcRow), nIconSize, nIconSize), rcText(TextRect(rcRow))
{ }
