#include "tree/CSelectionAnchor.h"

#include "data/GuiThread.h"
#include "model/CProcessorTreeModel.h"
#include "nodes/EnNodeType.h"

#include <QSignalBlocker>
#include <QTreeView>

CSelectionAnchor::CSelectionAnchor(QTreeView& treeIn, const CProcessorTreeModel& modelIn) : tree(treeIn), model(modelIn) { }

void CSelectionAnchor::StartAt(const SRowKey& key)
{
    keyStart = key;
}

void CSelectionAnchor::PrepareRange(const QModelIndex& indexEnd)
{
    Q_ASSERT(GuiThread::IsCurrent() && tree.selectionMode() == QAbstractItemView::ExtendedSelection);
    if (IsLaidOut(model.FindRow(keyStart))) {
        return;
    }
    // Left alone the view would take such a start for the top of its viewport.
    const QModelIndex indexCurrent = tree.currentIndex();
    const QModelIndex indexStart = IsLaidOut(indexCurrent) ? indexCurrent : indexEnd;
    StartAt(SRowKey::Of(indexStart));
    const QSignalBlocker blocker(tree.selectionModel());
    SetStart(indexStart);
    SetCurrent(indexCurrent);
}

bool CSelectionAnchor::PrepareMove()
{
    PrepareRange(tree.currentIndex());
    if (!tree.currentIndex().isValid()) { // left alone the view would move to its first row
        const QSignalBlocker blocker(tree.selectionModel());
        SetCurrent(model.FindRow(keyStart));
    }
    return tree.currentIndex().isValid();
}

CSelectionAnchor::SPlace CSelectionAnchor::Note() const
{
    Q_ASSERT(GuiThread::IsCurrent());
    SPlace place;
    place.keyCurrent = SRowKey::Of(tree.currentIndex());
    const QModelIndexList listKept = GetKeptRows();
    for (const QModelIndex& index : listKept) {
        const SRowKey key = SRowKey::Of(index);
        if (key.nType != NodeInfo) {
            place.setKept.insert(key.idNode);
        }
    }
    return place;
}

// The selection does not say which rows its last command selected: an empty range in the place of that
// command leaves the others.
QModelIndexList CSelectionAnchor::GetKeptRows() const
{
    QItemSelectionModel* const pSelection = tree.selectionModel();
    const QSignalBlocker blocker(pSelection);
    const QItemSelection selection = pSelection->selection();
    pSelection->select(QItemSelection(), QItemSelectionModel::SelectCurrent);
    const QModelIndexList listKept = pSelection->selectedIndexes();
    pSelection->select(selection, QItemSelectionModel::SelectCurrent);
    return listKept;
}

void CSelectionAnchor::Restore(const SPlace& place)
{
    Q_ASSERT(GuiThread::IsCurrent() && tree.selectionMode() == QAbstractItemView::ExtendedSelection);
    const QSignalBlocker blocker(tree.selectionModel());
    SplitSelection(place.setKept);
    SetStart(model.FindRow(keyStart));
    SetCurrent(FindCurrent(place.keyCurrent));
}

// What is selected last is what the next range replaces; it may take in kept rows. The order stays, since it is
// the order in which commands go out.
void CSelectionAnchor::SplitSelection(const QSet<QUuid>& setKept)
{
    QItemSelection selectionKept;
    QItemSelection selectionLast;
    const QModelIndexList listSelected = tree.selectionModel()->selectedIndexes();
    for (const QModelIndex& index : listSelected) {
        const bool bKept = setKept.contains(SRowKey::Of(index).idNode);
        if (bKept) {
            selectionKept.append(QItemSelectionRange(index));
        }
        if (!bKept || !selectionLast.isEmpty()) {
            selectionLast.append(QItemSelectionRange(index));
        }
    }
    tree.selectionModel()->select(selectionKept, QItemSelectionModel::ClearAndSelect);
    tree.selectionModel()->select(selectionLast, QItemSelectionModel::Select);
}

// The view has no operation for it alone; without a selection mode its setCurrentIndex() selects nothing,
// whatever keys are held.
void CSelectionAnchor::SetStart(const QModelIndex& index)
{
    if (index.isValid()) {
        const QAbstractItemView::SelectionMode mode = tree.selectionMode();
        tree.setSelectionMode(QAbstractItemView::NoSelection);
        tree.setCurrentIndex(index);
        tree.setSelectionMode(mode);
    }
}

void CSelectionAnchor::SetCurrent(const QModelIndex& index)
{
    if (index.isValid()) {
        tree.selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    } else {
        tree.selectionModel()->clearCurrentIndex();
    }
}

QModelIndex CSelectionAnchor::FindCurrent(const SRowKey& key) const
{
    const QModelIndex indexRow = model.FindRow(key);
    if (indexRow.isValid() && tree.selectionModel()->isSelected(indexRow)) {
        return indexRow;
    }
    const QModelIndexList listSelected = tree.selectionModel()->selectedIndexes();
    return listSelected.size() == 1 ? listSelected.first() : QModelIndex();
}

bool CSelectionAnchor::IsLaidOut(const QModelIndex& index) const
{
    return !tree.visualRect(index).isEmpty();
}
