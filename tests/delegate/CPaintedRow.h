#pragma once

#include "model/SPrcNodeItem.h"

#include <QImage>
#include <QStandardItemModel>
#include <QStyleOptionViewItem>

/// One row painted by the delegate alone: on a dark image of 320 by 160, at 30, 40, usually 240 wide and
/// as high as the rows of its kind. The painter comes with a bold font of 20 pixels, so that a font that
/// isn't set shows.
class CPaintedRow
{
public:
    /// nType is an EnNodeType; an invalid variant leaves the row without a kind.
    CPaintedRow(const QVariant& type, const QVariant& id);

    void SetState(QStyle::State state); ///< besides State_Enabled
    void SetWidth(int nWidth);

    /// Paints on a fresh image; what the item holds stays from paint to paint.
    QImage Paint();

    /// The same ground with nothing on it.
    QImage Blank() const;

    QModelIndex Index() const;
    const QStyleOptionViewItem& Option() const;
    QStyleOptionViewItem& Option();
    SPrcNodeItem Marks() const; ///< RoleNodeItem
    QVariant ToolTip() const;   ///< RoleToolTip

private:
    QStandardItemModel model;
    QStyleOptionViewItem option;
};
