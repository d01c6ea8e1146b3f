#include "tree/SOverlayBars.h"

namespace {

constexpr int nMinimumEdge = 10;
constexpr int nGap = 1; // beside the tree's edge

} // namespace

SOverlayBars::SOverlayBars(const QSize& size, int nHorizontalHeight, int nVerticalWidth)
    : rcHorizontal(0, size.height() - nHorizontalHeight - nGap, size.width() - nHorizontalHeight - nGap, nHorizontalHeight),
      rcVertical(size.width() - nVerticalWidth - nGap, nGap, nVerticalWidth, size.height() - nGap)
{
    Q_ASSERT(HasRoom(size));
}

bool SOverlayBars::HasRoom(const QSize& size)
{
    return size.width() >= nMinimumEdge && size.height() >= nMinimumEdge;
}
