#pragma once

#include <QImage>
#include <QPainter>

class CPaintedRow;

/// The picture that a row should give, drawn step by step beside the delegate, from plain numbers.
class CReferenceRow
{
public:
    explicit CReferenceRow(const CPaintedRow& paintedRowIn);

    CReferenceRow& Background(); ///< what the style gives such a row
    CReferenceRow& Glow();       ///< of a row of the usual size
    CReferenceRow& Icon(const QString& strPath, const QRectF& rcIcon);
    CReferenceRow& Text(const QString& strText, const QRectF& rcText, const QColor& colour);

    QImage Image();

private:
    const CPaintedRow& paintedRow;
    QImage image;
    QPainter painter;
};

/// The font of the text on all rows here.
QFont RowFont();
