#pragma once

#include <QModelIndex>
#include <QPoint>
#include <QString>

struct SPrcNodeItem;

/// The tip for a place in a row, from what painting has left in the row's item.
class CRowToolTip
{
public:
    /// pos is in the coordinates of the viewport. Empty when there is nothing to say.
    static QString GetText(const QModelIndex& index, const QPoint& pos);

private:
    static QString GetMarkText(const SPrcNodeItem& item, const QPoint& pos);
};
