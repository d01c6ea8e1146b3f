#pragma once

#include "Builders.h"
#include "CNameRegistry.h"
#include "data/CProcessorTreeData.h"

struct SControlAnswers;

/// The trees that a filled store has read.
SProcessorAllNode DiscoveredTree();
SProcessorAllNode SimulatorTree();

/// All fields, those too that take no part in the store's own comparison.
bool IsSame(const SProcessorAllNode& a, const SProcessorAllNode& b);

SProcessorAllNode CurrentTree(const CProcessorTreeData& store);
SProcessorAllNode TreeOfPane(const CProcessorTreeData& store, bool bSimulator);

/// Both trees, with processors a and d selected in the Discovered pane and group Lab in the Simulator pane.
void Fill(SControlAnswers& answers);

/// A store that has read both panes once, with the Discovered pane current, and has no library behind it any
/// more.
class CFilledStore : public CProcessorTreeData
{
public:
    CFilledStore();
};
