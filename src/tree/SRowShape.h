#pragma once

#include <QPainterPath>
#include <QRect>
#include <QRectF>

/// The shapes behind a row, from the rectangle that the view gives the row. Coordinates are the view's.
struct SRowShape
{
    explicit SRowShape(const QRect& rcRow);

    /// The row of a node: rounded, a pixel lower than the row.
    QPainterPath GetNodePath() const;

    /// The line on top of a processor that is a drop target.
    QRect GetDropLine() const;

    /// The card of an information row, hanging from the row above: it reaches up into that row, and its
    /// upper corners flare out, so that both read as one shape.
    QPainterPath GetInfoCard() const;

    QRectF rcInfo; ///< the row without the margin at its right
    QRectF rcNode; ///< the same, a pixel shorter at its top
};
