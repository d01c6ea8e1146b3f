#pragma once

#include "tree/RowMark.h"

class QPainter;
class QRect;

/// Paints what lies behind a row, under what the delegate paints. Leaves the painter's pen, brush and hints
/// changed.
class CRowPainter
{
public:
    /// What an information row hangs from; the colour of its card.
    enum class EnCard
    {
        Hovered,
        Selected,
    };

    /// painterIn must outlive this object.
    explicit CRowPainter(QPainter& painterIn);

    /// The shape of a group, a processor or the root. rcRow is the row as the view lays it out.
    void PaintNode(const QRect& rcRow, EnRowMark mark);

    /// The card of an information row, which reaches up into the row above.
    void PaintCard(const QRect& rcRow, EnCard card);

private:
    QPainter& painter;
};
