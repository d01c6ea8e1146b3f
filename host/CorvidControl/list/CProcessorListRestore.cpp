// What files and restores do to the list as a whole, and how the network follows.
#include "CorvidControl/devices/DeviceReport.h"
#include "CorvidControl/devices/IDeviceNetwork.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/list/RestoreRules.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CHostState.h"

#include <algorithm>

namespace {

constexpr int nDiscovered = CPanes::nDiscovered;
constexpr int nSimulator = CPanes::nSimulator;

SFault GetLocked()
{
    return { ReasonListLocked, {} };
}

QList<QUuid> GetIds(const QList<SProcessorNode>& listProcessor)
{
    QList<QUuid> listId;
    for (const SProcessorNode& processor : listProcessor) {
        listId.append(processor.idNode);
    }
    return listId;
}

QList<QUuid> GetIds(const CNodeTree& tree)
{
    return GetIds(tree.GetProcessors());
}

QList<QUuid> GetIds(const SPaneMerge& merge)
{
    return GetIds(merge.listGone + merge.listBack);
}

} // namespace

bool CProcessorList::IsAnySimulator(const SProcessorAllNode& node) const
{
    CNodeTree tree;
    tree.SetRoot(node);
    const QList<QUuid> listId = tree.GetIds();
    const Lock lock(mutex);
    const CNodeTree& treeSimulator = panes.GetTree(nSimulator);
    return std::any_of(listId.cbegin(), listId.cend(), [&](const QUuid& id) { return treeSimulator.Contains(id); });
}

SProcessorAllNode CProcessorList::TakeReports(const SProcessorAllNode& node) const
{
    const Lock lock(mutex);
    return TakeReports(lock, node);
}

SListReplacement CProcessorList::ReplaceList(const SProcessorAllNode& node, const SListCommand& command)
{
    SListReplacement replacement;
    {
        const Lock lock(mutex);
        if (command.origin == OriginUser && host.IsLocked()) {
            replacement.fault = GetLocked();
            return replacement;
        }
        const SListSnapshot before = TakeSnapshot(lock);
        const QList<QUuid> listGone = GetIds(panes.GetTree(nDiscovered));
        replacement.before = { before.discovered, nEdit };
        panes.Replace(nDiscovered, TakeReports(lock, node));
        Follow(lock, listGone + GetIds(panes.GetTree(nDiscovered)));
        replacement.nEdit = ++nEdit;
        ++nEdition;
        Append(lock, command, node.listGroup.size() + panes.GetTree(nDiscovered).GetProcessorCount(), before);
    }
    dispatcher.Post(SenderPrcList, MessageListChanged);
    return replacement;
}

void CProcessorList::FollowNodes(const QList<QUuid>& listId) const
{
    const Lock lock(mutex);
    Follow(lock, listId);
}

SFault CProcessorList::Restore(const SListSnapshot& from, const SListSnapshot& to, SListRestore& restore)
{
    SOutcome outcome;
    {
        const Lock lock(mutex);
        const SFault fault = TryRestore(lock, from, to, restore);
        if (!fault.IsNone()) {
            return fault;
        }
        restore.before = { panes.Lend(nDiscovered).GetRoot(), nEdit };
        if (restore.discovered.bChanged) {
            panes.Replace(nDiscovered, restore.discovered.result);
        }
        if (restore.simulators.bChanged) {
            panes.Replace(nSimulator, restore.simulators.result);
        }
        Follow(lock, GetIds(restore.discovered) + GetIds(restore.simulators));
        outcome.bChanged = restore.discovered.bChanged || restore.simulators.bChanged;
        outcome.nPane = restore.discovered.bChanged ? nDiscovered : nSimulator;
        Count(lock, outcome);
    }
    Announce(outcome, { SenderPrcList, MessageListChanged });
    return {};
}

SFault CProcessorList::FindRestoreFault(const SListSnapshot& from, const SListSnapshot& to) const
{
    SListRestore restore;
    const Lock lock(mutex);
    return TryRestore(lock, from, to, restore);
}

SProcessorAllNode CProcessorList::TakeReports(const Lock& lock, const SProcessorAllNode& node) const
{
    const QHash<QUuid, SProcessorNode> hashHeard = Hear(lock, node);
    const auto takeReport = [&](SProcessorNode& processor) {
        const std::optional<SNodePlace> place = panes.FindPlace(nDiscovered, processor.idNode);
        processor = DeviceReport::TakeState(
            processor, place ? panes.GetTree(nDiscovered).GetProcessor(*place) : hashHeard.value(processor.idNode, processor));
    };
    SProcessorAllNode result = node;
    for (SProcessorGroupNode& group : result.listGroup) {
        for (SProcessorNode& processor : group.listProcessor) {
            takeReport(processor);
        }
    }
    for (SProcessorNode& processor : result.listProcessor) {
        takeReport(processor);
    }
    return result;
}

QHash<QUuid, SProcessorNode> CProcessorList::Hear(const Lock& /*lock*/, const SProcessorAllNode& node) const
{
    QHash<QUuid, SProcessorNode> hashHeard;
    if (!pNetwork) {
        return hashHeard;
    }
    CNodeTree tree;
    tree.SetRoot(node);
    const QList<QUuid> listId = GetIds(tree);
    for (const QUuid& id : listId) {
        if (const std::optional<SProcessorNode> device = pNetwork->Hear(id)) {
            hashHeard.insert(id, DeviceReport::Mend(*device));
        }
    }
    return hashHeard;
}

void CProcessorList::Follow(const Lock& /*lock*/, const QList<QUuid>& listId) const
{
    if (!pNetwork) {
        return;
    }
    for (const QUuid& id : listId) {
        const SProcessorNode* pProcessor = panes.FindProcessor(id);
        pProcessor ? pNetwork->Follow(*pProcessor) : pNetwork->Forget(id);
    }
}

SFault CProcessorList::TryRestore(const Lock& lock, const SListSnapshot& from, const SListSnapshot& to,
                                  SListRestore& restore) const
{
    if (host.IsLocked()) {
        return GetLocked();
    }
    // Simulators live in this process: what is known of them is what was recorded.
    const QHash<QUuid, SProcessorNode> hashHeard = Hear(lock, to.discovered);
    restore.discovered = PaneMerge::Merge(from.discovered, to.discovered, panes.GetTree(nDiscovered).GetRoot(), hashHeard);
    restore.simulators = PaneMerge::Merge(from.simulators, to.simulators, panes.GetTree(nSimulator).GetRoot());
    return RestoreRules::FindFault(restore, panes, rules.GetLimits(), host.GetProject());
}
