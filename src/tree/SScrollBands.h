#pragma once

#include <QPoint>
#include <QSize>

/// The bands at the edges of the tree in which a drag scrolls. The contract with the host fixes both: 20 pixels
/// high, the upper one touches the edge, the lower one leaves the last row of pixels free.
struct SScrollBands
{
    /// size is the tree's; pos is that of the drag, in the viewport. In a tree lower than both bands it can be in both.
    SScrollBands(const QSize& size, const QPoint& pos);

    bool bUp;   ///< pos is in the upper band
    bool bDown; ///< pos is in the lower band
};
