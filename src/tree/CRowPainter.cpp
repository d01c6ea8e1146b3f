#include "tree/CRowPainter.h"

#include "tree/SRowShape.h"

#include <QPainter>

namespace {

constexpr QRgb rgbSelected = qRgb(0x5F, 0x64, 0x6D);
constexpr QRgb rgbHovered = qRgb(0x42, 0x46, 0x4D);
constexpr QRgb rgbDrop = qRgb(0xED, 0x81, 0x1D);
constexpr QRgb rgbHoveredCard = qRgb(0x26, 0x28, 0x2C);
constexpr QRgb rgbSelectedCard = qRgb(0x2F, 0x32, 0x37);

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
        painter.fillPath(shape.GetNodePath(), QColor(rgbSelected));
        break;
    case EnRowMark::Hovered:
        painter.fillPath(shape.GetNodePath(), QColor(rgbHovered));
        break;
    case EnRowMark::DropLine: {
        const QRect rcLine = shape.GetDropLine();
        painter.setPen(QColor(rgbDrop));
        painter.drawRects(&rcLine, 1);
        break;
    }
    case EnRowMark::DropFrame:
        painter.setPen(QColor(rgbDrop));
        painter.drawPath(shape.GetNodePath());
        break;
    }
}

void CRowPainter::PaintCard(const QRect& rcRow, EnCard card)
{
    painter.setBrush(QColor(card == EnCard::Selected ? rgbSelectedCard : rgbHoveredCard));
    painter.drawPath(SRowShape(rcRow).GetInfoCard());
}
