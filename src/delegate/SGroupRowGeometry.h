#pragma once

#include <QRect>
#include <QRectF>

/// Where icon and text are on the row of a group, or of the root.
struct SGroupRowGeometry
{
    explicit SGroupRowGeometry(const QRect& rcRow);

    QRectF rcIcon;
    QRectF rcText; ///< whole numbers; its width may be negative on a very narrow row
};
