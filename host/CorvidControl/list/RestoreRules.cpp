#include "CorvidControl/list/RestoreRules.h"

#include "CorvidControl/list/CPanes.h"

#include <QHostAddress>

#include <algorithm>

namespace {

CNodeTree BuildTree(const SProcessorAllNode& node)
{
    CNodeTree tree;
    tree.SetRoot(node);
    return tree;
}

// Only what comes back can be too much.
SFault FindCountFault(const SProcessorAllNode& result, const CNodeTree& present, int nProcessors, int nGroups,
                      EnRefusalReason reason)
{
    if (result.listGroup.size() > qMax(nGroups, present.GetRoot().listGroup.size())) {
        return { ReasonGroupsFull, {} };
    }
    const bool bFull = BuildTree(result).GetProcessorCount() > qMax(nProcessors, present.GetProcessorCount());
    return bFull ? SFault{ reason, {} } : SFault();
}

SFault FindUse(const QList<SProcessorNode>& listGone, const CPanes& panes, const QString& strProject)
{
    for (const SProcessorNode& processor : listGone) {
        if (panes.FindRunning(processor.idNode, strProject)) {
            return { ReasonInUse, processor.strName };
        }
    }
    return {};
}

// An id is one node's, whichever the pane; where it is two nodes' already the restore is not what doubles it.
bool IsAnyDoubled(const SListRestore& restore, const CPanes& panes)
{
    const CNodeTree tree = BuildTree(restore.discovered.result);
    const QList<QUuid> listId = BuildTree(restore.simulators.result).GetIds();
    return std::any_of(listId.cbegin(), listId.cend(), [&](const QUuid& id) {
        const bool bBefore = panes.GetTree(CPanes::nDiscovered).Contains(id) && panes.GetTree(CPanes::nSimulator).Contains(id);
        return tree.Contains(id) && !bBefore;
    });
}

} // namespace

SFault RestoreRules::FindFault(const SListRestore& restore, const CPanes& panes, const SListLimits& limits,
                               const QString& strProject)
{
    const SFault faults[]{
        FindCountFault(restore.discovered.result, panes.GetTree(CPanes::nDiscovered), limits.nProcessors, limits.nGroups,
                       ReasonListFull),
        FindCountFault(restore.simulators.result, panes.GetTree(CPanes::nSimulator), limits.nSimulators, limits.nGroups,
                       ReasonSimulatorsFull),
        FindUse(restore.discovered.listGone, panes, strProject),
        FindUse(restore.simulators.listGone, panes, strProject),
    };
    for (const SFault& fault : faults) {
        if (!fault.IsNone()) {
            return fault;
        }
    }
    if (restore.discovered.nTakenIP != 0) { // simulators share theirs
        return { ReasonAddressTaken, QHostAddress(restore.discovered.nTakenIP).toString() };
    }
    return IsAnyDoubled(restore, panes) ? SFault{ ReasonAlreadyListed, {} } : SFault();
}
