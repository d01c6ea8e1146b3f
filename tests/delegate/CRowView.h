#pragma once

#include "delegate/CProcessorTreeDelegate.h"
#include "nodes/EnNodeType.h"

#include <QHash>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QTreeView>

/// The delegate, with its paints counted.
class CCountingDelegate : public CProcessorTreeDelegate
{
public:
    using CProcessorTreeDelegate::CProcessorTreeDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    int Paints(const QModelIndex& index) const;
    int Paints() const; ///< of all rows
    void Clear();

private:
    mutable QHash<QPersistentModelIndex, int> hashPaints;
};

/// A plain tree of 300 by 400 with the store's rows and the delegate, on the screen and active.
class CRowView : public QTreeView
{
    Q_OBJECT

public:
    CRowView();

    /// The row of that kind with that id, in the tree as the store had it at construction.
    QModelIndex Row(int nType, const QUuid& id) const;

    /// Opens the editor of a row, in front of the user; null when it gets none.
    QLineEdit* Edit(const QModelIndex& index);
    QLineEdit* Editor() const; ///< the open one, or null

    CCountingDelegate& Delegate();
    QStandardItemModel& Rows();

    QList<int> listKey;                                  ///< keys that reached the view
    int nContextMenus = 0;                               ///< that reached the view
    QList<QAbstractItemDelegate::EndEditHint> listClose; ///< one for each editor that the view was told to close

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

protected slots:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    QStandardItemModel rows;
    CCountingDelegate rowDelegate{ nullptr };
};
