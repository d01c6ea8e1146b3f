#pragma once

#include "model/SRowKey.h"

#include <QModelIndexList>
#include <QSet>

class CProcessorTreeModel;
class QTreeView;

/// Where the user's next key or Shift-click sets out from: the current row, the row at which a range starts,
/// and the selected rows that a new range leaves alone. The view keeps these by index and loses them with
/// the rows; here they outlast a replacement, by kind and id. Changes neither what is selected nor what is
/// reported. GUI thread.
class CSelectionAnchor
{
public:
    /// What the view loses when rows or selection are replaced.
    struct SPlace
    {
        SRowKey keyCurrent;
        QSet<QUuid> setKept; ///< selected nodes that a new range leaves alone; null for the root
    };

    /// Both must outlive this object. The tree selects in ExtendedSelection.
    CSelectionAnchor(QTreeView& treeIn, const CProcessorTreeModel& modelIn);

    /// A press or a move without Shift: ranges start at this row from now on.
    void StartAt(const SRowKey& key);

    /// Before a range is drawn to indexEnd. Where it would start at a row that is gone or out of sight it
    /// starts at the current row instead, or else at indexEnd.
    void PrepareRange(const QModelIndex& indexEnd);

    /// Before a key moves the end of a range: where the current row is gone the range goes on from its start.
    /// False when neither is left.
    bool PrepareMove();

    /// Notes the place. The caller replaces the selection next, with or without the rows: rows that the last
    /// click took out of the selection may be in it again until then.
    SPlace Note() const;

    /// Gives the place back to the view, as far as its rows are there. The current row comes back if it is
    /// selected; else the one selected row becomes current, if there is exactly one. Forces no layout.
    void Restore(const SPlace& place);

private:
    QModelIndexList GetKeptRows() const;
    void SplitSelection(const QSet<QUuid>& setKept);
    void SetStart(const QModelIndex& index);
    void SetCurrent(const QModelIndex& index);
    QModelIndex FindCurrent(const SRowKey& key) const;
    bool IsLaidOut(const QModelIndex& index) const;

    QTreeView& tree;
    const CProcessorTreeModel& model;
    SRowKey keyStart;
};
