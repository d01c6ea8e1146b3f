#pragma once

#include <QRect>
#include <QRectF>

struct SProcessorNode;

/// Where dot, marks and name are on a processor's row. The same rectangles serve painting and, through
/// SPrcNodeItem, the tool tips.
struct SProcessorRowGeometry
{
    /// rcRow is the row as the view gives it to the delegate; bChief: the Chief mark is shown.
    SProcessorRowGeometry(const QRect& rcRow, const SProcessorNode& node, bool bChief);

    QRectF rcDot;
    QRectF rcGlow;
    /// Zero wide, at the right edge, without a role or a project. A processor that is offline keeps the
    /// room, though its mark isn't shown.
    QRectF rcFailover;
    /// All zero when the mark isn't shown. Leaves the failover slot free for every processor that has a
    /// role, even when that slot has no width because there is no project.
    QRectF rcChief;
    QRectF rcName; ///< its width may be negative on a very narrow row
};
