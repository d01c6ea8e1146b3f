#pragma once

#include "Builders.h"
#include "CNameRegistry.h"
#include "data/CProcessorTreeData.h"

/// The trees that a filled store has read.
SProcessorAllNode DiscoveredTree();
SProcessorAllNode SimulatorTree();

/// All fields, those too that take no part in the store's own comparison.
bool IsSame(const SProcessorAllNode& a, const SProcessorAllNode& b);

SProcessorAllNode CurrentTree(const CProcessorTreeData& store);
SProcessorAllNode TreeOfPane(const CProcessorTreeData& store, bool bSimulator);

/// A store of its own that has read both panes once, with the Discovered pane current. Processors a and
/// d are selected in it, group Lab in the Simulator pane.
class CFilledStore : public CProcessorTreeData
{
public:
    CFilledStore();
};
