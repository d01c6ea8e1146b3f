#pragma once

#include <QItemSelection>
#include <QModelIndex>
#include <QUuid>

#include <vector>

struct SProcessorAllNode;

/// Between rows and the lists of ids in which a selection travels; a null id stands for the root.
namespace NodeSelection {

/// The ids of the rows, in their order, without information rows. A group or processor without an id ends
/// the list.
std::vector<QUuid> GetIds(const QModelIndexList& listRow);

/// Those of vecId that are the root, a group or a processor of nodeAll, in their order.
std::vector<QUuid> GetKnownIds(const std::vector<QUuid>& vecId, const SProcessorAllNode& nodeAll);

/// One range per row, as if each were selected by itself: a row that comes twice has its last place.
QItemSelection GetRanges(const QModelIndexList& listRow);

/// The row of the processor with this id, inside or outside of groups; invalid when there is none. Groups
/// themselves are not found, on purpose: those have been selected by CProcessorTree::RestoreSelection() before.
QModelIndex FindProcessor(const QModelIndex& indexRoot, const QUuid& id);

} // namespace NodeSelection
