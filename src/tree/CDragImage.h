#pragma once

#include <QImage>
#include <QModelIndexList>
#include <QPixmap>
#include <QPoint>
#include <QVector>

class QColor;
class QTreeView;

/// The picture that a drag of rows carries: the rows with their distances as on the screen, half
/// transparent, without the background of the tree.
class CDragImage
{
public:
    /// Takes the picture of listRow, and of the open information row of each, as they stand in treeView,
    /// for a drag that starts at pos of its viewport. GUI thread.
    CDragImage(QTreeView& treeView, const QModelIndexList& listRow, const QPoint& pos);

    /// Gives the picture away, which may have the height of all rows of a list. Null for a tree that is too narrow to leave one
    /// between the margins.
    QPixmap TakePixmap();

    /// Where the mouse holds the image. Its x is that of pos, not counted from the margin: beyond the image for a
    /// drag that starts in the last 2 * RowLook::nDragMargin pixels of the tree.
    QPoint GetHotSpot() const;

    /// Makes every pixel transparent that has exactly this colour, opaque.
    static void RemoveBackground(QImage& image, const QColor& background);

private:
    void Paint(QTreeView& treeView, const QVector<QRect>& vecRow);

    QImage image;
    QPoint ptHotSpot;
    int nTop = 0; ///< y of the image's first row of pixels in the viewport
};
