#include "delegate/SGroupRowGeometry.h"

#include "delegate/RowLook.h"

namespace {

QRectF IconRect(const QRect& rcRow)
{
    const int nTop = RowLook::CentredTop(rcRow, RowLook::nGroupIconSize);
    return QRectF(rcRow.left(), nTop, RowLook::nGroupIconSize, RowLook::nGroupIconSize);
}

QRectF TextRect(const QRect& rcRow)
{
    const int nLeft = rcRow.left() + RowLook::nGroupTextIndent;
    const int nRight = rcRow.right() - RowLook::nGroupTextRightMargin;
    return QRectF(nLeft, RowLook::CentredTop(rcRow, RowLook::nTextHeight), nRight - nLeft + 1, RowLook::nTextHeight);
}

} // namespace

SGroupRowGeometry::SGroupRowGeometry(const QRect& rcRow) : rcIcon(IconRect(rcRow)), rcText(TextRect(rcRow)) { }
