#include "tree/CRowPainter.h"

#include "delegate/RowLook.h"
#include "tree/SRowShape.h"

#include <QPainter>

CRowPainter::CRowPainter(QPainter& painterIn) : painter(painterIn)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::NoBrush);
}

void CRowPainter::PaintNode(const QRect& rcRow, EnRowMark mark)
{
    const SRowShape shape(rcRow);
    switch (mark) {
    case EnRowMark::None:
        break;
    case EnRowMark::Selected:
        painter.fillPath(shape.GetNodePath(), QColor(RowLook::rgbSelected));
        break;
    case EnRowMark::Hovered:
        painter.fillPath(shape.GetNodePath(), QColor(RowLook::rgbHovered));
        break;
    case EnRowMark::DropLine:
        painter.setPen(QColor(RowLook::rgbDrop));
        painter.drawRects(QVector<QRect>{ shape.GetDropLine() });
        break;
    case EnRowMark::DropFrame:
        painter.setPen(QColor(RowLook::rgbDrop));
        painter.drawPath(shape.GetNodePath());
        break;
    }
}

void CRowPainter::PaintCard(const QRect& rcRow, EnCard card)
{
    painter.setBrush(QColor(card == EnCard::Selected ? RowLook::rgbSelectedCard : RowLook::rgbHoveredCard));
    painter.drawPath(SRowShape(rcRow).GetInfoCard());
}
