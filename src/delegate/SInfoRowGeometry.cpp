#include "delegate/SInfoRowGeometry.h"

#include "delegate/RowLook.h"

namespace {

int LineWidth(const QRect& rcRow)
{
    return rcRow.right() - rcRow.left() - RowLook::nInfoRightMargin;
}

QRectF Line(const QRect& rcRow, int nLine)
{
    return QRectF(rcRow.left(), rcRow.top() + RowLook::nInfoFirstLine + nLine * RowLook::nInfoLineStep, LineWidth(rcRow),
                  RowLook::nInfoLineHeight);
}

} // namespace

SInfoRowGeometry::SInfoRowGeometry(const QRect& rcRow)
    : arrLine{ Line(rcRow, 0), Line(rcRow, 1), Line(rcRow, 2), Line(rcRow, 3) },
      nProjectWidth(LineWidth(rcRow) - RowLook::nProjectLabelWidth), nIdWidth(LineWidth(rcRow) - RowLook::nIdLabelWidth)
{ }
