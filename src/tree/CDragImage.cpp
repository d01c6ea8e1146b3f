#include "tree/CDragImage.h"

#include "data/GuiThread.h"
#include "delegate/RowLook.h"

#include <QPainter>
#include <QPainterPath>
#include <QTreeView>

#include <algorithm>

namespace {

QVector<QRect> RowRects(const QTreeView& treeView, const QModelIndexList& listRow)
{
    QVector<QRect> vecRect;
    for (const QModelIndex& index : listRow) {
        vecRect.append(treeView.visualRect(index));
        if (treeView.isExpanded(index)) {
            vecRect.append(treeView.visualRect(treeView.model()->index(0, 0, index)));
        }
    }
    return vecRect;
}

QRectF BoundingRect(const QVector<QRect>& vecRect)
{
    QPainterPath path;
    for (const QRect& rc : vecRect) {
        path.addRect(rc);
    }
    return path.boundingRect();
}

} // namespace

CDragImage::CDragImage(QTreeView& treeView, const QModelIndexList& listRow, const QPoint& pos)
{
    Q_ASSERT(GuiThread::IsCurrent());
    const QVector<QRect> vecRect = RowRects(treeView, listRow);
    const QRectF rcBound = BoundingRect(vecRect);
    nTop = qRound(rcBound.top());
    const int nBottom = qRound(rcBound.top() + rcBound.height()) - 1;
    ptHotSpot = QPoint(pos.x(), pos.y() - nTop);

    const int nWidth = treeView.width() - 2 * RowLook::nDragMargin;
    if (nWidth <= 0 || nBottom < nTop) {
        return;
    }
    image = QImage(nWidth, nBottom - nTop + 1, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    Paint(treeView, vecRect);
}

QPixmap CDragImage::TakePixmap()
{
    return QPixmap::fromImage(std::move(image));
}

QPoint CDragImage::GetHotSpot() const
{
    return ptHotSpot;
}

void CDragImage::RemoveBackground(QImage& image, const QColor& background)
{
    image = std::move(image).convertToFormat(QImage::Format_ARGB32);
    QRgb* const pPixels = reinterpret_cast<QRgb*>(image.bits()); // lines of 32 bits a pixel have no gap between them
    std::replace(pPixels, pPixels + image.sizeInBytes() / sizeof(QRgb), background.rgba(), qRgba(0, 0, 0, 0));
}

void CDragImage::Paint(QTreeView& treeView, const QVector<QRect>& vecRow)
{
    QPainter painter(&image);
    painter.setOpacity(RowLook::fDragOpacity);
    for (const QRect& rcRow : vecRow) {
        const QRect rcGrab(QPoint(RowLook::nDragMargin, rcRow.top()),
                           QPoint(treeView.width() - RowLook::nDragMargin - 1, rcRow.bottom()));
        QImage imageRow = treeView.grab(rcGrab).toImage();
        RemoveBackground(imageRow, QColor(RowLook::rgbTreeGround));
        painter.drawImage(QRect(0, rcRow.top() - nTop, image.width(), rcRow.height()), imageRow);
    }
}
