#pragma once

#include <QPoint>
#include <QSize>

/// The bands at the edges of the tree in which a drag scrolls. Both are 20 pixels high; the upper one
/// touches the edge, the lower one leaves the last row of pixels free, on purpose.
struct SScrollBands
{
    SScrollBands(const QSize& size, const QPoint& pos);

    bool bUp = false;   ///< pos is in the upper band
    bool bDown = false; ///< pos is in the lower band
};
