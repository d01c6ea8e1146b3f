#include "delegate/SInfoRowGeometry.h"

namespace {

constexpr int nFirstLine = 5;
constexpr int nLineStep = 22;
constexpr int nLineHeight = 15;
constexpr int nRightMargin = 14;
constexpr int nProjectLabel = 45;
constexpr int nIdLabel = 32;

int LineWidth(const QRect& rcRow)
{
    return rcRow.right() - rcRow.left() - nRightMargin;
}

QRectF Line(const QRect& rcRow, int nLine)
{
    return QRectF(rcRow.left(), rcRow.top() + nFirstLine + nLine * nLineStep, LineWidth(rcRow), nLineHeight);
}

} // namespace

SInfoRowGeometry::SInfoRowGeometry(const QRect& rcRow)
    : arrLine{ Line(rcRow, 0), Line(rcRow, 1), Line(rcRow, 2), Line(rcRow, 3) }, nProjectWidth(LineWidth(rcRow) - nProjectLabel),
      nIdWidth(LineWidth(rcRow) - nIdLabel)
{ }
