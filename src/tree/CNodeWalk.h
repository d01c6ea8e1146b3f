#pragma once

#include <QModelIndex>

class QTreeView;

/// Steps from node to node over the rows in the order in which they stand on the screen: a row, then
/// the children of an open group. Information rows and the children of closed groups are stepped over;
/// rows that the filter hides are not, on purpose. Valid as long as the rows are.
class CNodeWalk
{
public:
    explicit CNodeWalk(const QTreeView& treeIn);

    /// The node just above the first selected one under indexRoot; indexRoot when that is the first, the
    /// last node when none is selected.
    QModelIndex AboveSelection(const QModelIndex& indexRoot) const;

    /// The node above indexCurrent among the rows of its parent; the parent when it is the first.
    QModelIndex Above(const QModelIndex& indexCurrent) const;

    /// The node below indexCurrent. indexRoot behind the last one, and the first row under indexRoot for
    /// a row that is not found, which includes indexRoot itself.
    QModelIndex Below(const QModelIndex& indexRoot, const QModelIndex& indexCurrent) const;

private:
    template <typename FnStop> QModelIndex LastBefore(const QModelIndex& indexParent, FnStop fnStop) const;
    bool IsOpenGroup(const QModelIndex& index) const;

    const QTreeView& tree;
};
