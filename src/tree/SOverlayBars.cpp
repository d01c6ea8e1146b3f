#include "tree/SOverlayBars.h"

#include "delegate/RowLook.h"

SOverlayBars::SOverlayBars(const QSize& size, int nHorizontalHeight, int nVerticalWidth)
    : rcHorizontal(0, size.height() - nHorizontalHeight - RowLook::nBarGap, size.width() - nHorizontalHeight - RowLook::nBarGap,
                   nHorizontalHeight),
      rcVertical(size.width() - nVerticalWidth - RowLook::nBarGap, RowLook::nBarGap, nVerticalWidth,
                 size.height() - RowLook::nBarGap)
{
    Q_ASSERT(HasRoom(size));
}

bool SOverlayBars::HasRoom(const QSize& size)
{
    return size.width() >= RowLook::nBarMinimumEdge && size.height() >= RowLook::nBarMinimumEdge;
}
