#pragma once

#include <QModelIndex>

class QTreeView;

/// Which node stands next to another one on the screen: a row, then the children of an open group.
/// Information rows and the children of folded groups are stepped over. Rows that the filter hides are not:
/// what a key or a deletion selects does not depend on a search. GUI thread.
namespace NeighbourNode {

/// The node just above the first selected one under indexRoot; indexRoot when that is the first, the last
/// node when none is selected.
QModelIndex AboveSelection(const QTreeView& tree, const QModelIndex& indexRoot);

/// The node above indexCurrent among the rows of its parent; the parent when it is the first.
QModelIndex Above(const QTreeView& tree, const QModelIndex& indexCurrent);

/// The node below indexCurrent. indexRoot for the last one, and the first row under indexRoot for a row that
/// is not found, which includes indexRoot itself.
QModelIndex Below(const QTreeView& tree, const QModelIndex& indexRoot, const QModelIndex& indexCurrent);

} // namespace NeighbourNode
