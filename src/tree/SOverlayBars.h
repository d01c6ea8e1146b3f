#pragma once

#include <QRect>
#include <QSize>

/// Where the two scroll bars lie over the tree. The contract with the host fixes the uneven pair.
struct SOverlayBars
{
    /// size is the tree's, with room for bars; nHorizontalHeight and nVerticalWidth are their thicknesses.
    SOverlayBars(const QSize& size, int nHorizontalHeight, int nVerticalWidth);

    /// False for a tree that is too small for bars.
    static bool HasRoom(const QSize& size);

    QRect rcHorizontal; ///< stops short of the corner by its own thickness; leaves the last row of pixels free
    QRect rcVertical;   ///< runs down to the last row of pixels; leaves the first one free
};
