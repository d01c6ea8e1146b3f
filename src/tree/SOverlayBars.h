#pragma once

#include <QRect>
#include <QSize>

/// Where the two scroll bars lie over the tree.
struct SOverlayBars
{
    /// nHorizontalHeight and nVerticalWidth are the thicknesses of the two bars.
    SOverlayBars(const QSize& size, int nHorizontalHeight, int nVerticalWidth);

    /// False for a tree that is too small for bars.
    static bool HasRoom(const QSize& size);

    QRect rcHorizontal; ///< stops short of the corner by its own thickness; leaves the last row of pixels free
    QRect rcVertical;   ///< on purpose uneven to the other: leaves the first row of pixels free, not the last
};
