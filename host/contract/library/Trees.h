#pragma once

#include "contract/library/SReading.h"

/// Questions about the trees of a reading.
namespace Trees {

QList<SProcessorNode> GetProcessors(const SProcessorAllNode& root); ///< of the root, then of the groups
QList<QUuid> GetIds(const SProcessorAllNode& root);                 ///< groups, then processors

const SProcessorGroupNode* FindGroup(const SProcessorAllNode& root, const QUuid& id); ///< in root; null without one
const SNode* Find(const SProcessorAllNode& root, const QUuid& id); ///< a group or a processor; null without one

/// The group of a processor; null where it is at the root or not there.
QUuid FindGroupOf(const SProcessorAllNode& root, const QUuid& idProcessor);

/// The pane that a node is in; -1 for none.
int FindPane(const SReading& reading, const QUuid& id);

/// Its name in quotation marks, "the root" or "an unknown id".
QString Describe(const SReading& reading, const QUuid& id);

/// Without what the panel only carries, and in an order that depends on the ids alone: for comparisons that are about
/// neither.
SProcessorAllNode Normal(const SProcessorAllNode& root);

/// Whether both have the same nodes with the same names, addresses and types in the same groups, unfolded alike. What
/// devices report does not count.
bool HaveSameNodes(const SProcessorAllNode& a, const SProcessorAllNode& b);

/// Whether a panel would show the same.
bool LookAlike(const SReading& a, const SReading& b);

} // namespace Trees
