#pragma once

#include <QSvgRenderer>

class QPainter;

/// Draws the icons of one row, all with one renderer. Nothing of a file outlives its drawing: each is read and parsed anew. GUI
/// thread.
class CRowIcons
{
public:
    explicit CRowIcons(QPainter* pPainterIn);

    /// strPath begins with ":/". Draws nothing for a file that does not load, of which Qt warns.
    void Draw(const QString& strPath, const QRectF& rcIcon);

private:
    QPainter* pPainter;
    QSvgRenderer renderer;
};
