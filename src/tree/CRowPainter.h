#pragma once

#include "tree/RowMark.h"

class QPainter;
class QRect;

/// Paints what lies behind a row. Leaves the painter's pen, brush and hints changed.
class CRowPainter
{
public:
    /// What an information row hangs from; the colour of its card.
    enum class EnCard
    {
        Hovered,
        Selected,
    };

    explicit CRowPainter(QPainter& painterIn);

    void PaintNode(const QRect& rcRow, EnRowMark mark);
    void PaintCard(const QRect& rcRow, EnCard card);

private:
    QPainter& painter;
};
