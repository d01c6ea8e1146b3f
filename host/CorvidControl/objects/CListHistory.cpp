#include "CorvidControl/objects/CListHistory.h"

#include "CorvidControl/devices/CDeviceCommands.h"
#include "CorvidControl/devices/DeviceReport.h"
#include "CorvidControl/devices/IDeviceNetwork.h"
#include "CorvidControl/list/CProcessorList.h"
#include "controlhost/CJobs.h"

CListHistory::CListHistory(CProcessorList& processorsIn, CJobs& jobsIn, IDeviceNetwork& networkIn, CDeviceCommands& commandsIn)
    : processors(processorsIn), jobs(jobsIn), network(networkIn), commands(commandsIn)
{ }

SFault CListHistory::FindFault(const SListSnapshot& from, const SListSnapshot& to) const
{
    const bool bBusy = jobs.IsBusy() || !jobs.GetRunning().isEmpty();
    const SFault fault = processors.FindRestoreFault(from, to);
    return bBusy && fault.reason != ReasonListLocked ? SFault{ ReasonBusy, {} } : fault;
}

bool CListHistory::Restore(const SListSnapshot& from, const SListSnapshot& to)
{
    const SFault fault = TryRestore(from, to);
    if (!fault.IsNone()) {
        processors.Refuse(SenderPrcList, { CommandRestore, QStringLiteral("Restoring the list"), {} }, fault);
    }
    return fault.IsNone();
}

SFault CListHistory::TryRestore(const SListSnapshot& from, const SListSnapshot& to)
{
    const SFault faultNow = FindFault(from, to);
    if (!faultNow.IsNone()) {
        return faultNow;
    }
    const std::lock_guard<std::mutex> lock(mutex);
    SListRestore restore;
    restore.hashHeard = Hear(to.discovered);
    const SFault fault = processors.Restore(from, to, restore);
    if (!fault.IsNone()) {
        return fault;
    }
    QList<QUuid> listId;
    for (const SPaneMerge& merge : { restore.discovered, restore.simulators }) {
        for (const SProcessorNode& processor : merge.listGone + merge.listBack) {
            listId.append(processor.idNode);
        }
    }
    commands.FollowNodes(listId);
    return {};
}

// Simulators live in this process: what is known of them is what was recorded.
QHash<QUuid, SProcessorNode> CListHistory::Hear(const SProcessorAllNode& node) const
{
    CNodeTree tree;
    tree.SetRoot(node);
    QHash<QUuid, SProcessorNode> hashHeard;
    const QList<SProcessorNode> listProcessor = tree.GetProcessors();
    for (const SProcessorNode& processor : listProcessor) {
        if (const std::optional<SProcessorNode> device = network.Hear(processor.idNode)) {
            hashHeard.insert(processor.idNode, DeviceReport::Mend(*device));
        }
    }
    return hashHeard;
}
