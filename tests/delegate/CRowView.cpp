#include "CRowView.h"

#include "model/CProcessorItem.h"
#include "model/EnItemRole.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QtTest>

void CCountingDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    ++hashPaints[index];
    CProcessorTreeDelegate::paint(painter, option, index);
}

int CCountingDelegate::Paints(const QModelIndex& index) const
{
    return hashPaints.value(index);
}

int CCountingDelegate::Paints() const
{
    int nPaints = 0;
    for (const int nOfRow : std::as_const(hashPaints)) {
        nPaints += nOfRow;
    }
    return nPaints;
}

void CCountingDelegate::Clear()
{
    hashPaints.clear();
}

CRowView::CRowView()
{
    auto* pRoot = new CProcessorItem(NodeAll);
    rows.appendRow(pRoot);
    pRoot->SetNodeId(QUuid());
    header()->hide();
    setModel(&rows);
    setItemDelegate(&rowDelegate);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setIndentation(15);
    expandAll();
    resize(300, 400);
    show();
    activateWindow();
    if (!QTest::qWaitForWindowActive(this)) {
        qWarning("The view did not become active");
    }
}

QModelIndex CRowView::Row(int nType, const QUuid& id) const
{
    const QModelIndexList listRow = rows.match(rows.index(0, 0), RoleNodeId, id, -1, Qt::MatchExactly | Qt::MatchRecursive);
    for (const QModelIndex& index : listRow) {
        if (index.data(RoleNodeType).toInt() == nType) {
            return index;
        }
    }
    return {};
}

QLineEdit* CRowView::Edit(const QModelIndex& index)
{
    setCurrentIndex(index);
    edit(index);
    return Editor();
}

QLineEdit* CRowView::Editor() const
{
    const QList<QLineEdit*> listEditor = viewport()->findChildren<QLineEdit*>();
    for (QLineEdit* pEditor : listEditor) {
        if (pEditor->isVisible()) {
            return pEditor;
        }
    }
    return nullptr;
}

CCountingDelegate& CRowView::Delegate()
{
    return rowDelegate;
}

QStandardItemModel& CRowView::Rows()
{
    return rows;
}

void CRowView::keyPressEvent(QKeyEvent* event)
{
    listKey.append(event->key());
    QTreeView::keyPressEvent(event);
}

void CRowView::contextMenuEvent(QContextMenuEvent* event)
{
    ++nContextMenus;
    QTreeView::contextMenuEvent(event);
}

void CRowView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    listClose.append(hint);
    QTreeView::closeEditor(editor, hint);
}
