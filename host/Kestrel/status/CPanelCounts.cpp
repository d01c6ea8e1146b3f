#include "Kestrel/status/CPanelCounts.h"

#include "Kestrel/GuiThread.h"
#include "Kestrel/player/PanelAccess.h"
#include "nodes/EnNodeType.h"

#include <QLineEdit>
#include <QStackedLayout>
#include <QTreeView>

namespace {

bool IsHidden(const QTreeView& tree, QModelIndex index)
{
    while (index.isValid() && !tree.isRowHidden(index.row(), index.parent())) {
        index = index.parent();
    }
    return index.isValid();
}

void CountSelected(SPanelCounts& counts, const QTreeView& tree)
{
    const QModelIndexList listSelected = tree.selectionModel()->selectedIndexes();
    for (const QModelIndex& index : listSelected) {
        const int nType = PanelAccess::GetNodeType(index);
        if (nType != NodeGroup && nType != NodeProcessor) {
            continue;
        }
        ++(nType == NodeGroup ? counts.nGroupsSelected : counts.nProcessorsSelected);
        counts.nHidden += IsHidden(tree, index);
    }
}

// A group that is shown for the sake of a processor was not found itself.
void CountFound(SPanelCounts& counts, const QTreeView& tree, const QModelIndex& indexParent)
{
    for (int nRow = 0; nRow < tree.model()->rowCount(indexParent); ++nRow) {
        const QModelIndex index = tree.model()->index(nRow, 0, indexParent);
        const int nType = PanelAccess::GetNodeType(index);
        if (nType == NodeProcessor) {
            ++counts.nProcessors;
            counts.nFound += !IsHidden(tree, index);
            continue;
        }
        const int nFoundBefore = counts.nFound;
        CountFound(counts, tree, index);
        counts.nGroupsFound += nType == NodeGroup && counts.nFound == nFoundBefore && !IsHidden(tree, index);
    }
}

} // namespace

CPanelCounts::CPanelCounts(QWidget* pPanelIn) : pPanel(pPanelIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    const QList<QTreeView*> listTree = PanelAccess::FindTrees(pPanel);
    for (QTreeView* pTree : listTree) {
        Follow(pTree);
    }
    if (const QStackedLayout* pPanes = PanelAccess::FindPanes(pPanel)) {
        connect(pPanes, &QStackedLayout::currentChanged, this, &CPanelCounts::CountSoon);
    }
    if (const QLineEdit* pSearch = PanelAccess::FindSearchEdit(pPanel)) {
        connect(pSearch, &QLineEdit::textChanged, this, &CPanelCounts::CountSoon);
    }
    CountSoon();
}

const SPanelCounts& CPanelCounts::GetCounts() const
{
    return counts;
}

void CPanelCounts::Follow(QTreeView* pTree)
{
    connect(pTree->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CPanelCounts::CountSoon);
    connect(pTree->model(), &QAbstractItemModel::rowsInserted, this, &CPanelCounts::CountSoon);
    connect(pTree->model(), &QAbstractItemModel::rowsRemoved, this, &CPanelCounts::CountSoon);
    connect(pTree->model(), &QAbstractItemModel::modelReset, this, &CPanelCounts::CountSoon);
}

// Posted: a rebuild takes all rows away, brings them back, selects and filters them, each with its signals.
void CPanelCounts::CountSoon()
{
    if (!bPosted) {
        bPosted = true;
        QMetaObject::invokeMethod(this, &CPanelCounts::Count, Qt::QueuedConnection);
    }
}

void CPanelCounts::Count()
{
    bPosted = false;
    counts = SPanelCounts();
    const QTreeView* pTree = pPanel ? PanelAccess::FindCurrentTree(pPanel) : nullptr;
    if (pTree && pTree->selectionModel()) {
        const QLineEdit* pSearch = PanelAccess::FindSearchEdit(pPanel);
        counts.bSearching = pSearch && !pSearch->text().isEmpty();
        CountSelected(counts, *pTree);
        if (counts.bSearching) {
            CountFound(counts, *pTree, {});
        }
    }
    emit Counted();
}
