#include "toolbar/SToolBarState.h"

#include "interfaces/control/SSimulatorRequest.h"
#include "nodes/SProcessorAllNode.h"

namespace {

constexpr int nMaxGroups = 256;
constexpr int nMaxProcessors = 256;

int CountProcessors(const SProcessorAllNode& tree)
{
    int nProcessors = tree.listProcessor.size();
    for (const SProcessorGroupNode& group : tree.listGroup) {
        nProcessors += group.listProcessor.size();
    }
    return nProcessors;
}

} // namespace

SToolBarState SToolBarState::Compute(const SProcessorAllNode& tree, bool bSimulator, bool bLocked)
{
    const int nGroups = tree.listGroup.size();
    const int nProcessors = CountProcessors(tree);
    SToolBarState state;
    state.bAddProcessor = nProcessors < (bSimulator ? nMaxSimulators : nMaxProcessors);
    state.bImport = !bSimulator && !bLocked;
    state.bExport = !bSimulator && (nProcessors > 0 || nGroups > 0);
    state.bAddGroup = nGroups < nMaxGroups;
    return state;
}
