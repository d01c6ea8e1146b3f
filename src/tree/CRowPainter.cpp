#include "tree/CRowPainter.h"

#include "tree/SRowShape.h"

#include <QPainter>

namespace {

const QColor colorSelected(0x5F, 0x64, 0x6D);
const QColor colorHovered(0x42, 0x46, 0x4D);
const QColor colorDrop(0xED, 0x81, 0x1D);
const QColor colorHoveredCard(0x26, 0x28, 0x2C);
const QColor colorSelectedCard(0x2F, 0x32, 0x37);

} // namespace

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
        painter.fillPath(shape.GetNodePath(), colorSelected);
        break;
    case EnRowMark::Hovered:
        painter.fillPath(shape.GetNodePath(), colorHovered);
        break;
    case EnRowMark::DropLine: {
        const QRect rcLine = shape.GetDropLine();
        painter.setPen(colorDrop);
        painter.drawRects(&rcLine, 1);
        break;
    }
    case EnRowMark::DropFrame:
        painter.setPen(colorDrop);
        painter.drawPath(shape.GetNodePath());
        break;
    }
}

void CRowPainter::PaintCard(const QRect& rcRow, EnCard card)
{
    painter.setBrush(card == EnCard::Selected ? colorSelectedCard : colorHoveredCard);
    painter.drawPath(SRowShape(rcRow).GetInfoCard());
}
