#include "CReferenceRow.h"

#include "CPaintedRow.h"

#include <QGuiApplication>
#include <QStyledItemDelegate>
#include <QSvgRenderer>
#include <QTextOption>

QFont RowFont()
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(12);
    font.setBold(true);
    return font;
}

CReferenceRow::CReferenceRow(const CPaintedRow& paintedRowIn)
    : paintedRow(paintedRowIn), image(paintedRowIn.Blank()), painter(&image)
{
    painter.setFont(RowFont());
}

CReferenceRow& CReferenceRow::Background()
{
    QStyledItemDelegate().paint(&painter, paintedRow.Option(), paintedRow.Index());
    return *this;
}

CReferenceRow& CReferenceRow::Glow()
{
    QRadialGradient gradient(QPointF(34.5, 56), 7);
    gradient.setColorAt(0, QColor(56, 252, 76, 120));
    gradient.setColorAt(0.7, QColor(56, 252, 76, 20));
    gradient.setColorAt(1, QColor(56, 252, 76, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawEllipse(QRectF(27, 48.5, 15, 15));
    painter.setBrush(Qt::NoBrush);
    return *this;
}

CReferenceRow& CReferenceRow::Icon(const QString& strPath, const QRectF& rcIcon)
{
    QSvgRenderer(strPath).render(&painter, rcIcon);
    return *this;
}

CReferenceRow& CReferenceRow::Text(const QString& strText, const QRectF& rcText, const QColor& colour)
{
    painter.setPen(colour);
    painter.drawText(rcText, strText, QTextOption());
    return *this;
}

QImage CReferenceRow::Image()
{
    painter.end();
    return image;
}
