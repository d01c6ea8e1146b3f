#include "tree/SOverlayBars.h"

namespace {

const int nMinimumEdge = 10;

} // namespace

SOverlayBars::SOverlayBars(const QSize& size, int nHorizontalHeight, int nVerticalWidth)
    : rcHorizontal(QPoint(0, size.height() - nHorizontalHeight - 1),
                   QPoint(size.width() - nHorizontalHeight - 2, size.height() - 2)),
      rcVertical(QPoint(size.width() - nVerticalWidth - 1, 1), QPoint(size.width() - 2, size.height() - 1))
{ }

bool SOverlayBars::HasRoom(const QSize& size)
{
    return size.width() >= nMinimumEdge && size.height() >= nMinimumEdge;
}
