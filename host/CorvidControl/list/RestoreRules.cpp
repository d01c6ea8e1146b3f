#include "CorvidControl/list/RestoreRules.h"

#include "CorvidControl/list/CPanes.h"

#include <QHostAddress>

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

// An id is one node's, whichever the pane.
bool IsAnyTwice(const SProcessorAllNode& node, const SProcessorAllNode& other)
{
    const CNodeTree tree = BuildTree(other);
    for (const SProcessorGroupNode& group : node.listGroup) {
        if (tree.Contains(group.idNode)) {
            return true;
        }
    }
    const QList<SProcessorNode> listProcessor = BuildTree(node).GetProcessors();
    for (const SProcessorNode& processor : listProcessor) {
        if (tree.Contains(processor.idNode)) {
            return true;
        }
    }
    return false;
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
    const bool bTwice = IsAnyTwice(restore.simulators.result, restore.discovered.result);
    return bTwice ? SFault{ ReasonAlreadyListed, {} } : SFault();
}
